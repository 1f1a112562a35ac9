// Members of host records and of classes derived from `Object`.
#include "Velto/Value/Object.h"

#include <gtest/gtest.h>

#include "Velto/Value/Array.h"
#include "Velto/Value/MetaType.h"
#include "tests/unit/Parser/SmallStack.h"
#include "tests/unit/Value/Calls.h"
#include "tests/unit/Value/HostTypes.h"

namespace velto {
namespace {

TEST(HostObject, ARecordShowsItsPropertiesAndNoOthers) {
  const Value person = object(shop::Person{"Ann", 41});
  EXPECT_EQ(person.get("name"), Value("Ann"));
  EXPECT_EQ(person.get("age"), Value(41));
  for (const char* name : {"", "Name", "name ", "name.size", "0", "description"})
    EXPECT_FALSE(person.get(name)) << name;
}

TEST(HostObject, OnlyObjectsBooleansIntegersAndFloatsOf64BitsAreFound) {
  const Value everything = object(shop::Everything());
  struct Row {
    const char* name;
    std::optional<Value> value;
  };
  const Row rows[] = {
      {"flag", Value(true)},
      {"integer", Value(-3)},
      {"small", Value(200)},
      {"large", Value(9223372036854775808.0)},
      {"real", Value(1.5)},
      {"coordinate", Value(2.5)},
      {"narrow", std::nullopt},
      {"value", std::nullopt},
      {"callable", std::nullopt},
      {"tuple", std::nullopt},
      {"present", Value(7)},
      {"absent", std::nullopt},
      {"presentFloat", std::nullopt},
      {"nobody", std::nullopt},
      {"values", Value::arrayLiteral({1, "b"})},
      {"none", Value::arrayLiteral({})},
      {"text", Value("text")},
  };
  for (const Row& row : rows) EXPECT_EQ(everything.get(row.name), row.value) << row.name;
}

TEST(HostObject, ObjectsAreFoundWithTheirOwnMembers) {
  const Value everything = object(shop::Everything());
  EXPECT_EQ(everything.get("person")->get("name"), Value("Ann"));
  EXPECT_EQ(everything.get("shared")->get("name"), Value("Bob"));
  EXPECT_EQ(everything.get("point")->get("y"), Value(2));
  EXPECT_EQ(everything.get("numbers")->get("count"), Value(1));
}

TEST(HostObject, AnArrayOfHostTextsAnswersCountAndIsNoArrayOfValues) {
  const Value names = *object(shop::Everything())->get("names");
  EXPECT_TRUE(names.isObject());
  EXPECT_FALSE(names.array());
  EXPECT_EQ(names.get("count"), Value(2));
}

TEST(HostObject, MembersOfABaseClassAreNotSeen) {
  const Value car = object(shop::Car());
  EXPECT_EQ(car.get("doors"), Value(5));
  EXPECT_FALSE(car.get("wheels"));
  EXPECT_TRUE(car.isOf(MetaType("Car")));
  EXPECT_FALSE(car.isOf(MetaType("Vehicle")));
}

TEST(HostObject, ADescribedPropertyIsSeenWhateverItsAccess) {
  EXPECT_EQ(object(shop::Account(12))->get("balance_"), Value(12));
}

TEST(HostObject, PrintsByItsOwnDescriptionOrByItsProperties) {
  EXPECT_EQ(object(shop::Account(12))->objectDescription(), String("an account"));
  EXPECT_EQ(object(shop::Person{"Ann", 41})->objectDescription(), String("Person(name: Ann, age: 41)"));
}

TEST(HostObject, SharedUnderTheNameOfItsBaseHasTheFormOfTheBase) {
  EXPECT_EQ(object(shop::Person())->typeName(), String("Person"));
  const std::shared_ptr<shop::Unit> unit = std::make_shared<shop::SpecialUnit>();
  EXPECT_EQ(object(unit)->typeName(), String("SpecialUnit"));
  EXPECT_EQ(object(unit)->objectDescription(), String("SpecialUnit(size: 1)"));
  EXPECT_EQ(object(unit)->get("size"), Value(1));
}

TEST(HostObject, AReferenceToItselfPrintsAsItsType) {
  const auto node = std::make_shared<shop::Node>(shop::Node{"a", nullptr});
  node->next = node;
  EXPECT_EQ(object(node)->objectDescription(), String("Node(name: a, next: Node(...))"));
  const auto second = std::make_shared<shop::Node>(shop::Node{"b", node});
  node->next = second;
  EXPECT_EQ(object(node)->objectDescription(), String("Node(name: a, next: Node(name: b, next: Node(...)))"));
  EXPECT_EQ(Value(std::vector<Value>{object(node), object(node)}.front()).description().view().substr(0, 7), "Node(na");
  node->next = nullptr;
}

TEST(HostObject, ARecordAtTheStartOfAnotherIsAnotherOne) {
  struct Inner {
    int number = 1;
  };
  struct Outer {
    Inner inner;
  };
  const auto outer = std::make_shared<Outer>();
  const Properties<Inner> ofInner = {{"number", &Inner::number}};
  const auto inner = [&](const Outer& record) {
    const std::shared_ptr<const Inner> shared(outer, &record.inner);
    return Ref<const Object>(makeRef<HostObject<Inner>>(shared, ofInner));
  };
  const auto object = makeRef<HostObject<Outer>>(outer, Properties<Outer>{{"inner", inner}});
  EXPECT_EQ(object->objectDescription(), String("Outer(inner: Inner(number: 1))"));
}

TEST(HostObject, ALongChainOfRecordsPrintsAsFarAsTheStackGoes) {
  std::shared_ptr<shop::Node> first;
  for (int count = 0; count < 10'000; ++count) first = std::make_shared<shop::Node>(shop::Node{"a", first});
  onSmallStack([&] {
    const String text = object(first)->objectDescription();
    EXPECT_TRUE(text.view().starts_with("Node(name: a, next: Node(name: a"));
    EXPECT_NE(text.view().find("next: Node(...))"), std::string_view::npos);
  });
  while (first) first = std::shared_ptr<shop::Node>(std::move(first->next));
}

TEST(HostObject, ATableOfPropertiesIsWhatIsSearched) {
  const Ref<const Object> person = object(
      shop::Person{"Ann", 41},
      {{"label", &shop::Person::name}, {"isAdult", [](const shop::Person& person) { return person.age >= 18; }}});
  EXPECT_EQ(person->get("label"), Value("Ann"));
  EXPECT_EQ(person->get("isAdult"), Value(true));
  EXPECT_FALSE(person->get("name"));
}

TEST(HostObject, ASharedRecordShowsItsCurrentState) {
  const auto person = std::make_shared<shop::Person>(shop::Person{"Ann", 41});
  const Value value = object(person);
  person->age = 42;
  EXPECT_EQ(value.get("age"), Value(42));
}

struct Size {
  int width;
  double height;
};

BOOST_DESCRIBE_STRUCT(Size, (), (width, height))

TEST(HostObject, OnlyOfARecordOfNumbersIsKnownThatItHoldsNoFunctions) {
  EXPECT_FALSE(object(Size{1, 2})->mayHoldFunctions());
  EXPECT_TRUE(object(Size{1, 2}, {{"width", &Size::width}})->mayHoldFunctions());
  EXPECT_TRUE(object(shop::Person{"Ann", 41})->mayHoldFunctions());
  EXPECT_TRUE(object(std::make_shared<Size>(Size{1, 2}))->mayHoldFunctions());  // it may be a part of something larger
}

/// Has one property, and a member of its own that forwards all other names.
class Counter : public Object {
 public:
  std::optional<Value> get(const String& name) const override {
    return name == "next" ? Value(count_ + 1) : getFromMirror(name);
  }
  String objectDescription() const override { return "counter"; }

 protected:
  std::optional<HostValue> child(const String& name) const override {
    return name == "count" ? std::optional<HostValue>(count_) : std::nullopt;
  }

 private:
  int count_ = 3;
};

/// Doesn't forward.
class Silent final : public Counter {
 public:
  std::optional<Value> get(const String& name) const override {
    return name == "only" ? std::optional<Value>(1) : std::nullopt;
  }
};

class Plain final : public Object {
 public:
  String objectDescription() const override { return "plain"; }
};

TEST(Object, ItsOwnMembersGoBeforeThoseOfTheMirror) {
  const Ref<const Object> counter = makeRef<Counter>();
  EXPECT_EQ(counter->get("next"), Value(4));
  EXPECT_EQ(counter->get("count"), Value(3));
  EXPECT_FALSE(counter->get("other"));
}

TEST(Object, WithoutForwardingOnlyItsOwnMembersAreFound) {
  const Ref<const Object> silent = makeRef<Silent>();
  EXPECT_EQ(silent->get("only"), Value(1));
  EXPECT_FALSE(silent->get("count"));
}

TEST(Object, HasNoPropertiesByDefault) {
  EXPECT_FALSE(makeRef<Plain>()->get("anything"));
}

TEST(Object, AsValueHoldsTheVeryObject) {
  const Ref<const Plain> plain = makeRef<Plain>();
  EXPECT_EQ(plain->asValue().object(), plain.get());
  EXPECT_EQ(plain->asValue().description(), String("plain"));
  EXPECT_EQ(plain->typeName(), String("Plain"));
  EXPECT_TRUE(plain->mayHoldFunctions());
}

TEST(ObjectDeathTest, AsValueStopsWhereNoReferenceHoldsTheObject) {
  const Plain plain;
  EXPECT_DEATH(plain.asValue(), "fatal: An object that becomes a value must be made by makeRef.");
}

}  // namespace
}  // namespace velto

// Types of values, and the names of C++ types that they are made from.
#include "Velto/Value/MetaType.h"

#include <gtest/gtest.h>

#include "Velto/Platform/TypeName.h"
#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"
#include "Velto/Value/IntegerRange.h"
#include "Velto/Value/NativeFunctions.h"
#include "tests/unit/Value/Calls.h"
#include "tests/unit/Value/HostTypes.h"

namespace velto {
namespace {

/// An object under any name.
class Named final : public Object {
 public:
  explicit Named(String name) : name_(std::move(name)) {}
  String objectDescription() const override { return "named"; }
  String typeName() const override { return name_; }

 private:
  String name_;
};

Value named(const char* name) {
  return makeRef<Named>(name);
}

TEST(MetaType, EveryValueHasTheNameOfItsType) {
  const Value function = makeRef<Function0>("f", [] { return Value(); });
  const Value hostArray = makeRef<HostArray>(HostValue::Elements{"a"});
  struct Row {
    Value value;
    const char* name;  // null for none
  };
  const Row rows[] = {
      {true, "Boolean"},
      {1, "Number"},
      {function, "Function"},
      {"a", "String"},
      {Array(), "Array"},
      {hostArray, "Array"},
      {Dictionary(), "Dictionary"},
      {makeRef<HostDictionary>(HostValue::Entries{{1, 1}}), "Dictionary"},
      {makeRef<CountableRange>(0, 3), "OpenRange"},
      {makeRef<CountableClosedRange>(0, 3), "ClosedRange"},
      {asObject(CGPoint()), "CGPoint"},
      {asObject(CGSize()), "CGSize"},
      {asObject(CGRect()), "CGRect"},
      {object(shop::Person()), "Person"},
      {named("NSConcreteAttributedString"), "NSAttributedString"},
      {named("NSConcreteMutableAttributedString"), "NSMutableAttributedString"},
      {named("CountableRange<Int>"), "OpenRange"},
      {named("Pair<A<B>>"), "Pair"},
      {named("NSConcrete"), "NSConcrete"},
      {Value::uninitialized(), nullptr},
      {nullptr, nullptr},
  };
  for (const Row& row : rows) {
    const std::optional<MetaType> type = MetaType::of(row.value);
    EXPECT_EQ(type, row.name ? std::optional(MetaType(row.name)) : std::nullopt) << row.value.description().view();
  }
}

TEST(MetaType, AValueIsOfItsTypeAndOfNoOther) {
  EXPECT_TRUE(Value(1).isOf(MetaType("Number")));
  EXPECT_FALSE(Value(1).isOf(MetaType("Int")));
  EXPECT_FALSE(Value(1).isOf(MetaType("number")));
  EXPECT_FALSE(Value(makeRef<CountableRange>(0, 3)).isOf(MetaType("CountableRange")));
  EXPECT_FALSE(Value().isOf(MetaType("Nil")));
  EXPECT_FALSE(Value().isOf(MetaType("nil")));
  EXPECT_FALSE(Value::uninitialized().isOf(MetaType("Anything")));
  EXPECT_FALSE(named("NSConcreteMutableAttributedString").isOf(MetaType("NSAttributedString")));
}

TEST(MetaType, IsEqualAndHashesByItsName) {
  EXPECT_EQ(MetaType("\u00E9"), MetaType("e\u0301"));
  EXPECT_NE(MetaType("A"), MetaType("B"));
  EXPECT_EQ(MetaType("A").hashValue(), String("A").hash());
  EXPECT_EQ(std::hash<MetaType>()(MetaType("A")), String("A").hash());
}

struct Local {};

[[maybe_unused]] auto operator>(Local, Local) {
  struct Greater {};
  return Greater();
}

TEST(TypeName, HasNeitherNamespacesNorEnclosingClasses) {
  struct Inner {};
  EXPECT_EQ(printedTypeName(typeid(String)), String("String"));
  EXPECT_EQ(printedTypeName(typeid(shop::Person)), String("Person"));
  EXPECT_EQ(printedTypeName(typeid(Local)), String("Local"));
  EXPECT_EQ(printedTypeName(typeid(Inner)), String("Inner"));
  EXPECT_EQ(printedTypeName(typeid(Local() > Local())), String("Greater"));
  EXPECT_EQ(printedTypeName(typeid(HostValue::Unknown)), String("Unknown"));
  EXPECT_EQ(printedTypeName(typeid(unsigned long)), String("unsigned long"));
}

TEST(TypeName, TemplateArgumentsArePrintedOrCut) {
  using Boxed = shop::Box<shop::Box<shop::Person>>;
  EXPECT_EQ(printedTypeName(typeid(Boxed)), String("Box<Box<Person> >"));
  EXPECT_EQ(printedTypeName(typeid(std::pair<const Local*, unsigned int>)), String("pair<Local const*, unsigned int>"));
  EXPECT_EQ(unqualifiedTypeName(typeid(Boxed)), String("Box"));
}

}  // namespace
}  // namespace velto

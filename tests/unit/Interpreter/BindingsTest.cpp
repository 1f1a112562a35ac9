// The names of a scope, few and many.
#include "Velto/Interpreter/Bindings.h"

#include <gtest/gtest.h>

#include "Velto/Value/Object.h"

namespace velto {
namespace {

TEST(Bindings, FindsEachNameWhereverItsTextStands) {
  Bindings names;
  for (int number = 0; number < 100; ++number) {
    const String name = decimal(number);
    EXPECT_EQ(names.find(name), nullptr);
    EXPECT_TRUE(names.add(name, number));
    EXPECT_FALSE(names.add(decimal(number), -1));
    for (int earlier = 0; earlier <= number; ++earlier) EXPECT_EQ(*names.find(decimal(earlier)), Value(earlier));
    EXPECT_EQ(names.placeOf(name), static_cast<std::uint32_t>(number));
    EXPECT_EQ(names.findAt(names.placeOf(name), name), names.find(name));
    EXPECT_EQ(names.findAt(names.placeOf(name) + 1, name), nullptr);
  }
}

TEST(Bindings, EquivalentNamesAreOne) {
  Bindings names;
  names.set("\u00E9", 1);
  names.set("e\u0301", 2);
  EXPECT_EQ(names.size(), 1u);
  EXPECT_EQ(*names.find("\u00E9"), Value(2));
}

TEST(Bindings, AreAsNewOnceTheyAreCleared) {
  Bindings names;
  for (int round = 0; round < 3; ++round) {
    for (int number = 0; number < 20; ++number) names.set(decimal(number), round);
    EXPECT_EQ(*names.find("7"), Value(round));
    names.clear();
    EXPECT_EQ(names.size(), 0u);
    EXPECT_EQ(names.find("7"), nullptr);
  }
}

TEST(Bindings, TakeOtherNamesOnceTheyAreCleared) {
  Bindings names;
  for (const char* const name : {"a", "b", "c"}) names.set(name, name);
  names.clear();
  names.set("a", 1);
  names.set("c", 2);
  EXPECT_EQ(names.find("b"), nullptr);
  EXPECT_EQ(*names.find("a"), Value(1));
  EXPECT_EQ(*names.findAt(1, names.bindings()[1].name), Value(2));
  EXPECT_EQ(names.findAt(2, "c"), nullptr);
  EXPECT_TRUE(names.remove("a"));
  EXPECT_EQ(names.size(), 1u);
  EXPECT_EQ(names.bindings()[0].name, "c");
}

TEST(Bindings, AreClearedAtOnceIfNothingGoesWithThem) {
  Bindings names;
  names.set("a", true);
  names.set("b", 1);
  EXPECT_TRUE(names.clearIfPlain());
  EXPECT_EQ(names.size(), 0u);
  EXPECT_EQ(names.find("a"), nullptr);
  names.set("b", 2);
  EXPECT_EQ(*names.find("b"), Value(2));
}

TEST(Bindings, AreNotClearedAtOnceIfAValueHoldsSomething) {
  Bindings names;
  names.set("a", "text");
  names.set("b", 1);
  EXPECT_FALSE(names.clearIfPlain());
  ASSERT_NE(names.find("a"), nullptr);
  EXPECT_EQ(*names.find("a"), Value("text"));
}

TEST(Bindings, AreNotClearedAtOnceIfTheyAreMany) {
  Bindings names;
  for (std::size_t number = 0; number <= Bindings::few; ++number) names.set(decimal(static_cast<Int>(number)), nullptr);
  EXPECT_FALSE(names.clearIfPlain());
  EXPECT_EQ(names.size(), Bindings::few + 1);
}

/// An object that adds a name to a scope when it goes.
class Latecomer final : public Object {
 public:
  explicit Latecomer(Bindings& names) : names_(names) {}
  Latecomer(const Latecomer&) = delete;
  Latecomer& operator=(const Latecomer&) = delete;
  ~Latecomer() override {
    EXPECT_EQ(names_.find("object"), nullptr);
    EXPECT_NE(names_.find("first"), nullptr);
    names_.set("late", 1);
  }
  String objectDescription() const override { return "late"; }

 private:
  Bindings& names_;
};

TEST(Bindings, AreWholeWhileTheyAreCleared) {
  Bindings names;
  names.set("first", 1);
  names.set("object", Value(Ref<const Object>(makeRef<Latecomer>(names))));
  names.clear();
  EXPECT_EQ(names.size(), 0u);
  EXPECT_EQ(names.find("late"), nullptr);
}

TEST(Bindings, LoseANameAndKeepTheOthers) {
  Bindings names;
  EXPECT_FALSE(names.remove("0"));
  for (int index = 0; index < 20; ++index) names.set(decimal(index), index);
  for (int index = 0; index < 20; index += 2) EXPECT_TRUE(names.remove(decimal(index)));
  EXPECT_FALSE(names.remove("0"));
  EXPECT_EQ(names.size(), 10u);
  for (int index = 0; index < 20; ++index) {
    const Value* const value = names.find(decimal(index));
    ASSERT_EQ(value != nullptr, index % 2 == 1) << index;
    if (value) {
      EXPECT_EQ(*value, Value(index));
    }
  }
  EXPECT_TRUE(names.add("0", 7));
  EXPECT_EQ(names.bindings().back().name, "0");
}

TEST(Bindings, HaveNothingAtAPlaceBehindTheirEnd) {
  Bindings names;
  EXPECT_EQ(names.findAt(7, "a"), nullptr);
  names.set("a", 1);
  EXPECT_EQ(names.findAt(7, "a"), nullptr);
  EXPECT_EQ(names.findAt(0xFFFF'FFFF, "a"), nullptr);
}

}  // namespace
}  // namespace velto

// The names of a scope, few and many.
#include "Velto/Interpreter/Bindings.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstddef>
#include <vector>

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

TEST(Bindings, FindManyNamesAgainOnceTheyAreCleared) {
  std::vector<String> texts;
  for (Int number = 0; number < 12; ++number) texts.push_back(decimal(number));
  Bindings names;
  for (const String& text : texts) EXPECT_TRUE(names.add(text, 1));
  names.clear();
  texts[8] = "another";  // so that a table is made while the names behind it are as before
  for (const String& text : texts) EXPECT_TRUE(names.add(text, text));
  for (const String& text : texts) {
    ASSERT_NE(names.find(text), nullptr) << text;
    EXPECT_EQ(*names.find(text), Value(text));
  }
}

TEST(Bindings, TellOfMostNamesThatTheyAreNotThere) {
  Bindings names;
  const String name = "a";
  EXPECT_FALSE(names.mayHave(name.hash()));
  names.set(name, 1);
  EXPECT_TRUE(names.mayHave(name.hash()));
  EXPECT_FALSE(names.mayHave(name.hash() ^ 1));
  names.clear();
  EXPECT_FALSE(names.mayHave(name.hash()));
  names.set(name, 1);
  EXPECT_TRUE(names.clearIfPlain());
  EXPECT_FALSE(names.mayHave(name.hash()));
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

/// Adds `name` to those that are left of "", "a", "b" and two names that are equivalent, all of which have been
/// cleared.
struct AddedAgain {
  String name;
  std::vector<String> present;
  bool isNew;
};

class NamesThatWereCleared : public testing::TestWithParam<AddedAgain> {};

TEST_P(NamesThatWereCleared, AreAddedAsAnyOther) {
  const auto& [name, present, isNew] = GetParam();
  Bindings names;
  for (const char* const before : {"a", "b", "", "\u00E9"}) names.set(before, before);
  names.clear();
  for (const String& other : present) ASSERT_TRUE(names.add(other, 1));
  EXPECT_EQ(names.add(name, 2), isNew);
  EXPECT_EQ(names.size(), present.size() + (isNew ? 1 : 0));
  ASSERT_NE(names.find(name), nullptr);
  EXPECT_EQ(*names.find(name), Value(isNew ? 2 : 1));
}

INSTANTIATE_TEST_SUITE_P(Of, NamesThatWereCleared,
                         testing::Values(AddedAgain{"a", {}, true}, AddedAgain{"b", {}, true},
                                         AddedAgain{"b", {"a"}, true}, AddedAgain{"b", {"b"}, false},
                                         AddedAgain{"a", {"a", "b"}, false}, AddedAgain{"", {}, true},
                                         AddedAgain{"", {"a", "b"}, true}, AddedAgain{"", {"a", ""}, false},
                                         AddedAgain{"e\u0301", {"a", "b", ""}, true},
                                         AddedAgain{"e\u0301", {"\u00E9"}, false}));

TEST(Bindings, AddTheirOldNamesAgain) {
  Bindings names;
  std::vector<String> few;
  for (std::size_t number = 0; number < 2 * Bindings::few; ++number) few.push_back(decimal(static_cast<Int>(number)));
  for (const std::size_t count : {3u, 8u, 16u, 3u, 9u, 8u}) {
    for (std::size_t number = 0; number < count; ++number) EXPECT_TRUE(names.add(few[number], number));
    for (std::size_t number = 0; number < count; ++number) {
      EXPECT_FALSE(names.add(few[number], nullptr));
      EXPECT_EQ(*names.find(few[number]), Value(number));
    }
    EXPECT_EQ(names.size(), count);
    names.clear();
  }
}

TEST(Bindings, TellNamesApartThatTheFilterTakesForOne) {
  constexpr std::size_t bits = 64;
  const String first = "0";
  Int number = 1;
  while (decimal(number).hash() % bits != first.hash() % bits) ++number;
  const String second = decimal(number);
  Bindings names;
  for (int round = 0; round < 2; ++round) {
    EXPECT_TRUE(names.add(first, 1));
    EXPECT_TRUE(names.add(second, 2));
    EXPECT_FALSE(names.add(second, 3));
    EXPECT_EQ(*names.find(first), Value(1));
    EXPECT_EQ(*names.find(second), Value(2));
    names.clear();
  }
}

/// Names that are added together.
class NamesTogether : public testing::Test {
 protected:
  static auto nameOf(const std::vector<String>& names) {
    return [&names](std::size_t index) -> const String& { return names[index]; };
  }
  bool add(const std::vector<String>& names, const std::vector<Value>& values) {
    return bindings.addAllAgain(values, Bindings::bitsOf(names.size(), nameOf(names)), nameOf(names));
  }
  void defineAndClear(const std::vector<String>& names) {
    for (const String& name : names) bindings.set(name, "before");
    bindings.clear();
  }

  /// The hash is drawn for each process: any of these may share a bit of the filter, but not all three with all others.
  static std::vector<String> threeApart() {
    std::vector<String> names;
    for (Int number = 0; names.size() < 3; ++number) {
      names.push_back(decimal(number));
      if (Bindings::bitsOf(names.size(), nameOf(names)) == 0) names.pop_back();
    }
    return names;
  }

  const std::vector<String> names = threeApart();
  const std::vector<Value> values{1, "two", 3};
  Bindings bindings;
};

TEST_F(NamesTogether, AreAddedWhereTheyStoodBefore) {
  EXPECT_FALSE(add(names, values));
  EXPECT_EQ(bindings.size(), 0u);
  defineAndClear(names);
  for (int round = 0; round < 2; ++round) {
    EXPECT_TRUE(add(names, values));
    ASSERT_EQ(bindings.size(), 3u);
    for (std::size_t index = 0; index < 3; ++index) {
      EXPECT_EQ(*bindings.find(names[index]), values[index]);
      EXPECT_FALSE(bindings.add(names[index], nullptr));
    }
    EXPECT_EQ(bindings.find("another"), nullptr);
    bindings.clear();
    EXPECT_EQ(bindings.find(names[0]), nullptr);
  }
}

TEST_F(NamesTogether, AreAddedUpToTheFirstOtherName) {
  for (std::size_t other = 0; other < 3; ++other) {
    std::vector<String> before = names;
    before[other] = "another";
    defineAndClear(before);
    EXPECT_FALSE(add(names, values));
    ASSERT_EQ(bindings.size(), other);
    for (std::size_t index = 0; index < 3; ++index) {
      EXPECT_EQ(bindings.contains(names[index]), index < other);
      EXPECT_EQ(bindings.add(names[index], values[index]), index >= other);
    }
    for (std::size_t index = 0; index < 3; ++index) EXPECT_EQ(*bindings.find(names[index]), values[index]);
    EXPECT_EQ(bindings.find("another"), nullptr);
    bindings.clear();
  }
}

TEST_F(NamesTogether, MayBeMoreThanTheValues) {
  defineAndClear(names);
  for (std::size_t count = 0; count <= 3; ++count) {
    EXPECT_TRUE(add(names, {values.begin(), values.begin() + static_cast<std::ptrdiff_t>(count)}));
    EXPECT_EQ(bindings.size(), count);
    for (std::size_t index = 0; index < 3; ++index) EXPECT_EQ(bindings.contains(names[index]), index < count);
    bindings.clear();
  }
}

TEST_F(NamesTogether, AreAddedToNoOthers) {
  defineAndClear(names);
  bindings.set(names[0], "before");
  EXPECT_FALSE(add(names, values));
  EXPECT_EQ(bindings.size(), 1u);
  EXPECT_EQ(*bindings.find(names[0]), Value("before"));
}

TEST_F(NamesTogether, AreAddedOnlyWhereAsManyStood) {
  defineAndClear({names[0], names[1]});
  EXPECT_FALSE(add(names, values));
  EXPECT_EQ(bindings.size(), 0u);
  EXPECT_TRUE(add({names[0], names[1]}, {1, 2}));
  EXPECT_EQ(bindings.size(), 2u);
}

TEST_F(NamesTogether, AreOtherNamesByTheirBits) {
  EXPECT_EQ(Bindings::bitsOf(0, nameOf(names)), 0u);
  EXPECT_EQ(std::popcount(Bindings::bitsOf(3, nameOf(names))), 3);
  std::vector<String> same{names[0], names[1], names[0]};
  EXPECT_EQ(Bindings::bitsOf(3, nameOf(same)), 0u);
  bindings.set(names[0], 1);
  bindings.set(names[1], 2);
  bindings.set("another", 3);
  bindings.clear();
  EXPECT_FALSE(add(same, values));
  EXPECT_EQ(bindings.size(), 0u);
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

TEST(Bindings, AreClearedAtOnceIfTextsGoWithThem) {
  Bindings names;
  const Value elsewhere = Value::arrayLiteral({1});
  for (int round = 0; round < 2; ++round) {
    names.set("a", 1);
    names.set("b", "text");
    names.set("c", elsewhere);
    names.set("d", "");
    names.set("e", true);
    EXPECT_TRUE(names.clearIfPlain());
    EXPECT_EQ(names.size(), 0u);
    EXPECT_FALSE(names.mayHave(String("b").hash()));
  }
  EXPECT_TRUE(elsewhere.isLastOfObject());
}

TEST(Bindings, AreNotClearedAtOnceIfAnObjectGoesWithThem) {
  Bindings names;
  names.set("a", Value::arrayLiteral({1}));
  names.set("b", "text");
  names.set("c", 1);
  EXPECT_FALSE(names.clearIfPlain());
  ASSERT_NE(names.find("a"), nullptr);
  EXPECT_EQ(names.find("a")->description(), String("[1]"));
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
  for (const Int others : {0, 7, 8, 40, 100}) {
    Bindings names;
    names.set("first", 1);
    for (Int number = 0; number < others; ++number) names.set(decimal(number), number);
    names.set("object", Value(Ref<const Object>(makeRef<Latecomer>(names))));
    names.clear();
    EXPECT_EQ(names.size(), 0u);
    EXPECT_EQ(names.find("late"), nullptr);
    EXPECT_TRUE(names.add("0", 1));
    EXPECT_FALSE(names.add("0", 1));
  }
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

TEST(Bindings, FindWhatCameAfterOthersWereRemoved) {
  Bindings names;
  for (int index = 0; index < 9; ++index) names.set(decimal(index), index);
  for (int index = 0; index < 9; ++index) names.remove(decimal(index));
  names.set("a", 1);
  names.set("a", 2);
  EXPECT_EQ(names.size(), 1u);
  ASSERT_NE(names.find("a"), nullptr);
  EXPECT_EQ(*names.find("a"), Value(2));
  names.clear();
  EXPECT_TRUE(names.add("a", 3));
  EXPECT_EQ(*names.find("a"), Value(3));
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

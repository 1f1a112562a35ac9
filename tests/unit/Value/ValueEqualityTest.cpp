// When values are equal, and that their hashes agree.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <bit>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <set>
#include <string>
#include <vector>

#include "Velto/Platform/Random.h"
#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"
#include "Velto/Value/IntegerRange.h"
#include "Velto/Value/NativeFunctions.h"
#include "Velto/Value/ValueHash.h"
#include "tests/unit/Value/Calls.h"
#include "tests/unit/Value/HostTypes.h"

namespace velto {
namespace {

using testing::AllOf;
using testing::AllOfArray;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr Int largest = std::numeric_limits<Int>::max();
constexpr Int smallest = std::numeric_limits<Int>::min();

Value open(Int lower, Int upper) {
  return makeRef<CountableRange>(lower, upper);
}

Value closed(Int lower, Int upper) {
  return makeRef<CountableClosedRange>(lower, upper);
}

Value function1(double result) {
  return makeRef<Function1>("f", [result](const Value&) { return Value(result); });
}

Value function0() {
  return makeRef<Function0>("g", [] { return Value(); });
}

TEST(ValueEquality, EqualPairs) {
  const std::pair<Value, Value> rows[] = {
      {nullptr, nullptr},
      {Value::uninitialized(), Value::uninitialized()},
      {true, true},
      {1, 1.0},
      {0.0, -0.0},
      {largest, largest - 1},
      {"a", "a"},
      {"\u00E9", "e\u0301"},
      {"", ""},
      {Value::arrayLiteral({}), Value::arrayLiteral({})},
      {Value::arrayLiteral({1, "a", nullptr}), Value::arrayLiteral({1, "a", nullptr})},
      {Value::arrayLiteral({"\u00E9"}), Value::arrayLiteral({"e\u0301"})},
      {Value::dictionaryLiteral({}), Value::dictionaryLiteral({})},
      {Value::dictionaryLiteral({{"a", 1}, {"b", 2}}), Value::dictionaryLiteral({{"b", 2}, {"a", 1}})},
      {open(0, 3), open(0, 3)},
      {closed(0, 3), closed(0, 3)},
      {closed(0, largest - 1), closed(0, largest - 1)},
      {function1(1), function1(2)},  // equal by the number of parameters, on purpose
  };
  for (const auto& [left, right] : rows) {
    EXPECT_EQ(left, right);
    EXPECT_EQ(left.hashValue(), right.hashValue()) << left.description().view();
    EXPECT_EQ(std::hash<Value>()(left), std::hash<Value>()(right));
  }
}

TEST(ValueEquality, UnequalPairs) {
  const Value record = object(shop::Person{"Ann", 41});
  const Value rect = asObject(CGRect{{0, 0}, {1, 1}});
  const Value point = asObject(CGPoint{1, 2});
  const Value hostArray = makeRef<HostArray>(std::vector<HostValue>{"a"});
  const Value hostDictionary = makeRef<HostDictionary>(std::vector<HostDictionary::Entry>{{"a", 1}});
  const Value arrayWithNaN = Value::arrayLiteral({nan});
  const std::pair<Value, Value> rows[] = {
      {nullptr, false},
      {0, false},
      {nullptr, Value::uninitialized()},
      {nullptr, 0},
      {1, "1"},
      {true, "true"},
      {true, false},
      {1, 2},
      {nan, nan},
      {"a", "b"},
      {"a", "A"},
      {"\r\n", "\n"},
      {Value::arrayLiteral({}), Value::dictionaryLiteral({})},
      {Value::arrayLiteral({1, 2}), Value::arrayLiteral({2, 1})},
      {Value::arrayLiteral({1, 2}), Value::arrayLiteral({1})},
      {Value::arrayLiteral({1}), 1},
      {arrayWithNaN, arrayWithNaN},
      {Value::dictionaryLiteral({{"a", 1}}), Value::dictionaryLiteral({{"a", 2}})},
      {Value::dictionaryLiteral({{"a", 1}}), Value::dictionaryLiteral({{"b", 1}})},
      {Value::dictionaryLiteral({{"a", 1}}), Value::dictionaryLiteral({{"a", 1}, {"b", 2}})},
      {open(0, 3), open(0, 4)},
      {open(0, 3), open(1, 3)},
      {closed(0, 3), closed(0, 4)},
      {closed(0, 2), open(0, 3)},
      {record, record},
      {rect, rect},
      {point, point},
      {hostArray, hostArray},
      {hostDictionary, hostDictionary},
      {hostArray, Value::arrayLiteral({"a"})},
      {function0(), function1(1)},
      {function0(), nullptr},
  };
  for (const auto& [left, right] : rows) {
    EXPECT_NE(left, right);
    EXPECT_NE(right, left);
  }
}

TEST(ValueHash, IsSaltedByKind) {
  EXPECT_EQ(Value().hashValue(), Value::Hash::nil());
  EXPECT_EQ(Value::uninitialized().hashValue(), Value::Hash::uninitialized());
  EXPECT_EQ(Value(false).hashValue(), Value::Hash::boolean());
  EXPECT_EQ(Value(true).hashValue(), Value::Hash::boolean() ^ 1);
  EXPECT_EQ(Value(0).hashValue(), Value::Hash::number());
  EXPECT_EQ(Value(-0.0).hashValue(), Value::Hash::number());
  EXPECT_EQ(Value(1.5).hashValue(), Value::Hash::number() ^ std::bit_cast<Int>(1.5));
  EXPECT_EQ(Value("ab").hashValue(), Value::Hash::string() ^ static_cast<Int>(String("ab").hash()));
  EXPECT_EQ(open(5, 9).hashValue(), Value::Hash::range() ^ 5 ^ 9);
  EXPECT_EQ(closed(5, 9).hashValue(), Value::Hash::range() ^ 5 ^ 10);
  EXPECT_EQ(open(smallest, largest).hashValue(), Value::Hash::range() ^ smallest ^ largest);
  EXPECT_EQ(Value(Array()).hashValue(), Value::Hash::array());
  EXPECT_EQ(Value(Dictionary()).hashValue(), Value::Hash::dictionary());
  EXPECT_EQ(Value(object(shop::Person())).hashValue(), Value::Hash::object());
  EXPECT_EQ(function0().hashValue(), Value::Hash::callable());
  EXPECT_EQ(function1(1).hashValue(), Value::Hash::callable());
}

TEST(ValueHash, CombinesElementsKeysAndValues) {
  EXPECT_EQ(Value::arrayLiteral({1, "a"}).hashValue(),
            Value::Hash::array() ^ Value(1).hashValue() ^ Value("a").hashValue());
  EXPECT_EQ(Value::dictionaryLiteral({{1, "a"}, {2, "b"}}).hashValue(),
            Value::Hash::dictionary() ^ Value(1).hashValue() ^ Value("a").hashValue() ^ Value(2).hashValue() ^
                Value("b").hashValue());
}

TEST(ValueHash, TheOrderOfElementsDoesNotChangeIt) {
  EXPECT_EQ(Value::arrayLiteral({1, 2}).hashValue(), Value::arrayLiteral({2, 1}).hashValue());
}

TEST(ValueHash, AClosedRangeHashesLikeTheHalfOpenOneOverTheSameIntegers) {
  EXPECT_EQ(closed(0, 2).hashValue(), open(0, 3).hashValue());
}

std::vector<Int> salts() {
  using Hash = Value::Hash;
  return {Hash::uninitialized(), Hash::nil(),   Hash::boolean(),    Hash::number(), Hash::string(),
          Hash::range(),         Hash::array(), Hash::dictionary(), Hash::object(), Hash::callable()};
}

TEST(ValueHash, SaltsDifferAndStay) {
  const std::vector<Int> once = salts();
  EXPECT_EQ(std::set<Int>(once.begin(), once.end()).size(), 10u);
  EXPECT_EQ(salts(), once);
  EXPECT_NE(random(), random());
}

TEST(ValueHashDeathTest, TheSaltsOfAnotherProcessAreOthers) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";  // a process of its own, from its start
  const auto tell = [] {
    for (const Int salt : salts()) std::cerr << '<' << salt << '>';
    std::exit(0);
  };
  std::vector<testing::Matcher<const std::string&>> others;
  for (const Int salt : salts()) others.push_back(Not(HasSubstr('<' + std::to_string(salt) + '>')));
  EXPECT_EXIT(tell(), testing::ExitedWithCode(0), AllOf(MatchesRegex("(<-?[0-9]+>){10}"), AllOfArray(others)));
}

TEST(ValueHashDeathTest, AClosedRangeUpToTheLargestIntegerIsAFatalStop) {
  EXPECT_DEATH(closed(0, largest).hashValue(), "fatal: ");
  EXPECT_DEATH(Value::arrayLiteral({closed(largest, largest)}).hashValue(), "fatal: ");
  EXPECT_DEATH(Dictionary().find(closed(0, largest)), "fatal: ");
}

}  // namespace
}  // namespace velto

// Making values, asking them, and printing them.
#include "Velto/Value/Value.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "Velto/Platform/Character.h"
#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"
#include "Velto/Value/IntegerRange.h"
#include "Velto/Value/NativeFunctions.h"
#include "Velto/Value/ValueConvertible.h"
#include "tests/unit/Value/Calls.h"
#include "tests/unit/Value/HostTypes.h"

namespace velto {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

Value someFunction() {
  return makeRef<Function2>("f", [](const Value&, const Value&) { return Value(); });
}

TEST(Value, CasesStandInTheirOrder) {
  EXPECT_LT(Value::Case::boolean, Value::Case::number);
  EXPECT_LT(Value::Case::number, Value::Case::object);
  EXPECT_LT(Value::Case::object, Value::Case::callable);
  EXPECT_LT(Value::Case::callable, Value::Case::uninitialized);
  EXPECT_LT(Value::Case::uninitialized, Value::Case::nil);
}

TEST(Value, EveryConstructorGivesItsCase) {
  struct Row {
    Value value;
    Value::Case kind;
  };
  const Row rows[] = {
      {Value(), Value::Case::nil},
      {nullptr, Value::Case::nil},
      {Value::nil(), Value::Case::nil},
      {Value::uninitialized(), Value::Case::uninitialized},
      {true, Value::Case::boolean},
      {1, Value::Case::number},
      {1u, Value::Case::number},
      {1.5f, Value::Case::number},
      {1.5, Value::Case::number},
      {"text", Value::Case::object},
      {Array(), Value::Case::object},
      {Dictionary(), Value::Case::object},
      {makeRef<CountableRange>(0, 1), Value::Case::object},
      {makeRef<CountableClosedRange>(0, 1), Value::Case::object},
      {object(shop::Person()), Value::Case::object},
      {someFunction(), Value::Case::callable},
      {Ref<const Object>(), Value::Case::nil},
      {Ref<const Array>(), Value::Case::nil},
      {Ref<const Callable>(), Value::Case::nil},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(row.value.kind(), row.kind) << row.value.description().view();
    EXPECT_EQ(row.value.isObject(), row.kind == Value::Case::object);
    EXPECT_EQ(row.value.isNil(), row.kind == Value::Case::nil);
    EXPECT_EQ(row.value.isUninitialized(), row.kind == Value::Case::uninitialized);
  }
}

TEST(Value, TextComesFromEveryKindOfText) {
  EXPECT_TRUE(Value(static_cast<const char*>(nullptr)).isNil());
  const Value rows[] = {"é", std::string("é"), std::string_view("é"), String("é"), Character("é"), U'é'};
  for (const Value& value : rows) {
    ASSERT_TRUE(value.string());
    EXPECT_EQ(*value.string(), String("é"));
  }
  EXPECT_EQ(*Value('a').string(), String("a"));
  EXPECT_EQ(*Value(char32_t{0xD800}).string(), *Value("\xED\xA0\x80").string());
}

TEST(Value, ObjectsOfAKnownKindAreRecognised) {
  const auto asObject = [](auto ref) { return Value(Ref<const Object>(std::move(ref))); };
  EXPECT_TRUE(asObject(makeRef<Array>()).array());
  EXPECT_TRUE(asObject(makeRef<Dictionary>()).dictionary());
  EXPECT_EQ(asObject(makeRef<Array>(std::vector<Value>{1, "a"})), Value::arrayLiteral({1, "a"}));
  EXPECT_EQ(asObject(Ref<const Object>(Value::dictionaryLiteral({{"a", 1}}).dictionary())),
            Value::dictionaryLiteral({{"a", 1}}));
  EXPECT_TRUE(asObject(makeRef<CountableRange>(0, 1)).openRange());
  EXPECT_TRUE(asObject(makeRef<CountableClosedRange>(0, 1)).closedRange());
}

TEST(Value, RangesHoldNoFunctions) {
  EXPECT_FALSE(Value(makeRef<CountableRange>(0, 1)).object()->mayHoldFunctions());
  EXPECT_FALSE(Value(makeRef<CountableClosedRange>(0, 1)).object()->mayHoldFunctions());
}

TEST(Value, AnEmptyArrayOrDictionaryOfTheHostCountsAsOneOfValues) {
  const Value array = makeRef<HostArray>(std::vector<HostValue>());
  const Value dictionary = makeRef<HostDictionary>(std::vector<HostDictionary::Entry>());
  ASSERT_TRUE(array.array());
  ASSERT_TRUE(dictionary.dictionary());
  EXPECT_EQ(array, Value(Array()));
  EXPECT_EQ(dictionary, Value(Dictionary()));
}

TEST(Value, AnArrayOrDictionaryOfTheHostWithNothingButValuesIsOneOfValues) {
  const HostValue number = Value(1);
  const HostValue text = Value("a");
  const Value array = makeRef<HostArray>(std::vector<HostValue>{number, text});
  const Value dictionary = makeRef<HostDictionary>(std::vector<HostDictionary::Entry>{{text, number}});
  EXPECT_EQ(array, Value::arrayLiteral({1, "a"}));
  EXPECT_EQ(dictionary, Value::dictionaryLiteral({{"a", 1}}));
  EXPECT_TRUE(Value::verify(array));
  EXPECT_TRUE(Value::verify(dictionary));
  EXPECT_FALSE(Value(makeRef<HostArray>(std::vector<HostValue>{number, "a"})).array());
  EXPECT_FALSE(Value(makeRef<HostDictionary>(std::vector<HostDictionary::Entry>{{text, 1}})).dictionary());
  EXPECT_FALSE(Value(makeRef<HostDictionary>(std::vector<HostDictionary::Entry>{{"a", number}})).dictionary());
}

TEST(Value, AHostArrayIsAnObjectAndNoArrayOfValues) {
  const Value array = makeRef<HostArray>(std::vector<HostValue>{"a"});
  EXPECT_TRUE(array.isObject());
  EXPECT_TRUE(array.object());
  EXPECT_FALSE(array.array());
}

TEST(Value, QuestionsAnswerForTheirOwnKindOnly) {
  const Value text = "a";
  EXPECT_FALSE(text.boolean());
  EXPECT_FALSE(text.number());
  EXPECT_FALSE(text.array());
  EXPECT_FALSE(text.dictionary());
  EXPECT_FALSE(text.openRange());
  EXPECT_FALSE(text.closedRange());
  EXPECT_FALSE(text.callable());
  EXPECT_FALSE(text.object());
  EXPECT_FALSE(Value(1).string());
  EXPECT_FALSE(Value(1).object());
  EXPECT_FALSE(someFunction().object());
}

TEST(Value, CopiesShareAndOutliveTheOriginal) {
  std::optional<Value> original = Value(Array({Value("a"), Value(1)}));
  const Value copy = *original;
  EXPECT_EQ(copy.array(), original->array());
  original.reset();
  EXPECT_EQ(copy.description(), String("[a, 1]"));
}

TEST(Value, AssignmentToAPartOfItselfKeepsThePart) {
  Value value = Array({Value("inner")});
  value = value.array()->elements()[0];
  EXPECT_EQ(value, Value("inner"));
  const Value& itself = value;
  value = itself;
  EXPECT_EQ(value, Value("inner"));
  Value other = std::move(value);
  value = 1;
  EXPECT_EQ(other, Value("inner"));
  EXPECT_EQ(value, Value(1));
}

TEST(Value, IntegersAreRoundedToTheNearestFloat) {
  constexpr Int largest = std::numeric_limits<Int>::max();
  EXPECT_EQ(*Value(largest).number(), 9223372036854775808.0);
  EXPECT_EQ(Value(largest), Value(largest - 1));
  EXPECT_EQ(Value((Int{1} << 53) + 1), Value(Int{1} << 53));
}

TEST(Value, NonObjectsHaveNoMembersAndNoObjectText) {
  for (const Value& value : {Value(), Value(true), Value(1), Value::uninitialized(), someFunction()}) {
    EXPECT_FALSE(value.get("count"));
    EXPECT_TRUE(value.objectDescription().isEmpty());
  }
  EXPECT_EQ(Value("a").objectDescription(), String("a"));
}

TEST(ValueDescription, EveryKindHasItsText) {
  struct Row {
    Value value;
    const char* text;
  };
  const Row rows[] = {
      {true, "true"},
      {false, "false"},
      {nullptr, "nil"},
      {Value::uninitialized(), "<uninitialized>"},
      {someFunction(), "<callable arity 2>"},
      {"a \"b\"", "a \"b\""},
      {Value::arrayLiteral({"b", "a", 1, nullptr, true}), "[b, a, 1, nil, true]"},
      {Value::arrayLiteral({}), "[]"},
      {Value::dictionaryLiteral({{"a", 1}, {"b", 2}}), "[a: 1, b: 2]"},
      {Value::dictionaryLiteral({}), "[:]"},
      {makeRef<CountableRange>(0, 3), "0..<3"},
      {makeRef<CountableClosedRange>(-1, 3), "-1...3"},
  };
  for (const Row& row : rows) EXPECT_EQ(row.value.description(), String(row.text));
}

TEST(ValueDescription, NumbersHaveSixSignificantDigits) {
  struct Row {
    double number;
    const char* text;
  };
  const Row rows[] = {
      {0, "0"},
      {-0.0, "-0"},
      {1, "1"},
      {-1, "-1"},
      {0.1, "0.1"},
      {1.5, "1.5"},
      {100000, "100000"},
      {999999, "999999"},
      {-999999, "-999999"},
      {999999.5, "1e+06"},
      {1000000, "1e+06"},
      {1234567, "1.23457e+06"},
      {123456789, "1.23457e+08"},
      {0.0001, "0.0001"},
      {0.00001, "1e-05"},
      {1e100, "1e+100"},
      {infinity, "inf"},
      {-infinity, "-inf"},
      {nan, "nan"},
      {std::copysign(nan, -1), "nan"},
  };
  for (const Row& row : rows) EXPECT_EQ(Value(row.number).description(), String(row.text));
}

TEST(ValueVerify, OnlyValuesInArraysAndDictionariesMayEnter) {
  const Value hostArray = makeRef<HostArray>(std::vector<HostValue>{"a"});
  const Value hostDictionary = makeRef<HostDictionary>(std::vector<HostDictionary::Entry>{{"a", 1}});
  struct Row {
    const char* what;
    Value value;
    bool isValid;
  };
  const Row rows[] = {
      {"nil", nullptr, true},
      {"uninitialized", Value::uninitialized(), true},
      {"a boolean", true, true},
      {"a number", 1, true},
      {"a text", "a", true},
      {"a function", someFunction(), true},
      {"a range", makeRef<CountableRange>(0, 1), true},
      {"a record", object(shop::Person()), true},
      {"an empty array", Array(), true},
      {"an empty array of host texts", *HostValue(std::vector<std::string>()).asValue(), true},
      {"an array of host texts", hostArray, false},
      {"an array of values", Value::arrayLiteral({1, "a", nullptr}), true},
      {"a host array within an array", Value::arrayLiteral({1, hostArray}), false},
      {"a host array two deep", Value::arrayLiteral({Value::arrayLiteral({hostArray})}), false},
      {"a host dictionary within an array", Value::arrayLiteral({hostDictionary}), false},
      {"a host dictionary", hostDictionary, false},
      {"a dictionary of values", Value::dictionaryLiteral({{"a", 1}}), true},
      {"a host array as a value", Value::dictionaryLiteral({{"a", hostArray}}), false},
      {"a host array as a key", Value::dictionaryLiteral({{hostArray, 1}}), false},
      {"a host array deep in a dictionary",
       Value::dictionaryLiteral({{"a", Value::dictionaryLiteral({{"b", hostArray}})}}), false},
  };
  for (const Row& row : rows) EXPECT_EQ(Value::verify(row.value), row.isValid) << row.what;
}

TEST(ValueLiterals, ADictionaryKeepsTheOrderOfItsPairs) {
  const Value dictionary = Value::dictionaryLiteral({{"z", 1}, {"a", 2}, {"m", 3}});
  EXPECT_EQ(dictionary.description(), String("[z: 1, a: 2, m: 3]"));
}

TEST(ValueLiteralsDeathTest, ADuplicateKeyIsAFatalStop) {
  EXPECT_DEATH(Value::dictionaryLiteral({{"x", 1}, {"x", 2}}), "fatal: Duplicate values for key: 'x'");
  EXPECT_DEATH(Value::dictionaryLiteral({{1, 1}, {"x", 2}, {1.0, 3}}), "fatal: Duplicate values for key: '1'");
}

TEST(ValueLiterals, NaNIsNoDuplicateOfItself) {
  EXPECT_EQ(*Value::dictionaryLiteral({{nan, 1}, {nan, 2}}).get("count"), Value(2));
}

TEST(ValueConvertible, EveryImplementerGivesItsValue) {
  EXPECT_EQ(asValue(true), Value(true));
  EXPECT_EQ(asValue(1.5), Value(1.5));
  EXPECT_EQ(asValue(1.5f), Value(1.5));
  EXPECT_EQ(asValue(Int{3}), Value(3));
  EXPECT_EQ(asValue(String("a")), Value("a"));
  EXPECT_EQ(asValue(Value("a")), Value("a"));
  EXPECT_EQ(Value("a").asValue(), Value("a"));
  const Ref<const CountableRange> range = makeRef<CountableRange>(0, 1);
  EXPECT_EQ(asValue(*range).openRange(), range.get());
  const Ref<const Callable> function = makeRef<Function0>("f", [] { return Value(); });
  EXPECT_EQ(asValue(*function).callable(), function.get());
  static_assert(!ValueConvertible<shop::Opaque>);
}

TEST(Value, KnowsWhetherAnObjectGoesWithIt) {
  for (const Value& value : {Value(), Value(true), Value(1), Value("text"), Value("")}) {
    EXPECT_FALSE(value.isLastOfObject());
  }
  const Value array = Value::arrayLiteral({1});
  EXPECT_TRUE(array.isLastOfObject());
  {
    const Value copy = array;
    EXPECT_FALSE(array.isLastOfObject());
    EXPECT_FALSE(copy.isLastOfObject());
  }
  EXPECT_TRUE(array.isLastOfObject());
}

}  // namespace
}  // namespace velto

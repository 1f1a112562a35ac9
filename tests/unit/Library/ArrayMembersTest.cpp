// The members of arrays, of values and of what else a host holds.
#include "Velto/Library/ArrayMembers.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "Velto/Value/NativeFunctions.h"
#include "tests/unit/Value/Calls.h"
#include "tests/unit/Value/HostTypes.h"

namespace velto {
namespace {

using test::callMember;
using test::Failure;
using test::memberFailure;

Value numbers() {
  return Value::arrayLiteral({3, 1, 2});
}

Value hostTexts() {
  return makeRef<HostArray>(HostValue::Elements{"b", "a"});
}

/// Its element at index 3 can't be converted.
Value mixed() {
  return makeRef<HostArray>(HostValue::Elements{3, 1, 2, shop::Opaque(), 0});
}

Value function1(std::function<Value(const Value&)> closure) {
  return makeRef<Function1>("f", std::move(closure));
}

Value function2(std::function<Value(const Value&, const Value&)> closure) {
  return makeRef<Function2>("f", std::move(closure));
}

Value always(Value answer) {
  return function1([answer](const Value&) { return answer; });
}

Value lessThan() {
  return function2([](const Value& left, const Value& right) { return Value(*left.number() < *right.number()); });
}

/// A function that fails by the report that it is given.
class Failing final : public Callable {
 public:
  explicit Failing(std::size_t parameters) : labels_(parameters) {}
  String name() const override { return "failing"; }
  std::span<const Label> labels() const noexcept override { return labels_; }
  Value call(Interpreter&, Arguments, const ReportError& reportError) const override { reportError("it failed"); }

 private:
  Labels labels_;
};

TEST(ArrayMembers, MayHoldFunctionsUnlessNothingButTextsAndNumbersIsInTheArray) {
  const auto mayHoldFunctions = [](const Value& array, const char* member) {
    return array.get(member)->callable()->mayHoldFunctions();
  };
  for (const char* member : {"map", "filter", "sorted", "joined"}) {
    const Value plain = Value::arrayLiteral({1, "a", true, Value::nil()});
    EXPECT_FALSE(mayHoldFunctions(plain, member));
    EXPECT_EQ(plain.array()->contents.get(), ContentsMark::Kind::plain);
    EXPECT_FALSE(mayHoldFunctions(plain, member));
    EXPECT_FALSE(mayHoldFunctions(Array(), member));
    EXPECT_TRUE(mayHoldFunctions(Value::arrayLiteral({1, plain}), member));
    EXPECT_TRUE(mayHoldFunctions(Value::arrayLiteral({1, always(1)}), member));
    EXPECT_TRUE(mayHoldFunctions(hostTexts(), member));
  }
  const Value known = Value::arrayLiteral({numbers()});
  known.array()->contents.set(ContentsMark::Kind::plain);
  EXPECT_FALSE(mayHoldFunctions(known, "map"));
  known.array()->contents.set(ContentsMark::Kind::opaque);
  EXPECT_TRUE(mayHoldFunctions(known, "map"));
}

TEST(ArrayMembers, PlainMembersNeedNoCall) {
  EXPECT_EQ(Value(Array()).get("count"), Value(0));
  EXPECT_EQ(Value(Array()).get("isEmpty"), Value(true));
  EXPECT_EQ(numbers().get("count"), Value(3));
  EXPECT_EQ(numbers().get("isEmpty"), Value(false));
  EXPECT_EQ(hostTexts().get("count"), Value(2));
  EXPECT_EQ(hostTexts().get("isEmpty"), Value(false));
}

TEST(ArrayMembers, FunctionsHaveTheirNamesAndLabels) {
  struct Row {
    const char* member;
    Labels labels;
  };
  const Row rows[] = {
      {"contains", {std::nullopt}}, {"equals", {std::nullopt, std::nullopt}},
      {"filter", {std::nullopt}},   {"joined", {"separator"}},
      {"map", {std::nullopt}},      {"sorted", {"by"}},
  };
  for (const Row& row : rows) {
    const Value member = *numbers().get(row.member);
    EXPECT_EQ(member.callable()->name(), String(row.member));
    const std::span<const Label> labels = member.callable()->labels();
    EXPECT_TRUE(std::equal(labels.begin(), labels.end(), row.labels.begin(), row.labels.end())) << row.member;
  }
}

TEST(ArrayMembers, ThereAreNoOthers) {
  for (const char* name : {"", "first", "append", "Count", "join", "sort"}) EXPECT_FALSE(numbers().get(name)) << name;
}

TEST(ArrayMembers, FunctionsKeepTheArrayAlive) {
  std::optional<Value> array = numbers();
  const Value contains = *array->get("contains");
  const Value map = *array->get("map");
  EXPECT_EQ(static_cast<const Map&>(*map.callable()).array.get(), array->array());
  array.reset();
  EXPECT_EQ(test::call(contains, {2}), Value(true));
  EXPECT_EQ(test::call(map, {always(0)}), Value::arrayLiteral({0, 0, 0}));
}

TEST(ArrayContains, FindsValuesOnly) {
  EXPECT_EQ(callMember(numbers(), "contains", {1.0}), Value(true));
  EXPECT_EQ(callMember(numbers(), "contains", {"1"}), Value(false));
  EXPECT_EQ(callMember(Value(Array()), "contains", {nullptr}), Value(false));
  EXPECT_EQ(callMember(Value::arrayLiteral({nullptr}), "contains", {nullptr}), Value(true));
  EXPECT_EQ(callMember(hostTexts(), "contains", {"a"}), Value(false));
  const Value half = makeRef<HostArray>(HostValue::Elements{"a", Value("b")});
  EXPECT_EQ(callMember(half, "contains", {"a"}), Value(false));
  EXPECT_EQ(callMember(half, "contains", {"b"}), Value(true));
}

TEST(ArrayEquals, ComparesItsArgumentsAlone) {
  EXPECT_EQ(callMember(numbers(), "equals", {1, 1}), Value(true));
  EXPECT_EQ(callMember(numbers(), "equals", {numbers(), Value::arrayLiteral({3})}), Value(false));
}

TEST(ArrayMap, GivesTheResultsInOrder) {
  const Value twice = function1([](const Value& value) { return Value(*value.number() * 2); });
  EXPECT_EQ(callMember(numbers(), "map", {twice}), Value::arrayLiteral({6, 2, 4}));
  const Value upper = function1([](const Value& value) { return callMember(value, "uppercased", {}); });
  EXPECT_EQ(callMember(hostTexts(), "map", {upper}), Value::arrayLiteral({"B", "A"}));
}

TEST(ArrayMap, OfNothingCallsNothing) {
  const Value fail = makeRef<Failing>(1u);
  EXPECT_EQ(callMember(Value(Array()), "map", {fail}), Value(Array()));
  EXPECT_EQ(memberFailure(Value(Array()), "map", {1}), String("`map` expects a function, got '1'."));
}

TEST(ArrayMap, ReportsABadElementAfterTheCallsForThoseBeforeIt) {
  int calls = 0;
  const Value count = function1([&](const Value&) { return Value(++calls); });
  EXPECT_EQ(memberFailure(mixed(), "map", {count}), String("`map` found invalid value 'Opaque'."));
  EXPECT_EQ(calls, 3);
}

TEST(ArrayFilter, KeepsWhatIsTrueAndDropsWhatCannotBeConverted) {
  const Value isLarge = function1([](const Value& value) { return Value(*value.number() > 1); });
  EXPECT_EQ(callMember(numbers(), "filter", {isLarge}), Value::arrayLiteral({3, 2}));
  EXPECT_EQ(callMember(mixed(), "filter", {always(true)}), Value::arrayLiteral({3, 1, 2, 0}));
  EXPECT_EQ(callMember(hostTexts(), "filter", {always(true)}), Value::arrayLiteral({"b", "a"}));
  EXPECT_EQ(callMember(Value(Array()), "filter", {always(true)}), Value(Array()));
}

TEST(ArrayJoined, JoinsTheTextsOfTheElements) {
  EXPECT_EQ(callMember(Value::arrayLiteral({1, "a", nullptr}), "joined", {"-"}), Value("1-a-nil"));
  EXPECT_EQ(callMember(Value::arrayLiteral({1000000}), "joined", {"-"}), Value("1e+06"));
  EXPECT_EQ(callMember(Value(Array()), "joined", {"-"}), Value(""));
  EXPECT_EQ(callMember(hostTexts(), "joined", {", "}), Value("b, a"));
  EXPECT_EQ(callMember(makeRef<HostArray>(HostValue::Elements{1.0, 1, "a", nullptr}), "joined", {""}),
            Value("1.01anil"));
}

TEST(ArrayJoined, IsTheSameOneByOne) {
  std::vector<Value> elements;
  for (int number = 0; number < 200; ++number) {
    const Value parts[] = {number / 3.0, "text", "\u00E9", true, nullptr, numbers(), Value(Array()), number};
    elements.push_back(parts[number % 8]);
    const Array array(elements);
    for (const char* separator : {"", ", ", "\u00E9"}) {
      ASSERT_EQ(callMember(Value(array), "joined", {separator}), Value(joinedOneByOne(array, separator)));
    }
  }
}

TEST(ArraySorted, OrdersByTheFunction) {
  EXPECT_EQ(callMember(numbers(), "sorted", {lessThan()}), Value::arrayLiteral({1, 2, 3}));
  EXPECT_EQ(callMember(mixed(), "sorted", {lessThan()}), Value::arrayLiteral({0, 1, 2, 3}));
  const Value byText =
      function2([](const Value& left, const Value& right) { return Value(*left.string() < *right.string()); });
  EXPECT_EQ(callMember(hostTexts(), "sorted", {byText}), Value::arrayLiteral({"a", "b"}));
  std::vector<Value> many;
  std::vector<Value> ordered;
  for (int number = 0; number < 101; ++number) {
    many.push_back(number * 37 % 101);
    ordered.push_back(number);
  }
  EXPECT_EQ(callMember(Value(Array(many)), "sorted", {lessThan()}), Value(Array(ordered)));
}

TEST(ArraySorted, LeavesTheArrayAsItWas) {
  const Value array = numbers();
  callMember(array, "sorted", {lessThan()});
  EXPECT_EQ(array, numbers());
}

TEST(ArraySorted, AsksTheNewOneAgainstTheEarlier) {
  std::string questions;
  const Value recording = function2([&](const Value& left, const Value& right) {
    questions += left.description().view();
    questions += right.description().view();
    questions += ' ';
    return Value(*left.number() < *right.number());
  });
  callMember(numbers(), "sorted", {recording});
  EXPECT_EQ(questions, "13 23 21 ");
}

TEST(ArraySorted, NeverCallsForFewerThanTwoElements) {
  const Value fail = makeRef<Failing>(2u);
  EXPECT_EQ(callMember(Value::arrayLiteral({1}), "sorted", {fail}), Value::arrayLiteral({1}));
  EXPECT_EQ(callMember(Value(Array()), "sorted", {fail}), Value(Array()));
  EXPECT_EQ(memberFailure(Value::arrayLiteral({1}), "sorted", {"f"}), String("`sort` expects a function, got 'f'."));
}

TEST(ArrayMembers, MessagesOfFailingCalls) {
  struct Row {
    const char* member;
    Value argument;
    const char* message;
  };
  const Value answersOne = function2([](const Value&, const Value&) { return Value(1); });
  const Row rows[] = {
      {"map", nullptr, "`map` expects a function, got 'nil'."},
      {"filter", "f", "`filter` expects a function, got 'f'."},
      {"filter", always("yes"), "`filter` should return a boolean, returned 'yes'."},
      {"joined", 1, "`join` expects a string separator, got '1'."},
      {"sorted", Value::arrayLiteral({1, 2}), "`sort` expects a function, got '[1, 2]'."},
      {"sorted", answersOne, "`filter` should return a boolean, returned '1'."},
      {"map", makeRef<Failing>(1u), "it failed"},
      {"filter", makeRef<Failing>(1u), "it failed"},
      {"sorted", makeRef<Failing>(2u), "it failed"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(memberFailure(numbers(), row.member, {row.argument}), String(row.message)) << row.member;
  }
}

TEST(ArrayMembers, AFunctionWithFewerParametersIsCalledAllTheSame) {
  EXPECT_EQ(callMember(numbers(), "map", {makeRef<Function0>("f", [] { return Value("x"); })}),
            Value::arrayLiteral({"x", "x", "x"}));
  EXPECT_EQ(callMember(numbers(), "sorted", {always(false)}), numbers());
}

TEST(ArrayMembersDeathTest, ANativeFunctionWithMoreParametersIsAFatalStop) {
  EXPECT_DEATH(callMember(numbers(), "map", {lessThan()}), "fatal: ");
  EXPECT_DEATH(test::call(*numbers().get("map"), {}), "fatal: ");
}

TEST(ArrayDescription, ElementsPrintBare) {
  EXPECT_EQ(Value(Array()).description(), String("[]"));
  EXPECT_EQ(Value::arrayLiteral({"b", "a"}).description(), String("[b, a]"));
  EXPECT_EQ(Value::arrayLiteral({Value::arrayLiteral({"a"}), true, 0.5}).description(), String("[[a], true, 0.5]"));
  EXPECT_EQ(hostTexts().description(), String("[b, a]"));
  EXPECT_EQ(mixed().description(), String("[3, 1, 2, Opaque, 0]"));
  EXPECT_EQ(HostValue(std::vector<std::vector<std::string>>{{"a"}}).asValue()->description(), String("[[\"a\"]]"));
}

}  // namespace
}  // namespace velto

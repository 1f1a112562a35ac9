// The messages and fatal stops that no program can bring about, only a host or tokens made by hand.
#include <gtest/gtest.h>

#include <csignal>
#include <limits>

#include "Velto/Velto.h"
#include "tests/support/TestHost.h"

namespace velto {
namespace {

using Lines = std::vector<std::string>;

const auto isAbort = testing::KilledBySignal(SIGABRT);

std::string fatal(const std::string& what) {
  return "^fatal: " + what + "\n$";
}

std::shared_ptr<Logger> logger() {
  return std::make_shared<ArrayLogger>();
}

Token handmade(TokenType type) {
  return Token(type, "x", Range("a", 1, 1));
}

/// An object whose only member is `equals`.
class Comparing final : public Object {
 public:
  explicit Comparing(Value equals) : equals_(std::move(equals)) {}

  std::optional<Value> get(const String& name) const override {
    return name == "equals" ? std::optional(equals_) : std::nullopt;
  }
  String objectDescription() const override { return "comparing"; }
  bool operator==(const Comparing& other) const { return this == &other; }

 private:
  Value equals_;
};

Value number(Int value) {
  return Value(static_cast<double>(value));
}

TEST(FatalStopsDeathTest, CursorsOverText) {
  ScannableString empty("");
  EXPECT_EXIT(empty.next(), isAbort, fatal("There is no character behind the end of a text."));
  EXPECT_EXIT(empty.previous(), isAbort, fatal("There is no character before the start of a text."));
  EXPECT_EXIT(empty.advance(), isAbort, fatal("A cursor can't move beyond the end of its text."));
}

TEST(FatalStopsDeathTest, CursorsOverArrays) {
  ScannableArray<int> empty({});
  EXPECT_EXIT(empty.advance(), isAbort, fatal("A cursor can't move beyond the end of its array."));
}

TEST(FatalStopsDeathTest, RangesOverTwoFiles) {
  EXPECT_EXIT(Range(Cursor{"a", 1, 1}, Cursor{"b", 1, 1}), isAbort,
              fatal("A range must start and end in the same file."));
}

TEST(FatalStopsDeathTest, LiteralTokensWithoutTheirValue) {
  Parser strings({handmade(TokenType::string)}, logger());
  EXPECT_EXIT(strings.parse(), isAbort, fatal("Expected a string literal."));
  Parser numbers({handmade(TokenType::number)}, logger());
  EXPECT_EXIT(numbers.parse(), isAbort, fatal("Expected a number literal."));
}

TEST(FatalStopsDeathTest, RangesOfIntegers) {
  EXPECT_EXIT(CountableRange(2, 1), isAbort, fatal("The upper bound of a range is below its lower bound"));
  EXPECT_EXIT(CountableClosedRange(2, 1), isAbort, fatal("The upper bound of a range is below its lower bound"));
}

TEST(FatalStopsDeathTest, ClosedRangesUpToTheLargestInteger) {
  const Value range = makeRef<CountableClosedRange>(0, std::numeric_limits<Int>::max())->asValue();
  EXPECT_EXIT(range.hashValue(), isAbort,
              fatal("The hash of a closed range can't be told where its upper bound is the largest integer"));
  test::TestHost host;
  host.processor.globals["all"] = range;
  EXPECT_EXIT(host.run("for i in all end"), isAbort, fatal("A loop can't run up to the largest integer."));
}

TEST(FatalStopsDeathTest, NativeFunctions) {
  test::TestHost host;
  host.processor.globals["two"] = makeRef<Function2>("two", [](auto, auto) { return Value(); })->asValue();
  EXPECT_EXIT(host.run("[1].map(two)"), isAbort, fatal("Argument 1 of a native function is missing"));

  const auto returning = [](const String&) {};
  const ReportError reportError = returning;
  EXPECT_EXIT(reportError("text"), isAbort, fatal("A function that reports an error must not return"));
}

TEST(ObjectsInComparisons, NeedAnEqualsFunction) {
  test::TestHost host;
  host.processor.globals["none"] = makeRef<Comparing>(number(1))->asValue();
  host.run("none == 1");
  EXPECT_EQ(host.messages(), (Lines{"main.velto:1:6...1:8: error: Objects must implement 'equals' function."}));
}

TEST(ObjectsInComparisons, NeedABooleanFromIt) {
  test::TestHost host;
  const auto equals = makeRef<Function2>("equals", [](auto, auto) { return number(1); });
  host.processor.globals["vague"] = makeRef<Comparing>(equals->asValue())->asValue();
  host.run("1 == vague");
  EXPECT_EQ(host.messages(), (Lines{"main.velto:1:3...1:5: error: Objects must implement 'equals' function."}));
}

TEST(ObjectsInComparisons, NeedItToTakeTwoArguments) {
  test::TestHost host;
  const auto equals = makeRef<Function1>("equals", [](auto) { return Value(true); });
  host.processor.globals["lonely"] = makeRef<Comparing>(equals->asValue())->asValue();
  host.run("lonely != 1");
  EXPECT_EQ(host.messages(),
            (Lines{"main.velto:1:8...1:10: error: Object's 'equals' function must take two arguments."}));
}

TEST(ObjectsInComparisons, FailAtThePatternOfASwitch) {
  test::TestHost host;
  host.processor.globals["none"] = makeRef<Comparing>(number(1))->asValue();
  host.run("switch none case 1 + 2: print(1) default: print(2) end");
  EXPECT_EQ(host.messages(), (Lines{"main.velto:1:18...1:23: error: Objects must implement 'equals' function."}));
}

TEST(ObjectsInComparisons, AskTheOtherSideWhereTheFirstHasNoFunction) {
  test::TestHost host;
  const auto equals = makeRef<Function2>("equals", [](auto, auto) { return Value(true); });
  host.processor.globals["none"] = makeRef<Comparing>(number(1))->asValue();
  host.processor.globals["easy"] = makeRef<Comparing>(equals->asValue())->asValue();
  host.run("print(none == easy)");
  EXPECT_EQ(host.output(), "true");
}

TEST(ObjectsInComparisons, TellAtTheOperatorWhichSideIsOfAnotherType) {
  test::TestHost host;
  const auto equals = makeRef<Equals<Comparing>>();
  host.processor.globals["one"] = makeRef<Comparing>(equals->asValue())->asValue();
  host.run("one == 1");
  host.run("1 == one");
  EXPECT_EQ(host.messages(), (Lines{"main.velto:1:5...1:7: error: Right-hand side is not 'Comparing'.",
                                    "main.velto:1:3...1:5: error: Left-hand side is not 'Comparing'."}));
}

struct Opaque {};

TEST(HostArrays, FailInMapAtTheCallWithItsTrail) {
  test::TestHost host;
  const Value opaque = makeRef<HostArray>(std::vector<HostValue>{HostValue(Opaque())});
  host.processor.globals["opaque"] = makeRef<Function0>("opaque", [opaque] { return opaque; })->asValue();
  host.run("func f(_ x) return x end opaque().map(f)");
  EXPECT_EQ(host.messages(), (Lines{"main.velto:1:38...1:39: error: `map` found invalid value 'Opaque'.",
                                    "main.velto:1:26...1:41: info: map(<callable arity 1>) called here"}));
}

}  // namespace
}  // namespace velto

// Callables: what all of them do, closures of the host, and `Equals`.
#include "Velto/Value/Callable.h"

#include <gtest/gtest.h>

#include "Velto/Value/Equals.h"
#include "Velto/Value/NativeFunctions.h"
#include "tests/unit/Value/Calls.h"
#include "tests/unit/Value/HostTypes.h"

namespace velto {
namespace {

using test::call;
using test::failureOf;

Ref<Function2> copy() {
  return makeRef<Function2>("copy", std::array<Label, 2>{"from", "to"},
                            [](const Value&, const Value&) { return Value(true); });
}

TEST(Callable, DescribesACallWithLabelsAndBareTexts) {
  const Value texts[] = {"a.txt", "b.txt", "c.txt"};
  EXPECT_EQ(copy()->describe(texts), String("copy(from: a.txt, to: b.txt)"));
  EXPECT_EQ(copy()->describe(std::span(texts, 1)), String("copy(from: a.txt)"));
  EXPECT_EQ(copy()->describe({}), String("copy()"));
  const Function1 print("print", [](const Value&) { return Value(); });
  EXPECT_EQ(print.describe(std::vector<Value>{3}), String("print(3)"));
  EXPECT_EQ(Function0("f", [] { return Value(); }).describe(texts), String("f()"));
}

TEST(Callable, AsValueHoldsTheVeryCallable) {
  const Ref<Function2> function = copy();
  EXPECT_EQ(function->asValue().callable(), function.get());
  EXPECT_EQ(function->asValue().description(), String("<callable arity 2>"));
}

TEST(CallableDeathTest, AsValueStopsWhereNoReferenceHoldsTheCallable) {
  const Function0 function("f", [] { return Value(); });
  EXPECT_DEATH(function.asValue(), "fatal: A callable that becomes a value must be made by makeRef.");
}

TEST(NativeFunction, HasANameLabelsAndAsManyParametersAsItsNumber) {
  const auto none = makeRef<Function0>("f0", [] { return Value(0); });
  const auto three = makeRef<Function3>("f3", [](const Value& a, const Value&, const Value& c) {
    return Value::arrayLiteral({a, c});
  });
  const auto four = makeRef<Function4>("f4", [](const Value& a, const Value& b, const Value& c, const Value& d) {
    return Value::arrayLiteral({d, c, b, a});
  });
  EXPECT_EQ(none->arity(), 0);
  EXPECT_EQ(three->arity(), 3);
  EXPECT_EQ(four->arity(), 4);
  EXPECT_EQ(four->name(), String("f4"));
  EXPECT_EQ(none->closure()(), Value(0));
  for (const Label& label : four->labels()) EXPECT_FALSE(label);
  EXPECT_EQ(call(*three, {1, 2, 3}), Value::arrayLiteral({1, 3}));
  EXPECT_EQ(call(*four, {1, 2, 3, 4}), Value::arrayLiteral({4, 3, 2, 1}));
}

TEST(NativeFunction, LabelsCanBeGivenLater) {
  const auto function = makeRef<Function1>("f", [](const Value& value) { return value; });
  function->setLabels({Label("by")});
  EXPECT_EQ(function->labels()[0], Label("by"));
}

TEST(NativeFunction, IgnoresArgumentsBehindItsLast) {
  EXPECT_EQ(call(Function0("f", [] { return Value("done"); }), {1, 2}), Value("done"));
  EXPECT_EQ(call(Function1("f", [](const Value& value) { return value; }), {1, 2}), Value(1));
}

TEST(NativeFunctionDeathTest, AMissingArgumentIsAFatalStop) {
  EXPECT_DEATH(call(*copy(), {"a"}), "fatal: .*1");
  EXPECT_DEATH(call(*copy(), {}), "fatal: ");
}

TEST(ReportErrorDeathTest, AFunctionThatReturnsIsAFatalStop) {
  const auto ignore = [](const String&) {};
  EXPECT_DEATH(ReportError{ignore}("message"), "fatal: ");
}

TEST(Equals, LooksLikeAMember) {
  const Equals<String> equals;
  EXPECT_EQ(equals.name(), String("equals"));
  EXPECT_EQ(equals.arity(), 2);
  for (const Label& label : equals.labels()) EXPECT_FALSE(label);
}

TEST(Equals, NilIsEqualToNilOnlyAndNeedsNoType) {
  const Equals<String> equals;
  EXPECT_EQ(call(equals, {nullptr, nullptr}), Value(true));
  EXPECT_EQ(call(equals, {nullptr, 1}), Value(false));
  EXPECT_EQ(call(equals, {1, nullptr}), Value(false));
}

TEST(Equals, NamesTheSideThatIsOfAnotherType) {
  const Equals<String> equals;
  EXPECT_EQ(failureOf(equals, {1, 2}), String("Left-hand side is not 'String'."));
  EXPECT_EQ(failureOf(equals, {1, "a"}), String("Left-hand side is not 'String'."));
  EXPECT_EQ(failureOf(equals, {"a", 1}), String("Right-hand side is not 'String'."));
  EXPECT_EQ(failureOf(equals, {true, "a"}), String("Left-hand side is not 'String'."));
  EXPECT_EQ(failureOf(Equals<shop::Person>(), {"a", "b"}), String("Left-hand side is not 'Person'."));
  EXPECT_EQ(failureOf(Equals<shop::Box<int>>(), {"a", "b"}), String("Left-hand side is not 'Box<int>'."));
}

TEST(Equals, ComparesByTheTypesOwnEquality) {
  EXPECT_EQ(call(Equals<String>(), {"\u00E9", "e\u0301"}), Value(true));
  EXPECT_EQ(call(Equals<String>(), {"a", "b"}), Value(false));
  const Value ann = object(shop::Person{"Ann", 41});
  const Value otherAnn = object(shop::Person{"Ann", 41});
  const Value bob = object(shop::Person{"Bob", 42});
  EXPECT_EQ(call(Equals<shop::Person>(), {ann, otherAnn}), Value(true));
  EXPECT_EQ(call(Equals<shop::Person>(), {ann, bob}), Value(false));
  EXPECT_EQ(call(Equals<CGRect>(), {asObject(CGRect()), asObject(CGRect())}), Value(true));
}

/// A class of the host with an equality of its own.
class Version final : public Object {
 public:
  explicit Version(int number) : number_(number) {}
  String objectDescription() const override { return decimal(number_); }
  friend bool operator==(const Version& left, const Version& right) { return left.number_ == right.number_; }

 private:
  int number_;
};

TEST(Equals, ComparesObjectsByTheirClass) {
  EXPECT_EQ(call(Equals<Version>(), {makeRef<Version>(1), makeRef<Version>(1)}), Value(true));
  EXPECT_EQ(call(Equals<Version>(), {makeRef<Version>(1), makeRef<Version>(2)}), Value(false));
  EXPECT_EQ(failureOf(Equals<Version>(), {makeRef<Version>(1), "1"}), String("Right-hand side is not 'Version'."));
}

}  // namespace
}  // namespace velto

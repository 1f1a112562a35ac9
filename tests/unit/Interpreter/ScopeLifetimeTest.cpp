// When scopes die: seen by what a program can do, and by what is left behind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "tests/support/StackThread.h"
#include "tests/support/TestHost.h"

namespace velto {
namespace {

using test::TestHost;
using testing::ElementsAre;
using testing::IsEmpty;

/// Counts the objects that live, so that a test sees what a scope still holds.
struct Witness final : Object {
  explicit Witness(Int& living) : living(living) { ++living; }
  ~Witness() override { --living; }
  String objectDescription() const override { return "witness"; }
  bool mayHoldFunctions() const noexcept override { return false; }
  Int& living;
};

/// Holds a value and doesn't show it.
struct Safe final : Object {
  explicit Safe(Value value) : value(std::move(value)) {}
  std::optional<Value> get(const String&) const override { return std::nullopt; }
  String objectDescription() const override { return "safe"; }
  Value value;
};

class ScopeLifetimeTest : public testing::Test {
 protected:
  /// What a program prints, which can call `witness()` and learns from `living()` how many witnesses live. What
  /// `keyed(x)` gives has a key that the language itself doesn't take: `x`. `safe(x)` is an object that holds `x`, and
  /// `wrapped(x)` a native function; `bare(x)` is one that promises to hold no functions. `known(x)` tells what is
  /// known of what `x` holds, and `rootless` is a function without a scope.
  std::string run(const std::string& program) {
    struct Witnessing final : Library {
      explicit Witnessing(Int& living) : living(living) {}
      void load(Interpreter& interpreter) override {
        Int& count = living;
        interpreter.globals().define(
            "witness", makeRef<Function0>("witness", [&count] { return Value(makeRef<Witness>(count)); }));
        interpreter.globals().define("keyed", makeRef<Function1>("keyed", [](const Value& key) -> Value {
                                       Dictionary dictionary;
                                       dictionary.set(key, 1);
                                       return dictionary;
                                     }));
        interpreter.globals().define(
            "safe", makeRef<Function1>("safe", [](const Value& value) { return Value(makeRef<Safe>(value)); }));
        interpreter.globals().define("wrapped", makeRef<Function1>("wrapped", [](const Value& value) -> Value {
                                       return makeRef<Function0>("wrapping", [value] { return value; });
                                     }));
        interpreter.globals().define("bare", makeRef<Function1>("bare", [](const Value& value) -> Value {
                                       const auto holder = makeRef<Function0>("holding", [value] { return value; });
                                       holder->setHoldsNoFunctions();
                                       return holder;
                                     }));
        interpreter.globals().define("known", makeRef<Function1>("known", [](const Value& container) -> Value {
                                       constexpr std::array names{"unknown", "plain", "opaque"};
                                       const Array* const array = container.array();
                                       const ContentsMark& contents =
                                           array ? array->contents : container.dictionary()->contents;
                                       return names[static_cast<std::size_t>(contents.get())];
                                     }));
        const Token rootless(TokenType::identifier, "rootless", Range("host", 1, 1));
        const FunctionDeclaration declaration{.range = rootless.range, .name = rootless, .parameters = {}, .body = {}};
        interpreter.globals().define("rootless", makeRef<Function>(declaration, nullptr));
        interpreter.globals().define("living", makeRef<Function0>("living", [&count] { return Value(count); }));
      }
      Int& living;
    };
    host.processor.libraries = {std::make_shared<Witnessing>(living)};
    host.files->files.erase("<1>");
    host.run(program);
    EXPECT_THAT(host.messages(), IsEmpty());
    return host.output();
  }

  Int living = 0;
  TestHost host;
};

TEST_F(ScopeLifetimeTest, LetsGoOfABlockAtItsEnd) {
  EXPECT_EQ(run("if true var w = witness() end print(living())"), "0");
}

TEST_F(ScopeLifetimeTest, LetsGoOfAScopeThatOnlyItsOwnFunctionsHold) {
  EXPECT_EQ(run("for i in 1...3 var w = witness() func f() return w end func g() return f end var h = g end "
                "print(living())"),
            "0");
}

TEST_F(ScopeLifetimeTest, KeepsAScopeForAFunctionThatLeavesIt) {
  EXPECT_EQ(run("func make() var w = witness() func get() return w end return get end "
                "var g = make() print(living()) print(g())"),
            "1witness");
}

TEST_F(ScopeLifetimeTest, KeepsAScopeForAScopeInsideIt) {
  // The outer scope is held by its own function alone, but the inner function can still reach it.
  EXPECT_EQ(run("func make() var w = witness() func own() return 1 end var result = nil "
                "if true func get() return w end result = get end return result end "
                "var g = make() print(living()) print(g())"),
            "1witness");
}

TEST_F(ScopeLifetimeTest, SweepsScopesWhoseFunctionsHaveGone) {
  EXPECT_EQ(run("func make() var w = witness() func get() return w end return get end "
                "for i in 1...1000 make() end print(living() < 200)"),
            "true");
}

TEST_F(ScopeLifetimeTest, SweepsScopesThatHoldOneAnother) {
  // The block keeps `made`, which keeps the scope of `make`, which lies in the block, which keeps `make`.
  EXPECT_EQ(run("for i in 0..<1000 func make() var w = witness() func get() return w end return get end "
                "var made = make() end print(living() < 200)"),
            "true");
  // And a ring of two.
  EXPECT_EQ(run("func make() var w = witness() var other = 1 func set(_ x) other = x end return set end "
                "for i in 0..<1000 var a = make() var b = make() a(b) b(a) end print(living() < 400)"),
            "true");
}

TEST_F(ScopeLifetimeTest, SweepsScopesWhoseFunctionsStandInArraysAndDictionaries) {
  for (const char* holder : {"[f]", "[\"k\": f]", "[[1, [\"k\": [f, f]]], f]"}) {
    EXPECT_EQ(run(std::string("for i in 0..<1000 var w = witness() func f() return w end var held = ") + holder +
                  " var both = [held, held] end print(living() < 200)"),
              "true")
        << holder;
  }
}

TEST_F(ScopeLifetimeTest, SweepsWhatHoldsNoFunctions) {
  for (const char* holder : {"[w]", "keyed(w)", "[1, [\"k\": [w]]]", "bare(w)", "[1, bare(w)]"}) {
    EXPECT_EQ(run(std::string("for i in 0..<1000 var w = witness() var held = ") + holder +
                  " w = nil func f() end var other = [f] end print(living() < 200)"),
              "true")
        << holder;
  }
}

TEST_F(ScopeLifetimeTest, KeepsScopesThatAnArrayOutsideLeadsTo) {
  EXPECT_EQ(run("var kept = [] func make(_ n) var w = witness() func f() return \"\\(n)\\(w) \" end "
                "var held = [[f], [n: f]] return [held, n] end "
                "for i in 0..<500 var made = make(i) if i == 7 || i == 300 kept = [made, kept] end end "
                "print(kept[0][0][0][0]()) print(kept[1][0][0][1][7]()) print(living() < 300)"),
            "300witness 7witness true");
}

TEST_F(ScopeLifetimeTest, KeepsScopesThatKeysLeadTo) {
  EXPECT_EQ(run("var kept = nil func make(_ n) var w = witness() func f() return w end return keyed([f]) end "
                "for i in 0..<500 var made = make(i) if i == 7 kept = made end end "
                "for (list, one) in kept print(list[0]()) end"),
            "witness");
  // A scope that is let go of has held the body of the loop by a key.
  EXPECT_EQ(run("var keep = nil if true var w = witness() func h() end if true func g() return w end keep = g end "
                "if true func f() end var held = keyed(h) end h = nil end "
                "for i in 0..<1000 func f() end var other = [f] end print(keep())"),
            "witness");
}

TEST_F(ScopeLifetimeTest, GoesOnceThroughArraysThatShareTheirParts) {
  EXPECT_EQ(run("func f() func own() return 1 end var a = [own] for i in 0..<100 a = [a, a] end func other() end end "
                "for i in 0..<200 f() end print(1)"),
            "1");
}

TEST_F(ScopeLifetimeTest, KeepsARingThatAFunctionLeadsTo) {
  EXPECT_EQ(run("var kept = nil func make(_ n) var w = witness() var again = nil "
                "func value() return \"\\(n)\\(w)\" end func get() again = get return value() end return get end "
                "for i in 0..<500 var made = make(i) made() if i == 7 kept = made end end "
                "print(kept()) print(living() < 200)"),
            "7witnesstrue");
}

TEST_F(ScopeLifetimeTest, SweepsWhatUnreachableScopesHeld) {
  // In each turn the inner block, which nobody can reach, has held the body of the loop.
  EXPECT_EQ(run("for i in 0..<1000 var w = witness() func h() return w end if true func f() end var hh = h end "
                "h = nil end print(living() < 200)"),
            "true");
  EXPECT_EQ(run("for i in 0..<1000 var w = witness() func h() return w end var keep = nil "
                "if true func g() return w end keep = g end if true func f() end var hh = [h] end h = nil end "
                "print(living() < 400)"),
            "true");
}

TEST_F(ScopeLifetimeTest, KeepsForGoodWhatUnreachableScopesHeld) {
  EXPECT_EQ(run("var keep = nil if true var w = witness() func h() end if true func g() return w end keep = g end "
                "if true func f() end var list = [1, [\"a\": 2]] var hh = [list, [h]] end h = nil end "
                "for i in 0..<1000 func f() end var other = [f] end print(keep()) keep = nil "
                "for i in 0..<1000 func f() end var g = nil func make() var n = 0 func get() return n end return get "
                "end g = make() end print(living())"),
            "witness0");
}

TEST_F(ScopeLifetimeTest, KeepsForGoodWhatDoesNotShowTheFunctionsThatItHolds) {
  // The scope of `hide` holds itself by `own`, and by way of `held` the scope around `get`.
  const std::string makeAndHide =
      "var get = nil var out = nil func make() var w = witness() func f() return w end "
      "if true func inner() return w end get = inner end out = HOLDER f = nil end "
      "func hide() var held = out out = nil func own() return 1 end end make() hide() ";
  for (const char* holder :
       {"f", "[f]", "[f, f]", "[f].map", "[f].filter", "[f].sorted", "[f].joined", "[f].contains", "[[f].map]",
        "[[1, f].map, f]", "[\"a\": [[f].map]]", "safe(f)", "[safe([f])]", "wrapped(f)", "[[\"a\": wrapped(f)]]",
        "keyed(safe(f))", "keyed([f].map)", "keyed([wrapped(f)])"}) {
    std::string program = makeAndHide;
    program.replace(program.find("HOLDER"), 6, holder);
    EXPECT_EQ(run(program + "print(get()) for i in 0..<1000 func f() end var other = [f] end print(get())"),
              "witnesswitness")
        << holder;
    EXPECT_EQ(living, 0) << holder;
  }
}

TEST_F(ScopeLifetimeTest, KeepsForGoodAllThatUnreachableScopesHeldOneAfterTheOther) {
  EXPECT_EQ(run("var gets = [] var out = nil func make(_ n) var w = witness() func f() return w end "
                "if true func inner() return \"\\(n)\\(w) \" end gets = [gets, inner] end out = [f] f = nil end "
                "func hide() var held = out out = nil func own() return 1 end end "
                "make(1) hide() make(2) hide() make(3) hide() "
                "for i in 0..<1000 func f() end var other = [f] end print(gets[0][0][1]()) print(gets[0][1]()) "
                "print(gets[1]())"),
            "1witness 2witness 3witness ");
}

TEST_F(ScopeLifetimeTest, LetsGoOfManyKeptScopesOnASmallStack) {
  test::onStack(test::smallStack, [&] {
    EXPECT_EQ(run("var gets = nil var out = nil func make() var w = witness() func f() return w end "
                  "if true func inner() return w end gets = [gets, inner] end out = [f] f = nil end "
                  "func hide() var held = out out = nil func own() return 1 end end "
                  "for i in 0..<20000 make() hide() end print(living())"),
              "20000");
  });
  EXPECT_EQ(living, 0);
}

TEST_F(ScopeLifetimeTest, KeepsAContainerThatIsKnownToHoldWhatDoesNotShowItsFunctions) {
  // The sweep in the first loop gets to know the container, before the scope is let go of that holds it.
  for (const char* container : {"[safe(f)]", "keyed([f])", "keyed(f)", "keyed(safe(f))"}) {
    for (const char* held : {"see()", "[see()]"}) {
      EXPECT_EQ(run(std::string("var get = nil var see = nil "
                                "func hold(_ x) func seeing() return x end return seeing end "
                                "func make() var w = witness() func f() return w end "
                                "if true func inner() return w end get = inner end var x = ") +
                    container +
                    " f = nil see = hold(x) x = nil end make() for i in 0..<300 func g() end var other = [g] end "
                    "func hide(_ x) func own() return 1 end end hide(" +
                    held + ") see = nil for i in 0..<300 func g() end var other = [g] end print(get())"),
                "witness")
          << container << held;
    }
  }
}

TEST_F(ScopeLifetimeTest, KeepsAContainerWhosePartsHaveBeenSeenBefore) {
  // The sweep in the first loop comes to the inner array by `b`, and once more by `a`.
  EXPECT_EQ(run("var get = nil var see = nil "
                "func hold(_ b, _ a) func seeing() b = nil return a end return seeing end "
                "func make() var w = witness() func f() return w end "
                "if true func inner() return w end get = inner end "
                "var b = [f] see = hold(b, [b]) f = nil b = nil end make() "
                "for i in 0..<300 func g() end var other = [g] end "
                "func hide(_ x) func own() return 1 end end hide(see()) see = nil "
                "for i in 0..<300 func g() end var other = [g] end print(get())"),
            "witness");
}

TEST_F(ScopeLifetimeTest, KeepsAScopeWithAFunctionUnderManyNames) {
  EXPECT_EQ(run("func make() var n = 1 func h() return n end var h2 = h var h3 = h func g() return n end return g end "
                "var g = make() print(g())"),
            "1");
}

TEST_F(ScopeLifetimeTest, KeepsAScopeOnceThatManyThatAreLetGoOfHaveHeld) {
  EXPECT_EQ(run("func make() var n = 0 func k() return n end return k end var k = make() "
                "func once() var held = k func own() end end once() once() "
                "var list = [] for i in 0..<100 list = [list, make()] end print(k())"),
            "0");
}

TEST_F(ScopeLifetimeTest, PassesAFunctionByThatHasNoScope) {
  EXPECT_EQ(run("func once() var held = rootless func own() end end once() print(living())"), "0");
}

TEST_F(ScopeLifetimeTest, SweepsAgainHoweverManyScopesAreKept) {
  EXPECT_EQ(run("if true func b1() end if true func b2() end if true func b3() end "
                "func make() var w = witness() var other = 1 var held = [b1, b2, b3] "
                "func set(_ x) other = x end return set end "
                "for i in 0..<1000 var a = make() var b = make() a(b) b(a) end print(living() < 400) end end end"),
            "true");
  EXPECT_EQ(run("for i in 0..<1000 var w = witness() func h() return w end var keep = nil "
                "if true func g() return w end keep = g end if true func f() end var hh = [h, keep] end h = nil end "
                "print(living() < 400)"),
            "true");
}

TEST_F(ScopeLifetimeTest, RemembersWhatAContainerHolds) {
  const auto know = [&](const char* container) {
    return run(std::string("func make() var x = ") + container +
               " func get() return x end return get end var get = make() "
               "for i in 0..<300 func g() end var other = [g] end print(known(get()))");
  };
  EXPECT_EQ(know("[1, [\"k\": witness()]]"), "plain");
  EXPECT_EQ(know("[safe(1)]"), "opaque");
  EXPECT_EQ(know("[make]"), "unknown");
  EXPECT_EQ(know("keyed([make])"), "unknown");
}

TEST_F(ScopeLifetimeTest, LeavesNothingBehind) {
  run("var w = witness() func f() return w end var keep = [f] "
      "func make() var w = witness() var a = nil func get() return w end a = [get] return a end var g = make() make()");
  EXPECT_EQ(living, 0);
}

TEST_F(ScopeLifetimeTest, ReadsAgainThroughAClosure) {
  EXPECT_EQ(run("func m() var x = 1 func i() return x end return i end print(m()())"), "1");
}

TEST_F(ScopeLifetimeTest, HoldsAFunctionDuringItsOwnCall) {
  EXPECT_EQ(run("var f = nil if true func g() f = nil return 1 end f = g end print(f())"), "1");
}

TEST(ScopeLifetime, ReportsAnUnresolvedNameBehindADeadScope) {
  TestHost host;
  host.files->files["/t"] = "<% var x = 1 if true func i() return x end f = i end %>";
  host.run("var f = nil include \"t\" f()");
  EXPECT_THAT(host.messages(), ElementsAre("t:1:38...1:39: error: Undefined variable 'x'.",
                                           "main.velto:1:25...1:28: info: i() called here"));
}

TEST(ScopeLifetimeDeathTest, StopsAtAResolvedNameBehindADeadScope) {
  TestHost host;
  EXPECT_DEATH(host.run("func m() var x = 1 if true func i() return x end return i end end m()()"),
               "fatal: The scope of a resolved variable has died.");
}

}  // namespace
}  // namespace velto

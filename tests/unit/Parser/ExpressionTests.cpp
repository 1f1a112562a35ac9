// Expressions: precedence, calls, groups and their messages.
#include <gtest/gtest.h>

#include "tests/unit/Parser/TreePrinter.h"

namespace velto {
namespace {

TEST(ParserExpressions, FollowsTheLadderOfPrecedence) {
  expectRows(
      {
          {"a = b || c", "(= a (|| b c))"},
          {"a || b && c", "(|| a (&& b c))"},
          {"a && b == c", "(&& a (== b c))"},
          {"a == b < c", "(== a (< b c))"},
          {"a < b is T", "(< a (is b T))"},
          {"a is T == true", "(== (is a T) true)"},
          {"a...b is T", "(is (... a b) T)"},
          {"a + 1 is Number == true", "(== (is (+ a 1) Number) true)"},
          {"1...n + 1", "(... 1 (+ n 1))"},
          {"1 + 2 * 3", "(+ 1 (* 2 3))"},
          {"1 * 2 + 3", "(+ (* 1 2) 3)"},
          {"a * -b", "(* a (- b))"},
          {"-a * b", "(* (- a) b)"},
          {"-a.b", "(- (. a b))"},
          {"!a == b", "(== (! a) b)"},
          {"!a(b)[c]", "(! ([] (call a b) c))"},
          {"a is T + 1", "(is a T) (+ 1)"},
          {"a == b is T * c", "(== a (is b T)) (* c)"},
          {"a is T...b is U", "(is a T) ! 1:7-1:10 Expected expression."},
          {"a || b is T && c is U || d", "(|| (|| a (&& (is b T) (is c U))) d)"},
          {"a * b + c..<d - e / f", "(..< (+ (* a b) c) (- d (/ e f)))"},
          {"a == b + c * d && e", "(&& (== a (+ b (* c d))) e)"},
          {"-a + -b", "(+ (- a) (- b))"},
      },
      parsedProgram);
}

TEST(ParserExpressions, FoldsEachLevelToTheLeft) {
  expectRows(
      {
          {"a || b || c", "(|| (|| a b) c)"},
          {"a && b && c", "(&& (&& a b) c)"},
          {"a == b != c == d", "(== (!= (== a b) c) d)"},
          {"1 < 2 < 3", "(< (< 1 2) 3)"},
          {"a > b >= c <= d < e", "(< (<= (>= (> a b) c) d) e)"},
          {"a is Number is Boolean", "(is (is a Number) Boolean)"},
          {"1...2...3", "(... (... 1 2) 3)"},
          {"1..<2...3", "(... (..< 1 2) 3)"},
          {"a - b + c - d", "(- (+ (- a b) c) d)"},
          {"a / b * c / d", "(/ (* (/ a b) c) d)"},
          {"a.b.c(1)[2]", "([] (call (. (. a b) c) 1) 2)"},
      },
      parsedProgram);
}

TEST(ParserExpressions, FoldsPrefixesAndAssignmentsToTheRight) {
  expectRows(
      {
          {"a = b = 1", "(= a (= b 1))"},
          {"--a", "(- (- a))"},
          {"!-x", "(! (- x))"},
          {".x", "(. x)"},
          {"+x", "(+ x)"},
          {"/x", "(/ x)"},
          {"*x", "(* x)"},
          {"!-.+*x", "(! (- (. (+ (* x)))))"},
          {"..x", "(. (. x))"},
      },
      parsedProgram);
}

TEST(ParserExpressions, AssignsToVariablesOnly) {
  expectRows(
      {
          {"a.b = 1", "! 1:5-1:6 Invalid assignment target."},
          {"a[0] = 1", "! 1:6-1:7 Invalid assignment target."},
          {"(a) = 1", "! 1:5-1:6 Invalid assignment target."},
          {"1 + a = 2", "! 1:7-1:8 Invalid assignment target."},
          {"a.b = )", "! 1:7-1:8 Expected expression."},
          {"a = 1 = 2", "! 1:7-1:8 Invalid assignment target."},
          {"a = b.c = 2", "! 1:9-1:10 Invalid assignment target."},
          {"f(a = 1)", "(call f (= a 1))"},
      },
      parsedProgram);
}

TEST(ParserExpressions, TakesOneSemicolonBehindAnAssignment) {
  expectRows(
      {
          {"f(a = 1;)", "(call f (= a 1))"},
          {"(a = 1;)", "(group (= a 1))"},
          {"[a = 1;, b = 2;]", "(array (= a 1) (= b 2))"},
          {"f(a = 1;;)", "! 1:9-1:10 Expect ')' after arguments."},
          {"a = b = 1;;;", "(= a (= b 1))"},
      },
      parsedProgram);
}

TEST(ParserExpressions, GivesCallsTheirArguments) {
  expectRows(
      {
          {"f()", "(call f)"},
          {"f(1)", "(call f 1)"},
          {"f(x: 1, 2, y: 3)", "(call f x:1 2 y:3)"},
          {"f(x, y: x)", "(call f x y:x)"},
          {"f(x + y: 1)", "! 1:8-1:9 Expect ')' after arguments."},
          {"f(x: )", "! 1:6-1:7 Expected expression."},
          {"f(a,)", "! 1:5-1:6 Expected expression."},
          {"f(a b)", "! 1:5-1:6 Expect ')' after arguments."},
          {"f(if: 1)", "! 1:3-1:5 Expected expression."},
          {"f(a", "! 1:3-1:4 Expect ')' after arguments."},
          {"f(a)(b)", "(call (call f a) b)"},
          {"a (b)", "(call a b)"},
          {"a\n(b)", "(call a b)"},
          {"a b", "a b"},
      },
      parsedProgram);
}

TEST(ParserExpressions, GivesSubscriptsAndMembers) {
  expectRows(
      {
          {"a[1]", "([] a 1)"},
          {"a[b = 1]", "([] a (= b 1))"},
          {"a[1, 2]", "! 1:4-1:5 Expect ']' after subscript expression."},
          {"a[1", "! 1:3-1:4 Expect ']' after subscript expression."},
          {"a[]", "! 1:3-1:4 Expected expression."},
          {"a.b", "(. a b)"},
          {"a.end", "! 1:3-1:6 Expect identifier after '.'."},
          {"a.1", "! 1:3-1:4 Expect identifier after '.'."},
          {"a.", "! 1:2-1:3 Expect identifier after '.'."},
          {"1.b", "(. 1 b)"},
      },
      parsedProgram);
}

TEST(ParserExpressions, ChecksTypes) {
  expectRows(
      {
          {"a is Number", "(is a Number)"},
          {"a is 1", "! 1:6-1:7 Expected type."},
          {"a is nil", "! 1:6-1:9 Expected type."},
          {"a is", "! 1:3-1:5 Expected type."},
      },
      parsedProgram);
}

TEST(ParserExpressions, GivesPrimaries) {
  expectRows(
      {
          {"true", "true"},
          {"false", "false"},
          {"nil", "nil"},
          {"1.5", "1.5"},
          {"x", "x"},
          {"(1)", "(group 1)"},
          {"((1))", "(group (group 1))"},
          {"(1, 2)", "! 1:3-1:4 Expected ')' after expression."},
          {"(1", "! 1:2-1:3 Expected ')' after expression."},
          {"()", "! 1:2-1:3 Expected expression."},
          {"&&", "! 1:1-1:3 Expected expression."},
          {"in", "! 1:1-1:3 Expected expression."},
          {"is T", "! 1:1-1:3 Expected expression."},
          {"= 1", "! 1:1-1:2 Expected expression."},
          {"_", "! 1:1-1:2 Expected expression."},
      },
      parsedProgram);
}

TEST(ParserExpressions, GivesExactRanges) {
  expectRows(
      {
          {"1 + 2 * 3", "(+ 1@1:1-1:2 (* 2@1:5-1:6 3@1:9-1:10)@1:5-1:10)@1:1-1:10@1:1-1:10"},
          {"(1)", "(group 1@1:2-1:3)@1:1-1:4@1:1-1:4"},
          {"f(1)", "(call f@1:1-1:2 1@1:3-1:4)@1:1-1:5@1:1-1:5"},
          {"f(x: 1).b[2]", "([] (. (call f@1:1-1:2 x:1@1:6-1:7)@1:1-1:8 b)@1:1-1:10 2@1:11-1:12)@1:1-1:13@1:1-1:13"},
          {"a =\n 1;", "(= a 1@2:2-2:3)@1:1-2:3@1:1-2:3"},
          {"a || b", "(|| a@1:1-1:2 b@1:6-1:7)@1:1-1:7@1:1-1:7"},
          {"a is T", "(is a@1:1-1:2 T)@1:1-1:7@1:1-1:7"},
          {"- a", "(- a@1:3-1:4)@1:1-1:4@1:1-1:4"},
          {"nil", "nil@1:1-1:4@1:1-1:4"},
      },
      parsedRanges);
}

TEST(ParserExpressionsDeathTest, StopsWhereAnExpressionIsMissingAtTheEnd) {
  for (const char* source : {"1 +", "x =", "f(", "return", "if", "!", "a[", "f(x:", "(", "[", "[1,",
                             "[1:", "var x =", "include", "while", "switch", "for x in", "\"\\("}) {
    EXPECT_DEATH(parsedProgram(source), "fatal: Expected expression\\.\n") << source;
  }
  EXPECT_DEATH(parsedTemplate("<%= 1 + %>"), "fatal: Expected expression\\.\n");
  EXPECT_EQ(parsedTemplate("<%= 1 + %>b"), "! 1:11-1:12 Expected expression.");
}

}  // namespace
}  // namespace velto

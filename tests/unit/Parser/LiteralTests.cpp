// Strings with interpolations, arrays and dictionaries.
#include <gtest/gtest.h>

#include "tests/unit/Parser/TreePrinter.h"

namespace velto {
namespace {

Token token(TokenType type, const char* lexeme) {
  return {type, lexeme, Range("a.txt", 1, 1, 1, 2)};
}

TEST(ParserLiterals, JoinsThePiecesOfAString) {
  expectRows(
      {
          {R"~("")~", "''"},
          {R"~("abc")~", "'abc'"},
          {R"~("a\(1)b\(2)c")~", "('abc' 1:1 2:2)"},
          {R"~("\(1)\(2)")~", "('' 0:1 0:2)"},
          {R"~("\(f(x) + 1)")~", "('' 0:(+ (call f x) 1))"},
          {R"~("a\tb\(x)")~", "('a\tb' 3:x)"},
          {"\"\U0001F600\\(1)\"", "('\U0001F600' 2:1)"},
          {"\"e\u0301\\(1)\u00E9\\(2)\"", "('e\u0301\u00E9' 2:1 3:2)"},
          {R"~("\(a = 1;)b")~", "('b' 0:(= a 1))"},
          {R"~("a" + "b")~", "(+ 'a' 'b')"},
      },
      parsedProgram);
}

TEST(ParserLiterals, GivesAStringTheRangeOfItsFirstPiece) {
  expectRows(
      {
          {R"~("abc")~", "'abc'@1:1-1:6@1:1-1:6"},
          {R"~("a\(1)b")~", "('ab' 1:1@1:5-1:6)@1:1-1:5@1:1-1:5"},
          {R"~("\(1)" + x)~", "(+ ('' 0:1@1:4-1:5)@1:1-1:4 x@1:10-1:11)@1:1-1:11@1:1-1:11"},
      },
      parsedRanges);
}

TEST(ParserLiterals, ReportsBrokenInterpolations) {
  expectRows(
      {
          {R"~("a\(1 2)b")~", "! 1:7-1:8 Expected ')' after string interpolation."},
          {R"~("a\(1)~", "! 1:5-1:6 Expected ')' after string interpolation."},
          {R"~("a\()b")~", "! 1:5-1:6 Expected expression."},
          {R"~("a\("b")c" + "d)~", "! 1:9-1:10 Expexted string continuation."},
      },
      parsedProgram);
}

TEST(ParserLiterals, ReportsAMissingContinuation) {
  expectRows({{R"~("a\("b") c)~", "! 1:10-1:11 Expexted string continuation."},
              {R"~("a\("b"))~", "! 1:8-1:9 Expexted string continuation."}},
             parsedProgram);
}

TEST(ParserLiterals, TellsArraysFromDictionaries) {
  expectRows(
      {
          {"[]", "(array)"},
          {"[:]", "(dictionary)"},
          {"[1]", "(array 1)"},
          {"[1, 2]", "(array 1 2)"},
          {"[1, 2, 3]", "(array 1 2 3)"},
          {"[[1], [2: 3]]", "(array (array 1) (dictionary 2:3))"},
          {"[1: 2]", "(dictionary 1:2)"},
          {"[1: 2, 3: 4]", "(dictionary 1:2 3:4)"},
          {"[1: 2, 1: 3]", "(dictionary 1:2 1:3)"},
          {"[a: 1]", "(dictionary a:1)"},
          {"[f(x: 1): 2]", "(dictionary (call f x:1):2)"},
          {"[a = 1: b = 2]", "(dictionary (= a 1):(= b 2))"},
      },
      parsedProgram);
}

TEST(ParserLiterals, ReportsBrokenCollections) {
  expectRows(
      {
          {"[:1]", "! 1:3-1:4 Expect ']' after ':'."},
          {"[:", "! 1:2-1:3 Expect ']' after ':'."},
          {"[1, 2: 3]", "! 1:6-1:7 Expected ']'."},
          {"[1, 2", "! 1:5-1:6 Expected ']'."},
          {"[1: 2, 3]", "! 1:9-1:10 Expected ':'."},
          {"[1: 2, 3", "! 1:8-1:9 Expected ':'."},
          {"[1: 2: 3]", "! 1:6-1:7 Expected ']'."},
          {"[1: 2", "! 1:5-1:6 Expected ']'."},
          {"[1 2]", "! 1:4-1:5 Expected ',', ':' or ']'."},
          {"[1, 2,]", "! 1:7-1:8 Expected expression."},
          {"[a: 1,]", "! 1:7-1:8 Expected expression."},
          {"[,]", "! 1:2-1:3 Expected expression."},
      },
      parsedProgram);
}

TEST(ParserLiterals, GivesCollectionsTheirBrackets) {
  expectRows(
      {
          {" []", "(array)@1:2-1:4@1:2-1:4"},
          {"[:]", "(dictionary)@1:1-1:4@1:1-1:4"},
          {"[1]", "(array 1@1:2-1:3)@1:1-1:4@1:1-1:4"},
          {"[1,\n2]", "(array 1@1:2-1:3 2@2:1-2:2)@1:1-2:3@1:1-2:3"},
          {"[1: 2]", "(dictionary 1@1:2-1:3:2@1:5-1:6)@1:1-1:7@1:1-1:7"},
      },
      parsedRanges);
}

TEST(ParserLiteralsDeathTest, StopsAtACollectionThatEndsWithTheText) {
  EXPECT_DEATH(parsedProgram("[1"), "fatal: Expected ',', ':' or '\\]'\\.\n");
}

TEST(ParserLiteralsDeathTest, StopsAtTokensWithoutTheirLiteral) {
  EXPECT_DEATH(parsed({token(TokenType::string, "\"a\"")}), "fatal: Expected a string literal\\.\n");
  EXPECT_DEATH(parsed({Token(TokenType::string, "1", Value(1), Range("", 1, 1))}), "fatal: Expected a string literal");
  EXPECT_DEATH(parsed({token(TokenType::number, "1")}), "fatal: Expected a number literal\\.\n");
}

}  // namespace
}  // namespace velto

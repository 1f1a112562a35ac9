// Operators, numbers, words and line comments.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <unordered_set>
#include <vector>

#include "Velto/Platform/Character.h"
#include "tests/unit/Scanner/Printing.h"

namespace velto {
namespace {

double numberIn(const std::string& source) {
  const auto tokens = Scanner(source, Scanner::Mode::program, std::make_shared<ArrayLogger>()).scanTokens();
  EXPECT_EQ(tokens.size(), 1u);
  EXPECT_EQ(tokens[0].lexeme, source);
  return *tokens[0].literal->number();
}

TEST(ScannerCode, GivesOperators) {
  expectRows(
      {
          {"( ) [ ] , . - : ; + * /",
           "leftParen{(} rightParen{)} leftSquareBracket{[} rightSquareBracket{]} comma{,} dot{.} minus{-} colon{:} "
           "semicolon{;} plus{+} star{*} slash{/}"},
          {"! = < > != == <= >=",
           "not{!} assign{=} less{<} greater{>} notEqual{!=} equal{==} lessEqual{<=} greaterEqual{>=}"},
          {"===", "equal{==} assign{=}"},
          {"&& ||", "and{&&} or{||}"},
          {"... ..< .. .", "closedRange{...} openRange{..<} dot{.} dot{.} dot{.}"},
          {"....", "closedRange{...} dot{.}"},
          {". .", "dot{.} dot{.}"},
          {"a<=b", "identifier{a} lessEqual{<=} identifier{b}"},
          {" \t\n\r ", ""},
          {"a<%b", "1:3-1:4 error: Unexpected character '%'."},
      },
      scannedProgram);
  expectRows({{"<%a<%b", "verbatim{} tagOpen{<%} identifier{a} tagOpen{<%} identifier{b}"},
              {"<%a<=b", "verbatim{} tagOpen{<%} identifier{a} lessEqual{<=} identifier{b}"}},
             scannedTemplate);
}

TEST(ScannerCode, GivesNumbers) {
  expectRows(
      {
          {"0", "number{0}=0"},
          {"007", "number{007}=7"},
          {"1.5", "number{1.5}=1.5"},
          {"1..<3", "number{1}=1 openRange{..<} number{3}=3"},
          {"1...3", "number{1}=1 closedRange{...} number{3}=3"},
          {"1..3", "number{1}=1 dot{.} dot{.} number{3}=3"},
          {"1.5.2", "number{1.5}=1.5 dot{.} number{2}=2"},
          {"1.5...2.5", "number{1.5}=1.5 closedRange{...} number{2.5}=2.5"},
          {"x.y", "identifier{x} dot{.} identifier{y}"},
          {"1.x", "number{1}=1 dot{.} identifier{x}"},
          {"1.", "number{1}=1 dot{.}"},
          {"-1", "minus{-} number{1}=1"},
          {"1e5", "number{1}=1 identifier{e5}"},
          {".5", "dot{.} number{5}=5"},
          {"12a", "number{12}=12 identifier{a}"},
          {"1_0", "number{1}=1 underscore{_} number{0}=0"},
          {"0x1F", "number{0}=0 identifier{x1F}"},
      },
      scannedProgram);
}

TEST(ScannerCode, ConvertsNumbersExactly) {
  const std::string zeros(400, '0');
  EXPECT_EQ(numberIn("0.1"), 0.1);
  EXPECT_EQ(numberIn("9007199254740993"), 9007199254740992.0);
  EXPECT_EQ(numberIn("1" + std::string(308, '0')), 1e308);
  EXPECT_EQ(numberIn("1" + zeros), std::numeric_limits<double>::infinity());
  EXPECT_EQ(numberIn("1" + zeros + ".5"), std::numeric_limits<double>::infinity());
  EXPECT_EQ(numberIn("0." + zeros + "1"), 0);
  EXPECT_FALSE(std::signbit(numberIn("0." + zeros + "1")));
  EXPECT_EQ(numberIn("0." + std::string(323, '0') + "5"), std::numeric_limits<double>::denorm_min());
  EXPECT_EQ(numberIn("000" + zeros + "." + zeros + "1"), 0);
  EXPECT_EQ(numberIn(zeros + "12"), 12);
}

TEST(ScannerCode, GivesWords) {
  expectRows(
      {
          {"foo", "identifier{foo}"},
          {"a_b", "identifier{a_b}"},
          {"_foo", "underscore{_} identifier{foo}"},
          {"__", "underscore{_} underscore{_}"},
          {"a1", "identifier{a1}"},
          {"and or", "identifier{and} identifier{or}"},
          {"If ends", "identifier{If} identifier{ends}"},
          {"break case continue default else end false for func if",
           "break{break} case{case} continue{continue} default{default} else{else} end{end} false{false} for{for} "
           "func{func} if{if}"},
          {"in include is nil return switch true var while",
           "in{in} include{include} is{is} nil{nil} return{return} switch{switch} true{true} var{var} while{while}"},
          {"\u00E9t\u00E9", "identifier{\u00E9t\u00E9}"},
          {"ae\u0301", "identifier{ae\u0301}"},
          {"\u200Bx", "identifier{\u200Bx}"},
          {"\U0001F600", "identifier{\U0001F600}"},
          {"e\u0301", "1:1-1:2 error: Unexpected character 'e\u0301'."},
          {"a\u00A0b", "1:2-1:3 error: Unexpected character '\u00A0'."},
      },
      scannedProgram);
}

TEST(ScannerCode, KeepsTheSpellingOfEquivalentText) {
  expectRows(
      {
          {"a \u037Eb", "identifier{a} semicolon{\u037E} identifier{b}"},
          {"a\u037E", "identifier{a\u037E}"},
          {"\u212A K", "identifier{\u212A} identifier{K}"},
      },
      scannedProgram);
}

TEST(ScannerCode, KnowsAllSpellingsOfItsCharacters) {
  std::unordered_set<String> syntax;
  for (char character = '\0'; character < 0x7F; ++character) {
    if (!Character(std::string_view(&character, 1)).isValidIdentifierContinuation()) {
      syntax.insert(std::string_view(&character, 1));
    }
  }
  std::vector<char32_t> others;
  for (char32_t scalar = 0x80; scalar <= 0x10FFFF; ++scalar) {
    const bool isSurrogate = 0xD800 <= scalar && scalar <= 0xDFFF;
    if (!isSurrogate && syntax.contains(StringBuilder().appendScalar(scalar).build())) others.push_back(scalar);
  }
  EXPECT_EQ(others, (std::vector<char32_t>{0x37E, 0x1FEF}));  // a semicolon, and a backquote, which means nothing
}

TEST(ScannerCode, ReportsUnexpectedCharacters) {
  expectRows(
      {
          {"#", "1:1-1:2 error: Unexpected character '#'."},
          {"a\n  @", "2:3-2:4 error: Unexpected character '@'."},
          {"|", "1:1-1:2 error: Unexpected character '|'."},
          {"a | b", "1:3-1:4 error: Unexpected character '|'."},
          {"&x", "1:1-1:2 error: Unexpected character '&'."},
          {"a % b", "1:3-1:4 error: Unexpected character '%'."},
          {"%>", "1:1-1:2 error: Unexpected character '%'."},
          {"a\r\nb", "1:2-1:3 error: Unexpected character '\r\n'."},
          {"9\u0301", "1:1-1:2 error: Unexpected character '9\u0301'."},
          {"+\u0301", "1:1-1:2 error: Unexpected character '+\u0301'."},
          {"\\", "1:1-1:2 error: Unexpected character '\\'."},
          {"{", "1:1-1:2 error: Unexpected character '{'."},
          {std::string_view("\0", 1), std::string_view("1:1-1:2 error: Unexpected character '\0'.", 40)},
      },
      scannedProgram);
  expectRows({{"<% %x", "1:4-1:5 error: Unexpected character '%'."}}, scannedTemplate);
}

TEST(ScannerCode, SkipsLineComments) {
  expectRows(
      {
          {"a // x\nb", "identifier{a} identifier{b}"},
          {"// x", ""},
          {"//\nx", ""},
          {"//\nx\ny", "identifier{y}"},
          {"// x\r\ny\nz", "identifier{z}"},
          {"a / b", "identifier{a} slash{/} identifier{b}"},
          {"// a %> b", "1:6-1:7 error: Unexpected character '%'."},
          {"//%> b", ""},
      },
      scannedProgram);
  expectRows(
      {
          {"<% // c %>x", "verbatim{} tagOpen{<%} tagClose{%>} verbatim{x}"},
          {"<% // c\n%>x", "verbatim{} tagOpen{<%} tagClose{%>} verbatim{x}"},
          {"<% //%>x %>y", "verbatim{} tagOpen{<%} tagClose{%>} verbatim{y}"},
          {"<% // c -%>x", "verbatim{} tagOpen{<%} tagClose{%>} verbatim{x}"},
      },
      scannedTemplate);
}

TEST(ScannerCode, GivesExactRanges) {
  expectRows(
      {
          {"a == 12.5\n  f", "identifier@1:1-1:2 equal@1:3-1:5 number@1:6-1:10 identifier@2:3-2:4"},
          {"1...2", "number@1:1-1:2 closedRange@1:2-1:5 number@1:5-1:6"},
          {"e // x\nae\u0301 b", "identifier@1:1-1:2 identifier@2:1-2:3 identifier@2:4-2:5"},
          {"//\nx\ny", "identifier@3:1-3:2"},
      },
      programRanges);
}

TEST(ScannerCodeDeathTest, StopsAtACommentThatEndsTheText) {
  EXPECT_DEATH(scannedProgram("a //"), "fatal: ");
  EXPECT_DEATH(scannedTemplate("<% //"), "fatal: ");
}

TEST(ScannerCodeDeathTest, StopsAtADigitWithACombiningMark) {
  EXPECT_DEATH(scannedProgram("3\u0301"), "fatal: Failed to interpret a number");
  EXPECT_DEATH(scannedProgram("12\u0301"), "fatal: Failed to interpret a number");
  EXPECT_DEATH(scannedProgram("1.2\u0301"), "fatal: Failed to interpret a number");
}

}  // namespace
}  // namespace velto

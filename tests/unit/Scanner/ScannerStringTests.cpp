// String literals, escapes and interpolation.
#include <gtest/gtest.h>

#include "tests/unit/Scanner/Printing.h"

namespace velto {
namespace {

TEST(ScannerStrings, GivesLiterals) {
  expectRows(
      {
          {R"~("")~", R"~(string{""}=)~"},
          {R"~("abc")~", R"~(string{"abc"}=abc)~"},
          {R"~("a" "b")~", R"~(string{"a"}=a string{"b"}=b)~"},
          {"\"a\nb\"", "string{\"a\nb\"}=a\nb"},
          {"\"a\r\nb\"", "string{\"a\r\nb\"}=a\r\nb"},
          {"\"e\u0301 \u00E9\"", "string{\"e\u0301 \u00E9\"}=e\u0301 \u00E9"},
          {"\"a\"\u0301\"", "string{\"a\"\u0301\"}=a\"\u0301"},
          {R"~("// x")~", R"~(string{"// x"}=// x)~"},
      },
      scannedProgram);
}

TEST(ScannerStrings, ResolvesEscapes) {
  expectRows(
      {
          {R"~("\\")~", R"~(string{"\\"}=\)~"},
          {R"~("\"")~", R"~(string{"\""}=")~"},
          {R"~("\n")~", "string{\"\\n\"}=\n"},
          {R"~("\r")~", "string{\"\\r\"}=\r"},
          {R"~("\t")~", "string{\"\\t\"}=\t"},
          {R"~("\0")~", std::string_view("string{\"\\0\"}=\0", 14)},
          {R"~("a\tb\\n")~", "string{\"a\\tb\\\\n\"}=a\tb\\n"},
          {R"~("\\(x)")~", R"~(string{"\\(x)"}=\(x))~"},
          {R"~("\\\(x)")~", R"~(string{"\\\(}=\ stringInterpolation{"\\\(} identifier{x} rightParen{)} string{)"}=)~"},
          {"\"\\\u0301n\"", "string{\"\\\u0301n\"}=\\\u0301n"},
      },
      scannedProgram);
}

TEST(ScannerStrings, ReportsBadLiterals) {
  expectRows(
      {
          {R"~("a)~", "1:2-1:3 error: Unterminated string."},
          {R"~(  "a)~", "1:4-1:5 error: Unterminated string."},
          {"\"a\nb", "1:2-2:2 error: Unterminated string."},
          {R"~(")~", "1:2-1:2 error: Unterminated string."},
          {R"~("a\)~", "1:1-1:4 error: Unterminated string."},
          {R"~(x "a\)~", "1:3-1:6 error: Unterminated string."},
          {R"~("\q")~", "1:3-1:3 error: Invalid escape sequence."},
          {"\"a\n \\u{41}\"", "2:3-2:3 error: Invalid escape sequence."},
          {"\"\\n\u0301\"", "1:3-1:3 error: Invalid escape sequence."},
          {"\"\\(\u0301x\"", "1:3-1:3 error: Invalid escape sequence."},
          {"\"\\\n\"", "1:3-1:3 error: Invalid escape sequence."},
          {R"~("a\(x)b)~", "1:2-1:8 error: Unterminated string."},
          {R"~("a\(x)b\)~", "1:6-1:9 error: Unterminated string."},
          {R"~("a\(x)\q)~", "1:8-1:8 error: Invalid escape sequence."},
      },
      scannedProgram);
}

TEST(ScannerStrings, LeavesALiteralForEachInterpolation) {
  expectRows(
      {
          {R"~("a\(x)b")~", R"~(string{"a\(}=a stringInterpolation{"a\(} identifier{x} rightParen{)} string{)b"}=b)~"},
          {R"~("\(x)")~", R"~(string{"\(}= stringInterpolation{"\(} identifier{x} rightParen{)} string{)"}=)~"},
          {R"~("\(1 + (2))")~",
           R"~(string{"\(}= stringInterpolation{"\(} number{1}=1 plus{+} leftParen{(} number{2}=2 rightParen{)} )~"
           R"~(rightParen{)} string{)"}=)~"},
          {R"~("\(a)\(b)")~", R"~(string{"\(}= stringInterpolation{"\(} identifier{a} rightParen{)} string{)\(}= )~"
                              R"~(stringInterpolation{)\(} identifier{b} rightParen{)} string{)"}=)~"},
          {R"~(("\(f(x))"))~",
           R"~(leftParen{(} string{"\(}= stringInterpolation{"\(} identifier{f} leftParen{(} identifier{x} )~"
           R"~(rightParen{)} rightParen{)} string{)"}= rightParen{)})~"},
          {R"~() "\(x)")~",
           R"~(rightParen{)} string{"\(}= stringInterpolation{"\(} identifier{x} rightParen{)} string{)"}=)~"},
          {R"~("a\(x)b" (y))~",
           R"~(string{"a\(}=a stringInterpolation{"a\(} identifier{x} rightParen{)} string{)b"}=b leftParen{(} )~"
           R"~(identifier{y} rightParen{)})~"},
          {R"~("a\(x)~", R"~(string{"a\(}=a stringInterpolation{"a\(} identifier{x})~"},
          {R"~("\()")~", R"~(string{"\(}= stringInterpolation{"\(} rightParen{)} string{)"}=)~"},
      },
      scannedProgram);
}

TEST(ScannerStrings, HasOneSlotForInterpolations) {
  expectRows(
      {
          {R"~("a\("b")c")~", "1:11-1:11 error: Unterminated string."},
          {R"~("a\("b")c" + "d)~",
           R"~(string{"a\(}=a stringInterpolation{"a\(} string{"b"}=b rightParen{)} identifier{c} string{" + "}= +  )~"
           R"~(identifier{d})~"},
          {R"~("a\("b\(c)d")e)~",
           R"~(string{"a\(}=a stringInterpolation{"a\(} string{"b\(}=b stringInterpolation{"b\(} identifier{c} )~"
           R"~(rightParen{)} string{)d"}=d rightParen{)} identifier{e})~"},
      },
      scannedProgram);
}

TEST(ScannerStrings, MeetsTags) {
  expectRows(
      {
          {R"~(<% "a%>b" %>)~", R"~(verbatim{} tagOpen{<%} string{"a%>b"}=a%>b tagClose{%>})~"},
          {R"~(<% "\(a%>b)~",
           R"~(verbatim{} tagOpen{<%} string{"\(}= stringInterpolation{"\(} identifier{a} tagClose{%>} verbatim{b})~"},
      },
      scannedTemplate);
}

TEST(ScannerStrings, GivesExactRanges) {
  expectRows(
      {
          {R"~("a\(x)b")~",
           "string@1:1-1:5 stringInterpolation@1:1-1:5 identifier@1:5-1:6 rightParen@1:6-1:7 string@1:6-1:9"},
          {"\"a\nb\" c", "string@1:1-2:3 identifier@2:4-2:5"},
          {"\"a\r\nb\" c", "string@1:1-1:6 identifier@1:7-1:8"},
      },
      programRanges);
}

TEST(ScannerStrings, PutsShortOnesIntoThePool) {
  const auto texts = std::make_shared<TextPool>();
  const auto isShared = [&](std::size_t size) {
    const std::string text(size, 'k');
    Scanner("\"" + text + "\"", Scanner::Mode::program, std::make_shared<ArrayLogger>(), "f", texts).scanTokens();
    return texts->find(text) != nullptr;
  };
  EXPECT_TRUE(isShared(1));
  EXPECT_TRUE(isShared(32));
  EXPECT_FALSE(isShared(33));
}

}  // namespace
}  // namespace velto

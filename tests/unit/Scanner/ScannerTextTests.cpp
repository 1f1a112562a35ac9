// Template text, tags and the frame of a scan.
#include <gtest/gtest.h>

#include "Velto/Diagnostics/VeltoError.h"
#include "tests/unit/Scanner/Printing.h"

namespace velto {
namespace {

TEST(ScannerText, GivesTextAndTags) {
  expectRows(
      {
          {"", ""},
          {"abc", "verbatim{abc}"},
          {"a\nb", "verbatim{a\nb}"},
          {"a<%= x %>b", "verbatim{a} tagOpen{<%} expressionMarker{<%=} identifier{x} tagClose{%>} verbatim{b}"},
          {"<% %>", "verbatim{} tagOpen{<%} tagClose{%>}"},
          {"<% x %><% y %>",
           "verbatim{} tagOpen{<%} identifier{x} tagClose{%>} verbatim{} tagOpen{<%} identifier{y} tagClose{%>}"},
          {"<%# note %>x", "verbatim{} tagOpen{<%} tagClose{<%# note %>} verbatim{x}"},
          {"a <%- x -%>",
           "verbatim{a } tagOpen{<%} skipWhitespaceMarker{-} identifier{x} skipWhitespaceMarker{-} tagClose{%>}"},
          {"<", "verbatim{<}"},
          {"<%", "verbatim{} tagOpen{<%}"},
          {"a<b%>c", "verbatim{a<b%>c}"},
          {"<<%", "verbatim{<} tagOpen{<%}"},
          {"%>", "verbatim{%>}"},
          {"a<% ", "verbatim{a} tagOpen{<%}"},
          {"<% <% %>", "verbatim{} tagOpen{<%} tagOpen{<%} tagClose{%>}"},
          {"<% =x %>", "verbatim{} tagOpen{<%} assign{=} identifier{x} tagClose{%>}"},
          {"<%==", "verbatim{} tagOpen{<%} expressionMarker{<%=} assign{=}"},
          {"<%>", "verbatim{} tagOpen{<%} greater{>}"},
          {"<%%>", "verbatim{} tagOpen{<%} tagClose{%>}"},
      },
      scannedTemplate);
}

TEST(ScannerText, TakesATagOpeningByCharacters) {
  expectRows(
      {
          {"<\u0301% x", "verbatim{<\u0301% x}"},
          {"<%\u0301 x", "verbatim{<%\u0301 x}"},
          {"a\u0301<% x", "verbatim{a\u0301} tagOpen{<%} identifier{x}"},
          {"\u0600<% x", "verbatim{\u0600<% x}"},
          {"\r\n<% x", "verbatim{\r\n} tagOpen{<%} identifier{x}"},
      },
      scannedTemplate);
}

TEST(ScannerText, GivesCommentsTheirTag) {
  expectRows(
      {
          {"<%#%>", "verbatim{} tagOpen{<%} tagClose{<%#%>}"},
          {"<%# <% %> %>", "verbatim{} tagOpen{<%} tagClose{<%# <% %>} verbatim{ %>}"},
          {"<%# %%>", "verbatim{} tagOpen{<%} tagClose{<%# %%>}"},
          {"<% # %>", "1:4-1:5 error: Unexpected character '#'."},
          {"<%# %", "1:1-1:6 error: Unterminated comment."},
          {"a\n<%#\nb", "2:1-3:2 error: Unterminated comment."},
          {"<%# %\u0301>", "1:1-1:7 error: Unterminated comment."},
          {"<% x <%# y %>z", "verbatim{} tagOpen{<%} identifier{x} tagOpen{<%} tagClose{<%# y %>} verbatim{z}"},
      },
      scannedTemplate);
}

TEST(ScannerText, TellsMarkersFromMinus) {
  expectRows(
      {
          {"<% -x %>", "verbatim{} tagOpen{<%} skipWhitespaceMarker{-} identifier{x} tagClose{%>}"},
          {"<%\n - x %>", "verbatim{} tagOpen{<%} skipWhitespaceMarker{-} identifier{x} tagClose{%>}"},
          {"<%= -x %>", "verbatim{} tagOpen{<%} expressionMarker{<%=} minus{-} identifier{x} tagClose{%>}"},
          {"<%=-%>", "verbatim{} tagOpen{<%} expressionMarker{<%=} skipWhitespaceMarker{-} tagClose{%>}"},
          {"<% a - b %>", "verbatim{} tagOpen{<%} identifier{a} minus{-} identifier{b} tagClose{%>}"},
          {"<% a -%>", "verbatim{} tagOpen{<%} identifier{a} skipWhitespaceMarker{-} tagClose{%>}"},
          {"<% a - %>", "verbatim{} tagOpen{<%} identifier{a} minus{-} tagClose{%>}"},
          {"<% - - x", "verbatim{} tagOpen{<%} skipWhitespaceMarker{-} minus{-} identifier{x}"},
          {"<%-%>", "verbatim{} tagOpen{<%} skipWhitespaceMarker{-} tagClose{%>}"},
          {"<%--%>", "verbatim{} tagOpen{<%} skipWhitespaceMarker{-} skipWhitespaceMarker{-} tagClose{%>}"},
          {"<% a -%", "1:7-1:8 error: Unexpected character '%'."},
      },
      scannedTemplate);
  expectRows({{"-x", "minus{-} identifier{x}"}, {"-%>", "1:2-1:3 error: Unexpected character '%'."}}, scannedProgram);
}

TEST(ScannerText, GivesExactRanges) {
  expectRows(
      {
          {"a\nb", "verbatim@1:1-2:2"},
          {"a\r\nb", "verbatim@1:1-1:4"},
          {"\n", "verbatim@1:1-2:1"},
          {"a\n\nbc<%= x\n%>d",
           "verbatim@1:1-3:3 tagOpen@3:3-3:5 expressionMarker@3:3-3:6 identifier@3:7-3:8 tagClose@4:1-4:3 "
           "verbatim@4:3-4:4"},
          {"<%# a\n %>b", "verbatim@1:1-1:1 tagOpen@1:1-1:3 tagClose@1:1-2:4 verbatim@2:4-2:5"},
          {"e\u0301\u00E9<% x", "verbatim@1:1-1:3 tagOpen@1:3-1:5 identifier@1:6-1:7"},
          {"<%- x -%>",
           "verbatim@1:1-1:1 tagOpen@1:1-1:3 skipWhitespaceMarker@1:3-1:4 identifier@1:5-1:6 "
           "skipWhitespaceMarker@1:7-1:8 tagClose@1:8-1:10"},
      },
      templateRanges);
}

TEST(ScannerText, IsAllCodeInAProgram) {
  expectRows(
      {
          {"<%", "1:2-1:3 error: Unexpected character '%'."},
          {"a < b", "identifier{a} less{<} identifier{b}"},
      },
      scannedProgram);
}

TEST(Scanner, StartsWithDefaults) {
  const auto logger = std::make_shared<ArrayLogger>();
  const Scanner scanner("abc", logger);
  EXPECT_EQ(scanner.mode(), Scanner::Mode::template_);
  EXPECT_EQ(scanner.file(), "<>");
  EXPECT_EQ(scanner.logger(), logger);
  EXPECT_EQ(scanner.source().string, "abc");
  EXPECT_EQ(scanner.cursor(), (Cursor{"<>", 1, 1}));
  EXPECT_EQ(scanner.range(), Range("<>", 1, 1));
}

TEST(Scanner, EndsWithTheStepOfItsLastBlank) {
  for (const auto& [text, range] :
       {std::pair("x  ", Range("a", 1, 3, 1, 4)), std::pair("x \n", Range("a", 1, 3, 2, 1)),
        std::pair("x\n\t", Range("a", 2, 1, 2, 2)), std::pair(" ", Range("a", 1, 1, 1, 2))}) {
    Scanner scanner(text, Scanner::Mode::program, std::make_shared<ArrayLogger>(), "a");
    scanner.scanTokens();
    EXPECT_EQ(scanner.range(), range) << text;
  }
}

TEST(Scanner, TellsWhereItStands) {
  const auto logger = std::make_shared<ArrayLogger>();
  Scanner scanner("a\nbc d#", Scanner::Mode::program, logger, "b.txt");
  EXPECT_THROW(scanner.scanTokens(), VeltoError);
  EXPECT_EQ(scanner.cursor(), (Cursor{"b.txt", 2, 6}));
  EXPECT_EQ(scanner.range(), Range("b.txt", 2, 5, 2, 6));
  ASSERT_EQ(logger->messages.size(), 1u);
  EXPECT_EQ(logger->messages[0].description(), "b.txt:2:5: error: Unexpected character '#'.");
}

TEST(Scanner, SharesTheTextsOfEqualWords) {
  const auto tokens =
      Scanner("name + name + (end", Scanner::Mode::program, std::make_shared<ArrayLogger>()).scanTokens();
  EXPECT_TRUE(tokens[0].lexeme.isSameAs(tokens[2].lexeme));
  EXPECT_TRUE(tokens[1].lexeme.isSameAs(tokens[3].lexeme));
  EXPECT_TRUE(tokens[5].lexeme.isSameAs(usualLexeme(TokenType::end)));
}

}  // namespace
}  // namespace velto

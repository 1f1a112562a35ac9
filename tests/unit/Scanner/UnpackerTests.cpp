// The removal of tags and the whitespace markers.
#include "Velto/Scanner/Unpacker.h"

#include <gtest/gtest.h>

#include "Velto/Diagnostics/VeltoError.h"
#include "tests/unit/Scanner/Printing.h"

namespace velto {
namespace {

Token token(TokenType type, const char* lexeme, Int column) {
  return {type, lexeme, Range("a.txt", 1, column, 1, column + 1)};
}

std::string unpackedTokens(std::vector<Token> tokens) {
  const auto logger = std::make_shared<ArrayLogger>();
  try {
    return text(Unpacker(std::move(tokens), logger).unpack());
  } catch (const VeltoError& error) {
    EXPECT_EQ(error.step, VeltoError::Step::scan);
    EXPECT_EQ(logger->messages.size(), 1u);
    return std::string(logger->messages.at(0).description());
  }
}

TEST(Unpacker, RemovesTags) {
  expectRows(
      {
          {"", ""},
          {"abc", "verbatim{abc}"},
          {"a<% x %>", "verbatim{a} identifier{x}"},
          {"<%= x %>", "expressionMarker{<%=} identifier{x}"},
          {"<% x %><% y %>", "identifier{x} identifier{y}"},
          {"a<%# b %>c", "verbatim{a} verbatim{c}"},
          {"<% %>", ""},
      },
      unpacked);
}

TEST(Unpacker, CutsBlanksBeforeATag) {
  expectRows(
      {
          {"a <%- x %>", "verbatim{a} identifier{x}"},
          {" \t<%- x %>", "identifier{x}"},
          {"a\n  <%- x %>", "verbatim{a\n} identifier{x}"},
          {"a \t \t<%- x %>b ", "verbatim{a} identifier{x} verbatim{b }"},
          {"a <% x %>", "verbatim{a } identifier{x}"},
          {"a\u00A0 <%- x %>", "verbatim{a\u00A0} identifier{x}"},
          {"a \u0301<%- x %>", "verbatim{a \u0301} identifier{x}"},
          {"\u0600 <%- x %>", "verbatim{\u0600 } identifier{x}"},
          {"a\r\n <%- x %>", "verbatim{a\r\n} identifier{x}"},
          {"a <%-%> b", "verbatim{a} verbatim{ b}"},
      },
      unpacked);
}

TEST(Unpacker, CutsALineFeedBehindATag) {
  expectRows(
      {
          {"<% x -%>\nb", "identifier{x} verbatim{b}"},
          {"<% x -%>\n\nb", "identifier{x} verbatim{\nb}"},
          {"<% x -%> \nb", "identifier{x} verbatim{ \nb}"},
          {"<% x -%>\r\nb", "identifier{x} verbatim{\r\nb}"},
          {"<% x -%><% y %>\nb", "identifier{x} identifier{y} verbatim{\nb}"},
          {"<% x -%>\n<%- y %>", "identifier{x} identifier{y}"},
          {"<% x -%>\n <%- y %>", "identifier{x} identifier{y}"},
          {"<% x -%>\n", "identifier{x}"},
          {"<% x -%>b\nc", "identifier{x} verbatim{b\nc}"},
          {"<% x -%>a<% y %>\nb", "identifier{x} verbatim{a} identifier{y} verbatim{\nb}"},
          {"a <%--%>\nb", "verbatim{a} verbatim{b}"},
          {"<%= x -%>\nb", "expressionMarker{<%=} identifier{x} verbatim{b}"},
      },
      unpacked);
}

TEST(Unpacker, KeepsTheRangeOfCutText) {
  const auto logger = std::make_shared<ArrayLogger>();
  const auto tokens = Unpacker(Scanner("<% x -%>\nb \n<%- y %>", logger).scanTokens(), logger).unpack();
  ASSERT_EQ(tokens.size(), 3u);
  EXPECT_EQ(tokens[1].lexeme, "b \n");
  EXPECT_EQ(text(tokens[1].range), "1:9-3:1");
}

TEST(Unpacker, LeavesAProgramAsItIs) {
  const auto logger = std::make_shared<ArrayLogger>();
  const auto tokens = Scanner("f(\"a\\(x)\") - 1", Scanner::Mode::program, logger).scanTokens();
  EXPECT_EQ(text(Unpacker(tokens, logger).unpack()), text(tokens));
}

TEST(Unpacker, ReportsTagsThatDoNotAlternate) {
  expectRows(
      {
          {"<% x", "1:4-1:5 error: Expect closing tag."},
          {"<%", "1:1-1:3 error: Expect closing tag."},
          {"a<% x %>b<%= y\n z", "2:2-2:3 error: Expect closing tag."},
          {"<% <% %>", "1:4-1:6 error: Unexpected opening tag."},
          {"<%- <% %>", "1:5-1:7 error: Unexpected opening tag."},
      },
      unpacked);
}

TEST(Unpacker, ReportsTokensThatNoScannerGives) {
  const Token text = token(TokenType::verbatim, "a", 1);
  const Token open = token(TokenType::tagOpen, "<%", 2);
  const Token marker = token(TokenType::skipWhitespaceMarker, "-", 3);
  const Token word = token(TokenType::identifier, "x", 4);
  const Token close = token(TokenType::tagClose, "%>", 5);
  EXPECT_EQ(unpackedTokens({close}), "a.txt:1:5: error: Unexpected closing tag.");
  EXPECT_EQ(unpackedTokens({open}), "a.txt:1:2: error: Unexpected opening tag.");
  EXPECT_EQ(unpackedTokens({text, word}), "a.txt:1:4: error: Expect opening tag.");
  EXPECT_EQ(unpackedTokens({text, open, word, marker, word}), "a.txt:1:4: error: Expect closing tag.");
  EXPECT_EQ(unpackedTokens({text, open, word, marker}), ":1:1: error: Expect closing tag.");
  EXPECT_EQ(unpackedTokens({word, marker, close, text}), "identifier{x} verbatim{a}");
}

}  // namespace
}  // namespace velto

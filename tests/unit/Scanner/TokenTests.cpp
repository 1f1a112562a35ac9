// Token types, keywords and how a token prints.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Velto/Scanner/Scanner.h"

namespace velto {
namespace {

const std::vector<std::string> namesInOrder{"leftParen",
                                            "rightParen",
                                            "comma",
                                            "dot",
                                            "minus",
                                            "plus",
                                            "slash",
                                            "star",
                                            "colon",
                                            "semicolon",
                                            "underscore",
                                            "leftSquareBracket",
                                            "rightSquareBracket",
                                            "commentMarker",
                                            "assign",
                                            "not",
                                            "equal",
                                            "notEqual",
                                            "greater",
                                            "greaterEqual",
                                            "less",
                                            "lessEqual",
                                            "openRange",
                                            "closedRange",
                                            "stringInterpolation",
                                            "tagOpen",
                                            "tagClose",
                                            "identifier",
                                            "string",
                                            "number",
                                            "verbatim",
                                            "and",
                                            "break",
                                            "case",
                                            "continue",
                                            "default",
                                            "else",
                                            "end",
                                            "false",
                                            "for",
                                            "func",
                                            "if",
                                            "in",
                                            "include",
                                            "is",
                                            "nil",
                                            "or",
                                            "return",
                                            "switch",
                                            "true",
                                            "var",
                                            "while",
                                            "skipWhitespaceMarker",
                                            "expressionMarker",
                                            "noop"};

const std::vector<std::string> reservedWords{"break",  "case",   "continue", "default", "else",    "end", "false",
                                             "for",    "func",   "if",       "in",      "include", "is",  "nil",
                                             "return", "switch", "true",     "var",     "while"};

TEST(TokenType, HasItsNamesInOrder) {
  ASSERT_EQ(namesInOrder.size(), 55u);
  for (std::size_t index = 0; index < namesInOrder.size(); ++index) {
    EXPECT_EQ(name(static_cast<TokenType>(index)), namesInOrder[index]);
  }
  EXPECT_EQ(static_cast<int>(TokenType::noop), 54);
}

TEST(TokenType, HasNineteenKeywords) {
  EXPECT_EQ(keywords().size(), 19u);
  for (const std::string& word : reservedWords) {
    ASSERT_TRUE(keywords().contains(word)) << word;
    EXPECT_EQ(name(keywords().at(word)), word);
    EXPECT_EQ(usualLexeme(keywords().at(word)), word);
  }
  for (const char* word : {"and", "or", "print", "If", "END", "", "&&"})
    EXPECT_FALSE(keywords().contains(word)) << word;
}

TEST(TokenType, SharesUsualLexemes) {
  EXPECT_EQ(usualLexeme(TokenType::openRange), "..<");
  EXPECT_EQ(usualLexeme(TokenType::identifier), "");
  EXPECT_TRUE(usualLexeme(TokenType::and_).isSameAs(usualLexeme(TokenType::and_)));
}

TEST(Token, PrintsItsTypeAndLexeme) {
  const Range range("a.txt", 1, 1, 1, 2);
  EXPECT_EQ(Token(TokenType::identifier, "foo", range).description(), "identifier foo");
  EXPECT_EQ(Token(TokenType::verbatim, "a\nb\n", range).description(), "verbatim a\nb\n");
  EXPECT_EQ(Token(TokenType::number, "1", Value(1), range).description(), "number 1");
  EXPECT_EQ(Token(TokenType::break_, "break", range).description(), "break break");
}

TEST(Token, HasNoLiteralUnlessGiven) {
  const Range range("a.txt", 1, 1, 1, 2);
  EXPECT_FALSE(Token(TokenType::dot, ".", range).literal);
  EXPECT_EQ(Token(TokenType::number, "1", Value(1), range).literal, Value(1));
}

TEST(Token, CanBeChanged) {
  Token token(TokenType::dot, ".", Range("a.txt", 1, 1, 1, 2));
  token.type = TokenType::comma;
  token.lexeme = ",";
  token.literal = Value("x");
  token.range = Range("b.txt", 2, 3);
  EXPECT_EQ(token.description(), "comma ,");
  EXPECT_EQ(token.range.description(), "b.txt:2...2:3...3");
}

}  // namespace
}  // namespace velto

// String literals and interpolation.
#include "Velto/Scanner/Scanner.h"

namespace velto {

/// One piece of a literal: behind the opening quote, or behind the ")" of an interpolation, up to the closing quote or
/// the next "\(".
void Scanner::scanString() {
  if (!stringStart_) stringStart_ = cursor();
  StringBuilder piece;
  while (const std::optional<Character> character = source_.current()) {
    const std::string_view text = character->text();
    if (text == "\"") return closeString(piece.build());
    if (text == "\\" && source_.matchString("\\(")) return openInterpolation(piece.build());
    piece.append(text == "\\" ? escape() : text);
    source_.advance();
  }
  fail(Range(*stringStart_, cursor()), "Unterminated string.");
}

/// The expression is scanned as any code; the ")" that brings the level back continues the literal.
void Scanner::openInterpolation(String piece) {
  addToken(TokenType::string, Value(std::move(piece)));
  addToken(TokenType::stringInterpolation);
  stringInterpolationParenLevel_ = parenLevel_;
  ++parenLevel_;
}

void Scanner::closeString(String piece) {
  source_.advance();
  addToken(TokenType::string, Value(std::move(piece)));
  stringStart_.reset();
  stringInterpolationParenLevel_.reset();
}

/// What a backslash and the character behind it stand for. That character stays, an error points at it.
std::string_view Scanner::escape() {
  source_.advance();
  const std::optional<Character> character = source_.current();
  if (!character) fail(range(), "Unterminated string.");
  if (*character == Character("\\")) return "\\";
  if (*character == Character("\"")) return "\"";
  if (*character == Character("n")) return "\n";
  if (*character == Character("r")) return "\r";
  if (*character == Character("t")) return "\t";
  if (*character == Character("0")) return {"\0", 1};
  const Cursor here = cursor();
  fail(Range(here, here), "Invalid escape sequence.");
}

}  // namespace velto

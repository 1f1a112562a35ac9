// String literals and interpolation.
#include "Velto/Scanner/Scanner.h"

namespace velto {

namespace {

/// Whether the byte is a character that stands for itself.
bool isOrdinary(char byte) noexcept {
  return ' ' <= byte && byte <= '~' && byte != '"' && byte != '\\';
}

}  // namespace

/// One piece of a literal: behind the opening quote, or behind the ")" of an interpolation, up to the closing quote or
/// the next "\(".
void Scanner::scanString() {
  if (!stringStart_) stringStart_ = cursor();
  StringBuilder piece;
  while (true) {
    piece.append(source_.skipPlain(isOrdinary));
    const std::optional<Character> character = source_.current();
    if (!character) break;
    const std::string_view text = character->text();
    if (text == "\"") {
      source_.advance();
      addPiece(piece);
      return closeString();
    }
    if (text == "\\" && source_.matchString("\\(")) {
      addPiece(piece);
      return openInterpolation();
    }
    piece.append(text == "\\" ? escape() : text);
    source_.advance();
  }
  fail(Range(*stringStart_, cursor()), "Unterminated string.");
}

/// A short literal is a key more often than not.
void Scanner::addPiece(StringBuilder& piece) {
  constexpr std::size_t longestKey = 32;
  const bool canBeKey = piece.view().size() <= longestKey;
  addToken(TokenType::string, canBeKey ? texts_->shared(piece.view()) : piece.build());
}

/// The expression is scanned as any code; the ")" that brings the level back continues the literal.
void Scanner::openInterpolation() {
  addToken(TokenType::stringInterpolation);
  stringInterpolationParenLevel_ = parenLevel_;
  ++parenLevel_;
}

void Scanner::closeString() {
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

// String literals and interpolation.
#include "Velto/Scanner/Scanner.h"

namespace velto {

namespace {

/// Whether the byte is a character that stands for itself.
bool isOrdinary(char byte) noexcept {
  return ' ' <= byte && byte <= '~' && byte != '"' && byte != '\\';
}

}  // namespace

/// A short literal without anything special in it is a key more often than not, and keys come again and again.
void Scanner::scanString() {
  constexpr std::size_t longestKey = 32;
  if (!stringStart_) stringStart_ = cursor();
  const std::string_view text = source_.skipPlain(isOrdinary);
  if (text.size() > longestKey || !source_.matchASCII("\"")) return scanPiece(text);
  addKey(text);
  closeString();
}

void Scanner::addKey(std::string_view key) {
  Word& word = this->word();
  if (word.lexeme.isEmpty()) word = {TokenType::string, stepLexeme(), Value(texts_->shared(key))};
  addToken(word);
}

/// The rest of one piece of a literal: behind the opening quote, or behind the ")" of an interpolation, up to the
/// closing quote or the next "\(".
void Scanner::scanPiece(std::string_view begin) {
  StringBuilder piece;
  piece.append(begin);
  while (true) {
    piece.append(source_.skipPlain(isOrdinary));
    const std::optional<Character> character = source_.current();
    if (!character) break;
    const std::string_view text = character->text();
    if (text == "\"") {
      source_.advance();
      addToken(TokenType::string, std::move(piece).build());
      return closeString();
    }
    if (text == "\\" && source_.matchASCII("\\(")) {
      addToken(TokenType::string, std::move(piece).build());
      return openInterpolation();
    }
    piece.append(text == "\\" ? escape() : text);
    source_.advance();
  }
  fail(Range(*stringStart_, cursor()), "Unterminated string.");
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

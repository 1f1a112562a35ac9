// The code step of a scan: operators, numbers, words and line comments.
#include <limits>

#include "Velto/Platform/Decimal.h"
#include "Velto/Scanner/Scanner.h"

namespace velto {

namespace {

/// The character as ASCII, NUL if it isn't. Of all that code is made of only the semicolon has a second spelling, the
/// Greek question mark U+037E.
char ascii(Character character) {
  if (character.text().size() == 1) return character.text().front();
  return character == Character(";") ? ';' : '\0';
}

/// Whether the byte is a character that can stand within a word; there are others beyond ASCII.
bool isPlainInWord(char byte) noexcept {
  return ('a' <= byte && byte <= 'z') || ('A' <= byte && byte <= 'Z') || ('0' <= byte && byte <= '9') || byte == '_';
}

/// By the rules of the C locale: what is too large is infinite, what is too small is 0. Nothing if a digit carries a
/// combining mark.
std::optional<double> decimalValue(std::string_view text) {
  double value = 0;
  const auto [end, error] = parseDecimal(text, value);
  if (end != text.data() + text.size()) return std::nullopt;
  if (error != std::errc::result_out_of_range) return value;
  const bool isLarge = text.find_first_of("123456789") < text.find('.');
  return isLarge ? std::numeric_limits<double>::infinity() : 0;
}

}  // namespace

void Scanner::scanCode() {
  const Character character = source_.advance();
  switch (ascii(character)) {
    case '(':
      ++parenLevel_;
      return addToken(TokenType::leftParen);
    case ')':
      return scanRightParen();
    case '[':
      return addToken(TokenType::leftSquareBracket);
    case ']':
      return addToken(TokenType::rightSquareBracket);
    case '_':
      return addToken(TokenType::underscore);
    case ',':
      return addToken(TokenType::comma);
    case '.':
      return scanDot();
    case '-':
      return scanMinus();
    case ':':
      return addToken(TokenType::colon);
    case ';':
      return addToken(TokenType::semicolon);
    case '+':
      return addToken(TokenType::plus);
    case '*':
      return addToken(TokenType::star);
    case '/':
      return scanSlash();
    case '|':
      return scanDoubled(character, TokenType::or_);
    case '&':
      return scanDoubled(character, TokenType::and_);
    case '!':
      return scanWithEqual(TokenType::notEqual, TokenType::not_);
    case '=':
      return scanWithEqual(TokenType::equal, TokenType::assign);
    case '<':
      return scanLess();
    case '>':
      return scanWithEqual(TokenType::greaterEqual, TokenType::greater);
    case '%':
      return scanPercent(character);
    case '"':
      return scanString();
    case ' ':
    case '\r':
    case '\t':
    case '\n':
      return;
    default:
      return scanOther(character);
  }
}

void Scanner::scanOther(Character character) {
  if (character.isDigit()) return scanNumber();
  if (character.isValidIdentifierStart()) return scanWord();
  failUnexpected(character);
}

/// The string step behind the ")" of an interpolation belongs to this step, so its piece begins at the ")".
void Scanner::scanRightParen() {
  --parenLevel_;
  addToken(TokenType::rightParen);
  if (stringInterpolationParenLevel_ == parenLevel_) scanString();
}

void Scanner::scanDot() {
  if (source_.matchASCII("..")) {
    addToken(TokenType::closedRange);
  } else if (source_.matchASCII(".<")) {
    addToken(TokenType::openRange);
  } else {
    addToken(TokenType::dot);
  }
}

/// Directly behind "<%", blanks aside, and directly before "%>" it is a marker of the tag.
void Scanner::scanMinus() {
  const bool isMarker = mode_ == Mode::template_ &&
                        ((!tokens_.empty() && tokens_.back().type == TokenType::tagOpen) || source_.isAtASCII("%>"));
  addToken(isMarker ? TokenType::skipWhitespaceMarker : TokenType::minus);
}

void Scanner::scanSlash() {
  if (source_.matchASCII("/")) {
    scanLineComment();
  } else {
    addToken(TokenType::slash);
  }
}

void Scanner::scanLess() {
  if (mode_ == Mode::template_ && source_.matchASCII("%")) {
    scanTagOpening();
  } else {
    scanWithEqual(TokenType::lessEqual, TokenType::less);
  }
}

void Scanner::scanPercent(Character character) {
  if (mode_ == Mode::program || !source_.matchASCII(">")) failUnexpected(character);
  closeTag();
}

void Scanner::scanDoubled(Character character, TokenType type) {
  if (!source_.matchASCII(character.text())) failUnexpected(character);
  addToken(type);
}

void Scanner::scanWithEqual(TokenType with, TokenType without) {
  addToken(source_.matchASCII("=") ? with : without);
}

/// The character directly behind "//" belongs to the comment unseen, be it a line end or the "%" of "%>".
void Scanner::scanLineComment() {
  source_.advance();
  while (const std::optional<Character> character = source_.current()) {
    if (character->text() == "\n" || source_.isAtASCII("%>")) return;
    source_.advance();
  }
}

/// A dot belongs to the number only if a digit follows, so "1...3" is a range.
void Scanner::scanNumber() {
  scanDigits();
  if (source_.isAtASCII(".")) {
    const std::optional<Character> next = source_.next();
    if (next && next->isDigit()) {
      source_.advance();
      scanDigits();
    }
  }
  const std::optional<double> value = decimalValue(stepText());
  if (!value) fatalError("Failed to interpret a number");
  addToken(TokenType::number, Value(*value));
}

void Scanner::scanDigits() {
  source_.skipPlain([](char byte) { return '0' <= byte && byte <= '9'; });
  while (source_.match([](Character character) { return character.isDigit(); })) {
  }
}

void Scanner::scanWord() {
  source_.skipPlain(isPlainInWord);
  while (source_.match([](Character character) { return character.isValidIdentifierContinuation(); })) {
  }
  Word& word = this->word();
  if (word.lexeme.isEmpty()) word = wordOf(texts_->shared(stepText()));
  addToken(word);
}

Scanner::Word Scanner::wordOf(const String& text) {
  const auto keyword = keywords().find(text);
  if (keyword == keywords().end()) return {TokenType::identifier, text, std::nullopt};
  return {keyword->second, keyword->first, std::nullopt};
}

void Scanner::failUnexpected(Character character) {
  fail(range(), String::concatenation({"Unexpected character '", character.text(), "'."}));
}

}  // namespace velto

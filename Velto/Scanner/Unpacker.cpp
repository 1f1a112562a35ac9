// Removes the tags from a token array and applies the whitespace markers.
#include "Velto/Scanner/Unpacker.h"

#include "Velto/Diagnostics/Fail.h"
#include "Velto/Platform/Character.h"

namespace velto {

namespace {

/// How many bytes of `text` are left without the blanks and tabs at its end. A blank that has joined the character
/// before it is none.
std::size_t sizeWithoutTrailingBlanks(std::string_view text) noexcept {
  std::size_t end = text.size();
  while (end > 0 && (text[end - 1] == ' ' || text[end - 1] == '\t') && previousBoundary(text, end) == end - 1) --end;
  return end;
}

}  // namespace

Unpacker::Unpacker(std::vector<Token> tokens, std::shared_ptr<Logger> logger)
    : logger_(std::move(logger)), tokens_(std::move(tokens)) {
}

/// The tokens that stay move together at the start of the array.
std::vector<Token> Unpacker::unpack() {
  const Int count = static_cast<Int>(tokens_.elements.size());
  while (tokens_.index < count) unpackToken(tokens_.elements[static_cast<std::size_t>(tokens_.index++)]);
  if (inCode_) fail(tokens_.previous()->range, "Expect closing tag.");
  tokens_.elements.erase(tokens_.elements.begin() + static_cast<std::ptrdiff_t>(count_), tokens_.elements.end());
  return std::move(tokens_.elements);
}

void Unpacker::unpackToken(Token& token) {
  switch (token.type) {
    case TokenType::verbatim:
      return unpackText(token);
    case TokenType::tagOpen:
      fail(token.range, "Unexpected opening tag.");
    case TokenType::tagClose:
      return closeTag(token);
    case TokenType::skipWhitespaceMarker:
      return closeTagCuttingNewline();
    default:
      keep(token);
  }
}

/// The last token stays where it is, too: an error may have to be reported there.
void Unpacker::keep(Token& token) {
  Token& place = tokens_.elements[count_++];
  if (&place == &token) return;
  if (&token == &tokens_.elements.back()) {
    place = token;
  } else {
    place = std::move(token);
  }
}

/// Text is the last token, or a tag opens behind it.
void Unpacker::unpackText(Token& token) {
  if (tokens_.isAtEnd()) return emit(token, token.lexeme);
  consume(TokenType::tagOpen, "Expect opening tag.");
  inCode_ = true;
  const auto isMarker = [](const Token& next) { return next.type == TokenType::skipWhitespaceMarker; };
  const bool isCut = tokens_.match(isMarker);
  emit(token, isCut ? token.lexeme.slice(0, sizeWithoutTrailingBlanks(token.lexeme)) : token.lexeme);
}

/// The range stays that of the whole text, whatever was cut.
void Unpacker::emit(Token& token, String text) {
  if (skipNextNewline_ && text.view().starts_with('\n')) text = text.slice(1, text.size() - 1);
  skipNextNewline_ = false;
  if (text.isEmpty()) return;
  token.lexeme = std::move(text);
  keep(token);
}

void Unpacker::closeTag(const Token& token) {
  if (!inCode_) fail(token.range, "Unexpected closing tag.");
  inCode_ = false;
}

void Unpacker::closeTagCuttingNewline() {
  skipNextNewline_ = true;
  consume(TokenType::tagClose, "Expect closing tag.");
  inCode_ = false;
}

void Unpacker::consume(TokenType type, std::string_view message) {
  if (tokens_.match([type](const Token& token) { return token.type == type; })) return;
  const Token* token = tokens_.current();
  fail(token ? token->range : Range("", 1, 1), message);
}

void Unpacker::fail(const Range& range, std::string_view message) {
  velto::fail(*logger_, VeltoError::Step::scan, range, message);
}

}  // namespace velto

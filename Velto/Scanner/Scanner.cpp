// The frame of a scan, template text and tags.
#include "Velto/Scanner/Scanner.h"

#include "Velto/Diagnostics/Fail.h"
#include "Velto/Scanner/TemplateText.h"

namespace velto {

Scanner::Scanner(String source, Mode mode, std::shared_ptr<Logger> logger, String file, std::shared_ptr<TextPool> texts)
    : source_(std::move(source)),
      mode_(mode),
      logger_(std::move(logger)),
      file_(std::move(file)),
      texts_(std::move(texts)),
      isScanningCode_(mode == Mode::program) {
}

Cursor Scanner::cursor() const {
  return {file_, source_.line, source_.column};
}

Range Scanner::range() const {
  return {file_, startLine_, startColumn_, source_.line, source_.column};
}

std::vector<Token> Scanner::scanTokens() {
  while (!source_.isAtEnd()) {
    start_ = source_.index;
    startLine_ = source_.line;
    startColumn_ = source_.column;
    scanStep();
  }
  return std::move(tokens_);
}

void Scanner::scanStep() {
  if (isScanningCode_) {
    scanCode();
  } else {
    scanText();
  }
}

/// Text directly before a tag is a token even when it is empty, and the tag stays for the next step.
void Scanner::scanText() {
  skipTemplateText(source_);
  addToken(TokenType::verbatim);
  isScanningCode_ = true;
}

void Scanner::scanTagOpening() {
  addToken(TokenType::tagOpen);
  if (source_.match(Character("="))) {
    addToken(TokenType::expressionMarker);
  } else if (source_.match(Character("#"))) {
    scanTagComment();
  }
}

void Scanner::scanTagComment() {
  while (!isAtTagClosing()) {
    if (source_.isAtEnd()) fail(range(), "Unterminated comment.");
    source_.advance();
  }
  source_.matchString("%>");
  closeTag();
}

/// Most characters are told by their text alone: no other scalar is equivalent to "%".
bool Scanner::isAtTagClosing() const {
  const std::optional<Character> character = source_.current();
  return character && character->text() == "%" && source_.peekMatchString("%>");
}

void Scanner::closeTag() {
  addToken(TokenType::tagClose);
  isScanningCode_ = false;
}

/// All tokens of a step begin where the step began.
void Scanner::addToken(TokenType type) {
  tokens_.emplace_back(type, stepLexeme(type), range());
}

void Scanner::addToken(TokenType type, Value literal) {
  tokens_.emplace_back(type, stepLexeme(type), std::move(literal), range());
}

std::string_view Scanner::stepText() const noexcept {
  return source_.string.view().substr(start_, source_.index - start_);
}

String Scanner::stepLexeme(TokenType type) const {
  const String& usual = usualLexeme(type);
  const std::string_view text = stepText();
  return text == usual.view() ? usual : source_.string.slice(start_, text.size());
}

void Scanner::fail(const Range& range, String message) {
  velto::fail(*logger_, VeltoError::Step::scan, range, std::move(message));
}

}  // namespace velto

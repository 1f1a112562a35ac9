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

std::vector<Token> Scanner::scanTokens() {
  constexpr std::size_t bytesOfText = 32;  // a token has at least so many where text prevails
  tokens_.reserve(source_.string.size() / bytesOfText + 1);
  while (true) {
    if (isScanningCode_) source_.skipBlanks();
    if (source_.isAtEnd()) return std::move(tokens_);
    scanStep();
  }
}

void Scanner::scanStep() {
  start_ = source_.index;
  step_.startLine = source_.line;
  step_.startColumn = source_.column;
  if (isScanningCode_) {
    scanCode();
  } else {
    scanText();
  }
}

/// Text directly before a tag is a token even when it is empty, and the tag stays for the next step.
void Scanner::scanText() {
  const bool isASCII = skipTemplateText(source_);
  tokens_.emplace_back(TokenType::verbatim, source_.string.slice(start_, source_.index - start_, isASCII), stepRange());
  isScanningCode_ = true;
}

void Scanner::scanTagOpening() {
  addToken(TokenType::tagOpen);
  if (source_.matchASCII("=")) {
    addToken(TokenType::expressionMarker);
  } else if (source_.matchASCII("#")) {
    scanTagComment();
  }
}

void Scanner::scanTagComment() {
  while (!source_.isAtASCII("%>")) {
    if (source_.isAtEnd()) fail(range(), "Unterminated comment.");
    source_.advance();
  }
  source_.matchASCII("%>");
  closeTag();
}

void Scanner::closeTag() {
  addToken(TokenType::tagClose);
  isScanningCode_ = false;
}

const Range& Scanner::stepRange() noexcept {
  step_.endLine = source_.line;
  step_.endColumn = source_.column;
  return step_;
}

/// All tokens of a step begin where the step began. No type is added by a step that is as long as the usual lexeme of
/// the type and yet another one.
void Scanner::addToken(TokenType type) {
  const String& usual = usualLexeme(type);
  if (stepText().size() == usual.size()) {
    tokens_.emplace_back(type, usual, stepRange());
  } else {
    tokens_.emplace_back(type, stepLexeme(), stepRange());
  }
}

void Scanner::addToken(TokenType type, Value literal) {
  tokens_.emplace_back(type, stepLexeme(), std::move(literal), stepRange());
}

void Scanner::addToken(const Word& word) {
  tokens_.emplace_back(word.type, word.lexeme, word.literal, stepRange());
}

std::string_view Scanner::stepText() const noexcept {
  return {source_.string.view().data() + start_, source_.index - start_};
}

String Scanner::stepLexeme() const {
  return source_.string.slice(start_, source_.index - start_);
}

void Scanner::fail(const Range& range, String message) {
  velto::fail(*logger_, VeltoError::Step::scan, range, std::move(message));
}

}  // namespace velto

// Source text into tokens.
#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Velto/Diagnostics/Logger.h"
#include "Velto/Platform/TextPool.h"
#include "Velto/Scanner/ScannableString.h"
#include "Velto/Scanner/Token.h"

namespace [[gnu::visibility("default")]] velto {

/// Scans one source, once. In `template_` mode the source is text with code between "<%" and "%>", in `program` mode it
/// is all code.
class Scanner {
 public:
  using Token = velto::Token;
  using TokenType = velto::TokenType;
  enum class Mode { template_, program };

  /// Names come out of `texts`, or of a pool of the scanner's own.
  Scanner(String source, Mode mode, std::shared_ptr<Logger> logger, String file = "<>",
          std::shared_ptr<TextPool> texts = std::make_shared<TextPool>());
  Scanner(String source, std::shared_ptr<Logger> logger, String file = "<>")
      : Scanner(std::move(source), Mode::template_, std::move(logger), std::move(file)) {}

  const ScannableString& source() const noexcept { return source_; }
  Mode mode() const noexcept { return mode_; }
  const std::shared_ptr<Logger>& logger() const noexcept { return logger_; }
  const String& file() const noexcept { return file_; }

  /// Where the scanner stands.
  Cursor cursor() const;
  /// From where the current step began to where the scanner stands.
  Range range() const { return {file_, step_.startLine, step_.startColumn, source_.line, source_.column}; }

  /// All tokens. The first error is reported and ends the scan with `VeltoError`, step `scan`.
  std::vector<Token> scanTokens();

 private:
  /// A word or a short string literal.
  struct Word {
    TokenType type{};
    String lexeme;  // empty until the word has been looked up
    std::optional<Value> literal;
  };

  // Scanner.cpp: the frame, text and tags
  void scanStep();
  void scanText();
  void scanTagOpening();
  void scanTagComment();
  void closeTag();
  const Range& stepRange() noexcept;
  void addToken(TokenType type);
  void addToken(TokenType type, Value literal);
  void addToken(const Word& word);
  std::string_view stepText() const noexcept;
  String stepLexeme() const;
  [[noreturn]] void fail(const Range& range, String message);

  // ScannerCode.cpp: operators, numbers, words and comments
  void scanCode();
  void scanOther(Character character);
  void scanRightParen();
  void scanDot();
  void scanMinus();
  void scanSlash();
  void scanLess();
  void scanPercent(Character character);
  void scanDoubled(Character character, TokenType type);
  void scanWithEqual(TokenType with, TokenType without);
  void scanLineComment();
  void scanNumber();
  void scanDigits();
  void scanWord();
  Word& word() { return words_[stepText()]; }
  static Word wordOf(const String& text);
  [[noreturn]] void failUnexpected(Character character);

  // ScannerStrings.cpp: string literals and interpolation
  void scanString();
  void scanPiece(std::string_view begin);
  void addKey(std::string_view key);
  void openInterpolation();
  void closeString();
  std::string_view escape();

  ScannableString source_;
  Mode mode_;
  std::shared_ptr<Logger> logger_;
  String file_;
  std::shared_ptr<TextPool> texts_;
  std::vector<Token> tokens_;
  std::unordered_map<std::string_view, Word> words_;  // seen so far, so that each is looked up once
  std::size_t start_ = 0;                             // the current step began here
  Range step_{file_, 1, 1};                           // the end is set when it is asked for
  bool isScanningCode_;
  Int parenLevel_ = 0;
  std::optional<Cursor> stringStart_;                 // behind the opening quote of the literal in progress
  std::optional<Int> stringInterpolationParenLevel_;  // one slot, so any closing quote forgets the interpolation
};

}  // namespace velto

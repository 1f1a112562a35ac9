// Source text into tokens.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "Velto/Diagnostics/Logger.h"
#include "Velto/Scanner/ScannableString.h"
#include "Velto/Scanner/Token.h"

namespace [[gnu::visibility("default")]] velto {

/// Scans one source, once. In `template_` mode the source is text with code between "<%" and "%>", in `program` mode it is
/// all code.
class Scanner {
 public:
  using Token = velto::Token;
  using TokenType = velto::TokenType;
  enum class Mode { template_, program };

  Scanner(String source, Mode mode, std::shared_ptr<Logger> logger, String file = "<>");
  Scanner(String source, std::shared_ptr<Logger> logger, String file = "<>")
      : Scanner(std::move(source), Mode::template_, std::move(logger), std::move(file)) {}

  const ScannableString& source() const noexcept { return source_; }
  Mode mode() const noexcept { return mode_; }
  const std::shared_ptr<Logger>& logger() const noexcept { return logger_; }
  const String& file() const noexcept { return file_; }

  /// Where the scanner stands.
  Cursor cursor() const;
  /// From where the current step began to where the scanner stands.
  Range range() const;

  /// All tokens. The first error is reported and ends the scan with `VeltoError`, step `scan`.
  std::vector<Token> scanTokens();

 private:
  // Scanner.cpp: the frame, text and tags
  void scanStep();
  void scanText();
  void scanTagOpening();
  void scanTagComment();
  void addToken(TokenType type, std::optional<Value> literal = std::nullopt);
  [[noreturn]] void fail(const Range& range, String message);

  // ScannerCode.cpp: operators, numbers, words and comments
  void scanCode();
  bool scanTwoCharacters(std::string_view second, TokenType both, TokenType first);
  bool isTagMarker() const;
  void scanMinus();
  void scanDot();
  void scanLineComment();
  void scanNumber();
  void scanWord();
  [[noreturn]] void failUnexpected(Character character);

  // ScannerStrings.cpp: string literals and interpolation
  void scanString();
  void appendEscape(StringBuilder& value);

  ScannableString source_;
  Mode mode_;
  std::shared_ptr<Logger> logger_;
  String file_;
  std::vector<Token> tokens_;
  std::size_t start_ = 0;
  Int startLine_ = 1;
  Int startColumn_ = 1;
  bool isScanningCode_;
  Int parenLevel_ = 0;
  std::optional<Cursor> stringStart_;                   // behind the opening quote of the literal in progress
  std::optional<Int> stringInterpolationParenLevel_;    // one slot, so the innermost interpolation wins
};

}  // namespace velto

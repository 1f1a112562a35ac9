// Removes the tags from a token array and applies the whitespace markers.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "Velto/Diagnostics/Logger.h"
#include "Velto/Scanner/Scannable.h"
#include "Velto/Scanner/Token.h"

namespace [[gnu::visibility("default")]] velto {

/// One pass over one array. "<%-" cuts blanks and tabs from the end of the text before it, "-%>" one line feed from the
/// start of the text behind it.
class Unpacker {
 public:
  Unpacker(std::vector<Token> tokens, std::shared_ptr<Logger> logger);

  /// The tokens without `tagOpen`, `tagClose`, `skipWhitespaceMarker` and empty `verbatim`. The first error is reported
  /// and thrown as `VeltoError`, step `scan`.
  std::vector<Token> unpack();

 private:
  void unpackToken(Token& token);
  void keep(Token& token);
  void unpackText(Token& token);
  void emit(Token& token, String text);
  void closeTag(const Token& token);
  void closeTagCuttingNewline();
  void consume(TokenType type, std::string_view message);
  [[noreturn]] void fail(const Range& range, std::string_view message);

  std::shared_ptr<Logger> logger_;
  ScannableArray<Token> tokens_;
  std::size_t count_ = 0;  // of the tokens that stay
  bool skipNextNewline_ = false;
  bool inCode_ = false;
};

}  // namespace velto

// JSON documents as values.
#include <algorithm>
#include <cstring>
#include <iterator>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "Velto/Library/JSONLibrary.h"
#include "Velto/Library/JSONNumber.h"
#include "Velto/Library/JSONShapes.h"
#include "Velto/Library/JSONTexts.h"
#include "Velto/Library/JSONTokens.h"
#include "Velto/Platform/StackGuard.h"
#include "Velto/Platform/Wrapping.h"
#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"

namespace velto {
namespace {

constexpr std::string_view whitespace = " \t\n\r";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string_view withoutSpaceAtEnd(std::string_view token) {
  while (!token.empty() && whitespace.find(token.back()) != whitespace.npos) token.remove_suffix(1);
  return token;
}

/// Whether one of the eight bytes is `byte`.
VELTO_WRAPS constexpr bool contains(std::uint64_t bytes, unsigned char byte) noexcept {
  constexpr std::uint64_t ones = 0x0101'0101'0101'0101;
  const std::uint64_t different = bytes ^ (ones * byte);
  return ((different - ones) & ~different & (ones << 7)) != 0;
}

/// The first quote or backslash, of which there must be one, with room to read on behind it.
const char* findQuoteOrBackslash(const char* text) noexcept {
  for (std::uint64_t bytes;; text += sizeof bytes) {
    std::memcpy(&bytes, text, sizeof bytes);
    if (contains(bytes, '"') || contains(bytes, '\\')) break;
  }
  while (*text != '"' && *text != '\\') ++text;
  return text;
}

class DocumentReader {
 public:
  DocumentReader(std::string document, TextPool& texts) : tokens_(std::move(document)), keys_(texts) {}

  std::optional<Value> read() {
    if (!tokens_.find() || !readPart() || token_ != tokens_.count()) return std::nullopt;
    return std::move(parts_.front());
  }

 private:
  // These tell whether the part of the document is valid, move behind it and add its value to the parts.

  bool readPart() {
    switch (tokens_.first(token_)) {
      case '[':
        return readArray();
      case '{':
        return readObject();
      case '"':
        return readText();
      case 't':
      case 'f':
      case 'n':
        return readWord();
      default:
        return readNumber();
    }
  }

  bool readArray() {
    if (stack_.isExhausted()) return false;
    const std::size_t begin = parts_.size();
    ++token_;
    if (!take(']')) {
      do {
        if (!readPart()) return false;
      } while (take(','));
      if (!take(']')) return false;
    }
    replaceParts(begin, Array(std::vector<Value>(partsFrom(begin), std::make_move_iterator(parts_.end()))));
    return true;
  }

  bool readObject() {
    if (stack_.isExhausted()) return false;
    const std::size_t begin = parts_.size();
    ++token_;
    if (!take('}')) {
      do {
        if (!readKey() || !take(':') || !readPart()) return false;
      } while (take(','));
      if (!take('}')) return false;
    }
    replaceParts(begin, shapes_.take(std::span(parts_).subspan(begin)));
    return true;
  }

  bool readKey() {
    if (tokens_.first(token_) != '"') return false;
    if (const String* const expected = keys_.takeExpected(tokens_.bytes(token_).substr(1))) {
      parts_.emplace_back(*expected);
      ++token_;
      return true;
    }
    const std::optional<std::string_view> plain = plainText();
    const std::optional<std::string_view> key = plain ? plain : tokens_.unescaped(token_);
    if (!key) return false;
    parts_.emplace_back(keys_.shared(*key));
    ++token_;
    return true;
  }

  bool readText() {
    const std::optional<std::string_view> plain = plainText();
    const std::optional<std::string_view> text = plain ? plain : tokens_.unescaped(token_);
    if (!text) return false;
    parts_.emplace_back(texts_.shared(*text));
    ++token_;
    return true;
  }

  /// The text where it stands in the document, if no escape is in it.
  std::optional<std::string_view> plainText() const noexcept {
    const char* const begin = tokens_.behindFirst(token_);
    const char* const end = findQuoteOrBackslash(begin);
    if (*end != '"') return std::nullopt;
    return std::string_view(begin, static_cast<std::size_t>(end - begin));
  }

  bool readWord() {
    const std::string_view word = withoutSpaceAtEnd(tokens_.bytes(token_++));
    if (word == "true" || word == "false") {
      parts_.emplace_back(word == "true");
      return true;
    }
    parts_.emplace_back();
    return word == "null";
  }

  bool readNumber() {
    const std::optional<double> number = parseJSONNumber(withoutSpaceAtEnd(tokens_.bytes(token_++)));
    parts_.emplace_back(number.value_or(0));
    return number.has_value();
  }

  bool take(char first) noexcept {
    if (tokens_.first(token_) != first) return false;
    ++token_;
    return true;
  }

  std::move_iterator<std::vector<Value>::iterator> partsFrom(std::size_t begin) {
    return std::make_move_iterator(parts_.begin() + static_cast<std::ptrdiff_t>(begin));
  }

  void replaceParts(std::size_t begin, Value whole) {
    parts_.resize(begin);
    parts_.push_back(std::move(whole));
  }

  JSONTokens tokens_;
  std::size_t token_ = 0;
  std::vector<Value> parts_;  // of the arrays and objects that are being read, so that each is made at its size
  JSONKeys keys_;
  JSONShapes shapes_;
  JSONRecentTexts texts_;
  StackGuard stack_;
};

}  // namespace

std::optional<Value> parseJSON(std::string document, TextPool& texts) {
  if (document.starts_with(byteOrderMark)) document.erase(0, byteOrderMark.size());
  return DocumentReader(std::move(document), texts).read();
}

std::optional<Value> parseJSON(std::string document) {
  TextPool texts;
  return parseJSON(std::move(document), texts);
}

}  // namespace velto

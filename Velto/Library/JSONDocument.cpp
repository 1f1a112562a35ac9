// JSON documents as values.
#include <algorithm>
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
#include "Velto/Platform/Grove.h"
#include "Velto/Platform/StackGuard.h"
#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"

namespace velto {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

constexpr bool isSpace(char character) noexcept {
  return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

std::string_view withoutSpaceAtEnd(std::string_view token) {
  while (!token.empty() && isSpace(token.back())) token.remove_suffix(1);
  return token;
}

/// The same as `==`, which the standard library leaves to a function that also tells which one is the smaller.
template <std::size_t Size>
bool isWord(std::string_view token, const char (&word)[Size]) noexcept {
  return token.size() == Size - 1 && std::equal(token.begin(), token.end(), word);
}

class DocumentReader {
 public:
  DocumentReader(std::string document, TextPool& texts)
      : tokens_(std::move(document)), shapes_(texts), texts_(texts, grove_) {}

  std::optional<Value> read() {
    if (!tokens_.find()) return std::nullopt;
    backslash_ = tokens_.findBackslash(tokens_.behindFirst(0));
    if (!readPart() || token_ != tokens_.count()) return std::nullopt;
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

  [[gnu::noinline]] bool readArray() {
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

  [[gnu::noinline]] bool readObject() {
    if (stack_.isExhausted()) return false;
    const std::size_t begin = parts_.size();
    ObjectKeys keys{&shapes_.shortest()};
    ++token_;
    if (!take('}')) {
      do {
        if (!readKey(keys) || !take(':') || !readPart()) return false;
      } while (take(','));
      if (!take('}')) return false;
    }
    replaceParts(begin, shapes_.take(*keys.shape, std::span(parts_).subspan(begin)));
    return true;
  }

  /// Those that no shape takes stand among the parts.
  struct ObjectKeys {
    JSONShape* shape;
    bool hasOthers = false;
  };

  bool readKey(ObjectKeys& keys) {
    if (tokens_.first(token_) != '"') return false;
    if (!keys.hasOthers) {
      if (JSONShape* const expected = shapes_.expected(*keys.shape, tokens_.bytesBehindFirst(token_))) {
        keys.shape = expected;
        ++token_;
        return true;
      }
    }
    const std::optional<std::string_view> plain = plainText();
    const std::optional<std::string_view> key = plain ? plain : tokens_.unescaped(token_);
    if (!key) return false;
    addKey(keys, *key);
    ++token_;
    return true;
  }

  void addKey(ObjectKeys& keys, std::string_view key) {
    if (JSONShape* const longer = keys.hasOthers ? nullptr : shapes_.with(*keys.shape, key)) {
      keys.shape = longer;
    } else {
      keys.hasOthers = true;
      parts_.emplace_back(shapes_.key(key));
    }
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
  std::optional<std::string_view> plainText() noexcept {
    const char* const begin = tokens_.behindFirst(token_);
    const char* end = tokens_.behindFirst(token_ + 1) - 1;
    do --end;  // over the space behind the text, to the quote that closes it
    while (*end != '"');
    // The texts come in their order, so that each backslash is looked for once.
    if (backslash_ < begin) backslash_ = tokens_.findBackslash(begin);
    if (backslash_ < end) return std::nullopt;
    return std::string_view(begin, static_cast<std::size_t>(end - begin));
  }

  bool readWord() {
    const std::string_view word = withoutSpaceAtEnd(tokens_.bytes(token_++));
    if (isWord(word, "null")) {
      parts_.emplace_back();
      return true;
    }
    const bool isTrue = isWord(word, "true");
    parts_.emplace_back(isTrue);
    return isTrue || isWord(word, "false");
  }

  [[gnu::noinline]] bool readNumber() {
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

  template <typename Container>
  void replaceParts(std::size_t begin, Container made) {
    Value whole = Ref<const Container>(new (grove_) Container(std::move(made)));
    while (parts_.size() > begin) parts_.pop_back();
    parts_.push_back(std::move(whole));
  }

  JSONTokens tokens_;
  std::size_t token_ = 0;
  const char* backslash_ = nullptr;  // the next one, as far as was looked, or the end of the document
  std::vector<Value> parts_;         // of the arrays and objects that are being read, so that each is made at its size
  Grove grove_;                      // all that the document holds stands there
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

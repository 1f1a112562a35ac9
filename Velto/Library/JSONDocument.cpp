// JSON documents as values.

// What simdjson checks in a debug build bounds the depth of documents.
#define SIMDJSON_DEVELOPMENT_CHECKS 0
#include <simdjson.h>

#include <algorithm>
#include <iterator>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "Velto/Library/JSONLibrary.h"
#include "Velto/Library/JSONNumber.h"
#include "Velto/Platform/StackGuard.h"
#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"

namespace velto {
namespace {

namespace ondemand = simdjson::ondemand;

constexpr std::string_view whitespace = " \t\n\r";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::string_view withoutSpaceAtEnd(std::string_view token) {
  while (!token.empty() && whitespace.find(token.back()) != whitespace.npos) token.remove_suffix(1);
  return token;
}

/// Reads a document whose top level is an array or an object. simdjson tells the tokens, the structure and the texts;
/// numbers and words are read here, since it is neither exact nor strict in all of them.
class DocumentReader {
 public:
  explicit DocumentReader(TextPool& texts) noexcept : texts_(texts) {}

  /// `padded` has the padding of simdjson behind its first `size` bytes.
  std::optional<Value> read(const std::string& padded, std::size_t size) {
    ondemand::document document;
    ondemand::value top;
    Value result;
    if (parser_.iterate(padded.data(), size, padded.size()).get(document) || document.get_value().get(top) ||
        !read(top, result) || !isAtEnd(document)) {
      return std::nullopt;
    }
    return result;
  }

 private:
  // These tell whether the part of the document is valid.

  bool read(ondemand::value source, Value& result) {
    const std::string_view token = source.raw_json_token();
    switch (token.front()) {
      case '[':
        return readArray(source, result);
      case '{':
        return readObject(source, result);
      case '"':
        return readString(source, result);
      default:
        return readWord(withoutSpaceAtEnd(token), result);
    }
  }

  bool readArray(ondemand::value container, Value& result) {
    ondemand::array array;
    if (stack_.isExhausted() || container.get_array().get(array)) return false;
    const std::size_t begin = parts_.size();
    for (auto element : array) {
      ondemand::value source;
      if (element.get(source) || !readPart(source)) return false;
    }
    result = Array(std::vector<Value>(partsFrom(begin), std::make_move_iterator(parts_.end())));
    parts_.resize(begin);
    return true;
  }

  bool readObject(ondemand::value container, Value& result) {
    ondemand::object object;
    if (stack_.isExhausted() || container.get_object().get(object)) return false;
    const std::size_t begin = parts_.size();
    for (auto field : object) {
      std::string_view key;
      ondemand::value source;
      if (field.unescaped_key().get(key) || field.value().get(source)) return false;
      parts_.emplace_back(shared(key));
      if (!readPart(source)) return false;
    }
    result = takeDictionary(begin);
    return true;
  }

  bool readPart(ondemand::value source) {
    Value part;
    if (!read(source, part)) return false;
    parts_.push_back(std::move(part));
    return true;
  }

  std::move_iterator<std::vector<Value>::iterator> partsFrom(std::size_t begin) {
    return std::make_move_iterator(parts_.begin() + static_cast<std::ptrdiff_t>(begin));
  }

  Dictionary takeDictionary(std::size_t begin) {
    Dictionary dictionary;
    dictionary.reserve((parts_.size() - begin) / 2);
    for (std::size_t index = begin; index < parts_.size(); index += 2) {
      dictionary.set(std::move(parts_[index]), std::move(parts_[index + 1]));
    }
    parts_.resize(begin);
    return dictionary;
  }

  static bool readString(ondemand::value source, Value& result) {
    std::string_view text;
    if (source.get_string().get(text)) return false;
    result = String::fromWellFormed(text);
    return true;
  }

  static bool readWord(std::string_view word, Value& result) {
    if (word == "null") return true;
    if (word == "true" || word == "false") {
      result = word == "true";
      return true;
    }
    const std::optional<double> number = parseJSONNumber(word);
    if (number) result = *number;
    return number.has_value();
  }

  static bool isAtEnd(ondemand::document& document) {
    return document.current_location().error() == simdjson::OUT_OF_BOUNDS;
  }

  /// Most keys of a document come many times.
  const String& shared(std::string_view key) {
    const auto found = keys_.find(key);
    if (found == keys_.end()) return addKey(key).text;
    Key& known = found->second;
    if (!std::exchange(known.isPooled, true)) texts_.add(known.text);
    return known.text;
  }

  struct Key {
    String text;
    bool isPooled;  // from the second time on: what comes once is as likely data as a name
  };

  Key& addKey(std::string_view key) {
    const String* const known = texts_.find(key);
    return keys_.emplace(key, Key{known ? *known : String::fromWellFormed(key), known != nullptr}).first->second;
  }

  TextPool& texts_;
  ondemand::parser parser_;
  std::vector<Value> parts_;  // of the arrays and objects that are being read, so that each is made at its size
  std::unordered_map<std::string_view, Key> keys_;  // by texts that the parser holds
  StackGuard stack_;
};

bool isContainer(const std::string& document) {
  const std::size_t first = document.find_first_not_of(whitespace);
  return first != document.npos && (document[first] == '[' || document[first] == '{');
}

std::optional<Value> parseContainer(std::string document, TextPool& texts) {
  const std::size_t size = document.size();
  document.append(simdjson::SIMDJSON_PADDING, '\0');
  return DocumentReader(texts).read(document, size);
}

}  // namespace

std::optional<Value> parseJSON(std::string document, TextPool& texts) {
  if (document.starts_with(byteOrderMark)) document.erase(0, byteOrderMark.size());
  if (isContainer(document)) return parseContainer(std::move(document), texts);
  const std::optional<Value> wrapped = parseContainer("[" + document + "]", texts);
  if (!wrapped || wrapped->array()->size() != 1) return std::nullopt;
  return wrapped->array()->elements().front();
}

std::optional<Value> parseJSON(std::string document) {
  TextPool texts;
  return parseJSON(std::move(document), texts);
}

}  // namespace velto

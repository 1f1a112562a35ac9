// JSON documents as values.

// What simdjson checks in a debug build bounds the depth of documents.
#define SIMDJSON_DEVELOPMENT_CHECKS 0
#include <simdjson.h>

#include <algorithm>
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

/// Reads a document whose top level is an array or an object. simdjson tells the tokens, the structure and the texts;
/// numbers and words are read here, since it is neither exact nor strict in all of them.
class DocumentReader {
 public:
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
        return readWord(token.substr(0, token.find_last_not_of(whitespace) + 1), result);
    }
  }

  bool readArray(ondemand::value container, Value& result) {
    ondemand::array array;
    if (stack_.isExhausted() || container.get_array().get(array)) return false;
    std::vector<Value> elements;
    for (auto element : array) {
      ondemand::value source;
      if (element.get(source) || !read(source, elements.emplace_back())) return false;
    }
    result = Array(std::move(elements));
    return true;
  }

  bool readObject(ondemand::value container, Value& result) {
    ondemand::object object;
    if (stack_.isExhausted() || container.get_object().get(object)) return false;
    Dictionary dictionary;
    for (auto field : object) {
      std::string_view key;
      ondemand::value source;
      Value value;
      if (field.unescaped_key().get(key) || field.value().get(source) || !read(source, value)) return false;
      dictionary.set(shared(key), std::move(value));
    }
    result = std::move(dictionary);
    return true;
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
    return found != keys_.end() ? found->second : keys_.emplace(key, String::fromWellFormed(key)).first->second;
  }

  ondemand::parser parser_;
  std::unordered_map<std::string_view, String> keys_;  // by texts that the parser holds
  StackGuard stack_;
};

bool isContainer(const std::string& document) {
  const std::size_t first = document.find_first_not_of(whitespace);
  return first != document.npos && (document[first] == '[' || document[first] == '{');
}

std::optional<Value> parseContainer(std::string document) {
  const std::size_t size = document.size();
  document.append(simdjson::SIMDJSON_PADDING, '\0');
  return DocumentReader().read(document, size);
}

}  // namespace

std::optional<Value> parseJSON(std::string document) {
  if (document.starts_with(byteOrderMark)) document.erase(0, byteOrderMark.size());
  if (isContainer(document)) return parseContainer(std::move(document));
  const std::optional<Value> wrapped = parseContainer("[" + document + "]");
  if (!wrapped || wrapped->array()->size() != 1) return std::nullopt;
  return wrapped->array()->elements().front();
}

}  // namespace velto

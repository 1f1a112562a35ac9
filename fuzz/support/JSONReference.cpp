#include "support/JSONReference.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <utility>
#include <vector>

#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"

namespace velto::fuzz {
namespace {

struct Invalid {};

std::string describeNumber(double number) {
  char text[32];
  return std::string(text, std::to_chars(text, text + sizeof text, number).ptr).append("\n");
}

std::string describeText(std::string_view text) {
  return std::string("'").append(text).append("'\n");
}

/// Reads what the grammar says, rule by rule, and throws `Invalid` where it says nothing.
class Reader {
 public:
  explicit Reader(std::string_view rest) noexcept : rest_(rest) {}

  std::string document() {
    std::string result = element();
    if (!rest_.empty()) throw Invalid();
    return result;
  }

 private:
  std::string element() {
    space();
    std::string result = value();
    space();
    return result;
  }

  std::string value() {
    if (take("{")) return object();
    if (take("[")) return array();
    if (take("\"")) return describeText(text());
    if (take("true")) return "true\n";
    if (take("false")) return "false\n";
    if (take("null")) return "nil\n";
    return number();
  }

  std::string array() {
    std::string result = "[\n";
    space();
    if (take("]")) return result + "]\n";
    do result.append(element());
    while (take(","));
    expect("]");
    return result + "]\n";
  }

  /// Keys are equal if they are equivalent: the first one keeps its place, the last one gives the value.
  std::string object() {
    std::vector<std::pair<String, std::string>> entries;
    space();
    if (!take("}")) {
      do {
        space();
        expect("\"");
        const String key = text();
        space();
        expect(":");
        std::string value = element();
        const auto isKey = [&](const auto& entry) { return entry.first == key; };
        const auto known = std::find_if(entries.begin(), entries.end(), isKey);
        if (known != entries.end()) {
          known->second = std::move(value);
        } else {
          entries.emplace_back(key, std::move(value));
        }
      } while (take(","));
      expect("}");
    }
    std::string result = "{\n";
    for (const auto& [key, value] : entries) result.append(describeText(key)).append(value);
    return result + "}\n";
  }

  std::string text() {
    std::string result;
    while (!take("\"")) {
      if (rest_.empty() || static_cast<unsigned char>(rest_.front()) < 0x20) throw Invalid();
      if (take("\\")) {
        result.append(escape());
      } else {
        result.push_back(next());
      }
    }
    return result;
  }

  std::string escape() {
    const char letter = next();
    if (letter == 'u') return scalar();
    constexpr std::string_view letters = "\"\\/bfnrt";
    constexpr std::string_view meanings = "\"\\/\b\f\n\r\t";
    const std::size_t index = letters.find(letter);
    if (index == letters.npos) throw Invalid();
    return std::string(1, meanings[index]);
  }

  /// A surrogate stands with the other half, or is none.
  std::string scalar() {
    std::uint32_t scalar = codeUnit();
    if (scalar >= 0xDC00 && scalar <= 0xDFFF) throw Invalid();
    if (scalar >= 0xD800 && scalar <= 0xDBFF) {
      expect("\\u");
      const std::uint32_t low = codeUnit();
      if (low < 0xDC00 || low > 0xDFFF) throw Invalid();
      scalar = 0x10000 + ((scalar - 0xD800) << 10) + (low - 0xDC00);
    }
    return encoded(scalar);
  }

  static std::string encoded(std::uint32_t scalar) {
    std::string bytes;
    const auto add = [&](std::uint32_t bits) { bytes.push_back(static_cast<char>(bits)); };
    if (scalar < 0x80) {
      add(scalar);
    } else if (scalar < 0x800) {
      add(0xC0 + (scalar >> 6));
    } else if (scalar < 0x10000) {
      add(0xE0 + (scalar >> 12));
      add(0x80 + ((scalar >> 6) & 0x3F));
    } else {
      add(0xF0 + (scalar >> 18));
      add(0x80 + ((scalar >> 12) & 0x3F));
      add(0x80 + ((scalar >> 6) & 0x3F));
    }
    if (scalar >= 0x80) add(0x80 + (scalar & 0x3F));
    return bytes;
  }

  std::uint32_t codeUnit() {
    std::uint32_t unit = 0;
    for (int digit = 0; digit < 4; ++digit) {
      const char letter = next();
      std::uint32_t value = 0;
      if (std::from_chars(&letter, &letter + 1, value, 16).ec != std::errc()) throw Invalid();
      unit = unit * 16 + value;
    }
    return unit;
  }

  std::string number() {
    const std::string_view begin = rest_;
    take("-");
    if (!take("0")) digits();
    if (take(".")) digits();
    if (take("e") || take("E")) {
      if (!take("+")) take("-");
      digits();
    }
    const std::string text(begin.substr(0, begin.size() - rest_.size()));
    return describeNumber(std::strtod(text.c_str(), nullptr));
  }

  void digits() {
    if (rest_.empty() || !isDigit(rest_.front())) throw Invalid();
    while (!rest_.empty() && isDigit(rest_.front())) next();
  }

  static bool isDigit(char letter) { return letter >= '0' && letter <= '9'; }

  void space() {
    while (take(" ") || take("\t") || take("\n") || take("\r")) {
    }
  }

  bool take(std::string_view word) {
    if (!rest_.starts_with(word)) return false;
    rest_.remove_prefix(word.size());
    return true;
  }

  void expect(std::string_view word) {
    if (!take(word)) throw Invalid();
  }

  char next() {
    if (rest_.empty()) throw Invalid();
    const char letter = rest_.front();
    rest_.remove_prefix(1);
    return letter;
  }

  std::string_view rest_;
};

}  // namespace

std::optional<std::string> describeDocument(std::string_view document) {
  if (document.starts_with("\xEF\xBB\xBF")) document.remove_prefix(3);
  if (!String::isWellFormed(document)) return std::nullopt;
  try {
    return Reader(document).document();
  } catch (const Invalid&) {
    return std::nullopt;
  }
}

std::string describeValue(const Value& value) {
  if (value.number()) return describeNumber(*value.number());
  if (value.string()) return describeText(*value.string());
  std::string text;
  if (const Array* array = value.array()) {
    for (const Value& element : array->elements()) text.append(describeValue(element));
    return "[\n" + text + "]\n";
  }
  if (const Dictionary* dictionary = value.dictionary()) {
    for (const auto& [key, entry] : dictionary->entries()) text.append(describeValue(key)).append(describeValue(entry));
    return "{\n" + text + "}\n";
  }
  return std::string(value.description()).append("\n");
}

}  // namespace velto::fuzz

// Pieces of JSON.
#include "Json.h"

#include <array>
#include <charconv>
#include <cmath>

namespace command::json {
namespace {

/// Empty for a character that stands for itself.
std::string escape(char character) {
  constexpr std::string_view hexadecimal = "0123456789abcdef";
  switch (character) {
    case '"':
      return "\\\"";
    case '\\':
      return "\\\\";
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    case '\b':
      return "\\b";
    case '\f':
      return "\\f";
    default:
      break;
  }
  const auto byte = static_cast<unsigned char>(character);
  if (byte >= 0x20) return "";
  return std::string("\\u00") + hexadecimal[byte / 16] + hexadecimal[byte % 16];
}

std::string literal(const velto::Value& value) {
  if (const velto::String* const text = value.string()) return quoted(*text);
  return number(*value.number());
}

}  // namespace

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char character : text) {
    const std::string escaped = escape(character);
    if (escaped.empty()) {
      result += character;
    } else {
      result += escaped;
    }
  }
  return result + '"';
}

std::string number(double number) {
  if (std::isinf(number)) return number < 0 ? "-1e999" : "1e999";
  std::array<char, 32> digits;
  const auto [end, error] = std::to_chars(digits.begin(), digits.end(), number);
  return {digits.begin(), end};
}

std::string range(const velto::Range& range) {
  return "[" + std::to_string(range.startLine) + "," + std::to_string(range.startColumn) + "," +
         std::to_string(range.endLine) + "," + std::to_string(range.endColumn) + "]";
}

std::string token(const velto::Token& token) {
  std::string result = "{\"type\":" + quoted(name(token.type)) + ",\"lexeme\":" + quoted(token.lexeme);
  if (token.literal) result += ",\"literal\":" + literal(*token.literal);
  return result + ",\"range\":" + range(token.range) + "}";
}

}  // namespace command::json

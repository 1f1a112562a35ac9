// Pieces of JSON.
#include "Json.h"

#include <array>
#include <charconv>
#include <cmath>

namespace command::json {
namespace {

void append(char character, std::string& result) {
  constexpr std::string_view hexadecimal = "0123456789abcdef";
  const auto byte = static_cast<unsigned char>(character);
  switch (character) {
    case '"':
      result += "\\\"";
      break;
    case '\\':
      result += "\\\\";
      break;
    case '\n':
      result += "\\n";
      break;
    case '\r':
      result += "\\r";
      break;
    case '\t':
      result += "\\t";
      break;
    case '\b':
      result += "\\b";
      break;
    case '\f':
      result += "\\f";
      break;
    default:
      if (byte < 0x20) {
        result.append("\\u00") += {hexadecimal[byte / 16], hexadecimal[byte % 16]};
      } else {
        result += character;
      }
  }
}

std::string literal(const velto::Value& value) {
  if (const velto::String* const text = value.string()) return quoted(*text);
  return number(*value.number());
}

}  // namespace

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char character : text) append(character, result);
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

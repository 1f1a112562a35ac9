// Numbers of JSON documents.
#include "Velto/Library/JSONNumber.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>

namespace velto {
namespace {

/// Whether `rest` begins with one of `characters`, which is then cut off.
bool takeOneOf(std::string_view characters, std::string_view& rest) {
  if (rest.empty() || characters.find(rest.front()) == characters.npos) return false;
  rest.remove_prefix(1);
  return true;
}

bool takeDigits(std::string_view& rest) {
  const std::size_t count = std::min(rest.find_first_not_of("0123456789"), rest.size());
  rest.remove_prefix(count);
  return count > 0;
}

bool isNumber(std::string_view rest) {
  takeOneOf("-", rest);
  if (!takeOneOf("0", rest) && !takeDigits(rest)) return false;
  if (takeOneOf(".", rest) && !takeDigits(rest)) return false;
  if (takeOneOf("eE", rest)) {
    takeOneOf("+-", rest);
    if (!takeDigits(rest)) return false;
  }
  return rest.empty();
}

std::int64_t exponentOf(std::string_view number) {
  const std::size_t letter = number.find_first_of("eE");
  if (letter == number.npos) return 0;
  std::string_view digits = number.substr(letter + 1);
  takeOneOf("+", digits);
  std::int32_t exponent =
      digits.starts_with('-') ? std::numeric_limits<std::int32_t>::min() : std::numeric_limits<std::int32_t>::max();
  std::from_chars(digits.data(), digits.data() + digits.size(), exponent);  // leaves the limit where it can't be held
  return exponent;
}

/// Of a number that no float comes near: whether it lies beyond the largest, and not below the smallest.
bool isTooLarge(std::string_view number) {
  const std::string_view digits = number.substr(0, number.find_first_of("eE"));
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const std::size_t first = digits.find_first_of("123456789");
  return static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first) + exponentOf(number) > 0;
}

}  // namespace

std::optional<double> parseJSONNumber(std::string_view text) {
  if (!isNumber(text)) return std::nullopt;
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc()) return number;
  const double magnitude = isTooLarge(text) ? std::numeric_limits<double>::infinity() : 0.0;
  return text.starts_with('-') ? -magnitude : magnitude;
}

}  // namespace velto

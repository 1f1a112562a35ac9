// Numbers of JSON documents.
#include "Velto/Library/JSONNumber.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>

#include "Velto/Platform/Decimal.h"

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

constexpr bool isDigit(char character) noexcept {
  return '0' <= character && character <= '9';
}

/// A number without an exponent and of at most 15 digits, as nearly all are; nothing for any other text. Its digits and
/// the power of ten are floats without an error, so that their quotient is the float nearest to the number.
std::optional<double> shortNumber(std::string_view text) {
  constexpr std::size_t mostDigits = 15;
  static constexpr double powers[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14};
  const bool isNegative = text.starts_with('-');
  if (isNegative) text.remove_prefix(1);
  if (text.size() > mostDigits + 1) return std::nullopt;
  std::uint64_t digits = 0;
  std::size_t point = text.size();
  for (std::size_t index = 0; index < text.size(); ++index) {
    if (isDigit(text[index])) {
      digits = digits * 10 + static_cast<std::uint64_t>(text[index] - '0');
    } else if (text[index] == '.' && point == text.size()) {
      point = index;
    } else {
      return std::nullopt;
    }
  }
  const bool hasFraction = point < text.size();
  const std::size_t decimals = hasFraction ? text.size() - point - 1 : 0;
  const bool isWellFormed = point > 0 && (text.front() != '0' || point == 1) && (!hasFraction || decimals > 0);
  if (!isWellFormed || text.size() - (hasFraction ? 1 : 0) > mostDigits) return std::nullopt;
  const double number = static_cast<double>(digits) / powers[decimals];
  return isNegative ? -number : number;
}

}  // namespace

std::optional<double> parseJSONNumber(std::string_view text) {
  if (const std::optional<double> number = shortNumber(text)) return number;
  return parseAnyJSONNumber(text);
}

std::optional<double> parseAnyJSONNumber(std::string_view text) {
  if (!isNumber(text)) return std::nullopt;
  double number = 0;
  const auto [end, error] = parseDecimal(text, number);
  if (error == std::errc()) return number;
  const double magnitude = isTooLarge(text) ? std::numeric_limits<double>::infinity() : 0.0;
  return text.starts_with('-') ? -magnitude : magnitude;
}

}  // namespace velto

// Numbers as text: as the language prints them, and as the host does.
#include "Velto/Value/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <utility>

#include "Velto/Value/Value.h"

namespace velto {

namespace {

/// Whether "%g" prints the number as an integer, digit by digit. Minus zero is none: it prints its sign.
bool isPlainInteger(double number) {
  return std::abs(number) < 1e6 && number == std::trunc(number) && !(number == 0 && std::signbit(number));
}

constexpr std::size_t longestInteger = 7;

char* writeInteger(int number, char* end) {
  return std::to_chars(end, end + longestInteger, number).ptr;
}

/// A number as six significant decimal digits, the last `decimals` of them behind the point.
struct SixDigits {
  int digits;
  int decimals;
};

/// Nothing for what "%g" prints with an exponent, and where rounding is too close to call: what is multiplied here is
/// off by less than a millionth of the last digit.
std::optional<SixDigits> sixDigits(double magnitude) {
  constexpr double powersOfTen[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
  constexpr double tooClose = 1e-6;
  if (!(1e-4 <= magnitude && magnitude < 1e6)) return std::nullopt;
  int decimals = 0;
  while (magnitude * powersOfTen[decimals] < 1e5) ++decimals;
  const double scaled = magnitude * powersOfTen[decimals];
  const int below = static_cast<int>(scaled);
  const double rest = scaled - below;
  if (std::abs(rest - 0.5) < tooClose) return std::nullopt;
  const int rounded = rest > 0.5 ? below + 1 : below;
  if (rounded == 1'000'000) return std::nullopt;
  return SixDigits{rounded, decimals};
}

SixDigits withoutTrailingZeros(SixDigits number) {
  while (number.decimals > 0 && number.digits % 10 == 0) {
    number.digits /= 10;
    --number.decimals;
  }
  return number;
}

constexpr std::size_t longestFixed = 12;  // "-0.000123456" has that many characters

char* writeFixed(bool isNegative, SixDigits number, char* end) {
  if (isNegative) *end++ = '-';
  int unit = 1;
  for (int place = 0; place < number.decimals; ++place) unit *= 10;
  end = writeInteger(number.digits / unit, end);
  if (number.decimals == 0) return end;
  *end++ = '.';
  for (int rest = number.digits % unit; unit > 1; rest %= unit) {
    unit /= 10;
    *end++ = static_cast<char>('0' + rest / unit);
  }
  return end;
}

/// The C format "%g" with a number of significant digits, and without the sign of a NaN.
std::string general(double number, int digits) {
  if (std::isnan(number)) return "nan";
  std::array<char, 32> text;
  const auto [end, error] =
      std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::general, digits);
  return {text.data(), end};
}

String withFraction(std::string text) {
  if (text.find_first_not_of("-0123456789") == std::string::npos) text += ".0";
  return text;
}

}  // namespace

String numberDescription(double number) {
  StringBuilder text;
  appendNumberDescription(number, text);
  return std::move(text).build();
}

void appendNumberDescription(double number, StringBuilder& text) {
  if (isPlainInteger(number)) {
    text.appendWritten(longestInteger, [&](char* end) { return writeInteger(static_cast<int>(number), end); });
  } else if (const std::optional<SixDigits> fixed = sixDigits(std::abs(number))) {
    const SixDigits digits = withoutTrailingZeros(*fixed);
    text.appendWritten(longestFixed, [&](char* end) { return writeFixed(number < 0, digits, end); });
  } else {
    appendNumberDescriptionByHost(number, text);
  }
}

void appendNumberDescriptionByHost(double number, StringBuilder& text) {
  text.append(general(number, 6));
}

String hostDescription(double number) {
  return withFraction(general(number, 15));
}

String hostDescription(float number) {
  return withFraction(general(static_cast<double>(number), 6));
}

}  // namespace velto

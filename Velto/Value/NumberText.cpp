// Numbers as text: as the language prints them, and as the host does.
#include "Velto/Value/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>

#include "Velto/Value/Value.h"

namespace velto {

namespace {

/// Whether "%g" prints the number as an integer, digit by digit. Minus zero is none: it prints its sign.
bool isPlainInteger(double number) {
  return std::abs(number) < 1e6 && number == std::trunc(number) && !(number == 0 && std::signbit(number));
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

/// `digits` with a point before the last `decimals` of them, without zeros at the end.
String decimalFraction(Int digits, int decimals) {
  std::array<char, 16> text;
  char* const end = text.data() + text.size();
  char* begin = end;
  char* last = end;
  auto rest = static_cast<std::uint64_t>(digits < 0 ? -digits : digits);
  for (int place = 0; place <= decimals || rest != 0; ++place, rest /= 10) {
    if (place == decimals) *--begin = '.';
    *--begin = static_cast<char>('0' + rest % 10);
  }
  if (digits < 0) *--begin = '-';
  while (last[-1] == '0') --last;
  return String::fromWellFormed({begin, last});
}

/// A number of up to four decimals that "%g" prints digit by digit, as most fractions are: 12.5, -0.0625. Nothing for
/// all others. The quotient tells, since it is the float that is nearest to that decimal fraction.
std::optional<String> plainFraction(double number) {
  for (const double scale : {1e2, 1e4}) {
    const double scaled = std::trunc(number * scale + std::copysign(0.5, number));
    if (std::abs(scaled) >= 1e6) return std::nullopt;
    if (scaled / scale == number && scaled != 0) {
      return decimalFraction(static_cast<Int>(scaled), scale == 1e2 ? 2 : 4);
    }
  }
  return std::nullopt;
}

}  // namespace

String numberDescription(double number) {
  if (isPlainInteger(number)) return decimal(static_cast<Int>(number));
  if (std::optional<String> text = plainFraction(number)) return *std::move(text);
  return general(number, 6);
}

String hostDescription(double number) {
  return withFraction(general(number, 15));
}

String hostDescription(float number) {
  return withFraction(general(static_cast<double>(number), 6));
}

}  // namespace velto

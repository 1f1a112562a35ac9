// Numbers as text: as the language prints them, and as the host does.
#include "Velto/Value/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>

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

}  // namespace

String numberDescription(double number) {
  if (isPlainInteger(number)) return decimal(static_cast<Int>(number));
  return general(number, 6);
}

String hostDescription(double number) {
  return withFraction(general(number, 15));
}

String hostDescription(float number) {
  return withFraction(general(static_cast<double>(number), 6));
}

}  // namespace velto

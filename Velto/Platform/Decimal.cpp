// Reads floating-point numbers by the standard library, or by the C library where that can't.
#include "Velto/Platform/Decimal.h"

#ifndef __cpp_lib_to_chars
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>
#ifdef __APPLE__
#include <xlocale.h>
#else
#include <clocale>
#endif
#endif

namespace velto {

#ifdef __cpp_lib_to_chars

std::from_chars_result parseDecimal(std::string_view text, double& number) {
  return std::from_chars(text.data(), text.data() + text.size(), number);
}

#else

namespace {

const locale_t plainLocale = ::newlocale(LC_ALL_MASK, "C", nullptr);

}  // namespace

std::from_chars_result parseDecimal(std::string_view text, double& number) {
  const std::string terminated(text);
  char* end = nullptr;
  const double read = ::strtod_l(terminated.c_str(), &end, plainLocale);
  const auto size = static_cast<std::size_t>(end - terminated.c_str());
  const bool isZero = text.substr(0, std::min(size, text.find_first_of("eE"))).find_first_of("123456789") == text.npos;
  if (size == 0) return {text.data(), std::errc::invalid_argument};
  if (std::isinf(read) || (read == 0 && !isZero)) return {text.data() + size, std::errc::result_out_of_range};
  number = read;
  return {text.data() + size, std::errc()};
}

#endif

}  // namespace velto

// Reads floating-point numbers in decimal, whatever the locale.
#pragma once

#include <charconv>
#include <string_view>

namespace velto {

/// The number that `text` begins with. The result is that of std::from_chars: where the number ends, and an error if no
/// float comes near it, with `number` left as it was. The text begins with a digit or a minus sign.
std::from_chars_result parseDecimal(std::string_view text, double& number);

}  // namespace velto

// Numbers of JSON documents.
#pragma once

#include <optional>
#include <string_view>

namespace velto {

/// The float nearest to a number of RFC 8259: one that is too large for a float becomes an infinity, one that is too
/// small a zero. Nothing for any other text.
std::optional<double> parseJSONNumber(std::string_view text);
/// The same; the one above knows a shorter way for most numbers.
std::optional<double> parseAnyJSONNumber(std::string_view text);

}  // namespace velto

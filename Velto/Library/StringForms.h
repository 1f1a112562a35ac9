// Texts without the white space around them, and as string literals.
#pragma once

#include <string_view>

#include "Velto/Platform/String.h"

namespace velto {

/// Without the characters at both ends whose first scalar is white space or a line end.
String trimmingWhitespace(const String& text);
/// The same, as a view of `text`.
std::string_view trimmed(const String& text);
/// The same character by character, for any text.
std::string_view trimmedByCharacters(std::string_view text);

/// Line feeds, tabs, double quotes and backslashes as two characters each. "\r\n" is one character and stays.
String escaped(const String& text);
/// The same character by character, for any text.
String escapedByCharacters(const String& text);

}  // namespace velto

// Numbers as text: as the language prints them, and as the host does.
#pragma once

#include "Velto/Platform/String.h"

namespace velto {

/// Appends `numberDescription` without making a text of it.
void appendNumberDescription(double number, StringBuilder& text);
/// The same by way of the host's conversion, for any number.
void appendNumberDescriptionByHost(double number, StringBuilder& text);

/// Up to 15 significant digits, with ".0" behind a text that has neither a fraction nor an exponent: "1.0", "0.5".
String hostDescription(double number);
/// The same with up to 6 digits, which is what a 32-bit float can hold.
String hostDescription(float number);

}  // namespace velto

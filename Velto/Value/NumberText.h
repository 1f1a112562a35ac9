// How the host prints its floats; what the language prints is `numberDescription`.
#pragma once

#include "Velto/Platform/String.h"

namespace velto {

/// Up to 15 significant digits, with ".0" behind a text that has neither a fraction nor an exponent: "1.0", "0.5".
String hostDescription(double number);
/// The same with up to 6 digits, which is what a 32-bit float can hold.
String hostDescription(float number);

}  // namespace velto

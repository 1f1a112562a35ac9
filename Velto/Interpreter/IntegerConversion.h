// Numbers as integers.
#pragma once

#include <cstdint>

#include "Velto/Forward.h"

namespace velto {

/// Truncated toward zero. What no `Int` can hold, NaN included, is a fatal stop.
Int integer(double number);

/// The same for 32 bits.
std::int32_t integer32(double number);

}  // namespace velto

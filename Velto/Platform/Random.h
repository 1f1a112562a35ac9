// Randomness from the system.
#pragma once

#include <cstddef>
#include <span>

#include "Velto/Forward.h"

namespace [[gnu::visibility("default")]] velto {

[[gnu::visibility("default")]] void fillRandom(std::span<std::byte> bytes);

/// Eight bytes from the system's random source.
[[gnu::visibility("default")]] Int random();

}  // namespace velto

// The hash by which dictionaries find their keys.
#pragma once

#include <cstdint>

#include "Velto/Value/Value.h"

namespace velto {

/// What is told of a key that equals nothing, itself included: a NaN, a plain object, an array that holds one.
inline constexpr std::uint64_t unfindable = 0;

/// Agrees with `==`, as `hashValue` does. That one gives many ranges the same hash, and all orders of an array, so a
/// table that went by it would be a list.
std::uint64_t keyHash(const Value& key);

}  // namespace velto

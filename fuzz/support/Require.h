// How a fuzzer tells of a broken promise.
#pragma once

#include <string_view>

namespace velto::fuzz {

/// Writes `promise` and `found`, even where standard error has been closed, and aborts.
[[noreturn]] void tellBroken(std::string_view promise, std::string_view found);

/// Aborts if `holds` is false. `promise` is what holds of every input.
inline void require(bool holds, std::string_view promise, std::string_view found = "") {
  if (!holds) tellBroken(promise, found);
}

/// The same for two texts that must be equal; tells both.
void requireEqual(std::string_view left, std::string_view right, std::string_view promise);

}  // namespace velto::fuzz

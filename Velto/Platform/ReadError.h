// How reading a file fails.
#pragma once

#include <system_error>

#include "Velto/Platform/Error.h"

namespace velto {

/// Throws `FileError` with the system's words for `reason`.
[[noreturn]] inline void failReading(std::errc reason) {
  throw FileError(std::make_error_code(reason).message());
}

}  // namespace velto

// Writing to a descriptor, below all buffers.
#pragma once

#include <string_view>

namespace velto {

/// Writes all of `bytes` at once, over as many system calls as it takes; waits for a descriptor that doesn't block. An
/// error ends the writing, which most callers ignore: a pipe that nobody reads any more doesn't end the process by its
/// signal. True if all was written.
bool writeFully(int descriptor, std::string_view bytes) noexcept;

}  // namespace velto

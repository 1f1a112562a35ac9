// Writing to a descriptor, below all buffers.
#pragma once

#include <string_view>

namespace velto {

/// Writes all of `bytes` at once, over as many system calls as it takes. An error ends the writing and is ignored.
void writeFully(int descriptor, std::string_view bytes) noexcept;

}  // namespace velto

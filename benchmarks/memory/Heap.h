// How much memory this process holds.
#pragma once

#include <cstddef>

namespace velto::benchmarks {

/// All that `operator new` has given and not got back, with what the allocator adds to each piece.
std::size_t bytesHeld() noexcept;
/// What the allocator takes for a piece of `size` bytes.
std::size_t bytesTaken(std::size_t size) noexcept;

}  // namespace velto::benchmarks

// How much stack is left, for recursion that follows the input.
#pragma once

#include <cstddef>
#include <cstdint>

#include "Velto/Forward.h"

namespace [[gnu::visibility("default")]] velto {

/// Made once where recursion starts, and asked at each step. Good for the thread that made it.
class StackGuard {
 public:
  StackGuard() noexcept;

  /// True when less than the reserve, which any single step fits into, is left below the caller's frame.
  bool isExhausted() const noexcept { return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)) < limit_; }

 private:
  std::uintptr_t limit_;
};

}  // namespace velto

// The guard of the stack for fuzzers: each question about the stack is a step of a run, and the steps are bounded.
#pragma once

#include <cstddef>
#include <cstdint>

#include "Velto/Forward.h"

namespace [[gnu::visibility("default")]] velto {

namespace fuzz {

/// Counts a step; throws `Stop` when there have been as many as the fuzzer allows.
void countStep();

}  // namespace fuzz

/// Stands in front of the library's own header, whose promises it keeps, in a build for fuzzers only. The library asks
/// it at each expression, statement list and round of a loop, so that no program runs for ever.
class StackGuard {
 public:
  StackGuard() noexcept;

  bool isExhausted() const {
    fuzz::countStep();
    return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)) < limit_;
  }

 private:
  std::uintptr_t limit_;
};

}  // namespace velto

// An allocator that fails when it is told to, and counts what is alive.
#pragma once

#include <cstddef>

namespace velto::test {

enum class Failing {
  once,        ///< one allocation, as where a single one was too large
  fromThenOn,  ///< that one and all behind it, as where memory is used up
};

/// While it lives, the allocation number `number` of this thread fails, counted from 0. The whole program is served by
/// this allocator: what asks `operator new`, and what asks `malloc` where no sanitizer has taken that over.
class AllocationFailure {
 public:
  explicit AllocationFailure(std::size_t number, Failing failing = Failing::once) noexcept;
  ~AllocationFailure();
  AllocationFailure(const AllocationFailure&) = delete;
  AllocationFailure& operator=(const AllocationFailure&) = delete;

  /// From here on this thread gets what it asks for.
  static void end() noexcept;

  /// Whether anything failed.
  bool hasStruck() const noexcept;
  /// How many allocations there were so far, if none has failed.
  std::size_t count() const noexcept;

 private:
  std::size_t number_;
};

/// How many blocks this thread has asked for, less those that it has given back.
std::ptrdiff_t liveBlocks() noexcept;

}  // namespace velto::test

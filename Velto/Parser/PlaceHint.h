// Where something was last found.
#pragma once

#include <atomic>
#include <cstdint>

namespace velto {

/// A guess at a place, which whoever uses it has to check. It is no part of what a node says: it may change while the
/// tree is shared, by threads that all guess.
class PlaceHint {
 public:
  std::uint32_t get() const noexcept { return place_.load(std::memory_order_relaxed); }
  void set(std::uint32_t place) const noexcept { place_.store(place, std::memory_order_relaxed); }

 private:
  mutable std::atomic<std::uint32_t> place_ = 0;
};

}  // namespace velto

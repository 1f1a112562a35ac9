// What is known of the contents of a container.
#pragma once

#include <atomic>

namespace [[gnu::visibility("default")]] velto {

/// Set once it has been seen that no function stands inside, at any depth. It is no part of what a container says: it
/// may be set while the container is shared, and a copy, which may be filled further, begins without it.
class PlainMark {
 public:
  PlainMark() noexcept = default;
  PlainMark(const PlainMark&) noexcept {}
  PlainMark& operator=(const PlainMark&) noexcept {
    isSet_.store(false, std::memory_order_relaxed);
    return *this;
  }

  bool isSet() const noexcept { return isSet_.load(std::memory_order_relaxed); }
  void set() const noexcept { isSet_.store(true, std::memory_order_relaxed); }

 private:
  mutable std::atomic<bool> isSet_ = false;
};

}  // namespace velto

// What is known of the contents of a container.
#pragma once

#include <atomic>
#include <cstdint>

namespace [[gnu::visibility("default")]] velto {

/// What stands inside, at any depth. It is set once somebody has looked, and is no part of what a container says: it
/// may be set while the container is shared, and a copy, which may be filled further, begins without it.
class ContentsMark {
 public:
  enum class Kind : std::uint8_t {
    unknown,
    plain,   ///< nothing that could hold a function
    opaque,  ///< no function of a program, but something that may hold one and doesn't show it
  };

  ContentsMark() noexcept = default;
  ContentsMark(const ContentsMark&) noexcept {}
  ContentsMark& operator=(const ContentsMark&) noexcept {
    kind_.store(Kind::unknown, std::memory_order_relaxed);
    return *this;
  }

  Kind get() const noexcept { return kind_.load(std::memory_order_relaxed); }
  void set(Kind kind) const noexcept { kind_.store(kind, std::memory_order_relaxed); }

 private:
  mutable std::atomic<Kind> kind_ = Kind::unknown;
};

}  // namespace velto

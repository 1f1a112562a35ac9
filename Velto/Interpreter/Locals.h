// How far outward the variables of resolved expressions lie.
#pragma once

#include <cstdint>
#include <vector>

#include "Velto/Platform/Uuid.h"

namespace [[gnu::visibility("default")]] velto {

/// What is known of a resolved variable.
struct Local {
  static constexpr std::uint32_t nowhere = UINT32_MAX;  ///< for what can't be found without the checks
  static constexpr Int farthest = 100'000;              ///< that is worth going to without them

  explicit Local(Int depth) noexcept
      : depth(depth), place(isNear() ? 0 : nowhere), links(isNear() ? static_cast<std::uint32_t>(depth) : 0) {}
  /// `place` is where it was found, by going all the way.
  void remember(std::uint32_t found) const noexcept {
    if (isNear()) place = found;
  }

  Int depth;                    ///< how many links lie between the current scope and that of the variable
  mutable std::uint32_t place;  ///< where among the names of its scope it was last found, which may have changed
  std::uint32_t links;          ///< the same as `depth`, where that is near

 private:
  bool isNear() const noexcept { return depth >= 0 && depth <= farthest; }
};

/// A `Local` for each resolved expression, by its `id`. Each variable that is read asks here. Identities are random, so
/// that they need no hashing, and probing from the place that their bits name finds them, or that they are absent, at
/// the first or second slot.
class Locals {
 public:
  /// Null if the expression isn't resolved; good until the next `set`.
  [[gnu::always_inline]] const Local* find(const Uuid& id) const noexcept {
    const Slot& first = slots_[id.hash() & mask_];
    if (first.id == id) return &first.local;
    return first.id.isNil() ? nullptr : findBehind(id);
  }
  /// The same, but null as well for those few that aren't found at once.
  [[gnu::always_inline]] const Local* findAtOnce(const Uuid& id) const noexcept {
    const Slot& first = slots_[id.hash() & mask_];
    if (first.id == id) return &first.local;
    const Slot& second = slots_[(id.hash() + 1) & mask_];
    return second.id == id ? &second.local : nullptr;
  }
  /// True where it shows at once that the expression isn't resolved, as it nearly always does.
  [[gnu::always_inline]] bool isAbsentAtOnce(const Uuid& id) const noexcept {
    const Slot& first = slots_[id.hash() & mask_];
    return first.id.isNil() || (first.id != id && slots_[(id.hash() + 1) & mask_].id.isNil());
  }
  void set(const Uuid& id, Int depth);

  bool isEmpty() const noexcept { return size_ == 0; }
  std::size_t size() const noexcept { return size_; }

 private:
  struct Slot {
    Uuid id = Uuid::nil();
    Local local{0};
  };

  [[gnu::noinline]] const Local* findBehind(const Uuid& id) const noexcept;
  /// Where `id` stands, or would.
  Slot& slotOf(const Uuid& id) noexcept;
  void grow();

  std::vector<Slot> slots_{1};  // a power of two of them, at most a quarter of them taken, and of few much less
  std::size_t mask_ = 0;
  std::size_t size_ = 0;
};

}  // namespace velto

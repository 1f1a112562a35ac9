#include "Velto/Interpreter/Locals.h"

#include <algorithm>
#include <utility>

namespace velto {

void Locals::set(const Uuid& id, Int depth) {
  // Small tables are nearly empty, so that hardly anything collides in them.
  constexpr std::size_t small = 4096;
  const std::size_t slotsForEach = slots_.size() < small ? 16 : 4;
  if (slotsForEach * (size_ + 1) > slots_.size()) grow();
  Slot& slot = slotOf(id);
  if (slot.id != id) ++size_;
  slot = {id, Local(depth)};
}

const Local* Locals::findBehind(const Uuid& id) const noexcept {
  std::size_t slot = (id.hash() + 1) & mask_;
  while (slots_[slot].id != id) {
    if (slots_[slot].id == Uuid::nil()) return nullptr;
    slot = (slot + 1) & mask_;
  }
  return &slots_[slot].local;
}

Locals::Slot& Locals::slotOf(const Uuid& id) noexcept {
  std::size_t slot = id.hash() & mask_;
  while (slots_[slot].id != id && slots_[slot].id != Uuid::nil()) slot = (slot + 1) & mask_;
  return slots_[slot];
}

void Locals::grow() {
  constexpr std::size_t fewest = 256;
  const std::vector<Slot> before = std::exchange(slots_, std::vector<Slot>(std::max(fewest, 2 * slots_.size())));
  mask_ = slots_.size() - 1;
  for (const Slot& slot : before) {
    if (slot.id != Uuid::nil()) slotOf(slot.id) = slot;
  }
}

}  // namespace velto

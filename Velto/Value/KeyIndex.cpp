// The table by which a dictionary finds its keys.
#include "Velto/Value/KeyIndex.h"

#include <bit>

#include "Velto/Platform/Wrapping.h"
#include "Velto/Value/KeyHash.h"

namespace velto {

void KeyIndex::reserve(std::size_t count) {
  hashes_.reserve(count);
  if (count > few && count * 2 > table_.size()) rebuildTable(std::bit_ceil(count * 2));
}

void KeyIndex::add(std::uint64_t hash) {
  hashes_.push_back(hash);
  if (table_.empty() ? size() > few : size() * 2 > table_.size()) {
    rebuildTable(std::bit_ceil(size() * 2));
  } else if (!table_.empty()) {
    addToTable(size() - 1);
  }
}

/// Spreads a hash over a table whose size is a power of two. The low bits of a hash needn't differ: those of whole
/// numbers don't.
VELTO_WRAPS std::size_t KeyIndex::firstSlot(std::uint64_t hash, std::size_t slots) noexcept {
  return (hash * 0x9E3779B97F4A7C15u) >> (64 - std::countr_zero(slots));
}

/// Nobody will look for an unfindable key there.
void KeyIndex::addToTable(std::size_t index) {
  if (hashes_[index] == unfindable) return;
  std::size_t slot = firstSlot(hashes_[index], table_.size());
  while (table_[slot] != 0) slot = (slot + 1) & (table_.size() - 1);
  table_[slot] = static_cast<std::uint32_t>(index + 1);
}

void KeyIndex::rebuildTable(std::size_t slots) {
  table_.assign(slots, 0);
  for (std::size_t index = 0; index < size(); ++index) addToTable(index);
}

}  // namespace velto

// Lists within trees.
#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <utility>
#include <vector>

#include "Velto/Parser/NodeMemory.h"

namespace velto {

/// One pointer to things that stand where the nodes do; none for an empty list.
template <typename Item>
class NodeList {
 public:
  explicit NodeList(const std::vector<Item>& items) {
    if (items.empty()) return;
    const NodeMemory::Spot spot = NodeMemory::allocate(sizeof(Block) + items.size() * sizeof(Item));
    block_ = ::new (spot.memory) Block{static_cast<std::uint32_t>(items.size()), spot.distance};
    std::uninitialized_copy(items.begin(), items.end(), const_cast<Item*>(begin()));
  }
  NodeList(NodeList&& other) noexcept : block_(std::exchange(other.block_, &nothing)) {}
  NodeList& operator=(NodeList&&) = delete;
  ~NodeList() {
    if (empty()) return;
    std::destroy(begin(), end());
    NodeMemory::release(block_, block_->distance);
  }

  bool empty() const noexcept { return size() == 0; }
  std::size_t size() const noexcept { return block_->count; }
  const Item* begin() const noexcept { return std::launder(reinterpret_cast<const Item*>(block_ + 1)); }
  const Item* end() const noexcept { return begin() + size(); }
  const Item& front() const noexcept { return *begin(); }

 private:
  /// What the items stand behind.
  struct alignas(void*) Block {
    std::uint32_t count;
    NodeMemory::Distance distance;
  };
  static_assert(sizeof(Block) % alignof(Item) == 0);

  static constexpr Block nothing{0, 0};

  const Block* block_ = &nothing;  // never null, so that a walk asks for nothing but the count
};

}  // namespace velto

// How nodes come into being.
#pragma once

#include <new>
#include <tuple>
#include <utility>

#include "Velto/Parser/NodeAccess.h"
#include "Velto/Parser/RecordParts.h"

namespace velto {

/// Memory for a node that is being made, given back if that fails.
class NodeSpot {
 public:
  explicit NodeSpot(std::size_t size) : spot_(NodeMemory::allocate(size)) {}
  NodeSpot(const NodeSpot&) = delete;
  NodeSpot& operator=(const NodeSpot&) = delete;
  ~NodeSpot() {
    if (spot_.memory) NodeMemory::release(spot_.memory, spot_.distance);
  }

  std::byte* memory() const noexcept { return spot_.memory; }
  /// The node, which stands `offset` bytes behind the beginning, has the memory now.
  template <typename OfNode>
  const OfNode* settle(OfNode* node, std::size_t offset) noexcept {
    const auto distance = static_cast<NodeMemory::Distance>(spot_.distance + offset / NodeMemory::word);
    NodeAccess::settle(*node, distance, offset > 0);
    spot_.memory = nullptr;
    return node;
  }

 private:
  NodeMemory::Spot spot_;
};

template <typename Record, typename... Parts>
std::size_t nodeSize(const Parts&... parts) noexcept {
  if constexpr (requires { NodeOf<Record>::bytesBehind(parts...); }) {
    return sizeof(NodeOf<Record>) + NodeOf<Record>::bytesBehind(parts...);
  } else {
    return sizeof(NodeOf<Record>);
  }
}

/// A node that has the record with it, whatever that says. The rest of it is made all the same, for those who walk the
/// tree.
template <typename Record>
Ref<const Node> makeSpelledOut(Record&& record) {
  static_assert(alignof(Record) <= NodeMemory::word && sizeof(Record) % NodeMemory::word == 0);
  NodeSpot spot(sizeof(Record) +
                std::apply([](const auto&... parts) { return nodeSize<Record>(parts...); }, partsOf(record)));
  Record* const kept = ::new (spot.memory()) Record(std::move(record));
  try {
    Packing packing(nullptr);
    const auto make = [&](const auto&... parts) {
      void* const place = spot.memory() + sizeof(Record);
      if constexpr (requires(const NodeOf<Record>& node) { node.id; }) {
        return ::new (place) NodeOf<Record>(parts..., packing, kept->id);
      } else {
        return ::new (place) NodeOf<Record>(parts..., packing);
      }
    };
    return Ref<const Node>(spot.settle(std::apply(make, partsOf(*kept)), sizeof(Record)));
  } catch (...) {
    kept->~Record();
    throw;
  }
}

/// Null where the record says something that the node can't.
template <typename Record, typename... Parts>
Ref<const Node> makePacked(const Parts&... parts) {
  Packing packing(NodeMemory::file());
  NodeSpot spot(nodeSize<Record>(parts...));
  auto* const node = ::new (spot.memory()) NodeOf<Record>(parts..., packing);
  if (packing.isExact()) [[likely]]
    return Ref<const Node>(spot.settle(node, 0));
  node->~NodeOf<Record>();
  return nullptr;
}

template <typename OfNode, typename HostRecord>
Ref<const Node> makeHosted(HostRecord record) {
  NodeSpot spot(sizeof(OfNode));
  return Ref<const Node>(spot.settle(::new (spot.memory()) OfNode(std::move(record)), 0));
}

/// Ends a node and gives its memory back.
template <typename Record>
void endNode(const NodeOf<Record>& node) noexcept {
  const Record* const record = NodeAccess::isSpelledOut(node) ? &NodeAccess::spelled(node) : nullptr;
  const NodeAccess::Home home(node);
  node.~NodeOf();
  if (record) record->~Record();
  home.leave();
}

}  // namespace velto

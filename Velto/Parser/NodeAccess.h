// What a node knows by where it stands.
#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <span>

#include "Velto/Parser/Node.h"
#include "Velto/Parser/NodeId.h"
#include "Velto/Parser/NodeMemory.h"
#include "Velto/Parser/Packing.h"

namespace velto {

/// Nodes are settled where they are made. One whose record can't be worked out from it has it right before itself: that
/// is one that a host has made of a record, or one at an unusual place.
class NodeAccess {
 public:
  static void settle(Node& node, NodeMemory::Distance distance, bool isSpelledOut) noexcept {
    node.home_ = static_cast<std::uint16_t>(node.home_ | distance | (isSpelledOut ? spelledOut : 0));
  }

  static bool isStatement(const Node& node) noexcept {
    return (node.home_ & static_cast<std::uint16_t>(Node::Family::statement)) != 0;
  }
  static bool isSpelledOut(const Node& node) noexcept { return (node.home_ & spelledOut) != 0; }
  /// Of one that is spelled out.
  template <typename Record>
  static const Record& spelled(const NodeOf<Record>& node) noexcept {
    const auto* const memory = reinterpret_cast<const std::byte*>(&node) - sizeof(Record);
    return *std::launder(reinterpret_cast<const Record*>(memory));
  }
  /// Where a node stands, for after its end.
  class Home {
   public:
    explicit Home(const Node& node) noexcept : memory_(&node), distance_(distance(node)) {}
    void leave() const noexcept { NodeMemory::release(memory_, distance_); }

   private:
    const void* memory_;
    NodeMemory::Distance distance_;
  };

  // Of one that isn't.

  static Uuid identity(const Node& node) noexcept { return NodeMemory::identityOf(&node, distance(node)); }
  template <typename Record>
  static NodeId<Record> id(const Uuid& id) noexcept {
    return NodeId<Record>(id);
  }
  template <typename Record>
  static NodeId<Record> id(const NodeOf<Record>& node) noexcept {
    return NodeId<Record>(identity(node));
  }
  static const String& file(const Node& node) noexcept { return NodeMemory::fileOf(&node, distance(node)); }
  static Range range(const Node& node, Position start, Position end) noexcept {
    return Stretch(file(node), start, end);
  }
  static Range range(const Node& node, Place start, Position end) noexcept {
    return range(node, start.position(), end);
  }
  static Range range(const Node& node, Place start, Place end) noexcept {
    return range(node, start.position(), end.position());
  }
  static Token usualToken(const Node& node, TokenType type, Place start) {
    return ownToken(node, type, usualLexeme(type), start);
  }
  static Token ownToken(const Node& node, TokenType type, const String& lexeme, Place start) noexcept {
    return {type, lexeme, range(node, start, start.advancedBy(columnsOf(lexeme)))};
  }
  static Token name(const Node& node, const String& lexeme, Place start) noexcept {
    return ownToken(node, TokenType::identifier, lexeme, start);
  }

 private:
  static constexpr std::uint16_t spelledOut = 0x8000;

  static NodeMemory::Distance distance(const Node& node) noexcept {
    return static_cast<NodeMemory::Distance>(node.home_ & NodeMemory::farthest);
  }
};

/// For a node that ends with another one, which has to tell where that is: in the same file.
inline void expectTold(Packing& packing, const Node& last) noexcept {
  packing.expect(!NodeAccess::isSpelledOut(last));
}

/// The whole record of a node.
template <typename Record>
Record recordOf(const NodeOf<Record>& node) {
  return NodeAccess::isSpelledOut(node) ? NodeAccess::spelled(node) : node.unpacked();
}

/// The same as that of the record: a few kinds have none of their own, but tell one.
template <typename Record>
Range rangeOf(const NodeOf<Record>& node) {
  if constexpr (requires { node.end(); }) {
    if (!NodeAccess::isSpelledOut(node)) return NodeAccess::range(node, node.start, node.end());
  }
  if constexpr (requires(const Record& record) { record.range(); }) {
    return recordOf(node).range();
  } else {
    return NodeAccess::spelled(node).range;
  }
}

/// Shows the record to the visitor, which is made for that if need be.
template <typename Record, typename Visitor>
void acceptAs(const NodeOf<Record>& node, Visitor& visitor) {
  if (NodeAccess::isSpelledOut(node)) {
    NodeAccess::spelled(node).accept(visitor);
  } else {
    node.unpacked().accept(visitor);
  }
}

/// The things that stand in memory right behind a node.
template <typename Item, typename OfNode>
std::span<const Item> itemsBehind(const OfNode& node, std::size_t count) noexcept {
  static_assert(sizeof(OfNode) % alignof(Item) == 0);
  return {std::launder(reinterpret_cast<const Item*>(&node + 1)), count};
}

/// Makes those of them, in order; they end with the node.
template <typename Item, typename OfNode, typename Sources, typename Make>
void makeItemsBehind(OfNode& node, const Sources& sources, const Make& make) {
  auto* const begin = reinterpret_cast<Item*>(&node + 1);
  Item* end = begin;
  try {
    for (const auto& source : sources) {
      ::new (end) Item(make(source));
      ++end;
    }
  } catch (...) {
    std::destroy(begin, end);
    throw;
  }
}

template <typename Item>
void endItems(std::span<const Item> items) noexcept {
  std::destroy(items.begin(), items.end());
}

}  // namespace velto

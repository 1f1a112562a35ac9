// What the nodes of trees have in common, and the handles' way to hold them.
#pragma once

#include <cstdint>
#include <memory>
#include <new>
#include <span>
#include <utility>

#include "Velto/Parser/NodeKind.h"
#include "Velto/Platform/Ref.h"

namespace [[gnu::visibility("default")]] velto {

/// How a record is kept in a tree. A record spells out all that it says: ranges with their file, whole tokens, an
/// identity. Its node has what can't be worked out from the rest.
template <typename Record>
struct NodeOf;

/// And how a list.
template <typename Item>
class NodeList;

/// Counts its holders in eight bytes that tell besides what it is and where it stands. There is no table of functions:
/// the kind tells the type.
class alignas(void*) Node {
 public:
  using Kind = std::uint8_t;

  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;

  [[gnu::always_inline]] void retain() const noexcept { holders_.increment(); }
  [[gnu::always_inline]] void release() const noexcept {
    if (holders_.decrement()) dispose();
  }

  Kind kind() const noexcept { return kind_; }

 protected:
  enum class Family : std::uint16_t { expression = 0, statement = 0x4000 };

  Node(Family family, Kind kind, std::uint8_t detail) noexcept
      : kind_(kind), detail_(detail), home_(static_cast<std::uint16_t>(family)) {}
  ~Node() = default;

  /// Whatever the kind has to tell in one byte.
  std::uint8_t detail() const noexcept { return detail_; }

 private:
  friend class NodeAccess;

  void dispose() const noexcept;

  mutable HolderCount holders_{0};
  const Kind kind_;
  const std::uint8_t detail_;
  std::uint16_t home_;  // the distance from the piece of memory, the family, and whether the record stands before
};

}  // namespace velto

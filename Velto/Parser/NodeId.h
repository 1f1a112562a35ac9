// The identity of a node.
#pragma once

#include "Velto/Platform/Uuid.h"

namespace [[gnu::visibility("default")]] velto {

/// A fresh identity for each node that is made; a copy of the node keeps it. Nobody can write the identity alone, but
/// it goes along when the whole node is assigned: that is why the assignment is the node's own.
template <typename Node>
class NodeId {
  friend Node;
  friend class NodeAccess;

 public:
  NodeId() = default;
  NodeId(const NodeId&) noexcept = default;
  ~NodeId() = default;

  operator const Uuid&() const noexcept { return uuid_; }

  friend bool operator==(const NodeId&, const NodeId&) noexcept = default;

 private:
  explicit NodeId(const Uuid& uuid) noexcept : uuid_(uuid) {}
  NodeId& operator=(const NodeId&) noexcept = default;

  Uuid uuid_;
};

}  // namespace velto

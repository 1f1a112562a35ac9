// The common base of all nodes of the trees.
#pragma once

#include "Velto/Platform/Ref.h"

namespace [[gnu::visibility("default")]] velto {

/// A counted node, freed with a stack that doesn't grow with the depth of its tree: a sum of a million terms is a chain
/// of a million nodes.
class TreeNode : public Counted {
 private:
  void dispose() const noexcept final;

  mutable const TreeNode* nextOrphan_ = nullptr;  // used only while this node waits to be freed
};

}  // namespace velto

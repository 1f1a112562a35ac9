// How trees are freed.
#include "Velto/Parser/TreeNode.h"

#include <utility>

namespace velto {

namespace {

/// The nodes that lost their last holder while another one was being freed. Empty between any two frees; a destructor
/// has no other way to hand something on.
struct Orphans {
  const TreeNode* first = nullptr;
  bool areBeingFreed = false;
};

thread_local constinit Orphans orphans;

}  // namespace

void TreeNode::dispose() const noexcept {
  nextOrphan_ = std::exchange(orphans.first, this);
  if (orphans.areBeingFreed) return;
  orphans.areBeingFreed = true;
  while (const TreeNode* node = orphans.first) {
    orphans.first = node->nextOrphan_;
    delete node;
  }
  orphans.areBeingFreed = false;
}

}  // namespace velto

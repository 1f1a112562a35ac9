// How nodes end.
#include "Velto/Parser/Node.h"

#include "Velto/Parser/NodeMaking.h"
#include "Velto/Parser/StatementNodes.h"
#include "Velto/Platform/Disposal.h"

namespace velto {

namespace {

template <typename OfNode>
void endHosted(const OfNode& node) noexcept {
  const NodeAccess::Home home(node);
  node.~OfNode();
  home.leave();
}

template <typename Kinds, typename HostNode>
void end(const Node& node) noexcept {
  const bool isOurs = Kinds::dispatch(node.kind(), [&]<typename Record>(std::type_identity<Record>) {
    endNode(static_cast<const NodeOf<Record>&>(node));
  });
  if (!isOurs) endHosted(static_cast<const HostNode&>(node));
}

void end(const Node& node) noexcept {
  if (NodeAccess::isStatement(node)) {
    end<StatementKinds, HostStatementNode>(node);
  } else {
    end<ExpressionKinds, HostExpressionNode>(node);
  }
}

/// Whether it holds no other nodes, as most don't.
bool isLeaf(const Node& node) noexcept {
  const Node::Kind kind = node.kind();
  if (NodeAccess::isStatement(node)) return kind == StatementKinds::of<Verbatim>;
  return kind == ExpressionKinds::of<Variable> || kind == ExpressionKinds::of<Literal>;
}

}  // namespace

void Node::dispose() const noexcept {
  if (isLeaf(*this)) return end(*this);
  endInTurn({this, [](const void* node) noexcept { end(*static_cast<const Node*>(node)); }});
}

}  // namespace velto

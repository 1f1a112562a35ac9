// The handle of expressions, and how each record hands itself to the operation of its kind.
#include "Velto/Parser/Expression.h"

#include "Velto/Parser/ExpressionNodes.h"
#include "Velto/Parser/NodeMaking.h"

namespace velto {

template <typename Record>
Ref<const Node> Expression::spelledOut(Record&& record) {
  return makeSpelledOut(std::move(record));
}

Ref<const Node> Expression::hosted(std::unique_ptr<const AnyHosted> record) {
  return makeHosted<HostExpressionNode>(std::move(record));
}

template <typename Record>
Record Expression::recordOf() const {
  return velto::recordOf(node<Record>());
}

const Expression::AnyHosted* Expression::hostedRecord() const noexcept {
  return kind() == ExpressionKinds::other ? static_cast<const HostExpressionNode&>(*node_).record.get() : nullptr;
}

Uuid Expression::id() const noexcept {
  if (const AnyHosted* const hosted = hostedRecord()) return hosted->id();
  Uuid id = Uuid::nil();
  ExpressionKinds::dispatch(kind(), [&]<typename Record>(std::type_identity<Record>) { id = idOf(node<Record>()); });
  return id;
}

Range Expression::range() const {
  return Stretch(startOf(*this), endOf(*this));
}

void Expression::accept(ExpressionVisitor& visitor) const {
  if (const AnyHosted* const hosted = hostedRecord()) return hosted->accept(visitor);
  ExpressionKinds::dispatch(kind(),
                            [&]<typename Record>(std::type_identity<Record>) { acceptAs(node<Record>(), visitor); });
}

Point startOf(const Expression& expression) noexcept {
  if (const HostExpressionNode* const hosted = hostNodeOf(expression)) return startOf(hosted->record->range());
  const auto& node = static_cast<const ExpressionNode&>(expression.node());
  Point start{&NodeAccess::file(node), node.start.position()};
  if (!NodeAccess::isSpelledOut(node)) return start;
  ExpressionKinds::dispatch(expression.kind(), [&]<typename Record>(std::type_identity<Record>) {
    start = startOf(NodeAccess::spelled(expression.node<Record>()).range);
  });
  return start;
}

Point endOf(const Expression& expression) noexcept {
  if (const HostExpressionNode* const hosted = hostNodeOf(expression)) return endOf(hosted->record->range());
  Point end{&NodeAccess::file(expression.node()), {}};
  ExpressionKinds::dispatch(expression.kind(), [&]<typename Record>(std::type_identity<Record>) {
    const NodeOf<Record>& node = expression.node<Record>();
    if (NodeAccess::isSpelledOut(node)) {
      end = endOf(NodeAccess::spelled(node).range);
    } else {
      end.position = node.end();
    }
  });
  return end;
}

void ArrayLiteral::accept(ExpressionVisitor& visitor) const {
  visitor.visitArrayLiteral(*this);
}

void Assignment::accept(ExpressionVisitor& visitor) const {
  visitor.visitAssignment(*this);
}

void Binary::accept(ExpressionVisitor& visitor) const {
  visitor.visitBinary(*this);
}

void Call::accept(ExpressionVisitor& visitor) const {
  visitor.visitCall(*this);
}

void DictionaryLiteral::accept(ExpressionVisitor& visitor) const {
  visitor.visitDictionaryLiteral(*this);
}

void Grouping::accept(ExpressionVisitor& visitor) const {
  visitor.visitGrouping(*this);
}

void Literal::accept(ExpressionVisitor& visitor) const {
  visitor.visitLiteral(*this);
}

void Logical::accept(ExpressionVisitor& visitor) const {
  visitor.visitLogical(*this);
}

void Member::accept(ExpressionVisitor& visitor) const {
  visitor.visitMember(*this);
}

void Tuple::accept(ExpressionVisitor& visitor) const {
  visitor.visitTuple(*this);
}

void TypeCheck::accept(ExpressionVisitor& visitor) const {
  visitor.visitTypeCheck(*this);
}

void StringExpression::accept(ExpressionVisitor& visitor) const {
  visitor.visitStringExpression(*this);
}

void Subscript::accept(ExpressionVisitor& visitor) const {
  visitor.visitSubscript(*this);
}

void Unary::accept(ExpressionVisitor& visitor) const {
  visitor.visitUnary(*this);
}

void Variable::accept(ExpressionVisitor& visitor) const {
  visitor.visitVariable(*this);
}

// Hosts make and ask for each kind of record, with templates that are compiled here.
#define VELTO_KIND(Record)                                          \
  template Ref<const Node> Expression::spelledOut(Record&& record); \
  template Record Expression::recordOf() const;
VELTO_KIND(ArrayLiteral)
VELTO_KIND(Assignment)
VELTO_KIND(Binary)
VELTO_KIND(Call)
VELTO_KIND(DictionaryLiteral)
VELTO_KIND(Grouping)
VELTO_KIND(Literal)
VELTO_KIND(Logical)
VELTO_KIND(Member)
VELTO_KIND(Tuple)
VELTO_KIND(TypeCheck)
VELTO_KIND(StringExpression)
VELTO_KIND(Subscript)
VELTO_KIND(Unary)
VELTO_KIND(Variable)
#undef VELTO_KIND

}  // namespace velto

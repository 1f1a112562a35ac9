// The handle of statements, and how each record hands itself to the operation of its kind.
#include "Velto/Parser/Statement.h"

#include "Velto/Parser/NodeMaking.h"
#include "Velto/Parser/StatementNodes.h"

namespace velto {

template <typename Record>
Ref<const Node> Statement::spelledOut(Record&& record) {
  return makeSpelledOut(std::move(record));
}

Ref<const Node> Statement::hosted(std::unique_ptr<const AnyHosted> record) {
  return makeHosted<HostStatementNode>(std::move(record));
}

template <typename Record>
Record Statement::recordOf() const {
  return velto::recordOf(node<Record>());
}

const Statement::AnyHosted* Statement::hostedRecord() const noexcept {
  return kind() == StatementKinds::other ? static_cast<const HostStatementNode&>(*node_).record.get() : nullptr;
}

Range Statement::range() const {
  if (const AnyHosted* const hosted = hostedRecord()) return hosted->range();
  std::optional<Range> range;
  StatementKinds::dispatch(
      kind(), [&]<typename Record>(std::type_identity<Record>) { range.emplace(rangeOf(node<Record>())); });
  return *std::move(range);
}

void Statement::accept(StatementVisitor& visitor) const {
  if (const AnyHosted* const hosted = hostedRecord()) return hosted->accept(visitor);
  StatementKinds::dispatch(kind(),
                           [&]<typename Record>(std::type_identity<Record>) { acceptAs(node<Record>(), visitor); });
}

void Break::accept(StatementVisitor& visitor) const {
  visitor.visitBreak(*this);
}

void Case::accept(StatementVisitor& visitor) const {
  visitor.visitCase(*this);
}

void Continue::accept(StatementVisitor& visitor) const {
  visitor.visitContinue(*this);
}

void ExpressionBlock::accept(StatementVisitor& visitor) const {
  visitor.visitExpressionBlock(*this);
}

void ExpressionStatement::accept(StatementVisitor& visitor) const {
  visitor.visitExpressionStatement(*this);
}

void For::accept(StatementVisitor& visitor) const {
  visitor.visitFor(*this);
}

void FunctionDeclaration::accept(StatementVisitor& visitor) const {
  visitor.visitFunctionDeclaration(*this);
}

void If::accept(StatementVisitor& visitor) const {
  visitor.visitIf(*this);
}

void Include::accept(StatementVisitor& visitor) const {
  visitor.visitInclude(*this);
}

void Return::accept(StatementVisitor& visitor) const {
  visitor.visitReturn(*this);
}

void Switch::accept(StatementVisitor& visitor) const {
  visitor.visitSwitch(*this);
}

void VariableDeclaration::accept(StatementVisitor& visitor) const {
  visitor.visitVariableDeclaration(*this);
}

void Verbatim::accept(StatementVisitor& visitor) const {
  visitor.visitVerbatim(*this);
}

void While::accept(StatementVisitor& visitor) const {
  visitor.visitWhile(*this);
}

// Hosts make and ask for each kind of record, with templates that are compiled here.
#define VELTO_KIND(Record)                                         \
  template Ref<const Node> Statement::spelledOut(Record&& record); \
  template Record Statement::recordOf() const;
VELTO_KIND(Break)
VELTO_KIND(Case)
VELTO_KIND(Continue)
VELTO_KIND(ExpressionBlock)
VELTO_KIND(ExpressionStatement)
VELTO_KIND(For)
VELTO_KIND(FunctionDeclaration)
VELTO_KIND(If)
VELTO_KIND(Include)
VELTO_KIND(Return)
VELTO_KIND(Switch)
VELTO_KIND(VariableDeclaration)
VELTO_KIND(Verbatim)
VELTO_KIND(While)
#undef VELTO_KIND

}  // namespace velto

// Each statement hands itself to the operation of its kind.
#include "Velto/Parser/Statement.h"

namespace velto {

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

}  // namespace velto

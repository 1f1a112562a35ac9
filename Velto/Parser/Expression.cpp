// Each expression hands itself to the operation of its kind.
#include "Velto/Parser/Expression.h"

namespace velto {

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

}  // namespace velto

// For walkers of trees that look at nodes and not at records.
#pragma once

#include "Velto/Parser/Statement.h"

namespace [[gnu::visibility("default")]] velto {

/// Takes each record that a host shows to it as the expression or the statement that it is.
class RecordVisitor : public StatementVisitor, public ExpressionVisitor {
 public:
  void visitBreak(const Break& node) override { visit(Statement(node)); }
  void visitCase(const Case& node) override { visit(Statement(node)); }
  void visitContinue(const Continue& node) override { visit(Statement(node)); }
  void visitExpressionBlock(const ExpressionBlock& node) override { visit(Statement(node)); }
  void visitExpressionStatement(const ExpressionStatement& node) override { visit(Statement(node)); }
  void visitFor(const For& node) override { visit(Statement(node)); }
  void visitFunctionDeclaration(const FunctionDeclaration& node) override { visit(Statement(node)); }
  void visitIf(const If& node) override { visit(Statement(node)); }
  void visitInclude(const Include& node) override { visit(Statement(node)); }
  void visitReturn(const Return& node) override { visit(Statement(node)); }
  void visitSwitch(const Switch& node) override { visit(Statement(node)); }
  void visitVariableDeclaration(const VariableDeclaration& node) override { visit(Statement(node)); }
  void visitVerbatim(const Verbatim& node) override { visit(Statement(node)); }
  void visitWhile(const While& node) override { visit(Statement(node)); }

  void visitArrayLiteral(const ArrayLiteral& node) override { visit(Expression(node)); }
  void visitAssignment(const Assignment& node) override { visit(Expression(node)); }
  void visitBinary(const Binary& node) override { visit(Expression(node)); }
  void visitCall(const Call& node) override { visit(Expression(node)); }
  void visitDictionaryLiteral(const DictionaryLiteral& node) override { visit(Expression(node)); }
  void visitGrouping(const Grouping& node) override { visit(Expression(node)); }
  void visitLiteral(const Literal& node) override { visit(Expression(node)); }
  void visitLogical(const Logical& node) override { visit(Expression(node)); }
  void visitMember(const Member& node) override { visit(Expression(node)); }
  void visitTuple(const Tuple& node) override { visit(Expression(node)); }
  void visitTypeCheck(const TypeCheck& node) override { visit(Expression(node)); }
  void visitStringExpression(const StringExpression& node) override { visit(Expression(node)); }
  void visitSubscript(const Subscript& node) override { visit(Expression(node)); }
  void visitUnary(const Unary& node) override { visit(Expression(node)); }
  void visitVariable(const Variable& node) override { visit(Expression(node)); }

 private:
  virtual void visit(const Statement& statement) = 0;
  virtual void visit(const Expression& expression) = 0;
};

}  // namespace velto

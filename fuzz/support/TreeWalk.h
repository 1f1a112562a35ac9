// A walk over all parts of a tree, in the order of the source.
#pragma once

#include <string_view>
#include <vector>

#include "Velto/Parser/Statement.h"

namespace velto::fuzz {

/// Tells whoever derives from it of each node, of what it holds besides nodes, and of its end.
class TreeWalk : public StatementVisitor, public ExpressionVisitor {
 public:
  void walk(const Statements& statements);

 protected:
  /// A node, or a part of one that has a range of its own. What follows up to its end lies within it.
  virtual void begin(std::string_view kind, const Range& range) = 0;
  virtual void end() = 0;
  virtual void token(const Token& token) = 0;
  virtual void detail(std::string_view detail) = 0;
  /// A list of statements of the node follows, with its condition if it has one.
  virtual void body(std::string_view name) = 0;
  virtual void identity(const Uuid&) {}

  void visitBreak(const Break& node) override;
  void visitCase(const Case& node) override;
  void visitContinue(const Continue& node) override;
  void visitExpressionBlock(const ExpressionBlock& node) override;
  void visitExpressionStatement(const ExpressionStatement& node) override;
  void visitFor(const For& node) override;
  void visitFunctionDeclaration(const FunctionDeclaration& node) override;
  void visitIf(const If& node) override;
  void visitInclude(const Include& node) override;
  void visitReturn(const Return& node) override;
  void visitSwitch(const Switch& node) override;
  void visitVariableDeclaration(const VariableDeclaration& node) override;
  void visitVerbatim(const Verbatim& node) override;
  void visitWhile(const While& node) override;

  void visitArrayLiteral(const ArrayLiteral& node) override;
  void visitAssignment(const Assignment& node) override;
  void visitBinary(const Binary& node) override;
  void visitCall(const Call& node) override;
  void visitDictionaryLiteral(const DictionaryLiteral& node) override;
  void visitGrouping(const Grouping& node) override;
  void visitLiteral(const Literal& node) override;
  void visitLogical(const Logical& node) override;
  void visitMember(const Member& node) override;
  void visitTuple(const Tuple& node) override;
  void visitTypeCheck(const TypeCheck& node) override;
  void visitStringExpression(const StringExpression& node) override;
  void visitSubscript(const Subscript& node) override;
  void visitUnary(const Unary& node) override;
  void visitVariable(const Variable& node) override;

 private:
  void walk(const Expression& expression) { expression.accept(*this); }
  void walkBody(std::string_view name, const Statements& statements);
  void walkBranch(std::string_view name, const IfBranch& branch);
};

}  // namespace velto::fuzz

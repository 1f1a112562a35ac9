// The static pass that binds variables to scopes before a run.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "Velto/Diagnostics/Logger.h"
#include "Velto/Parser/Statement.h"
#include "Velto/Platform/StackGuard.h"

namespace [[gnu::visibility("default")]] velto {

/// Mirrors the scopes that the interpreter will make, and writes to `Interpreter::locals` how many links lie between
/// each variable that it can place and its scope. All other names are looked up as the program runs.
class Resolver final : public StatementVisitor, public ExpressionVisitor {
 public:
  explicit Resolver(Interpreter& interpreter);

  /// Never throws `VeltoError`; the first error is reported and ends the pass.
  void resolve(const Statements& statements);

  bool hadError() const noexcept { return hadError_; }

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
  using Scope = std::unordered_map<String, bool>;  // false while a name is declared and not yet defined

  void declare(const Token& name);
  void define(const Token& name);
  void resolve(const Expression& expression);
  void resolveList(const Statements& statements);
  void resolveBlock(const Statements& statements);
  void resolveBranch(const IfBranch& branch);
  void resolveLocal(const Token& name, const Uuid& id);
  std::optional<Int> depth(const Token& name, std::size_t skipped) const;

  std::shared_ptr<Logger> logger_;
  Interpreter& interpreter_;
  std::vector<Scope> scopes_;  // outermost first; the first one is that of the globals
  bool hadError_ = false;
  StackGuard stack_;
};

}  // namespace velto

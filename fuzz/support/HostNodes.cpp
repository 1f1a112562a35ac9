#include "support/HostNodes.h"

namespace velto::fuzz {
namespace {

struct HostExpression {
  Uuid id;
  Range range;
  Expression inner;

  void accept(ExpressionVisitor& visitor) const { inner.accept(visitor); }
};

struct HostStatement {
  Range range;
  Statement inner;

  void accept(StatementVisitor& visitor) const { inner.accept(visitor); }
};

/// Copies each node that it visits, with the copies of its parts, and keeps the copy.
class Copy final : public StatementVisitor, public ExpressionVisitor {
 public:
  Statements statements;

  static Statements of(const Statements& originals) {
    Copy copy;
    for (const Statement& statement : originals) statement.accept(copy);
    return std::move(copy.statements);
  }

  void visitBreak(const Break& node) override { keep(node, node.range()); }
  void visitCase(const Case& node) override { keep(of(node), node.range); }
  void visitContinue(const Continue& node) override { keep(node, node.range()); }
  void visitExpressionBlock(const ExpressionBlock& node) override {
    ExpressionBlock copy = node;
    replace(copy.expression);
    keep(copy, node.range);
  }
  void visitExpressionStatement(const ExpressionStatement& node) override {
    ExpressionStatement copy = node;
    replace(copy.expression);
    keep(copy, node.range());
  }
  void visitFor(const For& node) override {
    For copy = node;
    replace(copy.sequence);
    copy.body = of(node.body);
    keep(copy, node.range);
  }
  void visitFunctionDeclaration(const FunctionDeclaration& node) override {
    FunctionDeclaration copy = node;
    copy.body = of(node.body);
    keep(copy, node.range);
  }
  void visitIf(const If& node) override {
    If copy = node;
    replace(copy.mainBranch);
    for (IfBranch& branch : copy.elseIfBranches) replace(branch);
    if (copy.elseBranch) replace(*copy.elseBranch);
    keep(copy, node.range);
  }
  void visitInclude(const Include& node) override {
    Include copy = node;
    replace(copy.file);
    keep(copy, node.range());
  }
  void visitReturn(const Return& node) override {
    Return copy = node;
    if (copy.value) replace(*copy.value);
    keep(copy, node.range);
  }
  void visitSwitch(const Switch& node) override {
    Switch copy = node;
    replace(copy.expr);
    for (Case& clause : copy.cases) clause = of(clause);
    copy.defaultBody = of(node.defaultBody);
    keep(copy, node.range);
  }
  void visitVariableDeclaration(const VariableDeclaration& node) override {
    VariableDeclaration copy = node;
    if (copy.initializer) replace(*copy.initializer);
    keep(copy, node.range);
  }
  void visitVerbatim(const Verbatim& node) override { keep(node, node.range); }
  void visitWhile(const While& node) override {
    While copy = node;
    replace(copy.condition);
    copy.body = of(node.body);
    keep(copy, node.range);
  }

  void visitArrayLiteral(const ArrayLiteral& node) override {
    ArrayLiteral copy = node;
    for (Expression& element : copy.elements) replace(element);
    keep(copy);
  }
  void visitAssignment(const Assignment& node) override {
    Assignment copy = node;
    replace(copy.value);
    keep(copy);
  }
  void visitBinary(const Binary& node) override { keepOperation(node); }
  void visitCall(const Call& node) override {
    Call copy = node;
    replace(copy.callee);
    for (Call::Argument& argument : copy.arguments) replace(argument.value);
    keep(copy);
  }
  void visitDictionaryLiteral(const DictionaryLiteral& node) override {
    DictionaryLiteral copy = node;
    for (auto& [key, value] : copy.elements) {
      replace(key);
      replace(value);
    }
    keep(copy);
  }
  void visitGrouping(const Grouping& node) override {
    Grouping copy = node;
    replace(copy.expression);
    keep(copy);
  }
  void visitLiteral(const Literal& node) override { keep(node); }
  void visitLogical(const Logical& node) override { keepOperation(node); }
  void visitMember(const Member& node) override {
    Member copy = node;
    replace(copy.object);
    keep(copy);
  }
  void visitTuple(const Tuple& node) override { keep(node); }
  void visitTypeCheck(const TypeCheck& node) override {
    TypeCheck copy = node;
    replace(copy.instance);
    keep(copy);
  }
  void visitStringExpression(const StringExpression& node) override {
    StringExpression copy = node;
    for (StringExpression::Interpolation& interpolation : copy.interpolations) replace(interpolation.value);
    keep(copy);
  }
  void visitSubscript(const Subscript& node) override {
    Subscript copy = node;
    replace(copy.subscriptee);
    replace(copy.index);
    keep(copy);
  }
  void visitUnary(const Unary& node) override {
    Unary copy = node;
    replace(copy.right);
    keep(copy);
  }
  void visitVariable(const Variable& node) override { keep(node); }

 private:
  static Case of(const Case& node) {
    Case copy = node;
    if (Expression* pattern = std::get_if<Expression>(&copy.pattern)) Copy().replace(*pattern);
    copy.body = of(node.body);
    return copy;
  }

  template <typename Operation>
  void keepOperation(const Operation& node) {
    Operation copy = node;
    replace(copy.left);
    replace(copy.right);
    keep(copy);
  }

  template <typename Record>
  void keep(const Record& copy, const Range& range) {
    statements.push_back(HostStatement{range, copy});
  }

  template <typename Record>
  void keep(const Record& copy) {
    expression_ = HostExpression{copy.id, copy.range, copy};
  }

  void replace(Expression& expression) {
    expression.accept(*this);
    expression = *expression_;
  }

  void replace(IfBranch& branch) {
    if (branch.condition) replace(*branch.condition);
    branch.statements = of(branch.statements);
  }

  std::optional<Expression> expression_;  // the copy of the one that was visited last
};

}  // namespace

Statements withHostNodes(const Statements& statements) {
  return Copy::of(statements);
}

}  // namespace velto::fuzz

// Where the bytes of trees go, by kind of node.
#include <tuple>

#include "Velto/Parser/NodeMaking.h"
#include "Velto/Parser/StatementNodes.h"
#include "benchmarks/memory/Sizes.h"

namespace velto::benchmarks {
namespace {

class TreeSizes final : public StatementVisitor, public ExpressionVisitor {
 public:
  std::map<std::string, Size> sizes;
  std::size_t textSize = 0;

  void walk(const Statement& node) { node.accept(*this); }
  void walk(const Expression& node) { node.accept(*this); }
  void walk(const Pattern& pattern) {
    if (const auto* expression = std::get_if<Expression>(&pattern)) walk(*expression);
  }
  void walk(const IfBranch& branch) { walkAll(branch.condition, branch.statements); }
  void walk(const Call::Argument& argument) { walk(argument.value); }
  void walk(const StringExpression::Interpolation& interpolation) { walk(interpolation.value); }
  void walk(const std::pair<Expression, Expression>& entry) { walkAll(entry.first, entry.second); }
  void walk(const Case& node) { walkAll(node.pattern, node.body); }
  template <typename Part>
  void walk(const std::optional<Part>& part) {
    if (part) walk(*part);
  }
  template <typename Part>
  void walk(const std::vector<Part>& parts) {
    addList(parts);
    for (const Part& part : parts) walk(part);
  }

 private:
  /// A node has its lists of expressions and names with it.
  template <typename Record, typename... Parts>
  void add(const char* kind, const Record& record, const Parts&... parts) {
    addBytes(kind, std::apply([](const auto&... each) { return nodeSize<Record>(each...); }, partsOf(record)));
    walkAll(parts...);
  }
  template <typename... Parts>
  void walkAll(const Parts&... parts) {
    (walk(parts), ...);
  }
  /// Statements stand in lists of their own, behind their number.
  template <typename Part>
  void addList(const std::vector<Part>& parts) {
    constexpr std::size_t number = 8;
    if (std::same_as<Part, Statement> && !parts.empty()) addBytes("lists", number + parts.size() * sizeof(Part));
  }
  void addBytes(const char* kind, std::size_t bytes) {
    Size& size = sizes[kind];
    ++size.count;
    size.bytes += bytes;
  }

  void visitBreak(const Break& node) override { add("Break", node); }
  void visitCase(const Case& node) override { add("Case", node, node.pattern, node.body); }
  void visitContinue(const Continue& node) override { add("Continue", node); }
  void visitExpressionBlock(const ExpressionBlock& node) override { add("ExpressionBlock", node, node.expression); }
  void visitExpressionStatement(const ExpressionStatement& node) override {
    add("ExpressionStatement", node, node.expression);
  }
  void visitFor(const For& node) override { add("For", node, node.sequence, node.body); }
  void visitFunctionDeclaration(const FunctionDeclaration& node) override {
    add("FunctionDeclaration", node, node.body);
  }
  void visitIf(const If& node) override { add("If", node, node.mainBranch, node.elseIfBranches, node.elseBranch); }
  void visitInclude(const Include& node) override { add("Include", node, node.file); }
  void visitReturn(const Return& node) override { add("Return", node, node.value); }
  void visitSwitch(const Switch& node) override { add("Switch", node, node.expr, node.cases, node.defaultBody); }
  void visitVariableDeclaration(const VariableDeclaration& node) override {
    add("VariableDeclaration", node, node.initializer);
  }
  void visitVerbatim(const Verbatim& node) override {
    add("Verbatim", node);
    textSize += node.text.size();
  }
  void visitWhile(const While& node) override { add("While", node, node.condition, node.body); }

  void visitArrayLiteral(const ArrayLiteral& node) override { add("ArrayLiteral", node, node.elements); }
  void visitAssignment(const Assignment& node) override { add("Assignment", node, node.value); }
  void visitBinary(const Binary& node) override { add("Binary", node, node.left, node.right); }
  void visitCall(const Call& node) override { add("Call", node, node.callee, node.arguments); }
  void visitDictionaryLiteral(const DictionaryLiteral& node) override { add("DictionaryLiteral", node, node.elements); }
  void visitGrouping(const Grouping& node) override { add("Grouping", node, node.expression); }
  void visitLiteral(const Literal& node) override { add("Literal", node); }
  void visitLogical(const Logical& node) override { add("Logical", node, node.left, node.right); }
  void visitMember(const Member& node) override { add("Member", node, node.object); }
  void visitTuple(const Tuple& node) override { add("Tuple", node); }
  void visitTypeCheck(const TypeCheck& node) override { add("TypeCheck", node, node.instance); }
  void visitStringExpression(const StringExpression& node) override {
    add("StringExpression", node, node.interpolations);
  }
  void visitSubscript(const Subscript& node) override { add("Subscript", node, node.subscriptee, node.index); }
  void visitUnary(const Unary& node) override { add("Unary", node, node.right); }
  void visitVariable(const Variable& node) override { add("Variable", node); }
};

TreeSizes walked(const Statements& statements) {
  TreeSizes sizes;
  sizes.walk(statements);
  return sizes;
}

}  // namespace

std::map<std::string, Size> sizesOf(const Statements& statements) {
  return walked(statements).sizes;
}

std::size_t textSizeOf(const Statements& statements) {
  return walked(statements).textSize;
}

}  // namespace velto::benchmarks

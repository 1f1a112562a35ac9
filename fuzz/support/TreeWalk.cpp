#include "support/TreeWalk.h"

#include <charconv>
#include <string>

#include "Velto/Value/Value.h"

namespace velto::fuzz {
namespace {

/// Exactly, as no two floats are told alike.
std::string constantText(const Value& value) {
  const double* number = value.number();
  if (!number) return std::string(value.description());
  char text[32];
  return std::string(text, std::to_chars(text, text + sizeof text, *number).ptr);
}

}  // namespace

void TreeWalk::walk(const Statements& statements) {
  for (const Statement& statement : statements) statement.accept(*this);
}

void TreeWalk::walkBody(std::string_view name, const Statements& statements) {
  body(name);
  walk(statements);
}

void TreeWalk::walkBranch(std::string_view name, const IfBranch& branch) {
  body(name);
  if (branch.condition) walk(*branch.condition);
  walk(branch.statements);
}

void TreeWalk::visitBreak(const Break& node) {
  begin("Break", node.range());
  token(node.token);
  end();
}

void TreeWalk::visitCase(const Case& node) {
  begin("Case", node.range);
  if (const Token* type = std::get_if<Token>(&node.pattern)) {
    token(*type);
  } else {
    walk(std::get<Expression>(node.pattern));
  }
  walkBody("case", node.body);
  end();
}

void TreeWalk::visitContinue(const Continue& node) {
  begin("Continue", node.range());
  token(node.token);
  end();
}

void TreeWalk::visitExpressionBlock(const ExpressionBlock& node) {
  begin("ExpressionBlock", node.range);
  walk(node.expression);
  end();
}

void TreeWalk::visitExpressionStatement(const ExpressionStatement& node) {
  begin("ExpressionStatement", node.range());
  walk(node.expression);
  end();
}

void TreeWalk::visitFor(const For& node) {
  begin("For", node.range);
  visitTuple(node.tuple);
  walk(node.sequence);
  walkBody("body", node.body);
  end();
}

void TreeWalk::visitFunctionDeclaration(const FunctionDeclaration& node) {
  begin("FunctionDeclaration", node.range);
  token(node.name);
  for (const FunctionParameter& parameter : node.parameters) {
    token(parameter.label);
    token(parameter.name);
  }
  walkBody("body", node.body);
  end();
}

void TreeWalk::visitIf(const If& node) {
  begin("If", node.range);
  walkBranch("then", node.mainBranch);
  for (const IfBranch& branch : node.elseIfBranches) walkBranch("else if", branch);
  if (node.elseBranch) walkBranch("else", *node.elseBranch);
  end();
}

void TreeWalk::visitInclude(const Include& node) {
  begin("Include", node.range());
  token(node.include);
  walk(node.file);
  end();
}

void TreeWalk::visitReturn(const Return& node) {
  begin("Return", node.range);
  token(node.keyword);
  if (node.value) walk(*node.value);
  end();
}

void TreeWalk::visitSwitch(const Switch& node) {
  begin("Switch", node.range);
  walk(node.expr);
  for (const Case& clause : node.cases) visitCase(clause);
  walkBody("default", node.defaultBody);
  end();
}

void TreeWalk::visitVariableDeclaration(const VariableDeclaration& node) {
  begin("VariableDeclaration", node.range);
  token(node.name);
  if (node.initializer) walk(*node.initializer);
  end();
}

void TreeWalk::visitVerbatim(const Verbatim& node) {
  begin("Verbatim", node.range);
  detail(node.text);
  end();
}

void TreeWalk::visitWhile(const While& node) {
  begin("While", node.range);
  walk(node.condition);
  walkBody("body", node.body);
  end();
}

void TreeWalk::visitArrayLiteral(const ArrayLiteral& node) {
  identity(node.id);
  begin("ArrayLiteral", node.range);
  for (const Expression& element : node.elements) walk(element);
  end();
}

void TreeWalk::visitAssignment(const Assignment& node) {
  identity(node.id);
  begin("Assignment", node.range);
  token(node.name);
  walk(node.value);
  end();
}

void TreeWalk::visitBinary(const Binary& node) {
  identity(node.id);
  begin("Binary", node.range);
  walk(node.left);
  token(node.operator_);
  walk(node.right);
  end();
}

void TreeWalk::visitCall(const Call& node) {
  identity(node.id);
  begin("Call", node.range);
  walk(node.callee);
  token(node.paren);
  for (const Call::Argument& argument : node.arguments) {
    if (argument.label) token(*argument.label);
    walk(argument.value);
  }
  end();
}

void TreeWalk::visitDictionaryLiteral(const DictionaryLiteral& node) {
  identity(node.id);
  begin("DictionaryLiteral", node.range);
  for (const auto& [key, value] : node.elements) {
    walk(key);
    walk(value);
  }
  end();
}

void TreeWalk::visitGrouping(const Grouping& node) {
  identity(node.id);
  begin("Grouping", node.range);
  walk(node.expression);
  end();
}

void TreeWalk::visitLiteral(const Literal& node) {
  identity(node.id);
  begin("Literal", node.range);
  detail(constantText(node.value));
  end();
}

void TreeWalk::visitLogical(const Logical& node) {
  identity(node.id);
  begin("Logical", node.range);
  walk(node.left);
  token(node.operator_);
  walk(node.right);
  end();
}

void TreeWalk::visitMember(const Member& node) {
  identity(node.id);
  begin("Member", node.range);
  walk(node.object);
  token(node.dot);
  token(node.member);
  end();
}

void TreeWalk::visitTuple(const Tuple& node) {
  identity(node.id);
  begin("Tuple", node.range);
  for (const Token& name : node.names) token(name);
  end();
}

void TreeWalk::visitTypeCheck(const TypeCheck& node) {
  identity(node.id);
  begin("TypeCheck", node.range);
  walk(node.instance);
  token(node.is);
  token(node.type);
  end();
}

void TreeWalk::visitStringExpression(const StringExpression& node) {
  identity(node.id);
  begin("StringExpression", node.range);
  detail(node.literal);
  for (const StringExpression::Interpolation& interpolation : node.interpolations) {
    detail(decimal(interpolation.position));
    walk(interpolation.value);
  }
  end();
}

void TreeWalk::visitSubscript(const Subscript& node) {
  identity(node.id);
  begin("Subscript", node.range);
  walk(node.subscriptee);
  token(node.bracket);
  walk(node.index);
  end();
}

void TreeWalk::visitUnary(const Unary& node) {
  identity(node.id);
  begin("Unary", node.range);
  token(node.operator_);
  walk(node.right);
  end();
}

void TreeWalk::visitVariable(const Variable& node) {
  identity(node.id);
  begin("Variable", node.range);
  token(node.name);
  end();
}

}  // namespace velto::fuzz

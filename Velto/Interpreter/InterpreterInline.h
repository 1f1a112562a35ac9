// What every statement and the plainest expressions run through, kept inline.
#pragma once

#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Platform/Fatal.h"
#include "Velto/Value/DictionaryInline.h"

namespace velto {

/// The same as `statement.accept(*this)`, without the two virtual calls.
[[gnu::always_inline]] inline void Interpreter::execute(const Statement& statement) {
  switch (statement.kind()) {
    case StatementKinds::of<Break>:
      return visitBreak(statement.record<Break>());
    case StatementKinds::of<Case>:
      return visitCase(statement.record<Case>());
    case StatementKinds::of<Continue>:
      return visitContinue(statement.record<Continue>());
    case StatementKinds::of<ExpressionBlock>:
      return visitExpressionBlock(statement.record<ExpressionBlock>());
    case StatementKinds::of<ExpressionStatement>:
      return visitExpressionStatement(statement.record<ExpressionStatement>());
    case StatementKinds::of<For>:
      return visitFor(statement.record<For>());
    case StatementKinds::of<FunctionDeclaration>:
      return visitFunctionDeclaration(statement.record<FunctionDeclaration>());
    case StatementKinds::of<If>:
      return visitIf(statement.record<If>());
    case StatementKinds::of<Include>:
      return visitInclude(statement.record<Include>());
    case StatementKinds::of<Return>:
      return visitReturn(statement.record<Return>());
    case StatementKinds::of<Switch>:
      return visitSwitch(statement.record<Switch>());
    case StatementKinds::of<VariableDeclaration>:
      return visitVariableDeclaration(statement.record<VariableDeclaration>());
    case StatementKinds::of<Verbatim>:
      return visitVerbatim(statement.record<Verbatim>());
    case StatementKinds::of<While>:
      return visitWhile(statement.record<While>());
    default:
      return statement.accept(*this);
  }
}

[[gnu::always_inline]] inline void Interpreter::executeList(const Statements& statements) {
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(statements);
  for (const Statement& statement : statements) {
    execute(statement);
    if (jumps_.areAny()) return;
  }
}

/// Calls of members stand apart, so that they save none of the registers that others need.
[[gnu::always_inline]] inline Value Interpreter::valueOf(const Call& node) {
  const bool isOfMember = node.callee.kind() == ExpressionKinds::of<Member>;
  return isOfMember ? callMember(node, node.callee.record<Member>()) : callValue(node);
}

[[gnu::always_inline]] inline Value Interpreter::evaluate(const Expression& expression) {
  switch (expression.kind()) {
    case ExpressionKinds::of<Literal>:
      return expression.record<Literal>().value;
    case ExpressionKinds::of<Variable>:
      return valueOf(expression.record<Variable>());
    case ExpressionKinds::of<Binary>:
      return valueOf(expression.record<Binary>());
    case ExpressionKinds::of<Subscript>:
      return valueOf(expression.record<Subscript>());
    case ExpressionKinds::of<Call>:
      return valueOf(expression.record<Call>());
    default:
      return evaluateNode(expression);
  }
}

[[gnu::always_inline]] inline Value Interpreter::valueOf(const Return& node) {
  if (!node.value) return Value::nil();
  if (node.value->kind() == ExpressionKinds::of<Variable>) {
    if (const Value* variable = findAtOnce(node.value->record<Variable>())) return *variable;
  }
  return evaluate(*node.value);
}

/// Null for a variable that can't be read, and where it takes more than a few looks: nothing is called, so that whoever
/// asks needs to save no registers.
[[gnu::always_inline]] inline const Value* Interpreter::findAtOnce(const Variable& node) noexcept {
  const Value* value = nullptr;
  if (const Local* const local = locals.findAtOnce(node.id)) {
    value = current().findInPlace(node.name.lexeme, *local);
  } else if (locals.isAbsentAtOnce(node.id)) {
    value = current().findAtOnce(node.name.lexeme, node.place.get());
  }
  return value && !value->isUninitialized() ? value : nullptr;
}

/// The text of a plain string literal, as nearly all keys are; null for any other expression.
[[gnu::always_inline]] inline const String* Interpreter::literalText(const Expression& expression) noexcept {
  if (expression.kind() != ExpressionKinds::of<StringExpression>) return nullptr;
  const auto& string = expression.record<StringExpression>();
  return string.interpolations.empty() ? &string.literal : nullptr;
}

/// The entry of a dictionary that is a variable, where it stands; null where it takes more than a few looks. Nothing
/// runs.
[[gnu::always_inline]] inline const Value* Interpreter::findAtOnce(const Subscript& node) noexcept {
  const String* const key = literalText(node.index);
  if (!key || node.subscriptee.kind() != ExpressionKinds::of<Variable>) return nullptr;
  const Value* const container = findAtOnce(node.subscriptee.record<Variable>());
  const Dictionary* const dictionary = container ? container->dictionary() : nullptr;
  return dictionary ? dictionary->findTextAt(node.entry.get(), *key) : nullptr;
}

/// The same for both kinds of expressions, and null for any other.
[[gnu::always_inline]] inline const Value* Interpreter::findValue(const Expression& expression) noexcept {
  if (expression.kind() == ExpressionKinds::of<Subscript>) return findAtOnce(expression.record<Subscript>());
  if (expression.kind() == ExpressionKinds::of<Variable>) return findAtOnce(expression.record<Variable>());
  return nullptr;
}

inline Value Interpreter::valueOf(const Variable& node) {
  const Value* const value = findAtOnce(node);
  return value ? *value : lookUp(node);
}

[[gnu::always_inline]] inline void Interpreter::store(const Assignment& node, Value value) {
  const Local* const local = locals.find(node.id);
  if (Value* const variable = local ? current().findInPlace(node.name.lexeme, *local) : nullptr) {
    *variable = std::move(value);
  } else if (local) {
    current().assign(node.name, std::move(value), *local);
  } else {
    current().assign(node.name, std::move(value));
  }
}

/// The value of `text = "\(text)..."`, null for any other assignment.
inline const StringExpression* Interpreter::textThatGrows(const Assignment& node) {
  return node.value.kind() == ExpressionKinds::of<StringExpression> ? beginningWithItself(node) : nullptr;
}

/// The number that a literal or a resolved variable is, where it stands; null for all else, and for what isn't found at
/// once. Nothing runs.
[[gnu::always_inline]] inline const double* Interpreter::findNumber(const Expression& expression) noexcept {
  if (expression.kind() == ExpressionKinds::of<Literal>) return expression.record<Literal>().value.number();
  if (expression.kind() != ExpressionKinds::of<Variable>) return nullptr;
  const auto& variable = expression.record<Variable>();
  const Local* const local = locals.findAtOnce(variable.id);
  const Value* const value = local ? current().findInPlace(variable.name.lexeme, *local) : nullptr;
  return value ? value->number() : nullptr;
}

[[gnu::always_inline]] inline void Interpreter::popScope() noexcept {
  if (stack_.hasOnlyOutermost()) [[unlikely]]
    fatalError("The outermost scope can't be popped.");
  if (Ref<Environment> held = stack_.pop()) [[unlikely]]
    survivors_.leave(std::move(held));
}

/// Makes the current scope as good as new. Where somebody else holds it, there has to be another one.
inline void Interpreter::renewScope() {
  Environment& scope = current();
  if (scope.isUnshared()) [[likely]] {
    scope.values.clear();
  } else {
    replaceScope();
  }
}

}  // namespace velto

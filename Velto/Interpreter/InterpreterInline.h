// What every statement and the plainest expressions run through, kept inline.
#pragma once

#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Parser/StatementNodes.h"
#include "Velto/Platform/Fatal.h"
#include "Velto/Value/DictionaryInline.h"

namespace velto {

template <typename Record>
void Interpreter::fail(const NodeOf<Record>& node, Token Record::*token, String message) {
  fail((recordOf(node).*token).range, std::move(message));
}

template <typename Record>
void Interpreter::failExhausted(const NodeOf<Record>& node) {
  failExhausted(rangeOf(node));
}

template <typename Record>
void Interpreter::declare(const NodeOf<Record>& node, const Value& value) {
  if (!current().values.add(node.name, value)) [[unlikely]]
    declareAgain(node, value);
}

/// Refused by `define`, which tells so.
template <typename Record>
void Interpreter::declareAgain(const NodeOf<Record>& node, const Value& value) {
  current().define(recordOf(node).name, value);
}

/// The same as `statement.accept(*this)`, without a record.
[[gnu::always_inline]] inline void Interpreter::execute(const Statement& statement) {
  switch (statement.kind()) {
    case StatementKinds::of<Break>:
      return execute(statement.node<Break>());
    case StatementKinds::of<Case>:
      return;  // it is read by its `switch`
    case StatementKinds::of<Continue>:
      return execute(statement.node<Continue>());
    case StatementKinds::of<ExpressionBlock>:
      return execute(statement.node<ExpressionBlock>());
    case StatementKinds::of<ExpressionStatement>:
      return execute(statement.node<ExpressionStatement>());
    case StatementKinds::of<For>:
      return execute(statement.node<For>());
    case StatementKinds::of<FunctionDeclaration>:
      return execute(statement.node<FunctionDeclaration>());
    case StatementKinds::of<If>:
      return execute(statement.node<If>());
    case StatementKinds::of<Include>:
      return execute(statement.node<Include>());
    case StatementKinds::of<Return>:
      return execute(statement.node<Return>());
    case StatementKinds::of<Switch>:
      return execute(statement.node<Switch>());
    case StatementKinds::of<VariableDeclaration>:
      return execute(statement.node<VariableDeclaration>());
    case StatementKinds::of<Verbatim>:
      return execute(statement.node<Verbatim>());
    case StatementKinds::of<While>:
      return execute(statement.node<While>());
    default:
      return statement.accept(*this);
  }
}

[[gnu::always_inline]] inline void Interpreter::executeList(const StatementList& statements) {
  if (guard_.isExhausted()) [[unlikely]]
    failExhausted(statements);
  for (const Statement& statement : statements) {
    execute(statement);
    if (jumps_.areAny()) return;
  }
}

/// Calls of members stand apart, so that they save none of the registers that others need.
[[gnu::always_inline]] inline Value Interpreter::valueOf(const NodeOf<Call>& node) {
  const bool isOfMember = node.callee.kind() == ExpressionKinds::of<Member>;
  return isOfMember ? callMember(node, node.callee.node<Member>()) : callValue(node);
}

[[gnu::always_inline]] inline Value Interpreter::evaluate(const Expression& expression) {
  switch (expression.kind()) {
    case ExpressionKinds::of<Literal>:
      return expression.node<Literal>().value();
    case ExpressionKinds::of<Variable>:
      return valueOf(expression.node<Variable>());
    case ExpressionKinds::of<Binary>:
      return valueOf(expression.node<Binary>());
    case ExpressionKinds::of<Subscript>:
      return valueOf(expression.node<Subscript>());
    case ExpressionKinds::of<Call>:
      return valueOf(expression.node<Call>());
    default:
      return evaluateNode(expression);
  }
}

[[gnu::always_inline]] inline Value Interpreter::valueOf(const NodeOf<Return>& node) {
  if (!node.value) return Value::nil();
  if (node.value->kind() == ExpressionKinds::of<Variable>) {
    if (const Value* variable = findAtOnce(node.value->node<Variable>())) return *variable;
  }
  return evaluate(*node.value);
}

/// Null for a variable that can't be read, and where it takes more than a few looks: nothing is called, so that whoever
/// asks needs to save no registers.
[[gnu::always_inline]] inline const Value* Interpreter::findAtOnce(const NodeOf<Variable>& node) noexcept {
  const Value* value = nullptr;
  if (const Local* const local = locals.findAtOnce(node.id)) {
    value = current().findInPlace(node.name, *local);
  } else if (locals.isAbsentAtOnce(node.id)) {
    value = current().findAtOnce(node.name, node.place.get());
  }
  return value && !value->isUninitialized() ? value : nullptr;
}

/// The text of a plain string literal, as nearly all keys are; null for any other expression.
[[gnu::always_inline]] inline const String* Interpreter::literalText(const Expression& expression) noexcept {
  if (expression.kind() != ExpressionKinds::of<StringExpression>) return nullptr;
  const auto& string = expression.node<StringExpression>();
  return string.count == 0 ? &string.literal : nullptr;
}

/// The entry of a dictionary that is a variable, where it stands; null where it takes more than a few looks. Nothing
/// runs.
[[gnu::always_inline]] inline const Value* Interpreter::findAtOnce(const NodeOf<Subscript>& node) noexcept {
  const String* const key = literalText(node.index);
  if (!key || node.subscriptee.kind() != ExpressionKinds::of<Variable>) return nullptr;
  const Value* const container = findAtOnce(node.subscriptee.node<Variable>());
  const Dictionary* const dictionary = container ? container->dictionary() : nullptr;
  return dictionary ? dictionary->findTextAt(node.entry.get(), *key) : nullptr;
}

/// The same for both kinds of expressions, and null for any other.
[[gnu::always_inline]] inline const Value* Interpreter::findValue(const Expression& expression) noexcept {
  if (expression.kind() == ExpressionKinds::of<Subscript>) return findAtOnce(expression.node<Subscript>());
  if (expression.kind() == ExpressionKinds::of<Variable>) return findAtOnce(expression.node<Variable>());
  return nullptr;
}

inline Value Interpreter::valueOf(const NodeOf<Variable>& node) {
  const Value* const value = findAtOnce(node);
  return value ? *value : lookUp(node);
}

[[gnu::always_inline]] inline void Interpreter::store(const NodeOf<Assignment>& node, Value value) {
  const Local* const local = locals.find(node.id);
  if (Value* const variable = local ? current().findInPlace(node.name, *local) : nullptr) {
    *variable = std::move(value);
  } else if (local) {
    storeAnew(node, std::move(value), *local);
  } else {
    storeOutward(node, std::move(value));
  }
}

inline bool Interpreter::isEquality(const NodeOf<Binary>& node) noexcept {
  return node.operator_() == TokenType::equal || node.operator_() == TokenType::notEqual;
}

/// The value of `text = "\(text)..."`, null for any other assignment.
inline const NodeOf<StringExpression>* Interpreter::textThatGrows(const NodeOf<Assignment>& node) {
  return node.value.kind() == ExpressionKinds::of<StringExpression> ? beginningWithItself(node) : nullptr;
}

/// The number that a literal or a resolved variable is, where it stands; null for all else, and for what isn't found at
/// once. Nothing runs.
[[gnu::always_inline]] inline const double* Interpreter::findNumber(const Expression& expression) noexcept {
  if (expression.kind() == ExpressionKinds::of<Literal>) return expression.node<Literal>().number();
  if (expression.kind() != ExpressionKinds::of<Variable>) return nullptr;
  const auto& variable = expression.node<Variable>();
  const Local* const local = locals.findAtOnce(variable.id);
  const Value* const value = local ? current().findInPlace(variable.name, *local) : nullptr;
  return value ? value->number() : nullptr;
}

/// `findRange` tells where the comparison stands, if that has to be known.
template <typename FindRange>
bool Interpreter::areSame(const Value& left, const Value& right, const FindRange& findRange) {
  if (!left.isObject() && !right.isObject()) return left == right;
  if (left.string() && right.string()) return *left.string() == *right.string();
  return areEqual(left, right, findRange());
}

template <typename FindRange>
Value Interpreter::evaluateKey(const Expression& expression, const FindRange& findRange) {
  Value key = evaluate(expression);
  if (!key.boolean() && !key.number() && !key.openRange() && !key.closedRange() && !key.string()) {
    fail(findRange(), "Dictionary keys can only be numbers, ranges, booleans or strings.");
  }
  return key;
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

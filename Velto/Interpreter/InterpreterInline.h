// The evaluation of the plainest expressions, kept inline.
#pragma once

#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Platform/Fatal.h"

namespace velto {

[[gnu::always_inline]] inline Value Interpreter::evaluate(const Expression& expression) {
  switch (expression.kind()) {
    case ExpressionKinds::of<Literal>:
      return expression.record<Literal>().value;
    case ExpressionKinds::of<Variable>:
      return valueOf(expression.record<Variable>());
    default:
      return evaluateNode(expression);
  }
}

inline Value Interpreter::valueOf(const Variable& node) {
  return readVariable(node.name, node.id);
}

/// Null for a variable that can't be read, or not so quickly.
inline const Value* Interpreter::findVariable(const Token& name, const Uuid& id) noexcept {
  const Local* const local = locals.find(id);
  const Value* const value = local ? current().findInPlace(name.lexeme, *local) : current().find(name.lexeme);
  return value && !value->isUninitialized() ? value : nullptr;
}

// All the rest is left to another function, so that this one needs no registers saved.
inline Value Interpreter::readVariable(const Token& name, const Uuid& id) {
  const Local* const local = locals.find(id);
  if (local) {
    const Value* const value = current().findInPlace(name.lexeme, *local);
    if (value && !value->isUninitialized()) return *value;
  }
  return lookUpVariable(name, local);
}

[[gnu::always_inline]] inline void Interpreter::store(const Assignment& node, const Value& value) {
  const Local* const local = locals.find(node.id);
  if (Value* const variable = local ? current().findInPlace(node.name.lexeme, *local) : nullptr) {
    *variable = value;
  } else if (local) {
    current().assign(node.name, value, *local);
  } else {
    current().assign(node.name, value);
  }
}

inline void Interpreter::popScope() noexcept {
  if (stack_.size() < 2) fatalError("The outermost scope can't be popped.");
  Ref<Environment> scope = std::move(stack_.back());
  stack_.pop_back();
  if (scope->holderCount() == 1) {
    scopes_.takeBack(std::move(scope));
  } else {
    survivors_.leave(std::move(scope));
  }
}

}  // namespace velto

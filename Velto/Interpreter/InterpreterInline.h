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

inline Value Interpreter::readVariable(const Token& name, const Uuid& id) {
  if (const Local* local = locals.find(id)) {
    const Value* value = current().findInPlace(name.lexeme, *local);
    if (value && !value->isUninitialized()) return *value;
  }
  return lookUpVariable(name, id);
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

#include "Velto/Interpreter/Environment.h"

#include "Velto/Diagnostics/Fail.h"
#include "Velto/Platform/Fatal.h"

namespace velto {

const Environment Environment::nowhere;

Environment::Environment(std::shared_ptr<Logger> logger) : Environment(nullptr, std::move(logger)) {
}

Environment::Environment(Environment* enclosing, std::shared_ptr<Logger> logger)
    : logger_(std::move(logger)), enclosing_(enclosing ? enclosing : outside()), isObserving_(enclosing != nullptr) {
  if (enclosing) enclosing->observe();
}

Environment::~Environment() {
  letGoOfEnclosing();
}

void Environment::define(const String& name, Value value) {
  values.set(name, std::move(value));
}

void Environment::define(const Token& name, const Value& value) {
  if (values.add(name.lexeme, value)) return;
  fail(*logger_, VeltoError::Step::interpret, name.range, "Variable with this name already declared in this scope.");
}

void Environment::assign(const Token& name, Value value) {
  if (Value* present = find(name.lexeme)) {
    *present = std::move(value);
    return;
  }
  failUndefined(name);
}

void Environment::assign(const Token& name, Value value, const Local& local) {
  Bindings& names = ancestor(local.depth).values;
  names.set(name.lexeme, std::move(value));
  local.remember(names.placeOf(name.lexeme));
}

Value Environment::get(const Token& name) const {
  if (const Value* value = find(name.lexeme)) return *value;
  failUndefined(name);
}

Value Environment::get(const Token& name, const Local& local) const {
  const Bindings& names = ancestor(local.depth).values;
  const Value* value = names.find(name.lexeme);
  if (!value) {
    fatalError(String::concatenation({"The scope of a resolved variable doesn't have '", name.lexeme, "'."}));
  }
  local.remember(names.placeOf(name.lexeme));
  return *value;
}

std::optional<Value> Environment::get(const String& name) const {
  if (const Value* value = find(name)) return *value;
  return std::nullopt;
}

const Bindings* Environment::namesWith(const String& name) const {
  for (const Environment* scope = this; scope; scope = scope->enclosing()) {
    if (scope->values.contains(name)) return &scope->values;
  }
  return nullptr;
}

void Environment::clear() noexcept {
  values.clear();
  letGoOfEnclosing();
}

void Environment::letGoOfEnclosing() noexcept {
  const Environment* const enclosing = std::exchange(enclosing_, outside());
  if (std::exchange(isObserving_, false)) enclosing->unobserve();
}

Environment& Environment::ancestor(Int depth) const {
  if (depth < 0) fatalError("The depth of a variable can't be negative.");
  const Environment* scope = this;
  for (; depth > 0; --depth) {
    scope = scope->enclosing();
    if (!scope) fatalError("The scope of a resolved variable has died.");
  }
  return const_cast<Environment&>(*scope);
}

void Environment::failUndefined(const Token& name) const {
  // The message comes from the last scope that the walk reached, which may have lost its link.
  const Environment* last = this;
  while (const Environment* outer = last->enclosing()) last = outer;
  fail(*last->logger_, VeltoError::Step::interpret, name.range,
       String::concatenation({"Undefined variable '", name.lexeme, "'."}));
}

}  // namespace velto

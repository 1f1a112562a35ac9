#include "Velto/Interpreter/ScopeStack.h"

namespace velto {

ScopeStack::ScopeStack(Ref<Environment> outermost, std::shared_ptr<Logger> logger)
    : logger_(std::move(logger)), slots_(2), top_(slots_.data()) {
  *top_ = std::move(outermost);
}

void ScopeStack::push(Ref<Environment> scope) {
  if (&top_[1] == &slots_.back()) grow();
  *++top_ = std::move(scope);
}

/// For a scope that others hold, whose values hold something, or that a host has pushed.
Ref<Environment> ScopeStack::popSlowly() noexcept {
  Ref<Environment> scope = std::move(*top_--);
  if (!scope->isUnshared()) {
    release(*scope);
    return scope;
  }
  // Whatever goes with the names may push scopes meanwhile.
  scope->values.clear();
  if (scope->isReusable_ && !top_[1]) top_[1].swap(scope);
  return nullptr;
}

/// For a scope that leaves the stack, and that others hold.
void ScopeStack::release(Environment& scope) noexcept {
  scope.isReusable_ = false;
  if (scope.isObserving_ || !scope.enclosing()) return;
  scope.enclosing_->observe();
  scope.isObserving_ = true;
}

void ScopeStack::makeNext() {
  if (&top_[1] == &slots_.back()) grow();
  top_[1] = makeRef<Environment>(nullptr, logger_);
  top_[1]->isReusable_ = true;
}

void ScopeStack::grow() {
  const std::size_t height = size() - 1;
  slots_.resize(2 * slots_.size());
  top_ = slots_.data() + height;
}

}  // namespace velto

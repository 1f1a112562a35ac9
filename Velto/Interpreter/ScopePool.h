// Scopes that are made again and again.
#pragma once

#include <memory>

#include "Velto/Interpreter/Environment.h"

namespace [[gnu::visibility("default")]] velto {

/// Gives out new scopes. Nearly every scope ends unseen, with its block; its object and the room for its names then
/// serve the next one. A scope that anybody could still find is never used again.
class ScopePool {
 public:
  explicit ScopePool(std::shared_ptr<Logger> logger) noexcept : logger_(std::move(logger)) {}

  Ref<Environment> make(Environment* enclosing) {
    if (!spares_) return makeRef<Environment>(enclosing, logger_);
    --spareCount_;
    Ref<Environment> scope = std::move(spares_);
    spares_.swap(scope->nextSpare_);
    scope->enclosing_.observeInstead(enclosing);
    return scope;
  }

  /// Takes a scope that the caller alone holds.
  void takeBack(Ref<Environment> scope) noexcept {
    if (scope->isObserved() || scope->values.size() > Bindings::few || spareCount_ == mostSpares) return;
    scope->values.clear();
    scope->enclosing_.observeInstead(nullptr);
    scope->nextSpare_.swap(spares_);
    spares_.swap(scope);
    ++spareCount_;
  }

 private:
  static constexpr std::size_t mostSpares = 256;

  std::shared_ptr<Logger> logger_;
  Ref<Environment> spares_;  // the first of a chain
  std::size_t spareCount_ = 0;
};

}  // namespace velto

// Scopes that are made again and again.
#pragma once

#include <memory>

#include "Velto/Interpreter/Environment.h"

namespace [[gnu::visibility("default")]] velto {

/// Gives out new scopes. Nearly every scope ends unseen, with its block; its object and the room for its names then
/// serve the next one. A scope that anybody could still find is never used again.
///
/// The scope around one that comes from here has to live for as long as that stands on the stack, so that the link
/// needs no counting before `release`.
class ScopePool {
 public:
  explicit ScopePool(std::shared_ptr<Logger> logger) noexcept : logger_(std::move(logger)) {}

  [[gnu::always_inline]] Ref<Environment> make(Environment* enclosing) {
    if (!spares_) [[unlikely]]
      return makeFurther(enclosing);
    --spareCount_;
    Ref<Environment> scope = std::move(spares_);
    spares_.swap(scope->next_);
    scope->enclosing_ = enclosing;
    return scope;
  }

  /// For a scope that leaves the stack, and that others hold.
  static void release(Environment& scope) noexcept {
    if (scope.isObserving_ || !scope.enclosing()) return;
    scope.enclosing_->observe();
    scope.isObserving_ = true;
  }

  /// Takes a scope that the caller alone holds, and that nothing observes.
  [[gnu::always_inline]] void takeBack(Ref<Environment> scope) noexcept {
    if (scope->values.hasTable() || spareCount_ == mostSpares) return;
    scope->values.clear();
    if (scope->isObserving_) scope->letGoOfEnclosing();
    scope->next_.swap(spares_);
    spares_.swap(scope);
    ++spareCount_;
  }

 private:
  static constexpr std::size_t mostSpares = 256;

  [[gnu::noinline]] Ref<Environment> makeFurther(Environment* enclosing) const {
    return makeRef<Environment>(enclosing, logger_);
  }

  std::shared_ptr<Logger> logger_;
  Ref<Environment> spares_;  // the first of a chain
  std::size_t spareCount_ = 0;
};

}  // namespace velto

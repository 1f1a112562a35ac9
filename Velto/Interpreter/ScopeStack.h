// The scopes that a run is in, and those that wait above them to be used again.
#pragma once

#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "Velto/Interpreter/Environment.h"

namespace [[gnu::visibility("default")]] velto {

/// Scopes are made again and again. Nearly every one ends unseen, with its block; its object and the room for its names
/// then stay where they are, and serve the next one at that height. A scope that anybody could still find is never used
/// again.
class ScopeStack {
 public:
  ScopeStack(Ref<Environment> outermost, std::shared_ptr<Logger> logger);
  ScopeStack(const ScopeStack&) = delete;
  ScopeStack& operator=(const ScopeStack&) = delete;

  std::span<const Ref<Environment>> scopes() const noexcept { return {slots_.data(), size()}; }
  std::size_t size() const noexcept { return static_cast<std::size_t>(top_ - slots_.data()) + 1; }
  bool hasOnlyOutermost() const noexcept { return top_ == slots_.data(); }
  const Ref<Environment>& top() const noexcept { return *top_; }
  /// The scope around the current one, which there must be.
  Environment& belowTop() const noexcept { return *top_[-1]; }

  /// Enters a new scope inside `enclosing`.
  [[gnu::always_inline]] void push(Environment* enclosing) {
    if (!top_[1]) [[unlikely]]
      makeNext();
    // `enclosing` has to live for as long as this scope stands here: the link isn't counted before `release`, and
    // nobody reads the one that was left behind in a scope that waits.
    (*++top_)->enclosing_ = enclosing;
  }
  void push(Ref<Environment> scope);

  /// Leaves the current scope, which mustn't be the outermost. It is given to the caller if others hold it; else null.
  [[gnu::always_inline]] Ref<Environment> pop() noexcept {
    Environment& scope = **top_;
    if (scope.isReusable_ && scope.isUnshared() && scope.values.clearIfPlain()) [[likely]] {
      --top_;
      return nullptr;
    }
    return popSlowly();
  }

 private:
  [[gnu::noinline]] Ref<Environment> popSlowly() noexcept;
  static void release(Environment& scope) noexcept;
  [[gnu::noinline]] void makeNext();
  void grow();

  std::shared_ptr<Logger> logger_;
  std::vector<Ref<Environment>> slots_;  // the last one is null, so that a look tells whether there is a next one
  Ref<Environment>* top_;
};

}  // namespace velto

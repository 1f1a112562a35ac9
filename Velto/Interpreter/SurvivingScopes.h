// The scopes that outlive their block because a function that was declared in them does.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

#include "Velto/Interpreter/Environment.h"

namespace [[gnu::visibility("default")]] velto {

/// A function that is stored in the scope that it closes over keeps that scope for ever, by the count alone, and so do
/// two that stand in each other's scopes. Where nobody else can reach them, they are let go, which no program can see:
/// a scope that is reached otherwise, if only as the one around a living scope, lives on as if they still held it.
class SurvivingScopes {
 public:
  SurvivingScopes() noexcept = default;
  SurvivingScopes(const SurvivingScopes&) = delete;
  SurvivingScopes& operator=(const SurvivingScopes&) = delete;
  /// Lets go of the names of all that still live.
  ~SurvivingScopes();

  /// Makes room for `count` scopes. Scopes are left on the way out of a failure too, when there may be no memory.
  void expect(std::size_t count);
  /// Takes note of a scope that has been popped.
  void leave(Ref<Environment> scope) noexcept;

 private:
  struct Keeping;

  static std::uint32_t holdersHere(const Environment& scope) noexcept;
  bool letGo(std::span<const Ref<Environment>> scopes) noexcept;
  void keep(Ref<Environment> scope) noexcept;
  void forgetThoseThatAreGone() noexcept;
  void note(Environment& scope) noexcept;
  void sweep();
  void forgetTheDead();

  static constexpr std::size_t fewest = 64;  // that are worth a look at all of them

  std::vector<WeakRef<Environment>> scopes_;
  std::size_t sweepAt_ = fewest;
  Ref<Environment> kept_;  // the first of a chain, of scopes that were held by some that were let go
  std::size_t keptCount_ = 0;
  std::size_t forgetAt_ = fewest;
  std::unordered_map<const Counted*, Value> opaque_;  // what those held as well, and nobody can look into
};

}  // namespace velto

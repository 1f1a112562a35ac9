#include "Velto/Interpreter/SurvivingScopes.h"

#include <algorithm>
#include <new>
#include <unordered_set>

#include "Velto/Interpreter/HeldFunctions.h"
#include "Velto/Interpreter/UnreachableScopes.h"

namespace velto {

namespace {

/// The function of a scope that stands in that very scope; null for any other value.
const Function* functionOf(const Environment& scope, const Value& value) noexcept {
  const Function* const function = declaredFunction(value);
  return function && function->closure().get() == &scope ? function : nullptr;
}

/// Under how many names of the scope the function stands, counted at the first of them; 0 at all others.
std::uint32_t countAtFirstName(const Environment& scope, const Bindings::Binding& binding, const Function& function) {
  if (function.holderCount() == 1) return 1;
  const auto isSame = [&](const Bindings::Binding& other) { return functionOf(scope, other.value) == &function; };
  const auto bindings = scope.values.bindings();
  const bool isFirst = &*std::find_if(bindings.begin(), bindings.end(), isSame) == &binding;
  return isFirst ? static_cast<std::uint32_t>(std::count_if(bindings.begin(), bindings.end(), isSame)) : 0;
}

/// Whether only functions that stand in the scope itself hold it, and only the scope holds them. `others` of its
/// holders don't count. Most scopes are told by that, and scopes end on the way out of a failure, when there may be no
/// memory.
bool isHeldByItsOwnFunctionsOnly(const Environment& scope, std::uint32_t others) noexcept {
  if (scope.isObserved()) return false;  // a scope inside could still come here
  std::uint32_t functions = 0;
  for (const Bindings::Binding& binding : scope.values.bindings()) {
    const Function* const function = functionOf(scope, binding.value);
    if (!function) continue;
    const std::uint32_t count = countAtFirstName(scope, binding, *function);
    if (count == 0) continue;
    if (count != function->holderCount()) return false;
    ++functions;
  }
  return scope.holderCount() == functions + others;
}

}  // namespace

SurvivingScopes::~SurvivingScopes() {
  for (const WeakRef<Environment>& scope : scopes_) {
    if (const Ref<Environment> alive(scope.get()); alive) alive->values.clear();
  }
  while (kept_) {
    const Ref<Environment> first = std::move(kept_);
    kept_ = std::move(first->next_);
    first->values.clear();
  }
}

void SurvivingScopes::expect(std::size_t count) {
  const std::size_t needed = scopes_.size() + count;
  if (needed > scopes_.capacity()) scopes_.reserve(std::max(needed, 2 * scopes_.capacity()));
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): lets go of it
void SurvivingScopes::leave(Ref<Environment> scope) noexcept {
  if (scope->holderCount() == 1) return;
  if (!isHeldByItsOwnFunctionsOnly(*scope, holdersHere(*scope)) || !letGo({&scope, 1})) note(*scope);
}

/// How often this holds a scope that it has before it: by one reference, and by the chain of those that are kept.
std::uint32_t SurvivingScopes::holdersHere(const Environment& scope) noexcept {
  return scope.isKept_ ? 2 : 1;
}

/// Keeps what the scopes that are let go of have held: by the count alone, it would be held for ever. What doesn't show
/// which functions it holds is kept itself.
struct SurvivingScopes::Keeping {
  static constexpr bool hasKeys = true;
  SurvivingScopes& survivors;
  std::unordered_set<const Object*> entered;

  void visit(const Function& function) {
    const Ref<Environment>& closure = function.closure();
    if (closure && !closure->isGone_ && !closure->isKept_) survivors.keep(closure);
  }
  bool enter(const Value& container) { return entered.insert(containerOf(container)).second; }
  void meet(const Counted& holder, const Value& value) { survivors.opaque_.try_emplace(&holder, value); }
};

/// Empties the scopes, which nobody else can reach. False where memory lacks: then they stay as they are.
bool SurvivingScopes::letGo(std::span<const Ref<Environment>> scopes) noexcept {
  for (const Ref<Environment>& scope : scopes) scope->isGone_ = true;
  try {
    Keeping keeping{*this, {}};
    for (const Ref<Environment>& scope : scopes) {
      for (const Bindings::Binding& binding : scope->values.bindings()) FunctionWalk(keeping).run(binding.value);
    }
  } catch (const std::bad_alloc&) {
    for (const Ref<Environment>& scope : scopes) scope->isGone_ = false;
    return false;
  }
  for (const Ref<Environment>& scope : scopes) scope->values.clear();
  if (keptCount_ >= forgetAt_) forgetThoseThatAreGone();
  return true;
}

void SurvivingScopes::keep(Ref<Environment> scope) noexcept {
  scope->isKept_ = true;
  scope->next_ = std::move(kept_);
  kept_ = std::move(scope);
  ++keptCount_;
}

void SurvivingScopes::forgetThoseThatAreGone() noexcept {
  keptCount_ = 0;
  Ref<Environment> rest = std::move(kept_);
  while (rest) {
    Ref<Environment> scope = std::move(rest);
    rest = std::move(scope->next_);
    if (!scope->isGone_) keep(std::move(scope));
  }
  forgetAt_ = std::max(fewest, 2 * keptCount_);
}

/// A scope that only a host can have kept is not expected. Without memory for it, it stays the host's.
void SurvivingScopes::note(Environment& scope) noexcept try {
  scopes_.emplace_back(&scope);
  if (scopes_.size() + keptCount_ >= sweepAt_) sweep();
} catch (const std::bad_alloc&) {
}

void SurvivingScopes::sweep() {
  forgetTheDead();
  std::vector<ScopeInQuestion> scopes;
  std::unordered_set<const Environment*> noted;
  for (const WeakRef<Environment>& scope : scopes_) {
    noted.insert(scope.get());
    scopes.push_back({Ref<Environment>(scope.get()), holdersHere(*scope.get()), 1});
  }
  for (const Ref<Environment>* scope = &kept_; *scope; scope = &(*scope)->next_) {
    if (!noted.contains(scope->get())) scopes.push_back({*scope, holdersHere(**scope), 0});
  }
  Unreachable found = unreachable(scopes);
  letGo(found.scopes);
  found.scopes.clear();
  scopes.clear();
  forgetThoseThatAreGone();
  forgetTheDead();
  // So that sweeping costs a constant per scope.
  const std::size_t left = scopes_.size() + keptCount_;
  sweepAt_ = left + std::max({fewest, left, found.sizeOfOthers});
}

/// And those that are noted a second time: a scope that a host pushes again is popped again.
void SurvivingScopes::forgetTheDead() {
  std::unordered_set<const Environment*> seen;
  const auto isToGo = [&](const Environment* scope) { return !scope || !seen.insert(scope).second; };
  std::erase_if(scopes_, [&](const WeakRef<Environment>& scope) { return isToGo(scope.get()); });
}

}  // namespace velto

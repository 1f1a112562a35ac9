#include "Velto/Interpreter/SurvivingScopes.h"

#include <algorithm>
#include <new>
#include <unordered_set>

#include "Velto/Interpreter/Function.h"
#include "Velto/Interpreter/UnreachableScopes.h"

namespace velto {

namespace {

/// The function of a scope that stands in that very scope; null for any other value.
const Function* functionOf(const Environment& scope, const Value& value) noexcept {
  const auto* function = dynamic_cast<const Function*>(value.callable());
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

/// Whether only functions that stand in the scope itself hold it, and only the scope holds them. The caller holds it
/// once. Most scopes are told by that, and scopes end on the way out of a failure, when there may be no memory.
bool isHeldByItsOwnFunctionsOnly(const Environment& scope) noexcept {
  constexpr std::uint32_t byTheCaller = 1;
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
  return scope.holderCount() == functions + byTheCaller;
}

}  // namespace

SurvivingScopes::~SurvivingScopes() {
  for (const WeakRef<Environment>& scope : scopes_) {
    if (const Ref<Environment> alive(scope.get()); alive) alive->values.clear();
  }
}

void SurvivingScopes::expect(std::size_t count) {
  const std::size_t needed = scopes_.size() + count;
  if (needed > scopes_.capacity()) scopes_.reserve(std::max(needed, 2 * scopes_.capacity()));
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): lets go of it
void SurvivingScopes::leave(Ref<Environment> scope) noexcept {
  if (scope->holderCount() == 1) return;
  if (isHeldByItsOwnFunctionsOnly(*scope)) {
    scope->values.clear();
  } else {
    note(*scope);
  }
}

/// A scope that only a host can have kept is not expected. Without memory for it, it stays the host's.
void SurvivingScopes::note(Environment& scope) noexcept try {
  scopes_.emplace_back(&scope);
  if (scopes_.size() >= sweepAt_) sweep();
} catch (const std::bad_alloc&) {
}

void SurvivingScopes::sweep() {
  // A scope that a host pushes again is popped again.
  std::unordered_set<const Environment*> seen;
  const auto isToGo = [&](const Environment* scope) { return !scope || !seen.insert(scope).second; };
  std::erase_if(scopes_, [&](const WeakRef<Environment>& scope) { return isToGo(scope.get()); });
  std::vector<Ref<Environment>> alive;
  for (const WeakRef<Environment>& scope : scopes_) alive.emplace_back(scope.get());
  constexpr std::uint32_t byThisList = 1;
  for (const Ref<Environment>& scope : unreachable(alive, byThisList)) scope->values.clear();
  alive.clear();
  std::erase_if(scopes_, [](const WeakRef<Environment>& scope) { return !scope.get(); });
  sweepAt_ = std::max<std::size_t>(64, 2 * scopes_.size());  // so that sweeping costs a constant per scope
}

}  // namespace velto

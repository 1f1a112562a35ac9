#include "Velto/Interpreter/SurvivingScopes.h"

#include <algorithm>
#include <map>

#include "Velto/Interpreter/Function.h"

namespace velto {

namespace {

/// Whether only functions that stand in the scope itself hold it, and only the scope holds them. `holders` and
/// `observers` are the references that the caller knows of.
bool isHeldByItsOwnFunctionsOnly(const Environment& scope, std::uint32_t holders, std::uint32_t observers) {
  if (scope.observerCount() > observers) return false;  // a scope inside could still come here
  std::map<const Function*, std::uint32_t> functions;
  for (const Bindings::Binding& binding : scope.values.bindings()) {
    const auto* function = dynamic_cast<const Function*>(binding.value.callable());
    if (function && function->closure().get() == &scope) ++functions[function];
  }
  return scope.holderCount() == functions.size() + holders &&
         std::all_of(functions.begin(), functions.end(),
                     [](const auto& entry) { return entry.first->holderCount() == entry.second; });
}

}  // namespace

SurvivingScopes::~SurvivingScopes() {
  for (const WeakRef<Environment>& scope : scopes_) {
    if (const Ref<Environment> alive(scope.get()); alive) alive->values.clear();
  }
}

void SurvivingScopes::leave(Ref<Environment> scope) {
  if (scope->holderCount() == 1) return;
  if (isHeldByItsOwnFunctionsOnly(*scope, 1, 0)) {
    scope->values.clear();
    return;
  }
  scopes_.emplace_back(scope.get());
  if (scopes_.size() >= sweepAt_) sweep();
}

void SurvivingScopes::sweep() {
  for (const WeakRef<Environment>& scope : scopes_) {
    const Ref<Environment> alive(scope.get());
    if (alive && isHeldByItsOwnFunctionsOnly(*alive, 1, 1)) alive->values.clear();
  }
  std::erase_if(scopes_, [](const WeakRef<Environment>& scope) { return !scope.get(); });
  sweepAt_ = std::max<std::size_t>(64, 2 * scopes_.size());  // so that sweeping costs a constant per scope
}

}  // namespace velto

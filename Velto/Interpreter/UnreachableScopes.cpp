#include "Velto/Interpreter/UnreachableScopes.h"

#include <unordered_map>
#include <unordered_set>

#include "Velto/Interpreter/HeldFunctions.h"

namespace velto {

namespace {

/// References to scopes and functions are counted, each in its object. What is left of a count when those from the
/// scopes themselves are taken away comes from outside.
class ReachableScopes {
 public:
  explicit ReachableScopes(const std::vector<ScopeInQuestion>& scopes) {
    for (const auto& [scope, holders, observers] : scopes) {
      outside_[scope.get()] = {scope->holderCount() - holders, scope->observerCount() - observers};
    }
    for (const ScopeInQuestion& question : scopes) countFrom(*question.scope);
    for (const auto& [scope, references] : outside_) {
      if (references.holders > 0 || references.observers > 0) reach(scope);
    }
    for (const auto& [function, holders] : holdersOutside_) {
      if (holders > 0) reach(function->closure().get());
    }
    while (!waiting_.empty()) reachFrom(takeNext());
  }

  bool contain(const Environment& scope) const { return reached_.contains(&scope); }

 private:
  struct References {
    std::uint32_t holders;
    std::uint32_t observers;
  };

  template <typename Work>
  static void forEachFunction(const Environment& scope, const Work& work) {
    for (const Bindings::Binding& binding : scope.values.bindings()) {
      if (const Function* const function = declaredFunction(binding.value)) work(*function);
    }
  }

  void countFrom(const Environment& scope) {
    if (const auto outer = outside_.find(scope.enclosing()); outer != outside_.end()) --outer->second.observers;
    forEachFunction(scope, [&](const Function& function) {
      const auto [found, isNew] = holdersOutside_.try_emplace(&function, function.holderCount());
      --found->second;
      const auto closure = outside_.find(function.closure().get());
      if (isNew && closure != outside_.end()) --closure->second.holders;
    });
  }

  void reach(const Environment* scope) {
    if (outside_.contains(scope) && reached_.insert(scope).second) waiting_.push_back(scope);
  }

  const Environment* takeNext() {
    const Environment* const scope = waiting_.back();
    waiting_.pop_back();
    return scope;
  }

  void reachFrom(const Environment* scope) {
    reach(scope->enclosing());
    forEachFunction(*scope, [&](const Function& function) { reach(function.closure().get()); });
  }

  std::unordered_map<const Environment*, References> outside_;
  std::unordered_map<const Function*, std::uint32_t> holdersOutside_;
  std::unordered_set<const Environment*> reached_;
  std::vector<const Environment*> waiting_;
};

}  // namespace

std::vector<Ref<Environment>> unreachable(const std::vector<ScopeInQuestion>& scopes) {
  const ReachableScopes reachable(scopes);
  std::vector<Ref<Environment>> found;
  for (const ScopeInQuestion& question : scopes) {
    if (!reachable.contain(*question.scope)) found.push_back(question.scope);
  }
  return found;
}

}  // namespace velto

#include "Velto/Interpreter/UnreachableScopes.h"

#include <unordered_map>
#include <unordered_set>

#include "Velto/Interpreter/HeldFunctions.h"

namespace velto {

namespace {

/// References to scopes, functions and containers are counted, each in its object. What is left of a count when those
/// that come from the scopes are taken away comes from outside.
class ReachableScopes {
 public:
  explicit ReachableScopes(const std::vector<ScopeInQuestion>& scopes) {
    for (const auto& [scope, holders, observers] : scopes) {
      scopes_[scope.get()] = {scope->holderCount() - holders, scope->observerCount() - observers};
    }
    for (const ScopeInQuestion& question : scopes) countFrom(*question.scope);
    reachFromOutside();
    while (const std::optional<const Environment*> scope = takeLast(waiting_)) reachFrom(**scope);
  }

  bool contain(const Environment& scope) const { return reached_.contains(&scope); }
  std::size_t size() const noexcept { return size_; }

 private:
  struct ScopeReferences {
    std::uint32_t holders;
    std::uint32_t observers;
  };
  struct ContainerReferences {
    const Value* container;
    std::uint32_t holders;
  };

  struct Counting {
    static constexpr bool hasKeys = false;
    ReachableScopes& all;

    void visit(const Function& function) { all.count(function); }
    bool enter(const Value& container) { return all.count(container); }
    void meet(const Counted&, const Value&) noexcept {}  // what it holds is held from outside
  };
  struct Reaching {
    static constexpr bool hasKeys = true;
    ReachableScopes& all;

    void visit(const Function& function) { all.reach(function.closure().get()); }
    bool enter(const Value& container) { return all.reach(container); }
    void meet(const Counted&, const Value&) noexcept {}
  };

  void countFrom(const Environment& scope) {
    if (const auto outer = scopes_.find(scope.enclosing()); outer != scopes_.end()) --outer->second.observers;
    Counting counting{*this};
    for (const Bindings::Binding& binding : scope.values.bindings()) FunctionWalk(counting).run(binding.value);
  }

  void count(const Function& function) {
    const auto [found, isNew] = functions_.try_emplace(&function, function.holderCount());
    --found->second;
    const auto closure = scopes_.find(function.closure().get());
    if (isNew && closure != scopes_.end()) --closure->second.holders;
  }

  /// True at the first reference to the container.
  bool count(const Value& container) {
    const Object* const object = containerOf(container);
    const auto [found, isNew] = containers_.try_emplace(object, ContainerReferences{&container, object->holderCount()});
    --found->second.holders;
    return isNew;
  }

  void reachFromOutside() {
    for (const auto& [scope, references] : scopes_) {
      if (references.holders > 0 || references.observers > 0) reach(scope);
    }
    for (const auto& [function, holders] : functions_) {
      if (holders > 0) reach(function->closure().get());
    }
    for (const auto& [object, references] : containers_) {
      if (references.holders > 0) reachWithin(*references.container);
    }
  }

  void reachFrom(const Environment& scope) {
    reach(scope.enclosing());
    for (const Bindings::Binding& binding : scope.values.bindings()) reachWithin(binding.value);
  }

  void reachWithin(const Value& value) {
    Reaching reaching{*this};
    FunctionWalk(reaching).run(value);
  }

  void reach(const Environment* scope) {
    if (scopes_.contains(scope) && reached_.insert(scope).second) waiting_.push_back(scope);
  }

  /// True the first time that the container is reached.
  bool reach(const Value& container) {
    const bool isNew = entered_.insert(containerOf(container)).second;
    if (isNew) size_ += container.array() ? container.array()->size() : container.dictionary()->size();
    return isNew;
  }

  std::unordered_map<const Environment*, ScopeReferences> scopes_;
  std::unordered_map<const Function*, std::uint32_t> functions_;
  std::unordered_map<const Object*, ContainerReferences> containers_;
  std::unordered_set<const Environment*> reached_;
  std::unordered_set<const Object*> entered_;
  std::size_t size_ = 0;  // of the containers that have been entered
  std::vector<const Environment*> waiting_;
};

}  // namespace

Unreachable unreachable(const std::vector<ScopeInQuestion>& scopes) {
  const ReachableScopes reachable(scopes);
  Unreachable found{{}, reachable.size()};
  for (const ScopeInQuestion& question : scopes) {
    if (!reachable.contain(*question.scope)) found.scopes.push_back(question.scope);
  }
  return found;
}

}  // namespace velto

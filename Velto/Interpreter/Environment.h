// One scope of variables at run time.
#pragma once

#include <memory>
#include <optional>

#include "Velto/Diagnostics/Logger.h"
#include "Velto/Interpreter/Bindings.h"
#include "Velto/Interpreter/Locals.h"
#include "Velto/Platform/Ref.h"
#include "Velto/Scanner/Token.h"
#include "Velto/Value/Value.h"

namespace [[gnu::visibility("default")]] velto {

/// Names and values, with a link to the scope around. A scope is kept alive by `Interpreter::stack` and by each
/// function that was declared in it, and by nothing else: the link is weak, and reads as absent once the outer scope
/// has died. The forms that take a token report their failures and throw `VeltoError`, step `interpret`.
class Environment final : public WeaklyCounted {
 public:
  explicit Environment(std::shared_ptr<Logger> logger);
  Environment(Environment* enclosing, std::shared_ptr<Logger> logger);
  ~Environment() override;

  const std::shared_ptr<Logger>& logger() const noexcept { return logger_; }
  /// Null in the outermost scope and when the outer scope has died.
  Environment* enclosing() const noexcept { return enclosing_->isAlive() ? enclosing_ : nullptr; }

  /// The names of this scope. A name is defined if it stands here, whatever its value.
  Bindings values;

  void define(const String& name, Value value);
  /// Refuses a name that this scope has already.
  void define(const Token& name, const Value& value);
  /// Writes the nearest scope that has the name.
  void assign(const Token& name, Value value);
  /// Writes the scope `depth` links outward, whether or not it has the name.
  void assign(const Token& name, Value value, Int depth) { assign(name, std::move(value), Local{depth}); }
  void assign(const Token& name, Value value, const Local& local);
  /// Reads the nearest scope that has the name.
  Value get(const Token& name) const;
  /// Reads the scope `depth` links outward, which must have the name.
  Value get(const Token& name, Int depth) const { return get(name, Local{depth}); }
  Value get(const Token& name, const Local& local) const;
  /// The same walk as with a token; nothing if no scope has the name.
  std::optional<Value> get(const String& name) const;

  /// The variable of the nearest scope that has the name, or null.
  const Value* find(const String& name) const {
    const std::size_t hash = name.hash();
    const Environment* scope = nullptr;
    for (const Environment* next = this; next != scope; next = scope->enclosing_) {
      scope = next;
      if (const Value* value = scope->values.find(name, hash)) return value;
    }
    return nullptr;
  }
  /// The names of the scope in which that is; null if there is none.
  const Bindings* namesWith(const String& name) const;
  /// The variable, if the name stands at `place` of the first scope that may have it; else null.
  [[gnu::always_inline]] const Value* findAtOnce(const String& name, std::uint32_t place) const noexcept {
    const std::size_t hash = name.knownHash();
    const Environment* scope = nullptr;
    for (const Environment* next = this; next != scope && hash != 0; next = scope->enclosing_) {
      scope = next;
      if (scope->values.mayHave(hash)) return scope->values.findAt(place, name);
    }
    return nullptr;
  }
  Value* find(const String& name) { return const_cast<Value*>(std::as_const(*this).find(name)); }
  /// The variable that `local` tells if it stands where it stood when it was last looked up; else null.
  [[gnu::always_inline]] const Value* findInPlace(const String& name, const Local& local) const noexcept {
    const Environment* scope = this;
    for (std::uint32_t links = local.links; links > 0; --links) scope = scope->enclosing_;
    return scope->values.findAt(local.place, name);
  }
  [[gnu::always_inline]] Value* findInPlace(const String& name, const Local& local) noexcept {
    return const_cast<Value*>(std::as_const(*this).findInPlace(name, local));
  }

 private:
  friend class ScopeStack;
  friend class SurvivingScopes;

  /// Makes `nowhere`.
  Environment() noexcept : enclosing_(this), isObserving_(false) {}

  static const Environment nowhere;
  /// What a link that leads nowhere points to. Nothing is ever written there.
  static Environment* outside() noexcept { return const_cast<Environment*>(&nowhere); }

  void clear() noexcept override;
  void letGoOfEnclosing() noexcept;
  Environment& ancestor(Int depth) const;
  [[noreturn]] void failUndefined(const Token& name) const;

  std::shared_ptr<Logger> logger_;
  /// Never null: where no scope lies around, as around one that has died, it is `nowhere`, which never lives, has no
  /// names and lies within itself. So a walk of any length needs no questions on its way.
  Environment* enclosing_;
  bool isReusable_ = false;  // made by the `ScopeStack`, which nobody else has taken it from
  bool isObserving_;         // whether `enclosing_` counts this; else it lives for as long as this is on the stack
  bool isKept_ = false;      // by `SurvivingScopes`
  bool isGone_ = false;      // let go by `SurvivingScopes`
  Ref<Environment> next_;    // of those that are kept
};

}  // namespace velto

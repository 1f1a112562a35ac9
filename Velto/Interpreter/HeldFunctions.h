// The functions that a scope keeps alive.
#pragma once

#include "Velto/Interpreter/Bindings.h"
#include "Velto/Interpreter/Function.h"
#include "Velto/Value/Walk.h"

namespace velto {

/// The declared function that the value is; null for any other value.
inline const Function* declaredFunction(const Value& value) noexcept {
  const Callable* const callable = value.callable();
  return callable && callable->isDeclared() ? static_cast<const Function*>(callable) : nullptr;
}

/// Gives `work` each declared function that stands among the names or, at any depth, in their arrays and dictionaries.
/// A container without any is remembered as such, so that a large one that many scopes name is walked once.
template <typename Work>
void forEachHeldFunction(const Bindings& names, const Work& work) {
  for (const Bindings::Binding& binding : names.bindings()) {
    const Value& value = binding.value;
    if (isKnownToBePlain(value)) continue;
    bool hasFunction = false;
    allWithin(value, [&](const Value& part) {
      if (const Function* const function = declaredFunction(part)) {
        hasFunction = true;
        work(*function);
      }
      return true;
    });
    if (!hasFunction) rememberAsPlain(value);
  }
}

}  // namespace velto

// The functions that a scope keeps alive.
#pragma once

#include <optional>
#include <vector>

#include "Velto/Interpreter/Function.h"
#include "Velto/Value/Walk.h"

namespace velto {

/// The declared function that the value is; null for any other value.
inline const Function* declaredFunction(const Value& value) noexcept {
  const Callable* const callable = value.callable();
  return callable && callable->isDeclared() ? static_cast<const Function*>(callable) : nullptr;
}

/// The array or dictionary that the value is, which it must be.
inline const Object* containerOf(const Value& value) noexcept {
  const Array* const array = value.array();
  return array ? static_cast<const Object*>(array) : value.dictionary();
}

/// Whether a function may stand inside.
inline bool mayHoldInside(const Value& value) noexcept {
  return isContainer(value) && !isKnownToBePlain(value);
}

/// Goes through a value and all values inside, however deep. `Visitor` tells what for: `visit` gets each declared
/// function, `enter` is asked at each array and dictionary that may hold one whether to go on inside, since what stands
/// in many places is to be gone through once, and `hasKeys` tells whether keys are gone through, too. A container
/// without any function is remembered as such, and not gone through again.
template <typename Visitor>
void visitFunctions(const Value& root, Visitor& visitor) {
  bool isPlain = true;
  std::vector<const Value*> waiting;
  const auto take = [&](const Value& part) {
    if (const Function* const function = declaredFunction(part)) {
      isPlain = false;
      visitor.visit(*function);
    } else if (mayHoldInside(part)) {
      if (visitor.enter(part)) {
        waiting.push_back(&part);
      } else {
        isPlain = false;
      }
    }
  };
  take(root);
  while (const std::optional<const Value*> container = takeLast(waiting)) {
    if (const Array* const array = (*container)->array()) {
      for (const Value& element : array->elements()) take(element);
    } else {
      for (const auto& [key, value] : (*container)->dictionary()->entries()) {
        if (Visitor::hasKeys) take(key);
        isPlain = isPlain && !declaredFunction(key) && !mayHoldInside(key);
        take(value);
      }
    }
  }
  if (isPlain) rememberAsPlain(root);
}

}  // namespace velto

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
class FunctionWalk {
 public:
  explicit FunctionWalk(Visitor& visitor) noexcept : visitor_(visitor) {}

  void run(const Value& root) {
    take(root);
    while (const std::optional<const Value*> container = takeLast(waiting_)) takeParts(**container);
    if (isPlain_) rememberAsPlain(root);
  }

 private:
  void takeParts(const Value& container) {
    if (const Array* const array = container.array()) {
      for (const Value& element : array->elements()) take(element);
      return;
    }
    for (const auto& [key, value] : container.dictionary()->entries()) {
      if (Visitor::hasKeys) take(key);
      isPlain_ = isPlain_ && !declaredFunction(key) && !mayHoldInside(key);
      take(value);
    }
  }

  void take(const Value& part) {
    if (const Function* const function = declaredFunction(part)) {
      isPlain_ = false;
      visitor_.visit(*function);
    } else if (mayHoldInside(part)) {
      enter(part);
    }
  }

  void enter(const Value& container) {
    if (visitor_.enter(container)) {
      waiting_.push_back(&container);
    } else {
      isPlain_ = false;
    }
  }

  Visitor& visitor_;
  std::vector<const Value*> waiting_;
  bool isPlain_ = true;
};

}  // namespace velto

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

/// What may hold a function without showing it, such as a member of an array, a native function or an object of the
/// host's; null for any other value.
inline const Counted* opaqueHolder(const Value& value) noexcept {
  if (const Callable* const callable = value.callable()) {
    return !callable->isDeclared() && callable->mayHoldFunctions() ? callable : nullptr;
  }
  if (!value.isObject() || value.string() || isContainer(value)) return nullptr;
  const Object* const object = value.object();
  return object->mayHoldFunctions() ? object : nullptr;
}

/// Goes through a value and all values inside, however deep. `Visitor` tells what for: `visit` gets each declared
/// function, `enter` is asked at each array and dictionary that may hold one whether to go on inside, since what stands
/// in many places is to be gone through once, `meet` gets what doesn't show what it holds, with or without a container
/// around it, and `hasKeys` tells whether keys are gone through, too. A container without any function is remembered as
/// such, and not gone through again.
template <typename Visitor>
class FunctionWalk {
 public:
  explicit FunctionWalk(Visitor& visitor) noexcept : visitor_(visitor) {}

  void run(const Value& root) {
    take(root);
    while (const std::optional<const Value*> container = takeLast(waiting_)) takeParts(**container);
    if (isContainer(root) && !mayHaveFunctions_) {
      contentsOf(root).set(isOpaque_ ? ContentsMark::Kind::opaque : ContentsMark::Kind::plain);
    }
  }

 private:
  void takeParts(const Value& container) {
    if (const Array* const array = container.array()) {
      for (const Value& element : array->elements()) take(element);
      return;
    }
    for (const auto& [key, value] : container.dictionary()->entries()) {
      takeKey(key);
      take(value);
    }
  }

  void takeKey(const Value& key) {
    if constexpr (Visitor::hasKeys) {
      take(key);
    } else {
      mayHaveFunctions_ = mayHaveFunctions_ || isContainer(key) || declaredFunction(key) || opaqueHolder(key);
    }
  }

  void take(const Value& part) {
    if (const Function* const function = declaredFunction(part)) {
      mayHaveFunctions_ = true;
      visitor_.visit(*function);
    } else if (isContainer(part)) {
      takeContainer(part);
    } else if (const Counted* const holder = opaqueHolder(part)) {
      isOpaque_ = true;
      visitor_.meet(*holder, part);
    }
  }

  void takeContainer(const Value& container) {
    const ContentsMark::Kind contents = contentsOf(container).get();
    if (contents == ContentsMark::Kind::unknown) enter(container);
    if (contents == ContentsMark::Kind::opaque) {
      isOpaque_ = true;
      visitor_.meet(*containerOf(container), container);
    }
  }

  void enter(const Value& container) {
    if (visitor_.enter(container)) {
      waiting_.push_back(&container);
    } else {
      mayHaveFunctions_ = true;
    }
  }

  Visitor& visitor_;
  std::vector<const Value*> waiting_;
  bool mayHaveFunctions_ = false;
  bool isOpaque_ = false;
};

}  // namespace velto

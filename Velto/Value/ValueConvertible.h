// Anything that can turn itself into a `Value`.
#pragma once

#include <concepts>

#include "Velto/Value/Value.h"

namespace [[gnu::visibility("default")]] velto {

/// Values, objects and callables by an `asValue` of their own; booleans, numbers and text by the constructors.
template <typename T>
concept ValueConvertible = requires(const T& host) {
  { host.asValue() } -> std::convertible_to<Value>;
}
|| std::convertible_to<const T&, Value>;

template <ValueConvertible T>
Value asValue(const T& host) {
  if constexpr (std::convertible_to<const T&, Value>) {
    return host;
  } else {
    return host.asValue();
  }
}

}  // namespace velto

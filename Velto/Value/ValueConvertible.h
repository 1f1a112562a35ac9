// Everything that can turn itself into a `Value`.
#pragma once

#include <concepts>

#include "Velto/Value/Value.h"

namespace [[gnu::visibility("default")]] velto {

/// Values, objects and callables by their own `asValue`; booleans, numbers and text as what they are.
template <typename T>
concept ValueConvertible = std::constructible_from<Value, const T&> || requires(const T& host) {
  { host.asValue() } -> std::convertible_to<Value>;
};

template <ValueConvertible T>
Value asValue(const T& host) {
  if constexpr (std::constructible_from<Value, const T&>) {
    return Value(host);
  } else {
    return host.asValue();
  }
}

}  // namespace velto

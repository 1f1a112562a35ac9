// Everything that can turn itself into a `Value`.
#pragma once

#include <concepts>

#include "Velto/Value/Value.h"

namespace [[gnu::visibility("default")]] velto {

/// Values, objects and callables.
template <typename T>
concept SelfConvertible = requires(const T& host) {
  { host.asValue() } -> std::convertible_to<Value>;
};

template <typename T>
concept ValueConvertible = SelfConvertible<T> || std::constructible_from<Value, const T&>;

/// By their own `asValue` if they have one; booleans, numbers, text and records as what they are.
template <ValueConvertible T>
Value asValue(const T& host) {
  if constexpr (SelfConvertible<T>) {
    return host.asValue();
  } else {
    return Value(host);
  }
}

}  // namespace velto

// Generated from model.json. Change the model, not this file.
#pragma once

#include <compare>
#include <cstdint>

namespace library {

/// The key of a record of type `Entity`. Keys of different entities don't mix; 0 stands for a record without a key.
template <typename Entity>
struct Id {
  std::int64_t value = 0;

  explicit operator bool() const noexcept { return value != 0; }

  friend auto operator<=>(const Id&, const Id&) = default;
};

}  // namespace library

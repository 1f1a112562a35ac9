// The kinds of nodes by number.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>

namespace [[gnu::visibility("default")]] velto {

/// Numbers the records of a tree in the order in which they are listed.
template <typename... Records>
struct NodeKinds {
  using Kind = std::uint8_t;

  /// The kind of every record that isn't listed: one of the host's.
  static constexpr Kind other = sizeof...(Records);

  template <typename Record>
  static constexpr Kind of = [] {
    Kind kind = 0;
    const bool isListed = ((std::same_as<Record, Records> || (static_cast<void>(++kind), false)) || ...);
    return isListed ? kind : other;
  }();
};

}  // namespace velto

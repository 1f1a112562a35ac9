// The kinds of nodes by number.
#pragma once

#include <concepts>
#include <cstdint>
#include <type_traits>

namespace [[gnu::visibility("default")]] velto {

/// Numbers the records of a tree in the order in which they are listed.
template <typename... Records>
struct NodeKinds {
  using Kind = std::uint8_t;

  /// The kind of every record that isn't listed: one of the host's.
  static constexpr Kind other = sizeof...(Records);

  template <typename Record>
  static constexpr bool has = (std::same_as<Record, Records> || ...);

  template <typename Record>
  static constexpr Kind of = [] {
    Kind kind = 0;
    const bool isListed = ((std::same_as<Record, Records> || (static_cast<void>(++kind), false)) || ...);
    return isListed ? kind : other;
  }();

  /// Calls `function` with the type of the record that has this kind; false if it is `other`.
  template <typename Function>
  static constexpr bool dispatch(Kind kind, const Function& function) {
    return ((kind == of<Records> && (function(std::type_identity<Records>()), true)) || ...);
  }
};

}  // namespace velto

// Random identities.
#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>

#include "Velto/Platform/String.h"

namespace [[gnu::visibility("default")]] velto {

/// A random (version 4) UUID: each construction draws a fresh one, a copy keeps it.
class Uuid {
 public:
  Uuid();
  /// All bits zero, which is never drawn.
  static constexpr Uuid nil() noexcept { return Uuid(std::array<std::uint64_t, 2>{}); }

  /// No identity that is drawn has nothing but zeros in its first half, where the version stands.
  bool isNil() const noexcept { return halves_[0] == 0; }
  /// One of those that differ from this one, and from one another, in the last bits; that with the number 0 is this
  /// one.
  Uuid sibling(std::uint16_t number) const noexcept { return Uuid({halves_[0], halves_[1] ^ number}); }

  /// 36 characters: upper-case hexadecimal in groups of 8, 4, 4, 4 and 12, joined by hyphens.
  String description() const;
  /// Random in all bits but the highest two, so that any of the lower ones will do for a place in a table.
  std::size_t hash() const noexcept { return static_cast<std::size_t>(halves_[1]); }

  // Written out, since comparing two arrays is a call.
  friend bool operator==(const Uuid& left, const Uuid& right) noexcept {
    return left.halves_[0] == right.halves_[0] && left.halves_[1] == right.halves_[1];
  }

 private:
  constexpr explicit Uuid(std::array<std::uint64_t, 2> halves) noexcept : halves_(halves) {}

  std::array<std::uint64_t, 2> halves_;
};

}  // namespace velto

template <>
struct std::hash<velto::Uuid> {
  std::size_t operator()(const velto::Uuid& id) const noexcept { return id.hash(); }
};

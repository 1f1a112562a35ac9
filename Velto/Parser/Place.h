// Positions within a file in four bytes.
#pragma once

#include <cstdint>

#include "Velto/Forward.h"

namespace velto {

struct Position {
  Int line;
  Int column;

  friend bool operator==(const Position&, const Position&) = default;
};

/// A position of a file of many lines or of long ones: up to line 4,194,303 where columns end with 511, and up to
/// column 524,287 within the first 4,095 lines. Any other is not known.
class Place {
 public:
  constexpr Place() noexcept = default;
  explicit constexpr Place(Position position) noexcept
      : bits_(bitsOf(static_cast<std::uint64_t>(position.line), static_cast<std::uint64_t>(position.column))) {}

  constexpr bool isKnown() const noexcept { return bits_ != 0; }
  /// Of one that is known.
  constexpr Position position() const noexcept {
    const unsigned width = isLong() ? longWidth : usualWidth;
    const std::uint32_t bits = bits_ & ~longFlag;
    return {bits >> width, bits & ((1U << width) - 1)};
  }
  constexpr Position advancedBy(Int columns) const noexcept {
    const auto [line, column] = position();
    return {line, column + columns};
  }

  friend constexpr bool operator==(Place, Place) noexcept = default;

 private:
  static constexpr unsigned usualWidth = 9;
  static constexpr unsigned longWidth = 19;
  static constexpr std::uint32_t longFlag = 1U << 31;

  /// What lies before the beginning of a file is far behind its end here.
  static constexpr std::uint32_t bitsOf(std::uint64_t line, std::uint64_t column) noexcept {
    if (fits(line, column, usualWidth)) return packed(line, column, usualWidth);
    return fits(line, column, longWidth) ? packed(line, column, longWidth) | longFlag : 0;
  }
  static constexpr bool fits(std::uint64_t line, std::uint64_t column, unsigned width) noexcept {
    return (line >> (31 - width) | column >> width) == 0;
  }
  static constexpr std::uint32_t packed(std::uint64_t line, std::uint64_t column, unsigned width) noexcept {
    return static_cast<std::uint32_t>(line << width | column);
  }
  constexpr bool isLong() const noexcept { return (bits_ & longFlag) != 0; }

  std::uint32_t bits_ = 0;
};

}  // namespace velto

// The tokens that leave a list of statements.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "Velto/Diagnostics/Range.h"

namespace [[gnu::visibility("default")]] velto {

/// The `break`, `continue` and `return` that travel outward until somebody takes them. Each is set by itself, and the
/// place of the last one of its kind is kept, for the case that nobody does.
class Jumps {
 public:
  enum class Kind : std::uint8_t { break_, continue_, return_ };

  bool areAny() const noexcept { return set_ != 0; }
  bool has(Kind kind) const noexcept { return (set_ & bit(kind)) != 0; }
  /// Of one that is set.
  const Range& range(Kind kind) const noexcept { return ranges_[static_cast<std::size_t>(kind)]; }

  [[gnu::always_inline]] void set(Kind kind, const Range& range) noexcept {
    set_ |= bit(kind);
    Range& own = ranges_[static_cast<std::size_t>(kind)];
    if (!own.file.isSameAs(range.file)) own.file = range.file;  // nearly always that of the last one
    own.startLine = range.startLine;
    own.startColumn = range.startColumn;
    own.endLine = range.endLine;
    own.endColumn = range.endColumn;
  }
  /// True if it was set.
  bool take(Kind kind) noexcept {
    const bool wasSet = has(kind);
    set_ &= static_cast<std::uint8_t>(~bit(kind));
    return wasSet;
  }

 private:
  static constexpr std::uint8_t bit(Kind kind) noexcept {
    return static_cast<std::uint8_t>(1U << static_cast<unsigned>(kind));
  }

  std::uint8_t set_ = 0;
  std::array<Range, 3> ranges_{Range({}, 1, 1), Range({}, 1, 1), Range({}, 1, 1)};
};

}  // namespace velto

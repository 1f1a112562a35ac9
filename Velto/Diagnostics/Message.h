// A diagnostic: a text, its place and its level.
#pragma once

#include <optional>
#include <string_view>

#include "Velto/Diagnostics/Range.h"

namespace [[gnu::visibility("default")]] velto {

class Message {
 public:
  enum class Level { error, warning, info };

  Message(Level level, String message, Range range) noexcept;

  const Range& range() const noexcept { return range_; }

  /// "a.txt:3:14: error: Expected expression."
  String description() const;

 private:
  Range range_;

 public:
  String message;
  Level level;
};

/// "error", "warning" or "info".
[[gnu::visibility("default")]] std::string_view rawValue(Message::Level level) noexcept;

/// The level with exactly this raw value.
[[gnu::visibility("default")]] std::optional<Message::Level> levelWithRawValue(std::string_view rawValue) noexcept;

}  // namespace velto

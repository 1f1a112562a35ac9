// A diagnostic: a text, its place and its level.
#include "Velto/Diagnostics/Message.h"

#include <utility>

namespace velto {

Message::Message(Level level, String message, Range range) noexcept
    : range_(std::move(range)), message(std::move(message)), level(level) {
}

String Message::description() const {
  return String::concatenation({range_.start().description(), ": ", rawValue(level), ": ", message});
}

std::string_view rawValue(Message::Level level) noexcept {
  switch (level) {
    case Message::Level::error:
      return "error";
    case Message::Level::warning:
      return "warning";
    case Message::Level::info:
      break;
  }
  return "info";
}

std::optional<Message::Level> levelWithRawValue(std::string_view rawValue) noexcept {
  using enum Message::Level;
  for (const Message::Level level : {error, warning, info}) {
    if (velto::rawValue(level) == rawValue) return level;
  }
  return std::nullopt;
}

}  // namespace velto

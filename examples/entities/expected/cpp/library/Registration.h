// Generated from model.json. Change the model, not this file.
#pragma once

#include <chrono>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "library/Id.h"

namespace library {

struct Event;
struct Member;

/// A member's seat at an event.
struct Registration {
  Id<Registration> id;

  /// The event.
  Id<Event> event;

  /// The guest.
  Id<Member> member;

  /// Decides who gets in when seats are short.
  std::chrono::sys_seconds registeredAt{};

  /// Absent until the event is over.
  std::optional<bool> attended;

  friend bool operator==(const Registration&, const Registration&) = default;
};

/// What keeps `registration` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Registration& registration);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Registration& registration);

}  // namespace library

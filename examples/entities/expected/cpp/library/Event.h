// Generated from model.json. Change the model, not this file.
#pragma once

#include <chrono>
#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "library/Id.h"

namespace library {

struct Room;
struct StaffMember;

/// Something that happens in a room at a time.
struct Event {
  Id<Event> id;

  /// Where it happens.
  Id<Room> room;

  /// Who is answerable for it.
  Id<StaffMember> host;

  /// As on the poster.
  std::string title;

  /// A few sentences for the programme.
  std::optional<std::string> summary;

  /// Doors open a quarter of an hour earlier.
  std::chrono::sys_seconds startsAt{};

  /// When the room is free again.
  std::chrono::sys_seconds endsAt{};

  /// Nothing for most.
  std::int64_t admission = 0;

  friend bool operator==(const Event&, const Event&) = default;
};

/// What keeps `event` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Event& event);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Event& event);

}  // namespace library

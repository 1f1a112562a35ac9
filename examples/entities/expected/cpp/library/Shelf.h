// Generated from model.json. Change the model, not this file.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "library/Id.h"

namespace library {

struct Room;
struct Subject;

/// Where copies stand when they are not out.
struct Shelf {
  Id<Shelf> id;

  /// The room that it stands in.
  Id<Room> room;

  /// What is kept there, where that is settled.
  std::optional<Id<Subject>> subject;

  /// The sign at its end, such as "B 12".
  std::string label;

  friend bool operator==(const Shelf&, const Shelf&) = default;
};

/// What keeps `shelf` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Shelf& shelf);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Shelf& shelf);

}  // namespace library

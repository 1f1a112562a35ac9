// Generated from model.json. Change the model, not this file.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "library/Id.h"

namespace library {

struct Branch;

/// A room of a branch, for shelves or for people.
struct Room {
  Id<Room> id;

  /// The building that it is in.
  Id<Branch> branch;

  /// As the floor plan has it.
  std::string name;

  /// How many people may sit there.
  int seats = 0;

  /// Whether it can be reached without a step.
  bool stepFree = true;

  friend bool operator==(const Room&, const Room&) = default;
};

/// What keeps `room` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Room& room);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Room& room);

}  // namespace library

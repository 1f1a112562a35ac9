// Generated from model.json. Change the model, not this file.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "library/Enumerations.h"
#include "library/Id.h"

namespace library {

struct Branch;

/// A stretch of a weekday on which a branch is open.
struct OpeningHour {
  Id<OpeningHour> id;

  /// The branch that is open.
  Id<Branch> branch;

  /// The day, every week.
  Weekday day{};

  /// Minutes since midnight.
  int opensAt = 0;

  /// Minutes since midnight.
  int closesAt = 0;

  friend bool operator==(const OpeningHour&, const OpeningHour&) = default;
};

/// What keeps `openingHour` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const OpeningHour& openingHour);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const OpeningHour& openingHour);

}  // namespace library

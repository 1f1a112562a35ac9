// Generated from model.json. Change the model, not this file.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "library/Id.h"

namespace library {

/// Works that belong together and have an order.
struct Series {
  Id<Series> id;

  /// What all volumes share.
  std::string title;

  friend bool operator==(const Series&, const Series&) = default;
};

/// What keeps `series` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Series& series);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Series& series);

}  // namespace library

// Generated from model.json. Change the model, not this file.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "library/Id.h"

namespace library {

/// Somebody who had a part in a work.
struct Author {
  Id<Author> id;

  /// The name that the catalogue sorts by.
  std::string familyName;

  /// Absent for those known by one name.
  std::optional<std::string> givenName;

  /// Negative before our era.
  std::optional<int> birthYear;

  /// Absent for the living and the unknown.
  std::optional<int> deathYear;

  friend bool operator==(const Author&, const Author&) = default;
};

/// What keeps `author` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Author& author);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Author& author);

}  // namespace library

// Generated from model.json. Change the model, not this file.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "library/Id.h"

namespace library {

/// A house that brings out editions.
struct Publisher {
  Id<Publisher> id;

  /// As on the title page.
  std::string name;

  /// Its seat.
  std::optional<std::string> city;

  /// An address that begins with https.
  std::optional<std::string> website;

  friend bool operator==(const Publisher&, const Publisher&) = default;
};

/// What keeps `publisher` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Publisher& publisher);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Publisher& publisher);

}  // namespace library

// Generated from model.json. Change the model, not this file.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "library/Enumerations.h"
#include "library/Id.h"

namespace library {

struct Publisher;
struct Work;

/// A work as one publisher brought it out in one year.
struct Edition {
  Id<Edition> id;

  /// What it is an edition of.
  Id<Work> work;

  /// Who brought it out.
  Id<Publisher> publisher;

  /// As printed.
  std::string title;

  /// Thirteen digits without hyphens; absent before 1970.
  std::optional<std::string> isbn;

  /// How it is read.
  EditionFormat format{};

  /// The year.
  int published = 0;

  /// The last page number; absent for recordings.
  std::optional<int> pages;

  friend bool operator==(const Edition&, const Edition&) = default;
};

/// What keeps `edition` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Edition& edition);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Edition& edition);

}  // namespace library

// Generated from model.json. Change the model, not this file.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "library/Id.h"

namespace library {

/// A heading of the classification.
struct Subject {
  Id<Subject> id;

  /// The heading above it; absent at the top.
  std::optional<Id<Subject>> broader;

  /// Its place in the classification, such as "Nat 310".
  std::string code;

  /// What the code stands for.
  std::string heading;

  friend bool operator==(const Subject&, const Subject&) = default;
};

/// What keeps `subject` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Subject& subject);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Subject& subject);

}  // namespace library

// Generated from model.json. Change the model, not this file.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "library/Id.h"

namespace library {

struct Subject;
struct Work;

/// A subject that a work treats.
struct Classification {
  Id<Classification> id;

  /// The work.
  Id<Work> work;

  /// One of its subjects.
  Id<Subject> subject;

  friend bool operator==(const Classification&, const Classification&) = default;
};

/// What keeps `classification` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Classification& classification);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Classification& classification);

}  // namespace library

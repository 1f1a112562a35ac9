// Generated from model.json. Change the model, not this file.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "library/Enumerations.h"
#include "library/Id.h"

namespace library {

struct Author;
struct Work;

/// One person's part in one work.
struct Authorship {
  Id<Authorship> id;

  /// The work.
  Id<Work> work;

  /// The person.
  Id<Author> author;

  /// What the person did.
  Contribution contribution = Contribution::author;

  /// The order on the title page.
  int position = 1;

  friend bool operator==(const Authorship&, const Authorship&) = default;
};

/// What keeps `authorship` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Authorship& authorship);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Authorship& authorship);

}  // namespace library

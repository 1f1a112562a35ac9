// Generated from model.json. Change the model, not this file.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "library/Id.h"

namespace library {

struct Series;

/// What an author wrote, whatever it was printed as.
struct Work {
  Id<Work> id;

  /// The series that it is a volume of.
  std::optional<Id<Series>> series;

  /// The title in the language of this library.
  std::string title;

  /// Where it differs.
  std::optional<std::string> originalTitle;

  /// Of the original, as a code of two or three letters.
  std::string language;

  /// The year; negative before our era.
  std::optional<int> firstPublished;

  /// Its number within the series.
  std::optional<int> volume;

  friend bool operator==(const Work&, const Work&) = default;
};

/// What keeps `work` from being stored, a line for each; empty if nothing does.
[[nodiscard]] std::vector<std::string> problems(const Work& work);

/// A few words for a log.
std::ostream& operator<<(std::ostream& output, const Work& work);

}  // namespace library

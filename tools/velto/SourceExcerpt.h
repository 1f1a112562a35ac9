// The source line of a diagnostic, with a caret under its range.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "Velto/Velto.h"

namespace command {

struct SourceExcerpt {
  std::string line;
  std::string marker;  ///< blanks and tabs up to the range, then "^~~~"
};

/// Keeps the texts of the files, since messages come in heaps.
class SourceExcerpts {
 public:
  /// Nothing if there is no such place.
  std::optional<SourceExcerpt> excerpt(const velto::Range& range);

 private:
  const std::optional<velto::String>& textOf(const velto::String& file);

  std::map<velto::String, std::optional<velto::String>> texts_;
};

}  // namespace command

// The source line of a diagnostic, with a caret under its range.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Velto/Velto.h"

namespace command {

struct SourceExcerpt {
  std::string line;
  std::string marker;  ///< blanks and tabs up to the range, then "^~~~"
};

/// Keeps the texts of the files and where their lines start, since messages come in heaps.
class SourceExcerpts {
 public:
  /// Nothing if there is no such place.
  std::optional<SourceExcerpt> excerpt(const velto::Range& range);

 private:
  struct Source {
    velto::String text;
    std::vector<std::size_t> lineStarts;  // none for what can't be read
  };

  static Source read(const velto::String& file);

  std::map<velto::String, Source> sources_;
};

}  // namespace command

// Where the lines and columns of a source text lie in its bytes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Velto/Diagnostics/Range.h"

namespace velto::fuzz {

class SourceMap {
 public:
  /// Walks over the characters of `source`, which must outlive the map.
  explicit SourceMap(std::string_view source);

  std::string_view source() const noexcept { return source_; }
  /// The first and the last byte offset of the range; nothing if one of its ends is no place of the source, or if it
  /// goes backward.
  std::optional<std::pair<std::size_t, std::size_t>> offsets(const Range& range) const;

 private:
  std::optional<std::size_t> offset(Int line, Int column) const;

  std::string_view source_;
  std::vector<std::vector<std::size_t>> lines_;  // the offset at each column
};

/// For messages: "1:2...3:4".
std::string placeOf(const Range& range);

}  // namespace velto::fuzz

#include "support/SourceMap.h"

#include "Velto/Platform/Character.h"

namespace velto::fuzz {

SourceMap::SourceMap(std::string_view source) : source_(source), lines_(1) {
  std::size_t offset = 0;
  while (offset < source.size()) {
    lines_.back().push_back(offset);
    const std::size_t end = nextBoundaryByRules(source, offset);
    if (source.substr(offset, end - offset) == "\n") lines_.emplace_back();
    offset = end;
  }
  lines_.back().push_back(offset);
}

std::optional<std::pair<std::size_t, std::size_t>> SourceMap::offsets(const Range& range) const {
  const auto start = offset(range.startLine, range.startColumn);
  const auto end = offset(range.endLine, range.endColumn);
  if (!start || !end || *start > *end) return std::nullopt;
  return std::pair(*start, *end);
}

std::optional<std::size_t> SourceMap::offset(Int line, Int column) const {
  if (line < 1 || static_cast<std::size_t>(line) > lines_.size()) return std::nullopt;
  const std::vector<std::size_t>& columns = lines_[static_cast<std::size_t>(line) - 1];
  if (column < 1 || static_cast<std::size_t>(column) > columns.size()) return std::nullopt;
  return columns[static_cast<std::size_t>(column) - 1];
}

std::string placeOf(const Range& range) {
  return std::string(String::concatenation({decimal(range.startLine), ":", decimal(range.startColumn), "...",
                                            decimal(range.endLine), ":", decimal(range.endColumn)}));
}

}  // namespace velto::fuzz

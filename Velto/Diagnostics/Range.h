// Positions in source files, and stretches between them.
#pragma once

#include <utility>

#include "Velto/Platform/String.h"

namespace [[gnu::visibility("default")]] velto {

/// One position. Lines and columns count from 1, columns in extended grapheme clusters.
struct Cursor {
  String file;
  Int line;
  Int column;

  /// "a.txt:3:14"
  String description() const;

  friend bool operator==(const Cursor&, const Cursor&) = default;
};

/// The stretch from a position up to another one, which is the first that no longer belongs to it.
struct Range {
  String file;
  Int startLine;
  Int startColumn;
  Int endLine;
  Int endColumn;

  Range(String file, Int startLine, Int startColumn, Int endLine, Int endColumn) noexcept
      : file(std::move(file)), startLine(startLine), startColumn(startColumn), endLine(endLine), endColumn(endColumn) {}
  /// A stretch of no length.
  Range(String file, Int line, Int column) noexcept : Range(std::move(file), line, column, line, column) {}
  /// Both positions must be in one file; anything else is a fatal stop.
  Range(const Cursor& start, const Cursor& end);

  Cursor start() const { return {file, startLine, startColumn}; }
  Cursor end() const { return {file, endLine, endColumn}; }

  /// "a.txt:3...4:14...2": the two lines, then the two columns.
  String description() const;

  friend bool operator==(const Range&, const Range&) = default;
};

/// From the start of `first` to the end of `last`.
[[gnu::visibility("default")]] Range spanning(const Range& first, const Range& last);

}  // namespace velto

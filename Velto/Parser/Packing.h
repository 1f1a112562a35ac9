// How records are made small.
#pragma once

#include "Velto/Parser/Place.h"
#include "Velto/Scanner/Token.h"

namespace velto {

/// How many columns a word takes.
inline Int columnsOf(const String& word) noexcept {
  return word.isASCII() ? static_cast<Int>(word.size()) : word.characterCount();
}

/// How many columns lie between two of a line; -1 where these are none of a file's.
inline Int columnsBetween(Int start, Int end) noexcept {
  return start >= 0 && end >= start ? end - start : -1;
}

/// A position in a file that it doesn't hold; good for as long as what it was taken from.
struct Point {
  Point(const String* file, Position position) noexcept : file(file), position(position) {}
  /// Where a range begins.
  Point(const Range& range) noexcept : Point(&range.file, {range.startLine, range.startColumn}) {}

  const String* file;
  Position position;
};

inline Point startOf(const Range& range) noexcept {
  return range;
}
inline Point endOf(const Range& range) noexcept {
  return {&range.file, {range.endLine, range.endColumn}};
}
inline Point startOf(const Token& token) noexcept {
  return startOf(token.range);
}
inline Point endOf(const Token& token) noexcept {
  return endOf(token.range);
}

/// A range that holds nothing; good for as long as what it was taken from.
struct Stretch {
  Stretch(const String& file, Position start, Position end) noexcept : file(&file), start(start), end(end) {}
  Stretch(const Range& range) noexcept
      : Stretch(range.file, {range.startLine, range.startColumn}, {range.endLine, range.endColumn}) {}
  /// Both must be in one file, as for a `Range`.
  Stretch(const Point& start, const Point& end) noexcept : Stretch(*start.file, start.position, end.position) {
    if (!start.file->isSameAs(*end.file)) [[unlikely]]
      expectOneFile(start, end);
  }

  operator Range() const noexcept { return {*file, start.line, start.column, end.line, end.column}; }

  const String* file;
  Position start;
  Position end;

 private:
  [[gnu::cold]] static void expectOneFile(const Point& start, const Point& end) noexcept;
};

/// Packs what a record of the parser's says of its places, and notices whether they come out again as they went in: a
/// token that has the usual text of its type, say, and ends where that text ends, is told by its beginning. Whatever
/// else a host may have thought of isn't exact.
class Packing {
 public:
  /// For a node that knows this file; null for one that knows none.
  explicit Packing(const String* file) noexcept : file_(file) {}

  bool isExact() const noexcept { return isExact_; }
  void expect(bool isSo) noexcept { isExact_ &= isSo; }

  [[gnu::always_inline]] Place start(const Point& point) noexcept {
    expect(file_ && point.file->isSameAs(*file_));
    return known(point.position);
  }
  Place start(const Stretch& range) noexcept { return start(Point(range.file, range.start)); }
  /// Where a range of this file ends.
  [[gnu::always_inline]] Place end(const Stretch& range) noexcept { return known(range.end); }
  /// The start of a token with the usual text of its type.
  Place usual(const Token& token) noexcept;
  /// The start of a token with a text of its own.
  Place own(const Token& token, TokenType type) noexcept;
  Place name(const Token& token) noexcept { return own(token, TokenType::identifier); }
  /// How many things there are in a list.
  std::uint32_t count(std::int64_t number) noexcept;

 private:
  /// The start of a range that ends so many columns further on.
  [[gnu::always_inline]] Place start(const Range& range, Int columns) noexcept {
    expect(range.startLine == range.endLine && columnsBetween(range.startColumn, range.endColumn) == columns);
    return start(Point(range));
  }
  [[gnu::always_inline]] Place known(Position position) noexcept {
    const Place place(position);
    expect(place.isKnown());
    return place;
  }

  const String* file_;
  bool isExact_ = true;
};

}  // namespace velto

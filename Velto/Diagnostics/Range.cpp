// Positions in source files, and stretches between them.
#include "Velto/Diagnostics/Range.h"

#include "Velto/Platform/Fatal.h"

namespace velto {

String Cursor::description() const {
  return String::concatenation({file, ":", decimal(line), ":", decimal(column)});
}

Range::Range(const Cursor& start, const Cursor& end)
    : Range(start.file, start.line, start.column, end.line, end.column) {
  if (start.file != end.file) fatalError("A range must start and end in the same file.");
}

String Range::description() const {
  return String::concatenation(
      {file, ":", decimal(startLine), "...", decimal(endLine), ":", decimal(startColumn), "...", decimal(endColumn)});
}

Range spanning(const Range& first, const Range& last) {
  if (!first.file.isSameAs(last.file)) return Range(first.start(), last.end());
  return Range(first.file, first.startLine, first.startColumn, last.endLine, last.endColumn);
}

}  // namespace velto

// Where the nodes of a tree stand.
#pragma once

#include "Velto/Parser/Statement.h"
#include "support/SourceMap.h"

namespace velto::fuzz {

/// A node lies within the one that holds it, behind its neighbours, but for three kinds, whose ranges end early: that
/// of a string with its first piece, that of an `if` with its main branch, and that of a `case` with its colon.
void checkRanges(const Statements& statements, const SourceMap& map);

}  // namespace velto::fuzz

// Trees as text.
#pragma once

#include <string>

#include "Velto/Parser/Statement.h"

namespace velto::fuzz {

/// All that the tree holds but for the ids; with or without the places in the source.
std::string dump(const Statements& statements, bool hasRanges);

/// The source of a template that parses to the same tree, but for the places. The tree must come from a source without
/// errors.
std::string sourceText(const Statements& statements);

}  // namespace velto::fuzz

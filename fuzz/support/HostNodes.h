// Trees of nodes that are the host's.
#pragma once

#include "Velto/Parser/Statement.h"

namespace velto::fuzz {

/// The same tree with a node of the host's around each node, which only its visit tells from any other. What runs it
/// can take none of the short ways that it knows for the language's own kinds.
Statements withHostNodes(const Statements& statements);

}  // namespace velto::fuzz

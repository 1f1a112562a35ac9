// Programs made by the grammar.
#pragma once

#include "support/Choices.h"
#include "support/Run.h"

namespace velto::fuzz {

/// A program, a template, a second program and a document, which name one another. All can be parsed.
Files makeProgram(Choices& choices);

}  // namespace velto::fuzz

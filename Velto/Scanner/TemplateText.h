// Stepping over the plain text of a template.
#pragma once

#include "Velto/Scanner/ScannableString.h"

namespace velto {

/// Moves `source` up to the next "<%", or to the end, exactly as `advance()` would, and tells whether all that lies
/// between is ASCII.
bool skipTemplateText(ScannableString& source);

/// The fast part of it: moves over ASCII characters up to one that may open a tag, may be of more than one byte, or may
/// join what follows. Gives false where it doesn't move.
bool skipASCIITemplateText(ScannableString& source) noexcept;

}  // namespace velto

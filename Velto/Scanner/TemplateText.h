// Stepping over the plain text of a template.
#pragma once

#include "Velto/Scanner/ScannableString.h"

namespace velto {

/// Moves `source` up to the next "<%", or to the end, exactly as `advance()` would.
void skipTemplateText(ScannableString& source);

/// The fast part of it: moves over ASCII characters that open no tag, at the speed of a search, or gives false where
/// the next character isn't certainly one.
bool skipASCIITemplateText(ScannableString& source) noexcept;

}  // namespace velto

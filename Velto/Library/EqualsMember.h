// The member `equals` of strings, arrays, dictionaries and ranges.
#pragma once

#include "Velto/Value/Value.h"

namespace velto {

/// Compares its two arguments; the object on which it was read plays no part.
Value equalsMember(const String& name);

}  // namespace velto

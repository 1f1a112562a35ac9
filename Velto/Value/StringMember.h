// The members of strings.
#pragma once

#include <optional>

#include "Velto/Value/Value.h"

namespace velto {

/// The member `name` of `text`: a function that holds the text, or nothing.
std::optional<Value> stringMember(const String& text, const String& name);

}  // namespace velto

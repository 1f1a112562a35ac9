// The members of strings.
#pragma once

#include <optional>

#include "Velto/Value/Value.h"

namespace velto {

/// The member `name` of `text`: a function that holds the text, or nothing.
std::optional<Value> stringMember(const String& text, const String& name);

/// What a call of a member without parameters gives, which can't fail.
using StringForm = String (*)(const String& text);

/// The member `name` without a text, for those who call it on the spot; null if it has parameters, or there is none.
StringForm stringForm(const String& name) noexcept;

}  // namespace velto

// Which of some scopes hold only one another.
#pragma once

#include <vector>

#include "Velto/Interpreter/Environment.h"

namespace velto {

/// Those of `scopes` that nobody outside of them can reach: they are held by functions only that stand in such scopes
/// themselves, and only such scopes lie inside them. Each of `scopes` is held once by the caller, and observed by
/// `observers` of the caller's references. A function within an array or a dictionary counts as held from outside.
std::vector<Ref<Environment>> unreachable(const std::vector<Ref<Environment>>& scopes, std::uint32_t observers);

}  // namespace velto

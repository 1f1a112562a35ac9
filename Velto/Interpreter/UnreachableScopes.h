// Which of some scopes hold only one another.
#pragma once

#include <cstdint>
#include <vector>

#include "Velto/Interpreter/Environment.h"

namespace velto {

/// A scope, and how many of its holders and observers belong to whoever asks: those don't count.
struct ScopeInQuestion {
  Ref<Environment> scope;
  std::uint32_t holders;
  std::uint32_t observers;
};

/// Those of `scopes` that nobody outside of them can reach: they are held by functions only that stand in such scopes
/// themselves, and only such scopes lie inside them. A function within an array or a dictionary counts as held from
/// outside.
std::vector<Ref<Environment>> unreachable(const std::vector<ScopeInQuestion>& scopes);

}  // namespace velto

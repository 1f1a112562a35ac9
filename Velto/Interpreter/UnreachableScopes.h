// Which of some scopes hold only one another.
#pragma once

#include <cstddef>
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

struct Unreachable {
  std::vector<Ref<Environment>> scopes;
  /// How many values stand in the arrays and dictionaries of all others.
  std::size_t sizeOfOthers;
};

/// Those of `scopes` that nobody outside of them can reach: they are held by functions only that stand in such scopes
/// themselves, if within arrays or as values of dictionaries, and only such scopes lie inside them. A function that is
/// the key of a dictionary, or part of one, counts as held from outside: dictionaries may share their keys.
Unreachable unreachable(const std::vector<ScopeInQuestion>& scopes);

}  // namespace velto

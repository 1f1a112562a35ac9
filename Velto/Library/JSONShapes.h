// The kinds of objects in a JSON document.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

#include "Velto/Value/Dictionary.h"
#include "Velto/Value/Value.h"

namespace velto {

/// Makes the dictionaries of one document, whose equal keys are the same in memory. Objects with the same keys in the
/// same order share them, so that each holds nothing but its values.
class JSONShapes {
 public:
  /// The dictionary of an object whose keys and values stand in turn in `parts`, from where they are taken. A repeated
  /// key keeps the place of the first and the value of the last.
  Dictionary take(std::span<Value> parts);

 private:
  static std::size_t hashOfKeys(std::span<const Value> parts) noexcept;
  const Dictionary* find(std::span<const Value> parts, std::size_t hash) const;

  std::unordered_multimap<std::size_t, Dictionary> seen_;  // one of each kind
};

}  // namespace velto

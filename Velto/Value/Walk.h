// The way through a value and all values inside it, however deep, with a stack that doesn't grow with their depth.
#pragma once

#include <algorithm>
#include <vector>

#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"
#include "Velto/Value/Value.h"

namespace velto {

/// Whether other values stand inside: an array or a dictionary of values.
inline bool isContainer(const Value& value) {
  return value.array() || value.dictionary();
}

/// The mark of the array or dictionary that the value is, which it must be.
inline const ContentsMark& contentsOf(const Value& container) {
  const Array* const array = container.array();
  return array ? array->contents : container.dictionary()->contents;
}

template <typename T>
std::optional<T> takeLast(std::vector<T>& waiting) {
  if (waiting.empty()) return std::nullopt;
  const T last = waiting.back();
  waiting.pop_back();
  return last;
}

/// Asks of each element, or of each key and each value, until one answer is false.
template <typename Predicate>
bool allPartsOf(const Value& container, const Predicate& holds) {
  if (const Array* array = container.array()) {
    return std::all_of(array->elements().begin(), array->elements().end(), holds);
  }
  if (const Dictionary* dictionary = container.dictionary()) {
    const Dictionary::Entries entries = dictionary->entries();
    return std::all_of(entries.begin(), entries.end(),
                       [&](const Dictionary::Entry& entry) { return holds(entry.key) && holds(entry.value); });
  }
  return true;
}

/// Asks of `root` and of all values inside, in any order, until one answer is false.
template <typename Predicate>
bool allWithin(const Value& root, const Predicate& holds) {
  if (!holds(root)) return false;
  std::vector<const Value*> waiting;
  const auto take = [&](const Value& part) {
    if (isContainer(part)) waiting.push_back(&part);
    return holds(part);
  };
  std::optional<const Value*> container = &root;
  for (; container; container = takeLast(waiting)) {
    if (!allPartsOf(**container, take)) return false;
  }
  return true;
}

}  // namespace velto

// The hash by which dictionaries find their keys.
#include "Velto/Value/KeyHash.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "Velto/Platform/Wrapping.h"
#include "Velto/Value/IntegerRange.h"
#include "Velto/Value/Walk.h"

namespace velto {

namespace {

/// Each bit of the result depends on all bits of `hash`.
VELTO_WRAPS std::uint64_t mixed(std::uint64_t hash) {
  hash = (hash ^ (hash >> 32)) * 0x9E3779B97F4A7C15u;
  hash = (hash ^ (hash >> 29)) * 0xBF58476D1CE4E5B9u;
  return hash ^ (hash >> 32);
}

bool equalsNothing(const Value& leaf) {
  if (const double* number = leaf.number()) return std::isnan(*number);
  return leaf.isObject() && !leaf.string() && !leaf.openRange() && !leaf.closedRange();
}

VELTO_WRAPS std::uint64_t leafHash(const Value& leaf) {
  if (equalsNothing(leaf)) return unfindable;
  auto hash = static_cast<std::uint64_t>(leaf.hashValue());
  if (const CountableRange* range = leaf.openRange()) hash = mixed(hash) + static_cast<std::uint64_t>(range->lower);
  if (const CountableClosedRange* range = leaf.closedRange()) {
    hash = mixed(hash + 1) + static_cast<std::uint64_t>(range->lower);
  }
  return std::max<std::uint64_t>(hash, unfindable + 1);
}

/// Of a container no more than its size.
std::uint64_t shallowHash(const Value& value) {
  if (const Array* array = value.array()) return 2 * array->size() + 1;
  if (const Dictionary* dictionary = value.dictionary()) return 2 * dictionary->size() + 2;
  return leafHash(value);
}

/// The sum over all values inside a container of their own hash and their place: the index in an array, the key in a
/// dictionary. A sum, because the order of the entries of a dictionary doesn't count.
class ContainerHash {
 public:
  std::uint64_t of(const Value& root) {
    std::optional<Container> container = Container{&root, shallowHash(root)};
    for (; container && isFindable_; container = takeLast(waiting_)) addParts(*container);
    return isFindable_ ? std::max<std::uint64_t>(sum_, unfindable + 1) : unfindable;
  }

 private:
  struct Container {
    const Value* value;
    std::uint64_t place;
  };

  VELTO_WRAPS void addParts(const Container& container) {
    if (const Array* array = container.value->array()) {
      std::uint64_t place = container.place;
      for (const Value& element : array->elements()) add(element, mixed(++place));
    } else {
      for (const Dictionary::Entry& entry : container.value->dictionary()->entries()) {
        add(entry.key, mixed(container.place));
        add(entry.value, mixed(container.place + shallowHash(entry.key)));
      }
    }
  }

  VELTO_WRAPS void add(const Value& part, std::uint64_t place) {
    const std::uint64_t hash = shallowHash(part);
    if (hash == unfindable) isFindable_ = false;
    sum_ += mixed(hash ^ place);
    if (isContainer(part)) waiting_.push_back({&part, mixed(hash + place)});
  }

  std::vector<Container> waiting_;
  std::uint64_t sum_ = 0;
  bool isFindable_ = true;
};

}  // namespace

std::uint64_t keyHash(const Value& key) {
  return isContainer(key) ? ContainerHash().of(key) : leafHash(key);
}

}  // namespace velto

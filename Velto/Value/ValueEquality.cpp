// When two values are equal.
#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "Velto/Value/Array.h"
#include "Velto/Value/Callable.h"
#include "Velto/Value/Dictionary.h"
#include "Velto/Value/IntegerRange.h"
#include "Velto/Value/Value.h"
#include "Velto/Value/Walk.h"

namespace velto {

namespace {

/// Compares two arrays or dictionaries. What stands inside them has to wait, so that depth needs no stack.
class Comparison {
 public:
  bool areEqual(const Value& left, const Value& right) {
    if (!take(left, right)) return false;
    while (const std::optional<Pair> pair = takeLast(waiting_)) {
      if (!takeParts(*pair->first, *pair->second)) return false;
    }
    return true;
  }

 private:
  using Pair = std::pair<const Value*, const Value*>;

  /// False if the two are known to differ.
  bool take(const Value& left, const Value& right) {
    if (!isContainer(left)) return left == right;
    if (!areOfOneSize(left, right)) return false;
    waiting_.emplace_back(&left, &right);
    return true;
  }

  static bool areOfOneSize(const Value& left, const Value& right) {
    if (const Array* array = left.array()) return right.array() && array->size() == right.array()->size();
    return right.dictionary() && left.dictionary()->size() == right.dictionary()->size();
  }

  bool takeParts(const Value& left, const Value& right) {
    return left.array() ? takeElements(*left.array(), *right.array())
                        : takeEntries(*left.dictionary(), *right.dictionary());
  }

  bool takeElements(const Array& left, const Array& right) {
    return std::equal(left.elements().begin(), left.elements().end(), right.elements().begin(), right.elements().end(),
                      [this](const Value& one, const Value& other) { return take(one, other); });
  }

  bool takeEntries(const Dictionary& left, const Dictionary& right) {
    for (std::size_t index = 0; index < left.size(); ++index) {
      const Dictionary::Entry entry = left.entries()[index];
      const std::optional<Dictionary::Entry> counterpart = right.counterpart(left, index);
      if (!counterpart || !take(entry.key, counterpart->key) || !take(entry.value, counterpart->value)) return false;
    }
    return true;
  }

  std::vector<Pair> waiting_;
};

template <typename Bounds>
bool areEqual(const Bounds& left, const Bounds& right) {
  return left.lower == right.lower && left.upper == right.upper;
}

}  // namespace

bool operator==(const Value& left, const Value& right) {
  using Tag = Value::Tag;
  if (left.tag_ != right.tag_) return false;
  switch (left.tag_) {
    case Tag::nil:
    case Tag::uninitialized:
      return true;
    case Tag::boolean:
      return left.boolean_ == right.boolean_;
    case Tag::number:
      return left.number_ == right.number_;
    case Tag::string:
      return left.string_ == right.string_;
    case Tag::array:
    case Tag::dictionary:
      return Comparison().areEqual(left, right);
    case Tag::openRange:
      return areEqual(*left.openRange(), *right.openRange());
    case Tag::closedRange:
      return areEqual(*left.closedRange(), *right.closedRange());
    case Tag::object:
      break;  // no notion of identity: not even with itself
    case Tag::callable:
      return left.callable()->arity() == right.callable()->arity();
  }
  return false;
}

}  // namespace velto

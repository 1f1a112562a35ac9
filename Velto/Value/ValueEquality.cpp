// When two values are equal.
#include "Velto/Value/Array.h"
#include "Velto/Value/Callable.h"
#include "Velto/Value/Dictionary.h"
#include "Velto/Value/IntegerRange.h"
#include "Velto/Value/Value.h"

namespace velto {

namespace {

bool areEqual(const Array& left, const Array& right) {
  return left.elements() == right.elements();
}

bool areEqual(const Dictionary& left, const Dictionary& right) {
  if (left.size() != right.size()) return false;
  for (const Dictionary::Entry& entry : left.entries()) {
    const Value* value = right.find(entry.key);
    if (!value || entry.value != *value) return false;
  }
  return true;
}

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
      return areEqual(*left.array(), *right.array());
    case Tag::dictionary:
      return areEqual(*left.dictionary(), *right.dictionary());
    case Tag::openRange:
      return areEqual(*left.openRange(), *right.openRange());
    case Tag::closedRange:
      return areEqual(*left.closedRange(), *right.closedRange());
    case Tag::object:
      return false;  // no notion of identity: not even with itself
    case Tag::callable:
      return left.callable()->arity() == right.callable()->arity();
  }
  return false;
}

}  // namespace velto

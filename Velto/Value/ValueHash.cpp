// The salts, and the hash of every kind of value.
#include "Velto/Value/ValueHash.h"

#include <bit>
#include <limits>

#include "Velto/Platform/Fatal.h"
#include "Velto/Value/IntegerRange.h"
#include "Velto/Value/Walk.h"

namespace velto {

namespace {

enum class Salted { uninitialized, nil, boolean, number, string, range, array, dictionary, object, callable };

template <Salted kind>
Int salt() {
  static const Int salt = random();
  return salt;
}

Int hashOf(double number) {
  return number == 0 ? 0 : std::bit_cast<Int>(number);  // both zeros are one number
}

Int hashOf(const CountableRange& range) {
  return range.lower ^ range.upper;
}

/// That of the half-open range over the same integers.
Int hashOf(const CountableClosedRange& range) {
  if (range.upper == std::numeric_limits<Int>::max()) {
    fatalError("The hash of a closed range can't be told where its upper bound is the largest integer");
  }
  return range.lower ^ (range.upper + 1);
}

}  // namespace

Int Value::hashValue() const {
  if (!isContainer(*this)) return ownHash();
  Int result = 0;
  allWithin(*this, [&](const Value& value) {
    result ^= value.ownHash();
    return true;
  });
  return result;
}

Int Value::ownHash() const {
  switch (tag_) {
    case Tag::nil:
      return Hash::nil();
    case Tag::uninitialized:
      return Hash::uninitialized();
    case Tag::boolean:
      return Int{boolean_} ^ Hash::boolean();
    case Tag::number:
      return hashOf(number_) ^ Hash::number();
    case Tag::string:
      return static_cast<Int>(string_.hash()) ^ Hash::string();
    case Tag::array:
      return Hash::array();
    case Tag::dictionary:
      return Hash::dictionary();
    case Tag::openRange:
      return hashOf(*openRange()) ^ Hash::range();
    case Tag::closedRange:
      return hashOf(*closedRange()) ^ Hash::range();
    case Tag::object:
      return Hash::object();
    case Tag::callable:
      break;
  }
  return Hash::callable();
}

Int Value::Hash::uninitialized() {
  return salt<Salted::uninitialized>();
}

Int Value::Hash::nil() {
  return salt<Salted::nil>();
}

Int Value::Hash::boolean() {
  return salt<Salted::boolean>();
}

Int Value::Hash::number() {
  return salt<Salted::number>();
}

Int Value::Hash::string() {
  return salt<Salted::string>();
}

Int Value::Hash::range() {
  return salt<Salted::range>();
}

Int Value::Hash::array() {
  return salt<Salted::array>();
}

Int Value::Hash::dictionary() {
  return salt<Salted::dictionary>();
}

Int Value::Hash::object() {
  return salt<Salted::object>();
}

Int Value::Hash::callable() {
  return salt<Salted::callable>();
}

}  // namespace velto

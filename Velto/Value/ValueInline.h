// The operations of `Value` that every evaluation runs through, kept inline; included by Value.h alone.
#pragma once

#include <cstring>
#include <utility>

#include "Velto/Value/Value.h"

namespace [[gnu::visibility("default")]] velto {

inline Value Value::uninitialized() noexcept {
  Value value;
  value.tag_ = Tag::uninitialized;
  return value;
}

// All that a value holds is a pointer at most, so that its bits can be taken over as they are.

[[gnu::always_inline]] inline Value::Value(const Value& other) noexcept {
  copyBits(other);
  if (const Counted* held = this->held()) held->retain();
}

[[gnu::always_inline]] inline Value::Value(Value&& other) noexcept {
  moveBits(other);
  other.tag_ = Tag::nil;
}

[[gnu::always_inline]] inline Value& Value::operator=(const Value& other) noexcept {
  return *this = Value(other);
}

[[gnu::always_inline]] inline Value& Value::operator=(Value&& other) noexcept {
  Value taken(std::move(other));
  const Value before(std::move(*this));  // let go of only after the new value stands
  moveBits(taken);
  taken.tag_ = Tag::nil;
  return *this;
}

[[gnu::always_inline]] inline Value::~Value() {
  if (const Counted* held = this->held()) held->release();
}

[[gnu::always_inline]] inline void Value::copyBits(const Value& other) noexcept {
  // NOLINTNEXTLINE(bugprone-undefined-memory-manipulation): who calls this counts one more holder, or empties `other`
  std::memcpy(static_cast<void*>(this), &other, sizeof(Value));
}

/// In two pieces, as a number has been written a moment before: where one load spans two stores that are still under
/// way, a processor waits until they have arrived.
[[gnu::always_inline]] inline void Value::moveBits(const Value& other) noexcept {
  tag_ = other.tag_;
  std::memcpy(&bits_, &other.bits_, sizeof bits_);
}

inline const Counted* Value::held() const noexcept {
  if (tag_ < Tag::string) return nullptr;
  return tag_ == Tag::string ? string_.storage_.get() : shared_.get();
}

template <typename T>
T* Value::as(Tag tag) const noexcept {
  if (tag_ != tag) return nullptr;
  T* const object = static_cast<T*>(shared_.get());
  if (!object) __builtin_unreachable();  // an empty `Ref` makes `nil`: who has the tag needs no second question
  return object;
}

}  // namespace velto

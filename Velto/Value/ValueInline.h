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
  takeBits(other);
  if (const Counted* held = this->held()) held->retain();
}

[[gnu::always_inline]] inline Value::Value(Value&& other) noexcept {
  takeBits(other);
  other.tag_ = Tag::nil;
}

[[gnu::always_inline]] inline Value& Value::operator=(const Value& other) noexcept {
  return *this = Value(other);
}

[[gnu::always_inline]] inline Value& Value::operator=(Value&& other) noexcept {
  Value taken(std::move(other));
  const Value before(std::move(*this));  // let go of only after the new value stands
  takeBits(taken);
  taken.tag_ = Tag::nil;
  return *this;
}

[[gnu::always_inline]] inline Value::~Value() {
  if (const Counted* held = this->held()) held->release();
}

inline void Value::takeBits(const Value& other) noexcept {
  std::memcpy(static_cast<void*>(this), &other, sizeof(Value));
}

inline const Counted* Value::held() const noexcept {
  if (tag_ < Tag::string) return nullptr;
  return tag_ == Tag::string ? string_.storage_.get() : shared_.get();
}

template <typename T>
T* Value::as(Tag tag) const noexcept {
  return tag_ == tag ? static_cast<T*>(shared_.get()) : nullptr;
}

}  // namespace velto

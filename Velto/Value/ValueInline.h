// The operations of `Value` that every evaluation runs through, kept inline; included by Value.h alone.
#pragma once

#include <new>

#include "Velto/Value/Value.h"

namespace [[gnu::visibility("default")]] velto {

inline Value Value::uninitialized() noexcept {
  Value value;
  value.tag_ = Tag::uninitialized;
  return value;
}

inline Value::Value(const Value& other) noexcept : tag_(other.tag_), number_(0) {
  if (tag_ == Tag::string) {
    new (&string_) String(other.string_);
  } else if (tag_ > Tag::string) {
    new (&shared_) Ref<const Counted>(other.shared_);
  } else if (tag_ == Tag::number) {
    number_ = other.number_;
  } else {
    boolean_ = other.boolean_;
  }
}

inline Value::Value(Value&& other) noexcept : tag_(other.tag_), number_(0) {
  if (tag_ == Tag::string) {
    new (&string_) String(std::move(other.string_));
  } else if (tag_ > Tag::string) {
    new (&shared_) Ref<const Counted>(std::move(other.shared_));
  } else if (tag_ == Tag::number) {
    number_ = other.number_;
  } else {
    boolean_ = other.boolean_;
  }
}

inline Value& Value::operator=(const Value& other) noexcept {
  if (this != &other) {
    Value copy(other);
    *this = std::move(copy);
  }
  return *this;
}

inline Value& Value::operator=(Value&& other) noexcept {
  if (this != &other) {
    Value before(std::move(*this));  // let go of only after the new value stands
    this->~Value();
    new (this) Value(std::move(other));
  }
  return *this;
}

template <typename T>
T* Value::as(Tag tag) const noexcept {
  return tag_ == tag ? static_cast<T*>(shared_.get()) : nullptr;
}

}  // namespace velto

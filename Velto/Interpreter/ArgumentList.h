// The arguments of a call while they are worked out.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <utility>

#include "Velto/Value/Value.h"

namespace velto {

/// At most as many values as it was made for; those of nearly every call stand on the stack.
class ArgumentList {
 public:
  [[gnu::always_inline]] explicit ArgumentList(std::size_t capacity) {
    if (capacity > few) [[unlikely]] {
      more_.reset(new std::byte[capacity * sizeof(Value)]);
      end_ = begin_ = reinterpret_cast<Value*>(more_.get());
    }
  }
  [[gnu::always_inline]] ~ArgumentList() {
    while (end_ != begin_) (--end_)->~Value();
  }
  ArgumentList(const ArgumentList&) = delete;
  ArgumentList& operator=(const ArgumentList&) = delete;

  [[gnu::always_inline]] void add(Value value) noexcept { std::construct_at(end_++, std::move(value)); }
  [[gnu::always_inline]] std::span<const Value> values() const noexcept { return {begin_, end_}; }

 private:
  static constexpr std::size_t few = 4;

  alignas(Value) std::byte few_[few * sizeof(Value)];
  std::unique_ptr<std::byte[]> more_;
  Value* begin_ = reinterpret_cast<Value*>(few_);
  Value* end_ = begin_;
};

}  // namespace velto

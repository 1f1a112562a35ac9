// The arguments of a call while they are worked out.
#pragma once

#include <concepts>
#include <cstddef>
#include <new>
#include <span>

#include "Velto/Value/Value.h"

namespace velto {

/// Stands in memory of the caller's, which has to have room for as many values as are added.
class ArgumentList {
 public:
  /// How many arguments nearly every call can do with: those stand on the stack.
  static constexpr std::size_t few = 4;

  [[gnu::always_inline]] explicit ArgumentList(std::byte* memory) noexcept
      : begin_(reinterpret_cast<Value*>(memory)), end_(begin_) {}
  [[gnu::always_inline]] ~ArgumentList() {
    while (end_ != begin_) (--end_)->~Value();
  }
  ArgumentList(const ArgumentList&) = delete;
  ArgumentList& operator=(const ArgumentList&) = delete;

  /// Adds what `make` returns, which is made where it stays.
  template <std::invocable Make>
  [[gnu::always_inline]] void add(const Make& make) {
    new (end_) Value(make());
    ++end_;
  }
  [[gnu::always_inline]] std::span<const Value> values() const noexcept { return {begin_, end_}; }

 private:
  Value* const begin_;
  Value* end_;
};

}  // namespace velto

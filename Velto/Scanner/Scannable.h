// A forward cursor with one element of look-ahead, and the cursor over arrays.
#pragma once

#include <concepts>
#include <optional>
#include <ranges>
#include <utility>
#include <vector>

#include "Velto/Forward.h"
#include "Velto/Platform/Fatal.h"

namespace [[gnu::visibility("default")]] velto {

/// What every cursor over `T` can do on top of its own `current()` and `advance()`. `Cursor` is the deriving class.
template <typename Cursor, typename T>
class Scannable {
 public:
  using Element = T;
  using Token = T;

  /// Advances over the current element if there is one and the predicate holds for it.
  template <typename Predicate>
  requires(!std::equality_comparable_with<Predicate, T>) bool match(Predicate&& predicate) {
    if (!peekMatch(predicate)) return false;
    self().advance();
    return true;
  }

  /// The same without moving.
  template <typename Predicate>
  requires(!std::equality_comparable_with<Predicate, T>) bool peekMatch(Predicate&& predicate) const {
    const auto current = self().current();
    return current && predicate(*current);
  }

  /// Advances over the current element if it equals one of `tokens`.
  template <typename... Tokens>
  bool match(const Tokens&... tokens) requires(std::equality_comparable_with<Tokens, T>&&...) {
    if (!peekMatch(tokens...)) return false;
    self().advance();
    return true;
  }

  /// The same without moving.
  template <typename... Tokens>
  bool peekMatch(const Tokens&... tokens) const requires(std::equality_comparable_with<Tokens, T>&&...) {
    [[maybe_unused]] const auto current = self().current();
    return current && ((*current == tokens) || ...);
  }

 private:
  Cursor& self() noexcept { return static_cast<Cursor&>(*this); }
  const Cursor& self() const noexcept { return static_cast<const Cursor&>(*this); }
};

/// The cursor over an array of elements. Questions give a pointer into the array, or null where there is no element.
template <typename T>
class ScannableArray : public Scannable<ScannableArray<T>, T> {
 public:
  explicit ScannableArray(std::vector<T> elements) noexcept : elements(std::move(elements)) {}
  /// From any range, in its order.
  template <std::ranges::input_range Elements>
  requires std::convertible_to<std::ranges::range_reference_t<Elements>, T>
  // NOLINTNEXTLINE(bugprone-forwarding-reference-overload): no cursor is a range
  explicit ScannableArray(Elements&& elements) {
    for (auto&& element : elements) this->elements.push_back(std::forward<decltype(element)>(element));
  }

  std::vector<T> elements;
  Int index = 0;

  bool isAtEnd() const noexcept { return index >= count(); }
  const T* current() const noexcept { return at(index); }
  const T* next() const noexcept { return at(index + 1); }
  const T* previous() const noexcept { return at(index - 1); }

  /// Moves on and gives the element that it moved over. At the end it is a fatal stop.
  const T& advance() {
    const T* element = current();
    if (!element) fatalError("A cursor can't move beyond the end of its array.");
    ++index;
    return *element;
  }

 private:
  Int count() const noexcept { return static_cast<Int>(elements.size()); }
  /// A place before the first element is one far behind the last here.
  const T* at(Int position) const noexcept {
    const auto place = static_cast<std::size_t>(position);
    return place < elements.size() ? elements.data() + place : nullptr;
  }
};

}  // namespace velto

// A character: an extended grapheme cluster of a text, and where clusters begin and end.
#pragma once

#include <compare>
#include <cstddef>
#include <iterator>
#include <string_view>

#include "Velto/Forward.h"

namespace [[gnu::visibility("default")]] velto {

/// A view of one extended grapheme cluster; the text that it was taken from must outlive it. "\r\n" is one character,
/// equal to neither "\r" nor "\n". Two characters are equal when their texts are canonically equivalent.
class Character {
 public:
  /// `text` must be exactly one cluster of well-formed UTF-8.
  constexpr Character(std::string_view text) noexcept : text_(text) {}
  constexpr Character(const char* text) noexcept : text_(text) {}

  constexpr std::string_view text() const noexcept { return text_; }
  char32_t firstScalar() const noexcept;

  /// "0" <= the character <= "9" in the order of characters, so "3" with a combining mark is a digit, too.
  bool isDigit() const noexcept;
  bool isValidIdentifierStart() const noexcept;
  bool isValidIdentifierContinuation() const noexcept;

  friend bool operator==(Character left, Character right);
  friend std::strong_ordering operator<=>(Character left, Character right);

 private:
  std::string_view text_;
};

/// `nextBoundary` for any text, by the rules of segmentation alone.
[[gnu::visibility("default")]] std::size_t nextBoundaryByRules(std::string_view text, std::size_t offset) noexcept;

[[gnu::visibility("default")]] bool operator==(Character left, Character right);
[[gnu::visibility("default")]] std::strong_ordering operator<=>(Character left, Character right);

/// The offset in bytes behind the cluster that begins at `offset`, which must be a boundary below `text.size()`.
/// Between two ASCII characters there is always a boundary, CR LF excepted.
inline std::size_t nextBoundary(std::string_view text, std::size_t offset) noexcept {
  const auto isPlain = [&](std::size_t at) { return at == text.size() || static_cast<signed char>(text[at]) >= 0; };
  const bool isAlone = isPlain(offset) && isPlain(offset + 1) && text[offset] != '\r';
  return isAlone ? offset + 1 : nextBoundaryByRules(text, offset);
}

/// `previousBoundary` for any text, by the rules of segmentation alone.
[[gnu::visibility("default")]] std::size_t previousBoundaryByRules(std::string_view text, std::size_t offset) noexcept;

/// The offset in bytes of the cluster that ends at `offset`, which must be a boundary above 0.
inline std::size_t previousBoundary(std::string_view text, std::size_t offset) noexcept {
  const auto isPlain = [&](std::size_t at) { return static_cast<signed char>(text[at]) >= 0; };
  const bool isAlone = isPlain(offset - 1) && text[offset - 1] != '\n' && (offset == 1 || isPlain(offset - 2));
  return isAlone ? offset - 1 : previousBoundaryByRules(text, offset);
}

/// The number of clusters of well-formed UTF-8.
[[gnu::visibility("default")]] Int characterCount(std::string_view text) noexcept;

/// The clusters of a text in order: `for (Character character : Characters(text))`.
class Characters {
 public:
  class Iterator {
   public:
    using value_type = Character;
    using difference_type = std::ptrdiff_t;

    Iterator() noexcept = default;
    Iterator(std::string_view text, std::size_t offset) noexcept : text_(text), offset_(offset), end_(endOf(offset)) {}

    Character operator*() const noexcept { return text_.substr(offset_, end_ - offset_); }
    Iterator& operator++() noexcept {
      offset_ = end_;
      end_ = endOf(offset_);
      return *this;
    }
    Iterator operator++(int) noexcept {
      const Iterator before = *this;
      ++*this;
      return before;
    }

    /// Where the current character begins, in bytes.
    std::size_t offset() const noexcept { return offset_; }

    friend bool operator==(const Iterator& left, const Iterator& right) noexcept {
      return left.offset_ == right.offset_;
    }

   private:
    std::size_t endOf(std::size_t offset) const noexcept {
      return offset < text_.size() ? nextBoundary(text_, offset) : offset;
    }

    std::string_view text_;
    std::size_t offset_ = 0;
    std::size_t end_ = 0;
  };

  explicit Characters(std::string_view text) noexcept : text_(text) {}

  Iterator begin() const noexcept { return {text_, 0}; }
  Iterator end() const noexcept { return {text_, text_.size()}; }

 private:
  std::string_view text_;
};

}  // namespace velto

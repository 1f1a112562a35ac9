// The cursor over source text, which keeps the line and the column.
#pragma once

#include <cstddef>
#include <cstring>
#include <optional>
#include <string_view>
#include <utility>

#include "Velto/Platform/Character.h"
#include "Velto/Platform/String.h"
#include "Velto/Scanner/Scannable.h"

namespace [[gnu::visibility("default")]] velto {

/// Its elements are characters, that is, extended grapheme clusters; they view `string` and are good as long as it is.
class ScannableString : public Scannable<ScannableString, Character> {
 public:
  explicit ScannableString(String string) noexcept : string(std::move(string)) {}

  String string;
  std::size_t index = 0;  ///< offset in bytes, always a boundary between characters
  Int line = 1;
  Int column = 1;

  using Scannable::match;
  using Scannable::peekMatch;
  // A text isn't a character: `matchString` takes texts.
  template <std::convertible_to<std::string_view> Text>
  bool match(const Text&) = delete;
  template <std::convertible_to<std::string_view> Text>
  bool peekMatch(const Text&) const = delete;

  bool isAtEnd() const noexcept { return index >= string.size(); }
  std::optional<Character> current() const noexcept;
  /// The character behind the current one. At the end it is a fatal stop.
  std::optional<Character> next() const;
  /// The character before the cursor. At the start it is a fatal stop.
  std::optional<Character> previous() const;
  /// From the cursor to the end.
  String substring() const { return isAtEnd() ? String() : string.slice(index, string.size() - index); }

  /// Moves over one character and gives it; "\n" starts a new line. At the end it is a fatal stop.
  Character advance() { return isAtPlain() ? advanceByByte() : advanceByRules(); }

  /// Moves over characters of one byte for which `isWanted` holds, up to one that may be of more, and gives them. It
  /// must hold for ASCII without line ends at most.
  template <typename IsWanted>
  std::string_view skipPlain(const IsWanted& isWanted) noexcept;
  /// Moves over blanks, tabs and line feeds, up to one that may be of more than a byte, or is the last character.
  void skipBlanks() noexcept;

  /// Whether the rest begins with these characters, which must be visible ones of ASCII without a second spelling in
  /// Unicode (as ";" and "K" have).
  // In line, so that the few bytes are compared without a call.
  [[gnu::always_inline]] bool isAtASCII(std::string_view text) const noexcept {
    const std::string_view whole = string;
    const std::size_t end = index + text.size();
    return end <= whole.size() && std::memcmp(whole.data() + index, text.data(), text.size()) == 0 &&
           nextBoundary(whole, end - 1) == end;
  }
  /// Moves over them if it does.
  [[gnu::always_inline]] bool matchASCII(std::string_view text) noexcept {
    if (!isAtASCII(text)) return false;
    index += text.size();
    column += static_cast<Int>(text.size());
    return true;
  }

  /// Moves over `text` if the rest begins with its characters. The line stays, whatever `text` holds.
  bool matchString(std::string_view text);
  bool peekMatchString(std::string_view text) const;

 private:
  /// Whether the current character is of ASCII and visible or a blank, with nothing behind it that could join.
  bool isAtPlain() const noexcept {
    const std::string_view text = string;
    return index + 1 < text.size() && text[index] >= ' ' && static_cast<signed char>(text[index + 1]) >= 0;
  }
  Character advanceByByte() noexcept {
    ++column;
    return string.view().substr(index++, 1);
  }
  Character advanceByRules();
  Character characterAt(std::size_t position) const noexcept;
  /// Behind the characters of `text`, if the rest begins with them and there is a rest.
  std::optional<std::size_t> endOfPrefix(std::string_view text) const;
};

template <typename IsWanted>
std::string_view ScannableString::skipPlain(const IsWanted& isWanted) noexcept {
  const std::string_view text = string;
  const std::size_t begin = index;
  std::size_t end = begin;
  while (end < text.size() && isWanted(text[end])) ++end;
  const bool mayGoOn = end > begin && end < text.size() && static_cast<unsigned char>(text[end]) >= 0x80;
  if (mayGoOn) --end;
  index = end;
  column += static_cast<Int>(end - begin);
  return text.substr(begin, end - begin);
}

}  // namespace velto

// The sets of characters that the word routines go by.
#pragma once

#include "Velto/Forward.h"

namespace [[gnu::visibility("default")]] velto {

/// A set of Unicode scalars.
struct CharacterSet {
  bool (*contains)(char32_t scalar) noexcept;
};

/// By general category.
struct CharacterSets {
  static const CharacterSet letters;                 ///< L and M
  static const CharacterSet alphanumerics;           ///< L, M and N
  static const CharacterSet whitespacesAndNewlines;  ///< Z, U+000A to U+000D, U+0085; no tab
  static const CharacterSet uppercaseLetters;        ///< Lu and Lt
  static const CharacterSet lowercaseLetters;        ///< Ll
};

}  // namespace velto

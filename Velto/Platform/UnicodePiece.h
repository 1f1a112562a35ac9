// Texts as ICU takes them.
#pragma once

#include <unicode/stringpiece.h>

#include <cstddef>
#include <cstdint>
#include <new>
#include <string_view>

namespace velto::unicode {

/// ICU counts bytes in 32 bits with a sign. There is no room in it for more, which is told like any lack of memory.
inline icu::StringPiece pieceOf(std::string_view text) {
  constexpr std::size_t longest = INT32_MAX;
  if (text.size() > longest) throw std::bad_alloc();
  return text;
}

}  // namespace velto::unicode

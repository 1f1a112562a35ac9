// Scalars, their classes, case mapping and searches in text.
#pragma once

#include <cstddef>
#include <string_view>

#include "Velto/Platform/String.h"

namespace velto::unicode {

/// The scalar that begins at `offset` of well-formed text; `offset` moves behind it.
char32_t decode(std::string_view text, std::size_t& offset) noexcept;

// Whole strings, with context and without locale: a final sigma is told, "ß" becomes "SS".
String lowercased(const String& text);
String uppercased(const String& text);
void appendLowercased(std::string_view text, StringBuilder& result);
void appendUppercased(std::string_view text, StringBuilder& result);
/// The same by the tables of special cases, for any text.
void appendLowercasedByContext(std::string_view text, StringBuilder& result);
void appendUppercasedByContext(std::string_view text, StringBuilder& result);

// ASCII is compared byte by byte, all else by the scalars of the canonically decomposed texts. `contains` of an empty
// text is false.
bool hasPrefix(const String& text, const String& prefix);
bool hasSuffix(const String& text, const String& suffix);
bool contains(const String& text, const String& part);

constexpr char lowercasedASCII(char character) noexcept {
  return 'A' <= character && character <= 'Z' ? static_cast<char>(character + ('a' - 'A')) : character;
}

constexpr char uppercasedASCII(char character) noexcept {
  return 'a' <= character && character <= 'z' ? static_cast<char>(character - ('a' - 'A')) : character;
}

bool isLetter(char32_t scalar) noexcept;               ///< general categories L and M
bool isAlphanumeric(char32_t scalar) noexcept;         ///< general categories L, M and N
bool isWhitespaceOrNewline(char32_t scalar) noexcept;  ///< general category Z, U+000A to U+000D, U+0085; no tab
bool isUppercaseLetter(char32_t scalar) noexcept;      ///< general categories Lu and Lt
bool isLowercaseLetter(char32_t scalar) noexcept;      ///< general category Ll

enum class ScalarClass { none, whitespaceOrNewline, uppercaseLetter, lowercaseLetter, otherAlphanumeric };

/// All of the above but `isLetter`, by one look into the tables.
ScalarClass scalarClass(char32_t scalar) noexcept;

/// Canonical equivalence of two well-formed texts.
bool areEquivalent(std::string_view left, std::string_view right);
/// The order of the canonically decomposed texts by scalars.
std::strong_ordering compare(std::string_view left, std::string_view right);
/// Equal for equivalent texts.
std::size_t hash(std::string_view text);

}  // namespace velto::unicode

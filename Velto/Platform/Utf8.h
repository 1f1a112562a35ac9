// The bytes of UTF-8: plain ASCII told quickly, scalars read forward and backward.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace velto::utf8 {

constexpr bool isASCII(char byte) noexcept {
  return static_cast<unsigned char>(byte) < 0x80;
}

constexpr bool isContinuation(char byte) noexcept {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// How many bytes at the start are ASCII.
inline std::size_t asciiPrefixLength(std::string_view text) noexcept {
  constexpr std::uint64_t highBits = 0x8080'8080'8080'8080;
  std::size_t length = 0;
  for (std::uint64_t word; length + sizeof word <= text.size(); length += sizeof word) {
    std::memcpy(&word, text.data() + length, sizeof word);
    if (word & highBits) break;
  }
  while (length < text.size() && isASCII(text[length])) ++length;
  return length;
}

inline bool isASCII(std::string_view text) noexcept {
  constexpr std::uint64_t highBits = 0x8080'8080'8080'8080;
  std::uint64_t word = 0;
  if (text.size() < sizeof word) {
    std::uint64_t bits = 0;
    for (const char byte : text) bits |= static_cast<unsigned char>(byte);
    return bits < 0x80;
  }
  // The last word overlaps the one before it, so that no bytes are left over.
  std::uint64_t bits = 0;
  for (std::size_t offset = 0; offset + sizeof word <= text.size(); offset += sizeof word) {
    std::memcpy(&word, text.data() + offset, sizeof word);
    bits |= word;
  }
  std::memcpy(&word, text.data() + text.size() - sizeof word, sizeof word);
  return ((bits | word) & highBits) == 0;
}

/// The scalar that begins at `offset` of well-formed text; `offset` moves behind it.
inline char32_t decode(std::string_view text, std::size_t& offset) noexcept {
  const auto byte = [&]() { return static_cast<unsigned char>(text[offset++]); };
  const char32_t lead = byte();
  if (lead < 0x80) return lead;
  const int length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  char32_t scalar = lead & (0x7Fu >> length);
  for (int left = length - 1; left > 0; --left) scalar = scalar << 6 | (byte() & 0x3Fu);
  return scalar;
}

inline char32_t decodeFirst(std::string_view text) noexcept {
  std::size_t offset = 0;
  return decode(text, offset);
}

/// Where the last scalar before `offset` of well-formed text begins; `offset` must be above 0.
inline std::size_t previousScalar(std::string_view text, std::size_t offset) noexcept {
  do --offset;
  while (isContinuation(text[offset]));
  return offset;
}

void append(char32_t scalar, std::string& text);

/// How many bytes at the start are well-formed.
std::size_t wellFormedPrefixLength(std::string_view text) noexcept;

/// Each maximal part of an ill-formed sequence becomes one U+FFFD.
std::string repaired(std::string_view text);

}  // namespace velto::utf8

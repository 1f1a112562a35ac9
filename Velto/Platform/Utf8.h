// The bytes of UTF-8: plain ASCII told quickly, scalars read forward and backward.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "Velto/Platform/ByteBlock.h"

namespace velto::utf8 {

constexpr bool isASCII(char byte) noexcept {
  return static_cast<unsigned char>(byte) < 0x80;
}

constexpr bool isContinuation(char byte) noexcept {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// How many bytes at the start are ASCII.
inline std::size_t asciiPrefixLength(std::string_view text) noexcept {
  std::size_t length = 0;
  for (ByteBlock bytes; length + 4 * sizeof bytes <= text.size(); length += 4 * sizeof bytes) {
    const char* const place = text.data() + length;
    bytes = blockAt(place) | blockAt(place + 16) | blockAt(place + 32) | blockAt(place + 48);
    if (hasHighBit(bytes)) break;
  }
  while (length + sizeof(ByteBlock) <= text.size() && !hasHighBit(blockAt(text.data() + length))) {
    length += sizeof(ByteBlock);
  }
  while (length < text.size() && isASCII(text[length])) ++length;
  return length;
}

/// The same for less than eight bytes. What is read twice does no harm.
inline bool isShortASCII(std::string_view text) noexcept {
  if (text.size() >= sizeof(std::uint32_t)) {
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
    std::memcpy(&begin, text.data(), sizeof begin);
    std::memcpy(&end, text.data() + text.size() - sizeof end, sizeof end);
    return ((begin | end) & 0x8080'8080) == 0;
  }
  return text.empty() || (isASCII(text.front()) && isASCII(text[text.size() / 2]) && isASCII(text.back()));
}

inline bool isASCII(std::string_view text) noexcept {
  constexpr std::size_t few = 64;
  if (text.size() > few) return asciiPrefixLength(text) == text.size();
  constexpr std::uint64_t highBits = 0x8080'8080'8080'8080;
  std::uint64_t word = 0;
  if (text.size() < sizeof word) return isShortASCII(text);
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

/// How many bytes a scalar has at most.
inline constexpr std::size_t longest = 4;

/// Writes the scalar and gives the end of its bytes.
inline char* write(char32_t scalar, char* end) noexcept {
  const auto byte = [&](char32_t bits) { *end++ = static_cast<char>(bits); };
  const auto continuation = [&](int shift) { byte(0x80 | (scalar >> shift & 0x3F)); };
  if (scalar < 0x80) {
    byte(scalar);
  } else if (scalar < 0x800) {
    byte(0xC0 | scalar >> 6);
    continuation(0);
  } else if (scalar < 0x10000) {
    byte(0xE0 | scalar >> 12);
    continuation(6);
    continuation(0);
  } else {
    byte(0xF0 | scalar >> 18);
    continuation(12);
    continuation(6);
    continuation(0);
  }
  return end;
}

/// How many bytes at the start are well-formed.
std::size_t wellFormedPrefixLength(std::string_view text) noexcept;

/// Each maximal part of an ill-formed sequence becomes one U+FFFD.
std::string repaired(std::string_view text);

}  // namespace velto::utf8

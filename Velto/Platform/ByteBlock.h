// Sixteen bytes that are looked at in one go, by instructions that all processors of 64 bits have.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "Velto/Forward.h"
#include "Velto/Platform/Wrapping.h"

namespace velto {

using ByteBlock [[gnu::vector_size(16)]] = std::uint8_t;

inline ByteBlock blockAt(const char* text) noexcept {
  ByteBlock block;
  std::memcpy(&block, text, sizeof block);
  return block;
}

/// 1 for each byte that equals `wanted`, 0 for all others.
inline ByteBlock countEqual(ByteBlock block, char wanted) noexcept {
  return ByteBlock{} - ByteBlock(block == static_cast<std::uint8_t>(wanted));
}

/// Whether a byte has its highest bit, as those of UTF-8 beyond ASCII have.
inline bool hasHighBit(ByteBlock block) noexcept {
  std::uint64_t words[2];
  std::memcpy(words, &block, sizeof words);
  return ((words[0] | words[1]) & 0x8080'8080'8080'8080) != 0;
}

/// The sum of the bytes, each of which must be below 16.
VELTO_WRAPS inline Int sum(ByteBlock block) noexcept {
  std::uint64_t words[2];
  std::memcpy(words, &block, sizeof words);
  return static_cast<Int>((words[0] + words[1]) * 0x0101'0101'0101'0101 >> 56);
}

}  // namespace velto

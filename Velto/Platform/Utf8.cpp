// Checking, mending and writing UTF-8.
#include "Velto/Platform/Utf8.h"

namespace velto::utf8 {

namespace {

constexpr std::string_view replacement = "\uFFFD";

/// What a lead byte, which isn't ASCII, asks for: how many bytes may follow, and what the first of them may be. The
/// bounds keep out overlong forms, surrogates and what is above U+10FFFF.
struct Lead {
  int trail;
  unsigned char lowest = 0x80;
  unsigned char highest = 0xBF;
};

constexpr Lead leadOf(unsigned char byte) noexcept {
  if (byte < 0xC2) return {-1};
  if (byte < 0xE0) return {1};
  if (byte == 0xE0) return {2, 0xA0, 0xBF};
  if (byte == 0xED) return {2, 0x80, 0x9F};
  if (byte < 0xF0) return {2};
  if (byte == 0xF0) return {3, 0x90, 0xBF};
  if (byte == 0xF4) return {3, 0x80, 0x8F};
  return {byte < 0xF4 ? 3 : -1};
}

/// Moves `offset` over a scalar, or over a maximal ill-formed part, for which it gives false.
bool step(std::string_view text, std::size_t& offset) noexcept {
  auto [trail, lowest, highest] = leadOf(static_cast<unsigned char>(text[offset++]));
  for (; trail > 0; --trail) {
    if (offset == text.size()) return false;
    const auto byte = static_cast<unsigned char>(text[offset]);
    if (byte < lowest || highest < byte) return false;
    lowest = 0x80;
    highest = 0xBF;
    ++offset;
  }
  return trail == 0;
}

}  // namespace

std::size_t wellFormedPrefixLength(std::string_view text) noexcept {
  std::size_t offset = 0;
  while (true) {
    offset += asciiPrefixLength(text.substr(offset));
    const std::size_t start = offset;
    if (offset == text.size() || !step(text, offset)) return start;
    while (offset < text.size() && !isASCII(text[offset])) {
      const std::size_t next = offset;
      if (!step(text, offset)) return next;
    }
  }
}

std::string repaired(std::string_view text) {
  std::string result;
  result.reserve(text.size() + replacement.size());
  while (true) {
    std::size_t offset = wellFormedPrefixLength(text);
    result.append(text.substr(0, offset));
    if (offset == text.size()) return result;
    step(text, offset);
    result.append(replacement);
    text.remove_prefix(offset);
  }
}

}  // namespace velto::utf8

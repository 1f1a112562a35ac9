// Stepping over the plain text of a template.
#include "Velto/Scanner/TemplateText.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace velto {

namespace {

/// How far a step looks ahead, so that the way to the next tag is never searched over and over.
constexpr std::size_t window = 4096;

std::size_t endOfASCII(std::string_view text, std::size_t begin, std::size_t end) noexcept {
  std::size_t position = begin;
  for (std::uint64_t bytes; position + sizeof bytes <= end; position += sizeof bytes) {
    std::memcpy(&bytes, text.data() + position, sizeof bytes);
    if ((bytes & 0x8080'8080'8080'8080) != 0) break;
  }
  while (position < end && (static_cast<unsigned char>(text[position]) & 0x80) == 0) ++position;
  return position;
}

/// The end of the ASCII characters from `begin` on that certainly end before the text behind them begins: what comes
/// next may combine with the last one.
std::size_t endOfASCIICharacters(const String& string, std::size_t begin) noexcept {
  const std::string_view text = string;
  const std::size_t limit = std::min(text.size(), begin + window);
  std::size_t end = string.isASCII() ? limit : endOfASCII(text, begin, limit);
  if (end == text.size()) return end;
  if (end > begin) --end;
  if (end > begin && text[end - 1] == '\r') --end;
  return end;
}

/// The first "<" from `begin` on that "%" follows, or `end`.
std::size_t findTagOpening(std::string_view text, std::size_t begin, std::size_t end) noexcept {
  for (std::size_t position = begin; position < end; ++position) {
    const void* found = std::memchr(text.data() + position, '<', end - position);
    if (!found) break;
    position = static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
    if (position + 1 < text.size() && text[position + 1] == '%') return position;
  }
  return end;
}

/// Moves over ASCII text up to `end`.
void skipASCII(ScannableString& source, std::size_t end) noexcept {
  const std::string_view text = source.string;
  const std::size_t begin = source.index;
  while (const void* found = std::memchr(text.data() + source.index, '\n', end - source.index)) {
    const auto newline = static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
    if (newline > begin && text[newline - 1] == '\r') {
      source.column += static_cast<Int>(newline - source.index);  // one character with the "\r", and no line end
    } else {
      ++source.line;
      source.column = 1;
    }
    source.index = newline + 1;
  }
  source.column += static_cast<Int>(end - source.index);
  source.index = end;
}

/// Most characters are told by their first byte alone: no other scalar is equivalent to "<".
bool isAtTagOpening(const ScannableString& source) noexcept {
  return source.string.view()[source.index] == '<' && source.peekMatchString("<%");
}

}  // namespace

void skipTemplateText(ScannableString& source) {
  while (!source.isAtEnd() && !isAtTagOpening(source)) {
    if (!skipASCIITemplateText(source)) source.advance();
  }
}

bool skipASCIITemplateText(ScannableString& source) noexcept {
  const std::size_t begin = source.index;
  const std::size_t end = findTagOpening(source.string, begin, endOfASCIICharacters(source.string, begin));
  if (end == begin) return false;
  skipASCII(source, end);
  return true;
}

}  // namespace velto

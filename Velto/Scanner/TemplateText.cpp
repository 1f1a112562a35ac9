// Stepping over the plain text of a template.
#include "Velto/Scanner/TemplateText.h"

#include <algorithm>
#include <cstring>

#include "Velto/Platform/ByteBlock.h"
#include "Velto/Platform/Utf8.h"

namespace velto {

namespace {

/// How far a step looks ahead, so that the way to the next tag is never searched over and over. Between characters
/// beyond ASCII it looks no further than to the next of them.
std::size_t searchedSize(std::string_view text) noexcept {
  constexpr std::size_t few = 64;
  constexpr std::size_t many = 4096;
  const std::size_t ascii = utf8::asciiPrefixLength(text.substr(0, few));
  return ascii < few ? ascii : std::min(text.size(), many);
}

/// The first "<" from `begin` on that "%" follows, or `end`. Texts have fewer "%" than "<".
std::size_t findTagOpening(std::string_view text, std::size_t begin, std::size_t end) noexcept {
  const std::size_t last = std::min(end + 1, text.size());
  for (std::size_t position = begin + 1; position < last; ++position) {
    const void* found = std::memchr(text.data() + position, '%', last - position);
    if (!found) break;
    position = static_cast<std::size_t>(static_cast<const char*>(found) - text.data());
    if (text[position - 1] == '<') return position - 1;
  }
  return end;
}

/// ASCII text at the start of another one.
struct Lines {
  std::size_t size = 0;
  Int lineFeeds = 0;

  explicit Lines(std::string_view text) noexcept {
    skipBlocks<4>(text);
    skipBlocks<1>(text);
    for (; size < text.size() && utf8::isASCII(text[size]); ++size) lineFeeds += text[size] == '\n';
  }

 private:
  /// Goes over pieces of `count` blocks.
  template <std::size_t count>
  void skipBlocks(std::string_view text) noexcept {
    constexpr std::size_t pieceSize = count * sizeof(ByteBlock);
    for (; size + pieceSize <= text.size(); size += pieceSize) {
      ByteBlock bytes{};
      ByteBlock feeds{};
      for (std::size_t offset = 0; offset < pieceSize; offset += sizeof(ByteBlock)) {
        const ByteBlock block = blockAt(text.data() + size + offset);
        bytes |= block;
        feeds += countEqual(block, '\n');
      }
      if (hasHighBit(bytes)) return;
      lineFeeds += sum(feeds);
    }
  }
};

/// What stands behind the last line feed, of which there must be one.
std::string_view lastLine(std::string_view text) noexcept {
  std::size_t begin = text.size();
  while (begin >= sizeof(ByteBlock)) {
    const ByteBlock feeds = countEqual(blockAt(text.data() + begin - sizeof(ByteBlock)), '\n');
    if (sum(feeds) > 0) break;
    begin -= sizeof(ByteBlock);
  }
  while (text[begin - 1] != '\n') --begin;
  return text.substr(begin);
}

/// Whether the character that ends at `end` may go on behind it.
bool mayGoOn(std::string_view text, std::size_t end) noexcept {
  return end < text.size() && !utf8::isASCII(text[end]) && text[end - 1] != '\n';
}

/// Moves over text that holds all line feeds of these lines, and no "\r".
void skip(ScannableString& source, std::string_view text, Int lineFeeds) noexcept {
  if (lineFeeds > 0) {
    source.line += lineFeeds;
    source.column = 1;
    text = lastLine(text);
  }
  source.column += static_cast<Int>(text.size());
}

}  // namespace

bool skipTemplateText(ScannableString& source) {
  const std::string_view text = source.string;
  bool isASCII = true;
  while (!source.isAtEnd()) {
    const bool isPlain = utf8::isASCII(text[source.index]);
    if (isPlain && source.isAtASCII("<%")) break;
    if (isPlain && skipASCIITemplateText(source)) continue;
    const Character character = source.advance();
    isASCII = isASCII && utf8::isASCII(character.text());
  }
  return isASCII;
}

bool skipASCIITemplateText(ScannableString& source) noexcept {
  const std::string_view text = source.string;
  const std::size_t begin = source.index;
  if (begin >= text.size()) return false;
  const std::size_t tag = findTagOpening(text, begin, begin + searchedSize(text.substr(begin)));
  const std::string_view plain = text.substr(begin, tag - begin);
  const Lines lines(plain.substr(0, plain.find('\r')));
  const std::size_t end = begin + lines.size;
  if (lines.size == 0) return false;
  const std::size_t size = mayGoOn(text, end) ? lines.size - 1 : lines.size;
  skip(source, text.substr(begin, size), lines.lineFeeds);
  source.index = begin + size;
  return size > 0;
}

}  // namespace velto

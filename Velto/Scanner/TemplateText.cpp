// Stepping over the plain text of a template.
#include "Velto/Scanner/TemplateText.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "Velto/Platform/Utf8.h"

namespace velto {

namespace {

/// How far a step looks ahead, so that the way to the next tag is never searched over and over.
constexpr std::size_t window = 1024;

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

/// The end of the ASCII characters from `begin` on, or `end`.
std::size_t endOfASCII(const String& string, std::size_t begin, std::size_t end) noexcept {
  return string.isASCII() ? end : begin + utf8::asciiPrefixLength(string.view().substr(begin, end - begin));
}

/// Where the last character before `end` begins, if that may go on behind it.
std::size_t withoutLastCharacter(std::string_view text, std::size_t begin, std::size_t end) noexcept {
  if (end > begin) --end;
  if (end > begin && text[end - 1] == '\r') --end;
  return end;
}

/// Brings the line and the column behind ASCII text that may hold every kind of line end.
void skipWithCarriageReturns(ScannableString& source, std::string_view text) noexcept {
  for (std::size_t index = 0; index < text.size(); ++index) {
    const bool isPair = index > 0 && text[index - 1] == '\r' && text[index] == '\n';
    if (isPair) continue;
    if (text[index] == '\n') {
      ++source.line;
      source.column = 1;
    } else {
      ++source.column;
    }
  }
}

/// How many line feeds there are; no more than 255 bytes of a piece, so that many can be counted at a time in a byte
/// each.
Int lineFeedCount(std::string_view text) noexcept {
  constexpr std::size_t piece = 240;
  Int count = 0;
  while (!text.empty()) {
    std::uint8_t countOfPiece = 0;
    for (const char byte : text.substr(0, piece))
      countOfPiece = static_cast<std::uint8_t>(countOfPiece + (byte == '\n'));
    count += countOfPiece;
    text.remove_prefix(std::min(piece, text.size()));
  }
  return count;
}

/// Moves over ASCII text up to `end`. A "\r" and the "\n" behind it are one character, and no line end.
void skipASCII(ScannableString& source, std::size_t end) noexcept {
  const std::size_t begin = source.index;
  const std::string_view text = source.string.view().substr(begin, end - begin);
  source.index = end;
  if (text.find('\r') != text.npos) return skipWithCarriageReturns(source, text);
  const Int lines = lineFeedCount(text);
  if (lines > 0) source.column = 1;
  source.line += lines;
  source.column += static_cast<Int>(lines > 0 ? text.size() - text.rfind('\n') - 1 : text.size());
}

/// Most characters are told by their first byte alone: no other scalar is equivalent to "<".
bool isAtTagOpening(const ScannableString& source) {
  return source.string.view()[source.index] == '<' && source.peekMatchString("<%");
}

}  // namespace

void skipTemplateText(ScannableString& source) {
  while (!source.isAtEnd() && !isAtTagOpening(source)) {
    if (!skipASCIITemplateText(source)) source.advance();
  }
}

bool skipASCIITemplateText(ScannableString& source) noexcept {
  const std::string_view text = source.string;
  const std::size_t begin = source.index;
  if (begin >= text.size() || !utf8::isASCII(text[begin])) return false;
  const std::size_t limit = std::min(text.size(), begin + window);
  const std::size_t tag = findTagOpening(text, begin, limit);
  const std::size_t ascii = endOfASCII(source.string, begin, tag);
  const bool isWhole = ascii == tag && (tag < limit || tag == text.size());
  const std::size_t end = isWhole ? ascii : withoutLastCharacter(text, begin, ascii);
  if (end == begin) return false;
  skipASCII(source, end);
  return true;
}

}  // namespace velto

// The source line of a diagnostic, with a caret under its range.
#include "SourceExcerpt.h"

#include <algorithm>

namespace command {
namespace {

using velto::Character;
using velto::Characters;
using velto::Int;

/// From the start of the line to the end of the text, nothing if there are fewer lines. As in the language, "\r\n" ends
/// none.
std::optional<std::string_view> fromLine(std::string_view text, Int line) {
  std::size_t start = 0;
  for (Int current = 1; current < line;) {
    const std::size_t feed = text.find('\n', start);
    if (feed == text.npos) return std::nullopt;
    if (feed == 0 || text[feed - 1] != '\r') ++current;
    start = feed + 1;
  }
  return text.substr(start);
}

/// A character as a terminal can show it.
std::string shown(Character character) {
  const auto first = static_cast<unsigned char>(character.text().front());
  const bool isControl = (first < 0x20 && first != '\t') || first == 0x7F;
  return isControl ? " " : std::string(character.text());
}

/// Of a line that "\r\n" divides, the division that holds the start of the range is shown.
SourceExcerpt excerptOf(std::string_view rest, const velto::Range& range) {
  SourceExcerpt excerpt;
  Int column = 1;
  for (const Character character : Characters(rest)) {
    const bool isDivision = character == "\r\n";
    if (character == "\n" || (isDivision && column >= range.startColumn)) break;
    if (isDivision) {
      excerpt = SourceExcerpt();
    } else {
      excerpt.line += shown(character);
      if (column < range.startColumn) excerpt.marker += character == "\t" ? "\t" : " ";
    }
    ++column;
  }
  const Int end = range.endLine == range.startLine ? std::min(range.endColumn, column) : column;
  excerpt.marker += "^" + std::string(static_cast<std::size_t>(std::max<Int>(1, end - range.startColumn) - 1), '~');
  return excerpt;
}

}  // namespace

std::optional<SourceExcerpt> SourceExcerpts::excerpt(const velto::Range& range) {
  const std::optional<velto::String>& text = textOf(range.file);
  const auto rest = text ? fromLine(*text, range.startLine) : std::nullopt;
  if (!rest) return std::nullopt;
  return excerptOf(*rest, range);
}

const std::optional<velto::String>& SourceExcerpts::textOf(const velto::String& file) {
  const auto found = texts_.find(file);
  if (found != texts_.end()) return found->second;
  std::optional<velto::String> text;
  try {
    text = velto::FileSystem::local()->readText(velto::Url(file));
  } catch (const velto::FileError&) {
    // The message stands without its source line.
  }
  return texts_.emplace(file, text).first->second;
}

}  // namespace command

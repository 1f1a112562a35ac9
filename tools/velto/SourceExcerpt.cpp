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

std::string markerOf(std::string indentation, Int length) {
  return indentation + "^" + std::string(static_cast<std::size_t>(length - 1), '~');
}

}  // namespace

std::optional<SourceExcerpt> SourceExcerpts::excerpt(const velto::Range& range) {
  const std::optional<velto::String>& text = textOf(range.file);
  const auto rest = text && range.startLine > 0 ? fromLine(*text, range.startLine) : std::nullopt;
  if (!rest) return std::nullopt;
  std::string line;
  std::string indentation;
  Int column = 1;
  for (const Character character : Characters(*rest)) {
    const bool isLineBreak = character == "\n" || character == "\r\n";
    if (isLineBreak && (column >= range.startColumn || character == "\n")) break;
    if (isLineBreak) {
      line.clear();
      indentation.clear();
    } else {
      line += shown(character);
      if (column < range.startColumn) indentation += character == "\t" ? "\t" : " ";
    }
    ++column;
  }
  const Int end = range.endLine == range.startLine ? std::min(range.endColumn, column) : column;
  return SourceExcerpt{line, markerOf(indentation, std::max<Int>(1, end - range.startColumn))};
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

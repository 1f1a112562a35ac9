// The source line of a diagnostic, with a caret under its range.
#include "SourceExcerpt.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace command {
namespace {

using velto::Character;
using velto::Characters;
using velto::Int;

/// As in the language, "\r\n" ends no line.
std::vector<std::size_t> lineStartsOf(std::string_view text) {
  std::vector<std::size_t> starts{0};
  for (std::size_t feed = text.find('\n'); feed != text.npos; feed = text.find('\n', feed + 1)) {
    if (feed == 0 || text[feed - 1] != '\r') starts.push_back(feed + 1);
  }
  return starts;
}

/// Reading anything else, such as a pipe or a terminal, would wait for more, or take away what is there.
bool isRegularFile(const velto::String& file) {
  std::error_code error;
  return std::filesystem::is_regular_file(file.view(), error);
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
  auto found = sources_.find(range.file);
  if (found == sources_.end()) found = sources_.emplace(range.file, read(range.file)).first;
  const auto& [text, lineStarts] = found->second;
  const auto lineCount = static_cast<Int>(lineStarts.size());
  if (range.startLine < 1 || range.startLine > lineCount) return std::nullopt;
  const std::size_t start = lineStarts[static_cast<std::size_t>(range.startLine - 1)];
  return excerptOf(text.view().substr(start), range);
}

/// A message about a file that can't be read any more stands without its source line.
SourceExcerpts::Source SourceExcerpts::read(const velto::String& file) try {
  if (!isRegularFile(file)) return {};
  const velto::String text = velto::FileSystem::local()->readText(velto::Url(file));
  return {text, lineStartsOf(text)};
} catch (const velto::FileError&) {
  return {};
}

}  // namespace command

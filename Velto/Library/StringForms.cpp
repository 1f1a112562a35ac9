// Texts without the white space around them, and as string literals.
#include "Velto/Library/StringForms.h"

#include "Velto/Platform/Character.h"
#include "Velto/Platform/Unicode.h"

namespace velto {

namespace {

bool isWhitespace(Character character) {
  return unicode::isWhitespaceOrNewline(character.firstScalar());
}

std::string_view escapedForm(Character character) {
  if (character.text() == "\n") return "\\n";
  if (character.text() == "\t") return "\\t";
  if (character.text() == "\"") return "\\\"";
  if (character.text() == "\\") return "\\\\";
  return character.text();
}

}  // namespace

String trimmingWhitespace(const String& text) {
  const std::string_view part = trimmed(text);
  return text.slice(static_cast<std::size_t>(part.data() - text.view().data()), part.size());
}

std::string_view trimmed(const String& text) {
  const std::string_view whole = text;
  std::size_t begin = 0;
  for (std::size_t next; begin < whole.size(); begin = next) {
    next = nextBoundary(whole, begin);
    if (!isWhitespace(whole.substr(begin, next - begin))) break;
  }
  std::size_t end = whole.size();
  for (std::size_t previous; end > begin; end = previous) {
    previous = previousBoundary(whole, end);
    if (!isWhitespace(whole.substr(previous, end - previous))) break;
  }
  return whole.substr(begin, end - begin);
}

String escaped(const String& text) {
  if (text.view().find_first_of("\n\t\"\\") == std::string_view::npos) return text;
  StringBuilder result;
  result.reserve(text.size());
  for (const Character character : Characters(text)) result.append(escapedForm(character));
  return result.build();
}

}  // namespace velto

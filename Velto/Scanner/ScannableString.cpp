// The cursor over source text.
#include "Velto/Scanner/ScannableString.h"

#include <algorithm>

#include "Velto/Platform/Utf8.h"

namespace velto {

std::optional<Character> ScannableString::current() const noexcept {
  if (isAtEnd()) return std::nullopt;
  return characterAt(index);
}

std::optional<Character> ScannableString::next() const {
  if (isAtEnd()) fatalError("There is no character behind the end of a text.");
  const std::size_t behind = nextBoundary(string, index);
  if (behind >= string.size()) return std::nullopt;
  return characterAt(behind);
}

std::optional<Character> ScannableString::previous() const {
  const std::size_t end = std::min(index, string.size());
  if (end == 0) fatalError("There is no character before the start of a text.");
  const std::size_t before = previousBoundary(string, end);
  return string.view().substr(before, end - before);
}

Character ScannableString::advanceByRules() {
  if (isAtEnd()) fatalError("A cursor can't move beyond the end of its text.");
  const Character character = characterAt(index);
  if (character.text() == "\n") {
    ++line;
    column = 1;
  } else {
    ++column;
  }
  index += character.text().size();
  return character;
}

void ScannableString::skipBlanks() noexcept {
  const std::string_view text = string;
  for (; index + 1 < text.size(); ++index) {
    const bool isAlone = utf8::isASCII(text[index + 1]);
    if (text[index] == '\n') {
      ++line;
      column = 1;
    } else if ((text[index] == ' ' || text[index] == '\t') && isAlone) {
      ++column;
    } else {
      return;
    }
  }
}

bool ScannableString::matchString(std::string_view text) {
  const std::optional<std::size_t> end = endOfPrefix(text);
  if (!end) return false;
  index = *end;
  column += characterCount(text);
  return true;
}

bool ScannableString::peekMatchString(std::string_view text) const {
  return endOfPrefix(text).has_value();
}

std::optional<std::size_t> ScannableString::endOfPrefix(std::string_view text) const {
  if (isAtEnd()) return std::nullopt;
  std::size_t position = index;
  for (const Character expected : Characters(text)) {
    if (position >= string.size() || characterAt(position) != expected) return std::nullopt;
    position = nextBoundary(string, position);
  }
  return position;
}

Character ScannableString::characterAt(std::size_t position) const noexcept {
  return string.view().substr(position, nextBoundary(string, position) - position);
}

}  // namespace velto

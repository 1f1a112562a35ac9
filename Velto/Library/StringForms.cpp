// Texts without the white space around them, and as string literals.
#include "Velto/Library/StringForms.h"

#include <algorithm>
#include <utility>

#include "Velto/Platform/Character.h"
#include "Velto/Platform/Unicode.h"

namespace velto {

namespace {

bool isWhitespace(Character character) {
  return unicode::isWhitespaceOrNewline(character.firstScalar());
}

/// Empty for a byte that stays as it is.
constexpr std::string_view escapedForm(char byte) noexcept {
  switch (byte) {
    case '\n':
      return "\\n";
    case '\t':
      return "\\t";
    case '"':
      return "\\\"";
    case '\\':
      return "\\\\";
    default:
      return "";
  }
}

std::string_view escapedForm(Character character) noexcept {
  const std::string_view text = character.text();
  const std::string_view form = text.size() == 1 ? escapedForm(text.front()) : "";
  return form.empty() ? text : form;
}

void appendEscapedASCII(std::string_view text, StringBuilder& result) {
  std::size_t done = 0;
  for (std::size_t offset = 0; offset < text.size(); ++offset) {
    const std::string_view form = escapedForm(text[offset]);
    const bool isHalf = text[offset] == '\n' && offset > 0 && text[offset - 1] == '\r';
    if (form.empty() || isHalf) continue;
    result.append(text.substr(done, offset - done)).append(form);
    done = offset + 1;
  }
  result.append(text.substr(done));
}

/// A carriage return and the line feed behind it are white space together as well as apart.
std::string_view trimmedASCII(std::string_view text) {
  const auto isWhitespace = [](char byte) { return byte == ' ' || ('\n' <= byte && byte <= '\r'); };
  while (!text.empty() && isWhitespace(text.front())) text.remove_prefix(1);
  while (!text.empty() && isWhitespace(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace

String trimmingWhitespace(const String& text) {
  const std::string_view part = trimmed(text);
  return text.slice(static_cast<std::size_t>(part.data() - text.view().data()), part.size());
}

std::string_view trimmed(const String& text) {
  return text.isASCII() ? trimmedASCII(text) : trimmedByCharacters(text);
}

std::string_view trimmedByCharacters(std::string_view whole) {
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
  const std::string_view bytes = text.view();
  if (std::all_of(bytes.begin(), bytes.end(), [](char byte) { return escapedForm(byte).empty(); })) return text;
  if (!text.isASCII()) return escapedByCharacters(text);
  StringBuilder result;
  result.reserve(text.size());
  appendEscapedASCII(text, result);
  return std::move(result).build();
}

String escapedByCharacters(const String& text) {
  StringBuilder result;
  result.reserve(text.size());
  for (const Character character : Characters(text)) result.append(escapedForm(character));
  return std::move(result).build();
}

}  // namespace velto

#include "Velto/Interpreter/CharacterFinder.h"

#include <utility>

#include "Velto/Platform/Character.h"

namespace velto {

std::optional<String> CharacterFinder::slice(const String& text, Int lower, Int upper) {
  if (lower < 0) return std::nullopt;
  const std::optional<std::size_t> begin = offsetOf(text, static_cast<std::size_t>(lower));
  const std::optional<std::size_t> end = begin ? offsetOf(text, static_cast<std::size_t>(upper)) : std::nullopt;
  return end ? std::optional(text.slice(*begin, *end - *begin)) : std::nullopt;
}

/// Where the character begins, in bytes; for the one behind the last, the end of the text. A place in the first half of
/// the way is found from the start.
std::optional<std::size_t> CharacterFinder::offsetOf(const String& text, std::size_t index) {
  if (text.areBytesCharacters()) return index <= text.size() ? std::optional(index) : std::nullopt;
  if (!text_.isSameAs(text) || index < index_ / 2) {
    text_ = text;
    index_ = 0;
    offset_ = 0;
  }
  const std::string_view bytes = text.view();
  for (; index_ > index; --index_) offset_ = previousBoundary(bytes, offset_);
  for (; index_ < index; ++index_) {
    if (offset_ == bytes.size()) return std::nullopt;
    offset_ = nextBoundary(bytes, offset_);
  }
  return offset_;
}

}  // namespace velto

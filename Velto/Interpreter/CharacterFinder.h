// Characters of texts by their numbers.
#pragma once

#include <cstddef>
#include <optional>

#include "Velto/Platform/String.h"

namespace [[gnu::visibility("default")]] velto {

/// Where each byte is a character, the place of a character is its number. Any other text has to be gone through: one
/// that is asked about again and again is gone through from where the last answer was.
class CharacterFinder {
 public:
  /// The characters from `lower` up to but not including `upper`, which isn't less; nothing if the text hasn't got them
  /// all.
  std::optional<String> slice(const String& text, Int lower, Int upper);

 private:
  std::optional<std::size_t> offsetOf(const String& text, std::size_t index);

  // The place of the last answer.
  String text_;
  std::size_t index_ = 0;
  std::size_t offset_ = 0;
};

}  // namespace velto

// The texts of a JSON document.
#include "Velto/Library/JSONTexts.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "Velto/Platform/Wrapping.h"

namespace velto {
namespace {

/// The same as `==`, which the standard library leaves to a function that also tells which one is the smaller.
bool isSame(std::string_view left, std::string_view right) noexcept {
  return std::equal(left.begin(), left.end(), right.begin(), right.end());
}

}  // namespace

String JSONRecentTexts::shared(std::string_view text) {
  constexpr std::size_t longest = 32;
  if (text.size() > longest) return String::fromWellFormed(text, grove_);
  String& recent = texts_[slotOf(text)];
  if (!isSame(recent.view(), text)) {
    constexpr std::size_t longestWord = 12;  // longer texts are rarely those of a program
    const String* const known = text.size() <= longestWord ? pool_.find(text) : nullptr;
    recent = known ? *known : String::fromWellFormed(text, grove_);
  }
  return recent;
}

/// By the size and both ends of the text, which tell most texts from one another.
VELTO_WRAPS std::size_t JSONRecentTexts::slotOf(std::string_view text) noexcept {
  std::uint64_t start = 0;
  std::uint64_t end = 0;
  std::memcpy(&start, text.data(), sizeof start);
  if (text.size() >= sizeof end) {
    std::memcpy(&end, text.data() + text.size() - sizeof end, sizeof end);
  } else {
    start &= (std::uint64_t{1} << 8 * text.size()) - 1;
  }
  const std::uint64_t mixed = (start ^ end * 31 ^ text.size()) * 0x9E3779B97F4A7C15u;
  return mixed >> 54;
}

}  // namespace velto

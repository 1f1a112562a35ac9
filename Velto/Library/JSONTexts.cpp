// The keys and texts of a JSON document.
#include "Velto/Library/JSONTexts.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <utility>

#include "Velto/Platform/Wrapping.h"

namespace velto {
namespace {

/// The same as `==`, which the standard library leaves to a function that also tells which one is the smaller.
bool isSame(std::string_view left, std::string_view right) noexcept {
  return std::equal(left.begin(), left.end(), right.begin(), right.end());
}

}  // namespace

const String* JSONKeys::takeExpected(std::string_view rest) {
  Key* const expected = last_ ? last_->next : nullptr;
  if (!expected || !expected->isPlain) return nullptr;
  const std::string_view text = expected->text;
  const bool isThere =
      text.size() < rest.size() && rest[text.size()] == '"' && isSame(rest.substr(0, text.size()), text);
  return isThere ? &takeAgain(*expected) : nullptr;
}

const String& JSONKeys::shared(std::string_view key) {
  const auto present = keys_.find(key);
  Key& found = present != keys_.end() ? present->second : add(key);
  if (last_) last_->next = &found;
  if (present != keys_.end()) return takeAgain(found);
  last_ = &found;
  return found.text;
}

JSONKeys::Key& JSONKeys::add(std::string_view key) {
  const String* const known = texts_.find(key);
  const String text = known ? *known : String::fromWellFormed(key);
  const bool isPlain = key.find_first_of("\"\\") == key.npos;
  return keys_.emplace(text, Key{text, isPlain, known != nullptr}).first->second;
}

const String& JSONKeys::takeAgain(Key& key) {
  if (!std::exchange(key.isPooled, true)) texts_.add(key.text);
  last_ = &key;
  return key.text;
}

String JSONRecentTexts::shared(std::string_view text) {
  constexpr std::size_t longest = 32;
  if (text.size() > longest) return String::fromWellFormed(text);
  String& recent = texts_[slotOf(text)];
  if (!isSame(recent.view(), text)) recent = String::fromWellFormed(text);
  return recent;
}

/// By the size and both ends of the text, which tell most texts from one another.
VELTO_WRAPS std::size_t JSONRecentTexts::slotOf(std::string_view text) noexcept {
  std::uint64_t start = 0;
  std::uint64_t end = 0;
  if (text.size() >= sizeof start) {
    std::memcpy(&start, text.data(), sizeof start);
    std::memcpy(&end, text.data() + text.size() - sizeof end, sizeof end);
  } else {
    for (const char byte : text) start = start << 8 | static_cast<unsigned char>(byte);
  }
  const std::uint64_t mixed = (start ^ end * 31 ^ text.size()) * 0x9E3779B97F4A7C15u;
  return mixed >> 54;
}

}  // namespace velto

// The keys and the kinds of objects in a JSON document.
#include "Velto/Library/JSONShapes.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "Velto/Platform/Wrapping.h"

namespace velto {

JSONKey::JSONKey(String text, bool isPooled) : text_(std::move(text)), isPooled_(isPooled) {
  constexpr std::size_t room = sizeof start_;
  const std::string_view key = text_;
  const bool isPlain = key.find_first_of("\"\\") == key.npos;
  isShort_ = !isPlain || key.size() < room;
  if (isPlain) {
    std::array<char, room + 1> start{};
    start[key.copy(start.data(), room)] = '"';
    std::memcpy(start_.data(), start.data(), room);
  }
  // Where a key that isn't plain would stand are none but NULs, as in no text of a document.
  std::memset(bits_.data(), 0xFF, isPlain ? std::min(key.size() + 1, room) : room);
}

bool JSONKey::isWholeAt(std::string_view rest) const noexcept {
  const std::string_view text = text_;
  return text.size() < rest.size() && rest[text.size()] == '"' && std::equal(text.begin(), text.end(), rest.begin());
}

JSONKey& JSONKeys::shared(std::string_view key) {
  const auto present = keys_.find(key);
  if (present != keys_.end()) {
    takeAgain(present->second);
    return present->second;
  }
  const String* const known = texts_.find(key);
  const String text = known ? *known : String::fromWellFormed(key);
  return keys_.emplace(text, JSONKey(text, known != nullptr)).first->second;
}

JSONShape* JSONShapes::with(JSONShape& shape, std::string_view key) {
  JSONKey& last = keys_.shared(key);
  const Step step(&shape, &last);
  auto found = longer_.find(step);
  if (found == longer_.end()) {
    if (!mayGrow(shape)) return nullptr;
    found = longer_.try_emplace(step, shape, last).first;
  }
  return shape.next_ = &found->second;
}

/// A shape is worth its memory where others come again.
bool JSONShapes::mayGrow(const JSONShape& shape) const noexcept {
  constexpr std::size_t longest = 64;
  constexpr std::size_t some = 1024;
  return shape.size_ < longest && longer_.size() < some + metAgain_;
}

Dictionary JSONShapes::take(JSONShape& shape, std::span<Value> parts) {
  if (shape.first_ && parts.size() == shape.size_) {
    ++metAgain_;
    return shape.first_->withValues(
        std::vector<Value>(std::make_move_iterator(parts.begin()), std::make_move_iterator(parts.end())));
  }
  std::vector<const String*> keys(shape.size_);
  for (const JSONShape* part = &shape; part->shorter_; part = part->shorter_) {
    keys[part->size_ - 1] = &part->last_->text();
  }
  Dictionary dictionary;
  dictionary.reserve(keys.size() + (parts.size() - keys.size()) / 2);
  for (std::size_t index = 0; index < keys.size(); ++index) dictionary.set(*keys[index], std::move(parts[index]));
  for (std::size_t index = keys.size(); index < parts.size(); index += 2) {
    dictionary.set(std::move(parts[index]), std::move(parts[index + 1]));
  }
  const bool hasShape = parts.size() == shape.size_ && dictionary.size() == shape.size_;
  if (hasShape) shape.first_ = dictionary;
  return dictionary;
}

VELTO_WRAPS std::size_t JSONShapes::StepHash::operator()(const Step& step) const noexcept {
  const auto shape = reinterpret_cast<std::uintptr_t>(step.first);
  const auto key = reinterpret_cast<std::uintptr_t>(step.second);
  const std::uint64_t mixed = (shape * 31 ^ key) * 0x9E37'79B9'7F4A'7C15u;
  return static_cast<std::size_t>(mixed ^ mixed >> 32);
}

}  // namespace velto

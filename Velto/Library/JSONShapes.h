// The keys and the kinds of objects in a JSON document.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "Velto/Platform/String.h"
#include "Velto/Platform/TextPool.h"
#include "Velto/Value/Dictionary.h"
#include "Velto/Value/Value.h"

namespace velto {

/// A key of a document.
class JSONKey {
 public:
  JSONKey(String text, bool isPooled);

  const String& text() const noexcept { return text_; }
  /// Whether it stands at the start of `rest` as it is, without escapes, with the closing quote behind it. There has to
  /// be room to read on behind `rest`.
  bool standsAt(std::string_view rest) const noexcept {
    std::array<std::uint64_t, 2> words;
    std::memcpy(words.data(), rest.data(), sizeof words);
    const bool isStart = ((words[0] ^ start_[0]) & bits_[0]) == 0 && ((words[1] ^ start_[1]) & bits_[1]) == 0;
    return isStart && (isShort_ || isWholeAt(rest));
  }

 private:
  friend class JSONKeys;

  bool isWholeAt(std::string_view rest) const noexcept;

  String text_;
  bool isPooled_;                         // from the second time on: what comes once is as likely data as a name
  bool isShort_;                          // so that the start is all of it
  std::array<std::uint64_t, 2> start_{};  // its first bytes, and those of the closing quote
  std::array<std::uint64_t, 2> bits_{};   // that count
};

/// The keys of one document, each kept once.
class JSONKeys {
 public:
  explicit JSONKeys(TextPool& texts) noexcept : texts_(texts) {}

  JSONKey& shared(std::string_view key);
  /// For a key that is known to have come before.
  void takeAgain(JSONKey& key) {
    if (!std::exchange(key.isPooled_, true)) texts_.add(key.text_);
  }

 private:
  TextPool& texts_;
  std::unordered_map<std::string_view, JSONKey> keys_;
};

/// Which keys an object has, in their order: those of a shorter shape, and one more. Objects of one kind have the same
/// shape, and each key is mostly the one that came next the last time.
class JSONShape {
 public:
  JSONShape() = default;
  JSONShape(JSONShape& shorter, JSONKey& last) noexcept : shorter_(&shorter), last_(&last), size_(shorter.size_ + 1) {}

 private:
  friend class JSONShapes;

  JSONShape* shorter_ = nullptr;
  JSONKey* last_ = nullptr;
  std::size_t size_ = 0;
  JSONShape* next_ = nullptr;
  std::optional<Dictionary> first_;  // of those that are made of it, unless two of the keys are equal
};

/// Makes the dictionaries of one document. Those of one shape share their keys, so that each holds nothing but values.
class JSONShapes {
 public:
  explicit JSONShapes(TextPool& texts) noexcept : keys_(texts) {}

  /// That of an object without keys.
  JSONShape& shortest() noexcept { return shortest_; }
  /// With the key that came next the last time, if that stands at the start of `rest`; else null.
  JSONShape* expected(const JSONShape& shape, std::string_view rest) {
    JSONShape* const next = shape.next_;
    if (!next || !next->last_->standsAt(rest)) return nullptr;
    keys_.takeAgain(*next->last_);
    return next;
  }
  /// With this key. Null where there is no such shape, and none is made: an object of very many keys is data by its
  /// keys as well, and so are many objects of which few have the same.
  JSONShape* with(JSONShape& shape, std::string_view key);
  /// A key that no shape has taken.
  const String& key(std::string_view key) { return keys_.shared(key).text(); }

  /// The dictionary of an object. Its values are taken from `parts`: those of the shape, and behind them other keys and
  /// values in turn. A repeated key keeps the place of the first and the value of the last.
  Dictionary take(JSONShape& shape, std::span<Value> parts);

 private:
  using Step = std::pair<const JSONShape*, const JSONKey*>;
  struct StepHash {
    std::size_t operator()(const Step& step) const noexcept;
  };

  bool mayGrow(const JSONShape& shape) const noexcept;

  JSONKeys keys_;
  JSONShape shortest_;
  std::unordered_map<Step, JSONShape, StepHash> longer_;
  std::size_t metAgain_ = 0;  // objects of a shape that was there
};

}  // namespace velto

// The keys of dictionaries, and how they are found.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "Velto/Platform/Ref.h"
#include "Velto/Value/KeyIndex.h"
#include "Velto/Value/Value.h"

namespace velto {

/// Keys of which no two are equal, in the order of insertion. Dictionaries with the same keys may share them: a
/// document has a few kinds of objects, and many objects of each.
///
/// The place behind the last key stands for none.
class DictionaryKeys final : public Counted {
 public:
  DictionaryKeys() = default;
  DictionaryKeys(const DictionaryKeys& other);

  std::size_t size() const noexcept { return keys_.size(); }
  const Value* data() const noexcept { return keys_.data(); }
  const Value& operator[](std::size_t place) const noexcept { return keys_[place]; }

  void reserve(std::size_t count);
  /// Takes in a key that is known to equal none of those that stand there.
  void add(Value&& key);
  /// The place of the key, which is added if it isn't there.
  std::size_t placeOrAdd(Value&& key);

  std::size_t find(const Value& key) const;
  /// The same for a text, with a look at first for this very one: most texts are written in the program, and texts of
  /// one pool are the same in memory.
  std::size_t findText(const String& key) const;
  /// The place of the key that alone can equal one of `other`.
  std::size_t counterpart(const DictionaryKeys& other, std::size_t place) const;

 private:
  bool needsIndexFor(const Value& key) const noexcept;
  void makeIndex(std::size_t count);
  void append(Value&& key, std::uint64_t hash);
  std::size_t placeOf(const Value& key, std::uint64_t hash) const;
  std::size_t placeAmongFew(const String& key) const;

  std::vector<Value> keys_;
  std::unique_ptr<KeyIndex> index_;  // null while the keys are a few texts
};

}  // namespace velto

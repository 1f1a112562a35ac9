// Dictionaries: of values, and of anything else that a host holds.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "Velto/Value/HostValue.h"
#include "Velto/Value/Object.h"
#include "Velto/Value/Value.h"

namespace velto {
class KeyIndex;
}

namespace [[gnu::visibility("default")]] velto {

/// What the members of dictionaries need of a dictionary, whatever its entries are.
class Mapping : public Object {
 public:
  virtual std::size_t size() const noexcept = 0;

  std::optional<Value> get(const String& name) const final;
  String typeName() const final { return "Dictionary"; }
};

/// A dictionary of values that keeps the order of insertion, filled once and const ever after.
class Dictionary final : public Mapping {
 public:
  struct Entry {
    Value key;
    Value value;
  };

  Dictionary() noexcept;
  Dictionary(const Dictionary& other);
  Dictionary(Dictionary&&) noexcept;
  Dictionary& operator=(const Dictionary& other);
  Dictionary& operator=(Dictionary&&) noexcept;
  ~Dictionary() override;

  /// Stores `value` under `key`. Where an equal key stands, that key and its place stay, and the value is replaced.
  void set(Value key, Value value);
  /// Stores `value` under a key that is known to equal none of those that stand there.
  void add(Value key, Value value);
  void reserve(std::size_t count);
  /// Null if there is no such key.
  const Value* find(const Value& key) const;
  /// The same for a text, with a look at first for this very one: most texts are written in the program, and texts of
  /// one pool are the same in memory.
  const Value* findText(const String& key) const;
  /// The value at `place` if this very text is the key there. A look, and no search.
  const Value* findTextAt(std::size_t place, const String& key) const noexcept {
    if (place >= entries_.size()) return nullptr;
    const Entry& entry = entries_[place];
    const String* const text = entry.key.string();
    return text && text->isSameAs(key) ? &entry.value : nullptr;
  }
  /// Where a value lies that has been found here.
  std::size_t placeOf(const Value& found) const noexcept {
    const auto offset =
        reinterpret_cast<const std::byte*>(&found) - reinterpret_cast<const std::byte*>(&entries_[0].value);
    return static_cast<std::size_t>(offset) / sizeof(Entry);
  }

  /// The entry whose key alone can equal that of an entry of `other`; null if there is none.
  const Entry* counterpart(const Dictionary& other, std::size_t index) const;

  std::span<const Entry> entries() const noexcept { return entries_; }

  std::size_t size() const noexcept override { return entries_.size(); }
  String objectDescription() const override;

 private:
  void makeIndex(std::size_t count);
  // The place behind the last entry stands for none.
  std::size_t placeOf(const Value& key, std::uint64_t hash) const;
  std::size_t placeAmongFew(const String& key) const;
  const Entry* entryAt(std::size_t place) const noexcept;
  const Value* valueAt(std::size_t place) const noexcept;

  std::vector<Entry> entries_;
  std::unique_ptr<KeyIndex> index_;  // null while the keys are a few texts
};

/// A dictionary of other host values.
class HostDictionary final : public Mapping {
 public:
  using Entry = std::pair<HostValue, HostValue>;

  explicit HostDictionary(std::vector<Entry> entries) noexcept : entries_(std::move(entries)) {}

  const std::vector<Entry>& entries() const noexcept { return entries_; }

  std::size_t size() const noexcept override { return entries_.size(); }
  String objectDescription() const override;

 private:
  std::vector<Entry> entries_;
};

inline const Dictionary* Value::dictionary() const noexcept {
  return as<const Dictionary>(Tag::dictionary);
}

}  // namespace velto

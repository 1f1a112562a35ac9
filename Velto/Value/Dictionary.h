// Dictionaries: of values, and of anything else that a host holds.
#pragma once

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "Velto/Platform/Grove.h"
#include "Velto/Value/ContentsMark.h"
#include "Velto/Value/HostValue.h"
#include "Velto/Value/Object.h"
#include "Velto/Value/Value.h"

namespace velto {
class DictionaryKeys;
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
class Dictionary final : public Mapping, public Plantable {
 public:
  /// A key and its value, looked at where they stand.
  struct Entry {
    const Value& key;
    const Value& value;
  };
  class Entries;

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
  /// A dictionary with the same keys, which the two will share, and a value for each of them.
  Dictionary withValues(std::vector<Value> values) const;

  /// Null if there is no such key.
  const Value* find(const Value& key) const;
  /// The same for a text, with a look at first for this very one: most texts are written in the program, and texts of
  /// one pool are the same in memory.
  const Value* findText(const String& key) const;
  /// The value at `place` if this very text is the key there. A look, and no search; defined in DictionaryInline.h.
  const Value* findTextAt(std::size_t place, const String& key) const noexcept;
  /// Where a value lies that has been found here.
  std::size_t placeOf(const Value& found) const noexcept { return static_cast<std::size_t>(&found - values_.data()); }

  /// The entry whose key alone can equal that of an entry of `other`; nothing if there is none.
  std::optional<Entry> counterpart(const Dictionary& other, std::size_t index) const;

  /// In the order of insertion.
  Entries entries() const noexcept;

  std::size_t size() const noexcept override { return values_.size(); }
  String objectDescription() const override;

  ContentsMark contents;

 private:
  DictionaryKeys& ownKeys();
  const Value* valueAt(std::size_t place) const noexcept;

  Ref<DictionaryKeys> keys_;  // null while there are none; shared, until a key comes
  std::vector<Value> values_;
};

/// The entries of a dictionary, good for as long as nothing is put into it.
class Dictionary::Entries {
 public:
  class Iterator {
   public:
    using value_type = Entry;
    using difference_type = std::ptrdiff_t;

    Iterator() noexcept = default;
    Iterator(const Value* key, const Value* value) noexcept : key_(key), value_(value) {}

    Entry operator*() const noexcept { return {*key_, *value_}; }
    Iterator& operator++() noexcept {
      ++key_;
      ++value_;
      return *this;
    }
    Iterator operator++(int) noexcept {
      const Iterator before = *this;
      ++*this;
      return before;
    }
    friend bool operator==(const Iterator& left, const Iterator& right) noexcept { return left.key_ == right.key_; }

   private:
    const Value* key_ = nullptr;
    const Value* value_ = nullptr;
  };

  Entries(const Value* keys, const Value* values, std::size_t size) noexcept
      : keys_(keys), values_(values), size_(size) {}

  std::size_t size() const noexcept { return size_; }
  Entry operator[](std::size_t index) const noexcept { return {keys_[index], values_[index]}; }
  Iterator begin() const noexcept { return {keys_, values_}; }
  Iterator end() const noexcept { return {keys_ + size_, values_ + size_}; }

 private:
  const Value* keys_;
  const Value* values_;
  std::size_t size_;
};

/// A dictionary of other host values. As a `Value`, one that has nothing but values in it is a `Dictionary`.
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

/// These host values as a dictionary, if all keys and values are a `Value`. Of equal keys the last one counts.
std::optional<Dictionary> dictionaryOfValues(const HostValue::Entries& entries);

inline const Dictionary* Value::dictionary() const noexcept {
  return as<const Dictionary>(Tag::dictionary);
}

}  // namespace velto

// Dictionaries: keys that may be shared, and a value for each.
#include "Velto/Value/Dictionary.h"

#include <utility>

#include "Velto/Value/DictionaryKeys.h"

namespace velto {

Dictionary::Dictionary() noexcept = default;
Dictionary::Dictionary(const Dictionary& other) = default;
Dictionary::Dictionary(Dictionary&&) noexcept = default;
Dictionary& Dictionary::operator=(const Dictionary& other) = default;
Dictionary& Dictionary::operator=(Dictionary&&) noexcept = default;
Dictionary::~Dictionary() = default;

void Dictionary::set(Value key, Value value) {
  const std::size_t place = ownKeys().placeOrAdd(std::move(key));
  if (place < size()) {
    values_[place] = std::move(value);
  } else {
    values_.push_back(std::move(value));
  }
}

void Dictionary::add(Value key, Value value) {
  ownKeys().add(std::move(key));
  values_.push_back(std::move(value));
}

void Dictionary::reserve(std::size_t count) {
  if (count == 0) return;
  ownKeys().reserve(count);
  values_.reserve(count);
}

/// Keys that nobody else holds.
DictionaryKeys& Dictionary::ownKeys() {
  if (!keys_) {
    keys_ = makeRef<DictionaryKeys>();
  } else if (keys_->holderCount() > 1) {
    keys_ = makeRef<DictionaryKeys>(*keys_);
  }
  return *keys_;
}

Dictionary Dictionary::withValues(std::vector<Value> values) const {
  Dictionary result;
  result.keys_ = keys_;
  result.values_ = std::move(values);
  return result;
}

const Value* Dictionary::find(const Value& key) const {
  return valueAt(keys_ ? keys_->find(key) : DictionaryKeys().find(key));
}

const Value* Dictionary::findText(const String& key) const {
  return keys_ ? valueAt(keys_->findText(key)) : nullptr;
}

std::optional<Dictionary::Entry> Dictionary::counterpart(const Dictionary& other, std::size_t index) const {
  if (!keys_) return std::nullopt;
  const bool isOneText = keys_ == other.keys_ && (*keys_)[index].string();
  const std::size_t place = isOneText ? index : keys_->counterpart(*other.keys_, index);
  if (place == size()) return std::nullopt;
  return entries()[place];
}

Dictionary::Entries Dictionary::entries() const noexcept {
  return {keys_ ? keys_->data() : nullptr, values_.data(), size()};
}

const Value* Dictionary::valueAt(std::size_t place) const noexcept {
  return place < size() ? &values_[place] : nullptr;
}

}  // namespace velto

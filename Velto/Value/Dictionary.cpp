// Dictionaries: their entries in the order of insertion, and how keys are found.
#include "Velto/Value/Dictionary.h"

#include <algorithm>

#include "Velto/Value/KeyHash.h"
#include "Velto/Value/KeyIndex.h"

namespace velto {

namespace {

/// Whether a comparison of the texts is worth its time: those that differ in size are equal only by other spellings of
/// a letter, of which there are none in ASCII.
bool canBeEqual(const String& left, const String& right) noexcept {
  return left.size() == right.size() || !left.isASCII() || !right.isASCII();
}

}  // namespace

Dictionary::Dictionary() noexcept = default;
Dictionary::Dictionary(Dictionary&&) noexcept = default;
Dictionary& Dictionary::operator=(Dictionary&&) noexcept = default;
Dictionary::~Dictionary() = default;

Dictionary::Dictionary(const Dictionary& other)
    : entries_(other.entries_), index_(other.index_ ? std::make_unique<KeyIndex>(*other.index_) : nullptr) {
}

Dictionary& Dictionary::operator=(const Dictionary& other) {
  return *this = Dictionary(other);
}

void Dictionary::set(Value key, Value value) {
  if (!index_ && (!key.string() || entries_.size() == KeyIndex::few)) makeIndex(entries_.size() + 1);
  const std::uint64_t hash = index_ ? keyHash(key) : unfindable;
  const std::size_t place = index_ ? placeOf(key, hash) : placeAmongFew(*key.string());
  if (place < entries_.size()) {
    entries_[place].value = std::move(value);
    return;
  }
  if (index_) index_->add(hash);
  entries_.push_back({std::move(key), std::move(value)});
}

void Dictionary::add(Value key, Value value) {
  if (!index_ && (!key.string() || entries_.size() == KeyIndex::few)) makeIndex(entries_.size() + 1);
  if (index_) index_->add(keyHash(key));
  entries_.push_back({std::move(key), std::move(value)});
}

void Dictionary::reserve(std::size_t count) {
  entries_.reserve(count);
  if (index_) {
    index_->reserve(count);
  } else if (count > KeyIndex::few) {
    makeIndex(count);
  }
}

void Dictionary::makeIndex(std::size_t count) {
  index_ = std::make_unique<KeyIndex>();
  index_->reserve(count);
  for (const Entry& entry : entries_) index_->add(keyHash(entry.key));
}

const Value* Dictionary::find(const Value& key) const {
  if (const String* text = index_ ? nullptr : key.string()) return valueAt(placeAmongFew(*text));
  return valueAt(placeOf(key, keyHash(key)));  // even where no such key can be found, one without a hash is an error
}

const Value* Dictionary::findText(const String& key) const {
  if (!index_) return valueAt(placeAmongFew(key));
  constexpr std::size_t worthALook = 2 * KeyIndex::few;
  if (entries_.size() <= worthALook) {
    for (const Entry& entry : entries_) {
      if (const String* text = entry.key.string(); text && text->isSameAs(key)) return &entry.value;
    }
  }
  return find(Value(key));
}

/// Where one key alone has the hash, the keys aren't compared here: they may be deep, and the caller has its own way to
/// compare them.
const Dictionary::Entry* Dictionary::counterpart(const Dictionary& other, std::size_t index) const {
  const Value& key = other.entries_[index].key;
  if (!index_) return key.string() ? entryAt(placeAmongFew(*key.string())) : nullptr;
  const std::uint64_t hash = other.index_ ? other.index_->hash(index) : keyHash(key);
  if (hash == unfindable) return nullptr;
  std::size_t count = 0;
  std::size_t found = entries_.size();
  index_->search(hash, [&](std::size_t candidate) {
    found = candidate;
    return ++count > 1;
  });
  return entryAt(count > 1 ? placeOf(key, hash) : found);
}

std::size_t Dictionary::placeOf(const Value& key, std::uint64_t hash) const {
  if (hash == unfindable || !index_) return entries_.size();
  return index_->search(hash, [&](std::size_t place) { return entries_[place].key == key; });
}

/// Most texts are found without a look at their bytes, since texts of one pool are the same in memory.
std::size_t Dictionary::placeAmongFew(const String& key) const {
  const auto isSame = [&](const Entry& entry) { return entry.key.string()->isSameAs(key); };
  const auto isEqual = [&](const Entry& entry) {
    const String& text = *entry.key.string();
    return canBeEqual(text, key) && text == key;
  };
  auto found = std::ranges::find_if(entries_, isSame);
  if (found == entries_.end()) found = std::ranges::find_if(entries_, isEqual);
  return static_cast<std::size_t>(found - entries_.begin());
}

const Dictionary::Entry* Dictionary::entryAt(std::size_t place) const noexcept {
  return place < entries_.size() ? &entries_[place] : nullptr;
}

const Value* Dictionary::valueAt(std::size_t place) const noexcept {
  return place < entries_.size() ? &entries_[place].value : nullptr;
}

}  // namespace velto

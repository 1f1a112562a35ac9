// The keys of dictionaries, and how they are found.
#include "Velto/Value/DictionaryKeys.h"

#include <utility>

#include "Velto/Value/KeyHash.h"

namespace velto {

namespace {

/// Whether a comparison of the texts is worth its time: those that differ in size are equal only by other spellings of
/// a letter, of which there are none in ASCII.
bool canBeEqual(const String& left, const String& right) noexcept {
  return left.size() == right.size() || !left.isASCII() || !right.isASCII();
}

/// The size if there is none.
template <typename Predicate>
std::size_t placeOfFirst(const std::vector<Value>& keys, const Predicate& holds) {
  std::size_t place = 0;
  while (place < keys.size() && !holds(keys[place])) ++place;
  return place;
}

}  // namespace

DictionaryKeys::DictionaryKeys(const DictionaryKeys& other)
    : Counted(other), keys_(other.keys_), index_(other.index_ ? std::make_unique<KeyIndex>(*other.index_) : nullptr) {
}

void DictionaryKeys::reserve(std::size_t count) {
  keys_.reserve(count);
  if (index_) {
    index_->reserve(count);
  } else if (count > KeyIndex::few) {
    makeIndex(count);
  }
}

void DictionaryKeys::add(Value&& key) {
  if (needsIndexFor(key)) makeIndex(size() + 1);
  const std::uint64_t hash = index_ ? keyHash(key) : unfindable;
  append(std::move(key), hash);
}

std::size_t DictionaryKeys::placeOrAdd(Value&& key) {
  if (needsIndexFor(key)) makeIndex(size() + 1);
  const std::uint64_t hash = index_ ? keyHash(key) : unfindable;
  const std::size_t place = index_ ? placeOf(key, hash) : placeAmongFew(*key.string());
  if (place == size()) append(std::move(key), hash);
  return place;
}

bool DictionaryKeys::needsIndexFor(const Value& key) const noexcept {
  return !index_ && (!key.string() || size() == KeyIndex::few);
}

void DictionaryKeys::makeIndex(std::size_t count) {
  index_ = std::make_unique<KeyIndex>();
  index_->reserve(count);
  for (const Value& key : keys_) index_->add(keyHash(key));
}

void DictionaryKeys::append(Value&& key, std::uint64_t hash) {
  if (index_) index_->add(hash);
  keys_.push_back(std::move(key));
}

std::size_t DictionaryKeys::find(const Value& key) const {
  if (const String* text = index_ ? nullptr : key.string()) return placeAmongFew(*text);
  return placeOf(key, keyHash(key));  // even where no such key can be found, one without a hash is an error
}

std::size_t DictionaryKeys::findText(const String& key) const {
  if (!index_) return placeAmongFew(key);
  constexpr std::size_t worthALook = 2 * KeyIndex::few;
  if (size() <= worthALook) {
    for (std::size_t place = 0; place < size(); ++place) {
      if (const String* text = keys_[place].string(); text && text->isSameAs(key)) return place;
    }
  }
  return find(Value(key));
}

/// Where one key alone has the hash, the keys aren't compared here: they may be deep, and the caller has its own way to
/// compare them.
std::size_t DictionaryKeys::counterpart(const DictionaryKeys& other, std::size_t place) const {
  const Value& key = other[place];
  if (!index_) return key.string() ? placeAmongFew(*key.string()) : size();
  const std::uint64_t hash = other.index_ ? other.index_->hash(place) : keyHash(key);
  if (hash == unfindable) return size();
  std::size_t count = 0;
  std::size_t found = size();
  index_->search(hash, [&](std::size_t candidate) {
    found = candidate;
    return ++count > 1;
  });
  return count > 1 ? placeOf(key, hash) : found;
}

std::size_t DictionaryKeys::placeOf(const Value& key, std::uint64_t hash) const {
  if (hash == unfindable || !index_) return size();
  return index_->search(hash, [&](std::size_t place) { return keys_[place] == key; });
}

/// Most texts are found without a look at their bytes, since texts of one pool are the same in memory.
std::size_t DictionaryKeys::placeAmongFew(const String& key) const {
  const auto isSame = [&](const Value& present) { return present.string()->isSameAs(key); };
  const auto isEqual = [&](const Value& present) {
    const String& text = *present.string();
    return canBeEqual(text, key) && text == key;
  };
  const std::size_t place = placeOfFirst(keys_, isSame);
  return place < keys_.size() ? place : placeOfFirst(keys_, isEqual);
}

}  // namespace velto

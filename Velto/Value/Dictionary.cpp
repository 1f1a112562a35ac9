// Dictionaries: their entries in the order of insertion, and the table by which keys are found.
#include "Velto/Value/Dictionary.h"

#include <bit>

#include "Velto/Value/KeyHash.h"

namespace velto {

namespace {

/// Up to here, going through all hashes is as quick as a table.
constexpr std::size_t fewEntries = 8;

/// Spreads a hash over a table whose size is a power of two. The low bits of a hash needn't differ: those of whole
/// numbers don't.
std::size_t firstSlot(std::uint64_t hash, std::size_t slots) {
  return (hash * 0x9E3779B97F4A7C15u) >> (64 - std::countr_zero(slots));
}

}  // namespace

void Dictionary::set(Value key, Value value) {
  const std::uint64_t hash = keyHash(key);
  const std::size_t index = indexOf(key, hash);
  if (index < entries_.size()) {
    entries_[index].value = std::move(value);
    return;
  }
  entries_.push_back({std::move(key), std::move(value)});
  hashes_.push_back(hash);
  if (table_.empty() ? entries_.size() > fewEntries : entries_.size() * 2 > table_.size()) {
    rebuildTable(std::bit_ceil(entries_.size() * 2));
  } else if (!table_.empty()) {
    addToTable(index);
  }
}

void Dictionary::reserve(std::size_t count) {
  entries_.reserve(count);
  hashes_.reserve(count);
  if (count > fewEntries && count * 2 > table_.size()) rebuildTable(std::bit_ceil(count * 2));
}

const Value* Dictionary::find(const Value& key) const {
  const std::size_t index = indexOf(key, keyHash(key));
  return index < entries_.size() ? &entries_[index].value : nullptr;
}

const Value* Dictionary::findText(const String& key) const {
  constexpr std::size_t worthALook = 2 * fewEntries;
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
  const std::uint64_t hash = other.hashes_[index];
  std::size_t count = 0;
  std::size_t found = entries_.size();
  search(hash, [&](std::size_t candidate) {
    found = candidate;
    return ++count > 1;
  });
  if (count > 1) found = indexOf(other.entries_[index].key, hash);
  return found < entries_.size() ? &entries_[found] : nullptr;
}

/// The first wanted entry whose key has the hash; the number of entries if there is none.
template <typename IsWanted>
std::size_t Dictionary::search(std::uint64_t hash, const IsWanted& isWanted) const {
  const auto isFound = [&](std::size_t index) { return hashes_[index] == hash && isWanted(index); };
  if (hash == unfindable) return entries_.size();
  if (table_.empty()) {
    std::size_t index = 0;
    while (index < entries_.size() && !isFound(index)) ++index;
    return index;
  }
  for (std::size_t slot = firstSlot(hash, table_.size()); table_[slot] != 0; slot = (slot + 1) & (table_.size() - 1)) {
    if (isFound(table_[slot] - 1)) return table_[slot] - 1;
  }
  return entries_.size();
}

std::size_t Dictionary::indexOf(const Value& key, std::uint64_t hash) const {
  return search(hash, [&](std::size_t index) { return entries_[index].key == key; });
}

/// Nobody will look for an unfindable key there.
void Dictionary::addToTable(std::size_t index) {
  if (hashes_[index] == unfindable) return;
  std::size_t slot = firstSlot(hashes_[index], table_.size());
  while (table_[slot] != 0) slot = (slot + 1) & (table_.size() - 1);
  table_[slot] = static_cast<std::uint32_t>(index + 1);
}

void Dictionary::rebuildTable(std::size_t slots) {
  table_.assign(slots, 0);
  for (std::size_t index = 0; index < entries_.size(); ++index) addToTable(index);
}

}  // namespace velto

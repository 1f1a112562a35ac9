// Dictionaries: their entries in the order of insertion, and the table by which keys are found.
#include "Velto/Value/Dictionary.h"

#include <bit>

namespace velto {

namespace {

/// Up to here, going through all hashes is as quick as a table.
constexpr std::size_t fewEntries = 8;

/// Spreads a hash over a table whose size is a power of two. The low bits of a hash needn't differ: those of whole
/// numbers don't.
std::size_t firstSlot(Int hash, std::size_t slots) {
  const std::uint64_t mixed = static_cast<std::uint64_t>(hash) * 0x9E3779B97F4A7C15u;
  return mixed >> (64 - std::countr_zero(slots));
}

}  // namespace

void Dictionary::set(Value key, Value value) {
  const Int hash = key.hashValue();
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
  const std::size_t index = indexOf(key, key.hashValue());
  return index < entries_.size() ? &entries_[index].value : nullptr;
}

String Dictionary::printed(std::size_t index) const {
  const Entry& entry = entries_[index];
  return String::concatenation({entry.key.description(), ": ", entry.value.description()});
}

String HostDictionary::printed(std::size_t index) const {
  const Entry& entry = entries_[index];
  return String::concatenation({entry.first.debugPrinted(), ": ", entry.second.debugPrinted()});
}

/// The number of entries if there is no such key.
std::size_t Dictionary::indexOf(const Value& key, Int hash) const {
  const auto isAt = [&](std::size_t index) { return hashes_[index] == hash && entries_[index].key == key; };
  if (table_.empty()) {
    std::size_t index = 0;
    while (index < entries_.size() && !isAt(index)) ++index;
    return index;
  }
  for (std::size_t slot = firstSlot(hash, table_.size()); table_[slot] != 0; slot = (slot + 1) & (table_.size() - 1)) {
    if (isAt(table_[slot] - 1)) return table_[slot] - 1;
  }
  return entries_.size();
}

void Dictionary::addToTable(std::size_t index) {
  std::size_t slot = firstSlot(hashes_[index], table_.size());
  while (table_[slot] != 0) slot = (slot + 1) & (table_.size() - 1);
  table_[slot] = static_cast<std::uint32_t>(index + 1);
}

void Dictionary::rebuildTable(std::size_t slots) {
  table_.assign(slots, 0);
  for (std::size_t index = 0; index < entries_.size(); ++index) addToTable(index);
}

}  // namespace velto

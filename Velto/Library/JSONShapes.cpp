// The kinds of objects in a JSON document.
#include "Velto/Library/JSONShapes.h"

#include <algorithm>
#include <utility>

#include "Velto/Platform/Wrapping.h"

namespace velto {
namespace {

bool hasKeys(const Dictionary& dictionary, std::span<const Value> parts) {
  if (2 * dictionary.size() != parts.size()) return false;
  std::size_t index = 0;
  const Dictionary::Entries entries = dictionary.entries();
  return std::all_of(entries.begin(), entries.end(), [&](const Dictionary::Entry& entry) {
    return entry.key.string()->isSameAs(*parts[2 * index++].string());
  });
}

std::vector<Value> takeValues(std::span<Value> parts) {
  std::vector<Value> values;
  values.reserve(parts.size() / 2);
  for (std::size_t index = 1; index < parts.size(); index += 2) values.push_back(std::move(parts[index]));
  return values;
}

Dictionary takeAll(std::span<Value> parts) {
  Dictionary dictionary;
  dictionary.reserve(parts.size() / 2);
  for (std::size_t index = 0; index < parts.size(); index += 2) {
    dictionary.set(std::move(parts[index]), std::move(parts[index + 1]));
  }
  return dictionary;
}

}  // namespace

Dictionary JSONShapes::take(std::span<Value> parts) {
  constexpr std::size_t most = 64;  // an object of more is data by its keys as well
  const std::size_t count = parts.size() / 2;
  if (count == 0 || count > most) return takeAll(parts);
  const std::size_t hash = hashOfKeys(parts);
  if (const Dictionary* const alike = find(parts, hash)) return alike->withValues(takeValues(parts));
  Dictionary dictionary = takeAll(parts);
  const bool areAllKept = dictionary.size() == count;
  if (areAllKept) seen_.emplace(hash, dictionary);
  return dictionary;
}

VELTO_WRAPS std::size_t JSONShapes::hashOfKeys(std::span<const Value> parts) noexcept {
  std::size_t hash = parts.size();
  for (std::size_t index = 0; index < parts.size(); index += 2) {
    hash = (hash ^ parts[index].string()->hash()) * 0x9E3779B97F4A7C15u;
    hash ^= hash >> 32;
  }
  return hash;
}

const Dictionary* JSONShapes::find(std::span<const Value> parts, std::size_t hash) const {
  const auto [begin, end] = seen_.equal_range(hash);
  const auto found = std::find_if(begin, end, [&](const auto& seen) { return hasKeys(seen.second, parts); });
  return found != end ? &found->second : nullptr;
}

}  // namespace velto

// The table by which a dictionary finds its keys.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace velto {

/// The hashes of the keys, in the order of the entries, and for more than a few of them a table over these.
class KeyIndex {
 public:
  /// Up to here, going through all keys is as quick as a table.
  static constexpr std::size_t few = 8;

  std::size_t size() const noexcept { return hashes_.size(); }
  std::uint64_t hash(std::size_t index) const noexcept { return hashes_[index]; }

  void reserve(std::size_t count);
  /// Takes in the key of one more entry.
  void add(std::uint64_t hash);

  /// The first wanted entry whose key has the hash; `size()` if there is none.
  template <typename IsWanted>
  std::size_t search(std::uint64_t hash, const IsWanted& isWanted) const;

 private:
  static std::size_t firstSlot(std::uint64_t hash, std::size_t slots) noexcept;
  void addToTable(std::size_t index);
  void rebuildTable(std::size_t slots);

  std::vector<std::uint64_t> hashes_;
  std::vector<std::uint32_t> table_;  // open addressing: 0, or 1 + the index of an entry; empty while few
};

template <typename IsWanted>
std::size_t KeyIndex::search(std::uint64_t hash, const IsWanted& isWanted) const {
  const auto isFound = [&](std::size_t index) { return hashes_[index] == hash && isWanted(index); };
  if (table_.empty()) {
    std::size_t index = 0;
    while (index < size() && !isFound(index)) ++index;
    return index;
  }
  for (std::size_t slot = firstSlot(hash, table_.size()); table_[slot] != 0; slot = (slot + 1) & (table_.size() - 1)) {
    if (isFound(table_[slot] - 1)) return table_[slot] - 1;
  }
  return size();
}

}  // namespace velto

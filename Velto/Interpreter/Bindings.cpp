#include "Velto/Interpreter/Bindings.h"

namespace velto {

namespace {

constexpr std::size_t manyBindings = 8;
constexpr std::size_t absent = static_cast<std::size_t>(-1);

}  // namespace

Value* Bindings::find(const String& name) noexcept {
  const std::size_t index = indexOf(name);
  return index == absent ? nullptr : &bindings_[index].value;
}

const Value* Bindings::find(const String& name) const noexcept {
  const std::size_t index = indexOf(name);
  return index == absent ? nullptr : &bindings_[index].value;
}

void Bindings::set(const String& name, Value value) {
  if (Value* present = find(name)) {
    *present = std::move(value);
    return;
  }
  bindings_.push_back({name, std::move(value)});
  if (!table_.empty()) {
    addToTable(bindings_.size() - 1);
  } else if (bindings_.size() > manyBindings) {
    rebuildTable(4 * manyBindings);
  }
}

void Bindings::clear() noexcept {
  table_.clear();
  // Moved out first: what goes with the values may look at this scope.
  const std::vector<Binding> doomed = std::move(bindings_);
  bindings_.clear();
}

std::size_t Bindings::indexOf(const String& name) const noexcept {
  if (!table_.empty()) {
    const std::size_t mask = table_.size() - 1;
    for (std::size_t slot = name.hash() & mask; table_[slot] != 0; slot = (slot + 1) & mask) {
      if (bindings_[table_[slot] - 1].name == name) return table_[slot] - 1;
    }
    return absent;
  }
  // Names of one file share their storage, so the first pass nearly always decides.
  for (std::size_t index = 0; index < bindings_.size(); ++index) {
    if (bindings_[index].name.isSameAs(name)) return index;
  }
  for (std::size_t index = 0; index < bindings_.size(); ++index) {
    if (bindings_[index].name == name) return index;
  }
  return absent;
}

void Bindings::addToTable(std::size_t index) {
  if (2 * bindings_.size() > table_.size()) {
    rebuildTable(2 * table_.size());
    return;
  }
  const std::size_t mask = table_.size() - 1;
  std::size_t slot = bindings_[index].name.hash() & mask;
  while (table_[slot] != 0) slot = (slot + 1) & mask;
  table_[slot] = static_cast<std::uint32_t>(index + 1);
}

void Bindings::rebuildTable(std::size_t slots) {
  table_.assign(slots, 0);
  for (std::size_t index = 0; index < bindings_.size(); ++index) addToTable(index);
}

}  // namespace velto

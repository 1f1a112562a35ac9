#include "Velto/Interpreter/Bindings.h"

#include <bit>

namespace velto {

namespace {

bool isNamed(const Bindings::Binding& binding, const String& name, std::size_t hash) {
  return binding.name.isSameAs(name) || (binding.name.hash() == hash && binding.name == name);
}

}  // namespace

void Bindings::set(const String& name, Value value) {
  if (Value* present = find(name)) {
    *present = std::move(value);
  } else {
    append(name, value);
  }
}

bool Bindings::addAnew(const String& name, const Value& value) {
  if (contains(name)) return false;
  append(name, value);
  return true;
}

void Bindings::append(const String& name, const Value& value) {
  // First, as it is what may lack memory: a name mustn't stand here without being found.
  if (size() >= few || hasTable()) makeRoomInTable();
  if (end_ == endOfAll()) {
    bindings_.emplace_back(name, value);
    end_ = &bindings_.back();
  } else {
    *end_ = Binding(name, value);
  }
  ++end_;
  filter_ |= filterBit(name.hash());
  if (hasTable()) enterIntoTable(size() - 1);
}

bool Bindings::remove(const String& name) {
  const std::size_t hash = name.hash();
  const Binding* const binding = mayHave(hash) ? findBinding(name, hash) : nullptr;
  if (!binding) return false;
  const auto place = bindings_.begin() + (binding - bindings_.data());
  const Value doomed = std::move(place->value);  // what goes with it may look at this scope
  bindings_.erase(place);
  --end_;
  if (hasTable()) rebuildTable(table_.size());
  return true;
}

void Bindings::removeAll() noexcept {
  // One by one, and whole in between: what goes with a value may look at this scope, or even add to it.
  while (end_ != bindings_.data()) {
    if (hasTable()) table_.clear();
    const Value doomed = std::move((--end_)->value);
  }
  if (bindings_.size() > few) bindings_.erase(bindings_.begin() + few, bindings_.end());
  filter_ = 0;
}

/// The rest of `clearIfPlain`, from the first value on that holds something.
bool Bindings::clearTexts() noexcept {
  while (end_ != bindings_.data()) {
    if (end_[-1].value.isLastOfObject()) return false;
    if (hasTable()) table_.clear();  // another thread may have let go meanwhile, so that something went after all
    const Value doomed = std::move((--end_)->value);
  }
  filter_ = 0;
  return true;
}

const Bindings::Binding* Bindings::findByText(const String& name, std::size_t hash) const {
  for (const Binding& binding : bindings()) {
    if (isNamed(binding, name, hash)) return &binding;
  }
  return nullptr;
}

const Bindings::Binding* Bindings::findInTable(const String& name, std::size_t hash) const {
  const std::size_t mask = table_.size() - 1;
  for (std::size_t slot = hash & mask; table_[slot] != 0; slot = (slot + 1) & mask) {
    const Binding& binding = bindings_[table_[slot] - 1];
    if (isNamed(binding, name, hash)) return &binding;
  }
  return nullptr;
}

/// For one name more. There may be many names and no table, as when they are being cleared or memory has lacked.
void Bindings::makeRoomInTable() {
  const std::size_t slots = 2 * (size() + 1);
  if (slots > table_.size()) rebuildTable(std::bit_ceil(slots));
}

void Bindings::rebuildTable(std::size_t slots) {
  table_.assign(slots, 0);
  for (std::size_t index = 0; index < size(); ++index) enterIntoTable(index);
}

void Bindings::enterIntoTable(std::size_t index) {
  const std::size_t mask = table_.size() - 1;
  std::size_t slot = bindings_[index].name.hash() & mask;
  while (table_[slot] != 0) slot = (slot + 1) & mask;
  table_[slot] = static_cast<std::uint32_t>(index + 1);
}

}  // namespace velto

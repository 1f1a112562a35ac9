// The names of a scope.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "Velto/Platform/String.h"
#include "Velto/Value/Value.h"

namespace [[gnu::visibility("default")]] velto {

/// A small dictionary of names and values in the order of definition. Most scopes hold a few names, so they stand in a
/// flat array that isn't allocated before the first one; a table is added when there are many.
class Bindings {
 public:
  struct Binding {
    Binding(const String& name, const Value& value) noexcept : name(name), value(value) {}

    String name;
    Value value;
  };

  /// How many names do without a table.
  static constexpr std::size_t few = 8;

  Bindings() = default;
  Bindings(const Bindings&) = delete;
  Bindings& operator=(const Bindings&) = delete;

  /// Null if the name isn't there; good until the names change.
  const Value* find(const String& name) const { return find(name, name.hash()); }
  /// The same for a name whose hash is known.
  const Value* find(const String& name, std::size_t hash) const {
    if (!mayHave(hash)) return nullptr;
    const Binding* found = findBinding(name, hash);
    return found ? &found->value : nullptr;
  }
  /// False if no name with this hash is there.
  bool mayHave(std::size_t hash) const noexcept { return (filter_ & filterBit(hash)) != 0; }
  /// The value at `place` if this very name stands there. A look, and no search.
  [[gnu::always_inline]] const Value* findAt(std::uint32_t place, const String& name) const noexcept {
    const std::uintptr_t address = addressOf(place);
    if (address >= reinterpret_cast<std::uintptr_t>(end_)) return nullptr;
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the number was made of a pointer into the same array
    const auto* const binding = reinterpret_cast<const Binding*>(address);
    return binding->name.isSameAs(name) ? &binding->value : nullptr;
  }
  Value* findAt(std::uint32_t place, const String& name) noexcept {
    return const_cast<Value*>(std::as_const(*this).findAt(place, name));
  }
  /// Where the name stands, which has to be one of those here.
  std::uint32_t placeOf(const String& name) const {
    return static_cast<std::uint32_t>(findBinding(name, name.hash()) - bindings_.data());
  }
  Value* find(const String& name) { return const_cast<Value*>(std::as_const(*this).find(name)); }
  void set(const String& name, Value value);
  /// False if the name is there already.
  [[gnu::always_inline]] bool add(const String& name, const Value& value) {
    return addAgain(name, value) || addAnew(name, value);
  }
  /// Adds names with these values to none, if those names stood here first before the last `clear`, as the parameters
  /// of a function often did. Stops at the first one that didn't, and is false then. `bits` are what `bitsOf` says of
  /// them.
  template <std::invocable<std::size_t> NameAt>
  [[gnu::always_inline]] bool addAllAgain(std::span<const Value> values, std::uint64_t bits, const NameAt& nameAt) {
    if (bits == 0 || size() != 0 || addressOf(values.size()) > reinterpret_cast<std::uintptr_t>(endOfAll()))
      return false;
    filter_ = bits;  // for all of them at once, since it does no harm to ask for one that isn't there
    for (std::size_t index = 0; index < values.size(); ++index) {
      if (!end_->name.isSameAs(nameAt(index))) return false;
      new (&end_->value) Value(values[index]);  // nothing is held there
      ++end_;
    }
    return true;
  }
  /// The bits of the filter, if they tell that no two of the names are the same; else 0.
  template <std::invocable<std::size_t> NameAt>
  static std::uint64_t bitsOf(std::size_t count, const NameAt& nameAt) {
    std::uint64_t bits = 0;
    for (std::size_t index = 0; index < count; ++index) {
      const std::uint64_t bit = filterBit(nameAt(index).hash());
      if ((bits & bit) != 0) return 0;
      bits |= bit;
    }
    return bits;
  }
  /// False if the name isn't there. Those behind it move up.
  bool remove(const String& name);
  bool contains(const String& name) const { return find(name) != nullptr; }
  /// Keeps the memory for the names to come, and the first few names themselves: they are often the same again.
  void clear() noexcept {
    if (size() != 0) removeAll();
  }
  /// The same if nothing but texts goes with the values, and there is no table. Else false; some names at the end may
  /// be gone.
  [[gnu::always_inline]] bool clearIfPlain() noexcept {
    if (hasTable()) return false;
    for (; end_ != bindings_.data(); --end_) {
      if (end_[-1].value.isHolder()) return clearTexts();
    }
    filter_ = 0;
    return true;
  }

  /// Whether there are so many names that a table helps to find them.
  bool hasTable() const noexcept { return !table_.empty(); }

  std::span<const Binding> bindings() const noexcept { return {bindings_.data(), size()}; }
  std::size_t size() const noexcept { return static_cast<std::size_t>(end_ - bindings_.data()); }

 private:
  /// Adds a name that stood at the very place before the last `clear`, as those of functions and loops often do. False
  /// for any other name, and in doubt.
  [[gnu::always_inline]] bool addAgain(const String& name, const Value& value) noexcept {
    const std::size_t hash = name.knownHash();
    if (hash == 0 || mayHave(hash) || end_ == endOfAll() || !end_->name.isSameAs(name)) return false;
    std::construct_at(&end_->value, value);  // nothing is held there
    ++end_;
    filter_ |= filterBit(hash);
    return true;
  }
  bool addAnew(const String& name, const Value& value);
  void append(const String& name, const Value& value);
  void removeAll() noexcept;
  [[gnu::noinline]] bool clearTexts() noexcept;
  /// As a number, since there needn't be any memory for the place to lie in.
  std::uintptr_t addressOf(std::size_t place) const noexcept {
    return reinterpret_cast<std::uintptr_t>(bindings_.data()) + place * sizeof(Binding);
  }
  static std::uint64_t filterBit(std::size_t hash) noexcept { return std::uint64_t{1} << (hash & 63); }
  const Binding* findBinding(const String& name, std::size_t hash) const {
    return table_.empty() ? findAmongFew(name, hash) : findInTable(name, hash);
  }
  /// Names of one file share their storage, so the first pass nearly always decides.
  const Binding* findAmongFew(const String& name, std::size_t hash) const {
    for (const Binding& binding : bindings()) {
      if (binding.name.isSameAs(name)) return &binding;
    }
    return findByText(name, hash);
  }
  const Binding* findByText(const String& name, std::size_t hash) const;
  const Binding* findInTable(const String& name, std::size_t hash) const;
  const Binding* endOfAll() const noexcept { return bindings_.data() + bindings_.size(); }
  void makeRoomInTable();
  void rebuildTable(std::size_t slots);
  void enterIntoTable(std::size_t index);

  std::vector<Binding> bindings_;  // behind those that are there, the names that were cleared, with what holds nothing
  Binding* end_ = nullptr;         // of those that are there
  std::vector<std::uint32_t> table_;  // open addressing: 0, or 1 + the index of a binding; empty while few
  std::uint64_t filter_ = 0;          // a bit for each name: most questions are for names that stand further out
};

}  // namespace velto

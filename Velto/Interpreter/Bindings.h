// The names of a scope.
#pragma once

#include <cstdint>
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
    String name;
    Value value;
  };

  /// Null if the name isn't there; good until the next `set`.
  Value* find(const String& name) noexcept;
  const Value* find(const String& name) const noexcept;
  void set(const String& name, Value value);
  bool contains(const String& name) const noexcept { return find(name) != nullptr; }
  void clear() noexcept;

  std::span<const Binding> bindings() const noexcept { return bindings_; }
  std::size_t size() const noexcept { return bindings_.size(); }

 private:
  std::size_t indexOf(const String& name) const noexcept;
  void addToTable(std::size_t index);
  void rebuildTable(std::size_t slots);

  std::vector<Binding> bindings_;
  std::vector<std::uint32_t> table_;  // open addressing: 0, or 1 + the index of a binding; empty while few
};

}  // namespace velto

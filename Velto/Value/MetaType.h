// A type of the language: a name.
#pragma once

#include <functional>
#include <optional>

#include "Velto/Platform/String.h"

namespace [[gnu::visibility("default")]] velto {

class MetaType {
 public:
  /// No check is made that such a type exists.
  explicit MetaType(String name) noexcept : name(std::move(name)) {}

  /// The type of a value; nothing for `nil` and an uninitialized value.
  static std::optional<MetaType> of(const Value& value);

  String name;

  std::size_t hashValue() const { return name.hash(); }

  friend bool operator==(const MetaType&, const MetaType&) = default;
};

}  // namespace velto

template <>
struct std::hash<velto::MetaType> {
  std::size_t operator()(const velto::MetaType& type) const { return type.hashValue(); }
};

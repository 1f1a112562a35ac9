// Ranges of integers.
#pragma once

#include "Velto/Value/Object.h"
#include "Velto/Value/Value.h"

namespace [[gnu::visibility("default")]] velto {

/// `lower..<upper`. An upper bound below the lower one is a fatal stop.
class CountableRange final : public Object {
 public:
  CountableRange(Int lower, Int upper);

  const Int lower;
  const Int upper;

  std::optional<Value> get(const String& name) const override;
  String objectDescription() const override;
  String typeName() const override { return "CountableRange"; }
  bool mayHoldFunctions() const noexcept override { return false; }
};

/// `lower...upper`. An upper bound below the lower one is a fatal stop.
class CountableClosedRange final : public Object {
 public:
  CountableClosedRange(Int lower, Int upper);

  const Int lower;
  const Int upper;

  std::optional<Value> get(const String& name) const override;
  String objectDescription() const override;
  String typeName() const override { return "CountableClosedRange"; }
  bool mayHoldFunctions() const noexcept override { return false; }
};

inline const CountableRange* Value::openRange() const noexcept {
  return as<const CountableRange>(Tag::openRange);
}

inline const CountableClosedRange* Value::closedRange() const noexcept {
  return as<const CountableClosedRange>(Tag::closedRange);
}

}  // namespace velto

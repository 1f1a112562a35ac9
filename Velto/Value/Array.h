// Arrays: of values, and of anything else that a host holds.
#pragma once

#include <vector>

#include "Velto/Platform/Grove.h"
#include "Velto/Value/ContentsMark.h"
#include "Velto/Value/HostValue.h"
#include "Velto/Value/Object.h"
#include "Velto/Value/Value.h"

namespace [[gnu::visibility("default")]] velto {

/// What the members of arrays need of an array, whatever its elements are.
class Sequence : public Object {
 public:
  virtual std::size_t size() const noexcept = 0;
  /// The element if it is a `Value`, null for any other host value.
  virtual const Value* valueAt(std::size_t index) const noexcept = 0;
  /// The element by the constructor from a host value.
  virtual std::optional<Value> converted(std::size_t index) const = 0;
  /// The host's plain printing.
  virtual String printed(std::size_t index) const = 0;

  std::optional<Value> get(const String& name) const final;
  String typeName() const final { return "Array"; }
};

/// An array of values, filled once and const ever after.
class Array final : public Sequence, public Plantable {
 public:
  Array() = default;
  explicit Array(std::vector<Value> elements) noexcept : elements_(std::move(elements)) {}

  const std::vector<Value>& elements() const noexcept { return elements_; }

  std::size_t size() const noexcept override { return elements_.size(); }
  const Value* valueAt(std::size_t index) const noexcept override { return &elements_[index]; }
  std::optional<Value> converted(std::size_t index) const override { return elements_[index]; }
  String printed(std::size_t index) const override { return elements_[index].description(); }
  String objectDescription() const override;

  ContentsMark contents;

 private:
  std::vector<Value> elements_;
};

/// An array of other host values. It has the members of an array, but no subscript, no loop and no equality. As a
/// `Value`, one that has nothing but values in it is an `Array`.
class HostArray final : public Sequence {
 public:
  explicit HostArray(std::vector<HostValue> elements) noexcept : elements_(std::move(elements)) {}

  const std::vector<HostValue>& elements() const noexcept { return elements_; }

  std::size_t size() const noexcept override { return elements_.size(); }
  const Value* valueAt(std::size_t index) const noexcept override;
  std::optional<Value> converted(std::size_t index) const override;
  String printed(std::size_t index) const override;
  String objectDescription() const override;

 private:
  std::vector<HostValue> elements_;
};

/// These host values as an array, if all of them are a `Value`.
std::optional<Array> arrayOfValues(const HostValue::Elements& elements);

inline const Array* Value::array() const noexcept {
  return as<const Array>(Tag::array);
}

}  // namespace velto

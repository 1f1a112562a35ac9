// The members of arrays that work through all elements.
#pragma once

#include <array>

#include "Velto/Value/Array.h"
#include "Velto/Value/Callable.h"

namespace [[gnu::visibility("default")]] velto {

/// A function of one parameter that holds the array on which it was read.
class ArrayFunction : public Callable {
 public:
  String name() const final { return name_; }
  std::span<const Label> labels() const noexcept final { return labels_; }
  /// Not if the array has nothing but texts and numbers.
  bool mayHoldFunctions() const noexcept final;

  const Ref<const Sequence> array;

 protected:
  ArrayFunction(String name, Label label, Ref<const Sequence> array)
      : array(std::move(array)), name_(std::move(name)), labels_{std::move(label)} {}

 private:
  String name_;
  std::array<Label, 1> labels_;
};

/// `map(f)`: the results of `f` for each element.
class Map final : public ArrayFunction {
 public:
  explicit Map(Ref<const Sequence> array) : ArrayFunction("map", std::nullopt, std::move(array)) {}
  Value call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const override;
};

/// `filter(f)`: the elements for which `f` is true.
class Filter final : public ArrayFunction {
 public:
  explicit Filter(Ref<const Sequence> array) : ArrayFunction("filter", std::nullopt, std::move(array)) {}
  Value call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const override;
};

/// `joined(separator: s)`: the texts of the elements, with `s` between them.
class Join final : public ArrayFunction {
 public:
  explicit Join(Ref<const Sequence> array) : ArrayFunction("joined", "separator", std::move(array)) {}
  Value call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const override;
};

/// `sorted(by: f)`: the elements ordered by `f`, which tells whether the first of two must come before the second.
/// Equal elements may change their order.
class Sort final : public ArrayFunction {
 public:
  explicit Sort(Ref<const Sequence> array) : ArrayFunction("sorted", "by", std::move(array)) {}
  Value call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const override;
};

/// What `joined` makes of an array of any kind, one element after the other.
String joinedOneByOne(const Sequence& array, std::string_view separator);

}  // namespace velto

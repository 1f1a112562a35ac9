// Host closures as callables.
#pragma once

#include <array>
#include <functional>
#include <utility>

#include "Velto/Value/Callable.h"

namespace [[gnu::visibility("default")]] velto {

/// A closure of `count` values that can't fail, under a name. It has no labels until they are given.
template <std::size_t count>
class NativeFunction final : public Callable {
  template <std::size_t>
  using AnyValue = const Value&;
  template <std::size_t... indices>
  static auto closureType(std::index_sequence<indices...>) -> std::function<Value(AnyValue<indices>...)>;

 public:
  using Closure = decltype(closureType(std::make_index_sequence<count>()));

  NativeFunction(String name, Closure closure) : name_(std::move(name)), closure_(std::move(closure)) {}
  NativeFunction(String name, std::array<Label, count> labels, Closure closure)
      : name_(std::move(name)), labels_(std::move(labels)), closure_(std::move(closure)) {}

  String name() const override { return name_; }
  std::span<const Label> labels() const noexcept override { return labels_; }
  void setLabels(std::array<Label, count> labels) { labels_ = std::move(labels); }
  const Closure& closure() const noexcept { return closure_; }
  bool mayHoldFunctions() const noexcept override { return mayHoldFunctions_; }
  /// For a closure that holds none, before anybody else sees it.
  void setHoldsNoFunctions() noexcept { mayHoldFunctions_ = false; }

  /// Arguments behind the last parameter are ignored.
  Value call(Interpreter&, Arguments arguments, const ReportError&) const override {
    return [&]<std::size_t... indices>(std::index_sequence<indices...>) {
      return closure_(arguments[indices]...);
    }
    (std::make_index_sequence<count>());
  }

 private:
  String name_;
  std::array<Label, count> labels_;
  Closure closure_;
  bool mayHoldFunctions_ = true;
};

using Function0 = NativeFunction<0>;
using Function1 = NativeFunction<1>;
using Function2 = NativeFunction<2>;
using Function3 = NativeFunction<3>;
using Function4 = NativeFunction<4>;

}  // namespace velto

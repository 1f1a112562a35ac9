// Every function value.
#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "Velto/Forward.h"
#include "Velto/Platform/Ref.h"
#include "Velto/Platform/String.h"
#include "Velto/Value/Value.h"

namespace [[gnu::visibility("default")]] velto {

/// What a call must write before an argument, absent for a parameter without a label.
using Label = std::optional<String>;
using Labels = std::vector<Label>;

/// The arguments of a call in the order of the parameters; a view, good during the call.
class Arguments {
 public:
  Arguments(std::span<const Value> values) noexcept : values_(values) {}
  Arguments(const std::vector<Value>& values) noexcept : values_(values) {}
  Arguments(std::initializer_list<Value> values) noexcept : values_(values.begin(), values.size()) {}

  std::size_t size() const noexcept { return values_.size(); }
  std::span<const Value> values() const noexcept { return values_; }
  /// That many, or all.
  Arguments first(std::size_t count) const noexcept { return values_.first(std::min(count, size())); }
  auto begin() const noexcept { return values_.begin(); }
  auto end() const noexcept { return values_.end(); }

  /// A missing argument is a fatal stop: a call expression has checked the count, but a native function that is reached
  /// through `map` and the like has had no such check.
  const Value& operator[](std::size_t index) const {
    if (index >= values_.size()) missing(index);
    return values_[index];
  }

 private:
  [[noreturn]] static void missing(std::size_t index);

  std::span<const Value> values_;
};

/// How a native function fails: it calls this with a message and is left by an exception. A view of a function that
/// throws, good during the call.
class ReportError {
 public:
  template <std::invocable<const String&> F>
  ReportError(const F& function) noexcept
      : function_(&function),
        invoke_([](const void* target, const String& message) { (*static_cast<const F*>(target))(message); }) {}

  [[noreturn]] void operator()(const String& message) const;

 private:
  const void* function_;
  void (*invoke_)(const void*, const String&);
};

/// A function value. No class can be both this and an `Object`: a value is the one or the other.
class Callable : public Counted {
 public:
  /// As shown to users.
  virtual String name() const = 0;
  /// One entry for each parameter, in order.
  virtual std::span<const Label> labels() const noexcept = 0;
  virtual Value call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const = 0;

  /// Whether a function that a program has declared may stand in it, as for an `Object`.
  virtual bool mayHoldFunctions() const noexcept { return true; }

  /// Whether a program has declared it: then it is a `Function`.
  bool isDeclared() const noexcept { return isDeclared_; }
  Int arity() const noexcept { return static_cast<Int>(labels().size()); }
  /// "copy(from: a.txt, to: b.txt)": as many pairs as there are both labels and arguments.
  String describe(std::span<const Value> arguments) const;
  /// A value that holds this very callable, which must be behind a `Ref` already: otherwise it is a fatal stop.
  Value asValue() const;

 private:
  friend class Function;

  bool isDeclared_ = false;
};

inline const Callable* Value::callable() const noexcept {
  return as<const Callable>(Tag::callable);
}

}  // namespace velto

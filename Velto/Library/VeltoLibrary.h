// `print`, `execute`, `process` and `makeUUID`.
#pragma once

#include <array>

#include "Velto/Library/Library.h"
#include "Velto/Value/Callable.h"

namespace [[gnu::visibility("default")]] velto {

class VeltoLibrary final : public Library {
 public:
  void load(Interpreter& interpreter) override;
};

/// Writes the description of a value, and nothing besides.
class Print final : public Callable {
 public:
  String name() const override { return "print"; }
  std::span<const Label> labels() const noexcept override { return labels_; }
  Value call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const override;

 private:
  std::array<Label, 1> labels_;
};

/// Runs a file of program code as if it stood at the call, in the current scope.
class Execute final : public Callable {
 public:
  String name() const override { return "execute"; }
  std::span<const Label> labels() const noexcept override { return labels_; }
  Value call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const override;

 private:
  std::array<Label, 1> labels_;
};

/// Gives the text of a fresh random UUID.
class MakeUUID final : public Callable {
 public:
  String name() const override { return "makeUUID"; }
  std::span<const Label> labels() const noexcept override { return {}; }
  Value call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const override;
};

}  // namespace velto

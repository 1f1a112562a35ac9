// `copy` and `mkdir`.
#pragma once

#include <array>

#include "Velto/Library/Library.h"
#include "Velto/Value/Callable.h"

namespace [[gnu::visibility("default")]] velto {

class OSLibrary final : public Library {
 public:
  void load(Interpreter& interpreter) override;
};

/// `copy(from: source, to: destination)`: the source goes from the base directory, the destination from the current
/// one.
class Copy final : public Callable {
 public:
  String name() const override { return "copy"; }
  std::span<const Label> labels() const noexcept override { return labels_; }
  Value call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const override;

 private:
  std::array<Label, 2> labels_ = {"from", "to"};
};

}  // namespace velto

// The function `process`.
#pragma once

#include <array>
#include <memory>

#include "Velto/Platform/FileSystem.h"
#include "Velto/Processor/ParseCache.h"
#include "Velto/Value/Callable.h"

namespace [[gnu::visibility("default")]] velto {

/// Runs a template in the current interpreter and sends all that it prints to a destination.
class Process final : public Callable {
 public:
  String name() const override { return "process"; }
  std::span<const Label> labels() const noexcept override { return labels_; }
  Value call(Interpreter& interpreter, Arguments arguments, const ReportError& reportError) const override;

 private:
  std::array<Label, 2> labels_ = {Label(), Label("into")};
};

}  // namespace velto

// The exception with which a stage of the pipeline stops.
#pragma once

#include "Velto/Platform/Error.h"

namespace [[gnu::visibility("default")]] velto {

/// Tells in which stage the pipeline stopped; the words have gone to the logger before.
class VeltoError final : public Error {
 public:
  enum class Step { scan, parse, interpret };

  explicit VeltoError(Step step) noexcept : step(step) {}

  const char* what() const noexcept override { return "VeltoError"; }

  Step step;
};

}  // namespace velto

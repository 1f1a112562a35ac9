// How a stage fails.
#pragma once

#include "Velto/Diagnostics/Logger.h"
#include "Velto/Diagnostics/VeltoError.h"

namespace velto {

/// Reports `message` at level error, then throws. Nothing else in the library throws `VeltoError`, but for `Processor`,
/// which turns the `hadError` of a stage into one.
[[noreturn]] void fail(Logger& logger, VeltoError::Step step, const Range& range, String message);

}  // namespace velto

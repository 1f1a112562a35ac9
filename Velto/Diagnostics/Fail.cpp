// How a stage fails.
#include "Velto/Diagnostics/Fail.h"

#include <utility>

namespace velto {

void fail(Logger& logger, VeltoError::Step step, const Range& range, String message) {
  logger.report(Message::Level::error, std::move(message), range);
  throw VeltoError(step);
}

}  // namespace velto

// The registration of the buffer that has bytes waiting, one for each thread.
#include "Velto/Platform/PendingOutput.h"

#include <utility>

namespace velto {

namespace {

thread_local constinit PendingOutput* waiting = nullptr;

}  // namespace

PendingOutput* pendingOutput() noexcept {
  return waiting;
}

void setPendingOutput(PendingOutput* output) noexcept {
  waiting = output;
}

void flushPendingOutput() noexcept {
  if (PendingOutput* const output = std::exchange(waiting, nullptr)) output->flush();
}

}  // namespace velto

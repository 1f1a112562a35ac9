// The registration of the buffer that has bytes waiting, one for each thread.
#include "Velto/Platform/PendingOutput.h"

#include <new>
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

void flushPendingOutput() {
  if (PendingOutput* const output = std::exchange(waiting, nullptr)) output->flush();
}

void flushPendingOutputAnyway() noexcept {
  while (pendingOutput()) {
    try {
      flushPendingOutput();
    } catch (const std::bad_alloc&) {
      continue;
    }
  }
}

}  // namespace velto

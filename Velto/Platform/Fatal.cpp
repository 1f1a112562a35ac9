// The one way in which the process is stopped on purpose.
#include "Velto/Platform/Fatal.h"

#include <atomic>
#include <cstdlib>
#include <new>
#include <string>

#include "Velto/Platform/FileHandle.h"
#include "Velto/Platform/PendingOutput.h"

namespace velto {

namespace {

constexpr int standardError = 2;

std::atomic<FatalHook> fatalHook = nullptr;

/// In one piece, so that no other thread writes in between, unless there is no memory for that.
void writeReason(std::string_view what) noexcept try {
  writeFully(standardError, std::string("fatal: ").append(what).append("\n"));
} catch (const std::bad_alloc&) {
  for (const std::string_view piece : {std::string_view("fatal: "), what, std::string_view("\n")}) {
    writeFully(standardError, piece);
  }
}

}  // namespace

FatalHook setFatalHook(FatalHook hook) noexcept {
  return fatalHook.exchange(hook);
}

void fatalError(std::string_view what) {
  flushPendingOutputAnyway();
  writeReason(what);
  if (const FatalHook hook = fatalHook) hook(what);
  std::abort();
}

}  // namespace velto

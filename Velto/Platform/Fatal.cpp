// The one way in which the process is stopped on purpose.
#include "Velto/Platform/Fatal.h"

#include <atomic>
#include <cstdlib>
#include <string>

#include "Velto/Platform/FileHandle.h"
#include "Velto/Platform/PendingOutput.h"

namespace velto {

namespace {

constexpr int standardError = 2;

std::atomic<FatalHook> fatalHook = nullptr;

}  // namespace

FatalHook setFatalHook(FatalHook hook) noexcept {
  return fatalHook.exchange(hook);
}

void fatalError(std::string_view what) {
  flushPendingOutput();
  writeFully(standardError, std::string("fatal: ").append(what).append("\n"));
  if (const FatalHook hook = fatalHook) hook(what);
  std::abort();
}

}  // namespace velto

// Writing to a descriptor, below all buffers.
#include "Velto/Platform/FileHandle.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <ctime>

namespace velto {
namespace {

sigset_t onlyPipeSignal() noexcept {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGPIPE);
  return signals;
}

/// Keeps SIGPIPE from this thread while it lives. What the host does with the signal elsewhere stays as it is, and so
/// does one that was pending before.
class PipeSignalGuard {
 public:
  PipeSignalGuard() noexcept : signals_(onlyPipeSignal()) {
    pthread_sigmask(SIG_BLOCK, &signals_, &maskBefore_);
    wasPending_ = isBlockedByHost() && isPending();
  }
  PipeSignalGuard(const PipeSignalGuard&) = delete;
  PipeSignalGuard& operator=(const PipeSignalGuard&) = delete;
  ~PipeSignalGuard() {
    if (!isBlockedByHost()) pthread_sigmask(SIG_SETMASK, &maskBefore_, nullptr);
  }

  /// Takes the signal that came with a failed write.
  void takeSignal() const noexcept {
    constexpr timespec atOnce{};
    if (wasPending_) return;
    while (sigtimedwait(&signals_, nullptr, &atOnce) < 0 && errno == EINTR) continue;
  }

 private:
  bool isBlockedByHost() const noexcept { return sigismember(&maskBefore_, SIGPIPE) == 1; }

  static bool isPending() noexcept {
    sigset_t pending;
    return sigpending(&pending) == 0 && sigismember(&pending, SIGPIPE) == 1;
  }

  sigset_t signals_;
  sigset_t maskBefore_;
  bool wasPending_;
};

void waitUntilWritable(int descriptor) noexcept {
  constexpr int forever = -1;
  pollfd request{.fd = descriptor, .events = POLLOUT, .revents = 0};
  ::poll(&request, 1, forever);
}

}  // namespace

bool writeFully(int descriptor, std::string_view bytes) noexcept {
  const PipeSignalGuard guard;
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno == EAGAIN) {
      waitUntilWritable(descriptor);
    } else if (errno != EINTR) {
      if (errno == EPIPE) guard.takeSignal();
      return false;
    }
  }
  return true;
}

}  // namespace velto

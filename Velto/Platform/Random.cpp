// Randomness from the system.
#include "Velto/Platform/Random.h"

#include <stdlib.h>

#if defined(__linux__)
#include <sys/random.h>

#include <cerrno>

#include "Velto/Platform/Fatal.h"
#endif

namespace velto {

#if defined(__linux__)

void fillRandom(std::span<std::byte> bytes) {
  while (!bytes.empty()) {
    const ssize_t filled = ::getrandom(bytes.data(), bytes.size(), 0);
    if (filled >= 0) {
      bytes = bytes.subspan(static_cast<std::size_t>(filled));
    } else if (errno != EINTR) {
      fatalError("The system gives no random bytes.");
    }
  }
}

#else

void fillRandom(std::span<std::byte> bytes) {
  ::arc4random_buf(bytes.data(), bytes.size());
}

#endif

Int random() {
  Int number;
  fillRandom(std::as_writable_bytes(std::span(&number, 1)));
  return number;
}

}  // namespace velto

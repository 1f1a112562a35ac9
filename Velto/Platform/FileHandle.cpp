// Writing to a descriptor, below all buffers.
#include "Velto/Platform/FileHandle.h"

#include <unistd.h>

#include <cerrno>

namespace velto {

void writeFully(int descriptor, std::string_view bytes) noexcept {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      return;
    }
  }
}

}  // namespace velto

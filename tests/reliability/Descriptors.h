// How many descriptors a process may have.
#pragma once

#include <sys/resource.h>
#include <unistd.h>

namespace velto::test {

/// Leaves this process that many descriptors beside those of the standard streams, whatever it was started with.
inline void limitDescriptors(rlim_t count) {
  for (int descriptor = 3; descriptor < 256; ++descriptor) ::close(descriptor);
  const rlimit descriptors{3 + count, 3 + count};
  ::setrlimit(RLIMIT_NOFILE, &descriptors);
}

}  // namespace velto::test

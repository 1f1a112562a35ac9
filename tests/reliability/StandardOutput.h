// What a test writes to descriptor 1.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <string>

namespace velto::test {

/// Takes the place of standard output while it lives.
class StandardOutput {
 public:
  StandardOutput() : taken_(std::tmpfile()), before_(::dup(STDOUT_FILENO)) {
    std::fflush(stdout);
    ::dup2(::fileno(taken_), STDOUT_FILENO);
  }
  ~StandardOutput() {
    ::dup2(before_, STDOUT_FILENO);
    ::close(before_);
    std::fclose(taken_);
  }
  StandardOutput(const StandardOutput&) = delete;
  StandardOutput& operator=(const StandardOutput&) = delete;

  /// What has come since the last call.
  std::string take() const {
    std::string bytes(static_cast<std::size_t>(::lseek(STDOUT_FILENO, 0, SEEK_END)), '\0');
    const ssize_t count = ::pread(::fileno(taken_), bytes.data(), bytes.size(), 0);
    bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    (void)!::ftruncate(::fileno(taken_), 0);
    ::lseek(STDOUT_FILENO, 0, SEEK_SET);
    return bytes;
  }

 private:
  std::FILE* taken_;
  int before_;
};

}  // namespace velto::test

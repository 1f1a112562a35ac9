// Running the built command in a folder, and the folder itself.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace harness {

/// A fresh folder that goes when its holder goes.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

struct CommandResult {
  /// As a shell shows it: 128 and the number of the signal for a process that a signal ended.
  int exitStatus = 0;
  std::string standardOutput;
  std::string standardError;
};

/// Runs `program` with `arguments` (without the program's own name) in `folder`. A signal ends what takes too long:
/// SIGKILL after ten seconds of work, SIGALRM after two minutes of waiting.
CommandResult runCommand(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                         const std::filesystem::path& folder);

}  // namespace harness

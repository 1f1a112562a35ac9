// Running the built command in a folder, and the folder itself.
#include "Command.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

#include "Case.h"

namespace harness {

namespace {

constexpr rlim_t processorSeconds = 10;
constexpr unsigned secondsOfWaiting = 120;

void limit(const int resource, const rlim_t amount) {
  const rlimit limits{amount, amount};
  setrlimit(resource, &limits);
}

void redirect(const int descriptor, const std::filesystem::path& path, const int flags) {
  const int file = open(path.c_str(), flags | O_CLOEXEC, 0600);
  if (file < 0 || dup2(file, descriptor) < 0) _exit(126);
}

/// What happens in the child: nothing here returns. The limits and the alarm outlive `execv`.
[[noreturn]] void become(char* const* words, const std::filesystem::path& folder,
                         const std::filesystem::path& captured) {
  redirect(STDIN_FILENO, "/dev/null", O_RDONLY);
  redirect(STDOUT_FILENO, captured / "stdout", O_WRONLY | O_CREAT | O_TRUNC);
  redirect(STDERR_FILENO, captured / "stderr", O_WRONLY | O_CREAT | O_TRUNC);
  limit(RLIMIT_CORE, 0);
  limit(RLIMIT_CPU, processorSeconds);
  alarm(secondsOfWaiting);
  if (chdir(folder.c_str()) != 0) _exit(126);
  execv(words[0], words);
  _exit(127);
}

int exitStatusOf(const pid_t child) {
  int status = 0;
  if (waitpid(child, &status, 0) != child) throw std::runtime_error("can't wait for the command");
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "velto-case-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("can't make a temporary folder");
  path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

CommandResult runCommand(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                         const std::filesystem::path& folder) {
  const TemporaryFolder captured;
  std::vector<std::string> words = arguments;
  words.insert(words.begin(), program.string());
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);

  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("can't start the command");
  if (child == 0) become(pointers.data(), folder, captured.path());
  CommandResult result;
  result.exitStatus = exitStatusOf(child);
  result.standardOutput = readFile(captured.path() / "stdout");
  result.standardError = readFile(captured.path() / "stderr");
  return result;
}

}  // namespace harness

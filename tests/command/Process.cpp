// Running the built command in surroundings of one's choice.
#include "Process.h"

#include <fcntl.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <stdexcept>

namespace command_test {
namespace {

constexpr unsigned secondsOfWaiting = 60;

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

[[noreturn]] void become(const Process& process, int output, int messages) {
  dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
  dup2(output, STDOUT_FILENO);
  dup2(messages, STDERR_FILENO);
  std::vector<std::string> words = process.arguments;
  words.insert(words.begin(), process.program);
  std::vector<char*> pointers;
  for (std::string& word : words) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  alarm(secondsOfWaiting);
  if (chdir(process.folder.c_str()) != 0) _exit(126);
  process.prepare();
  execv(pointers[0], pointers.data());
  _exit(127);
}

int statusOf(pid_t child) {
  int status = 0;
  if (waitpid(child, &status, 0) != child) throw std::runtime_error("can't wait for the command");
  return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

/// A terminal whose other side is closed ends with an error, and so does the text.
std::string readToEnd(int descriptor) {
  std::string text;
  char part[4096];
  for (ssize_t count; (count = read(descriptor, part, sizeof part)) > 0;) {
    text.append(part, static_cast<std::size_t>(count));
  }
  return text;
}

std::string contentOf(const File& file) {
  std::rewind(file.get());
  return readToEnd(fileno(file.get()));
}

}  // namespace

Result run(const Process& process) {
  const File output(std::tmpfile());
  const File messages(std::tmpfile());
  const pid_t child = fork();
  if (child == 0) become(process, fileno(output.get()), fileno(messages.get()));
  const int status = statusOf(child);
  return {status, contentOf(output), contentOf(messages)};
}

Result runInTerminal(const Process& process) {
  int terminal = -1;
  const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child == 0) become(process, open("/dev/null", O_WRONLY), STDERR_FILENO);
  const std::string messages = readToEnd(terminal);
  close(terminal);
  return {statusOf(child), "", messages};
}

}  // namespace command_test

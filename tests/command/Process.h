// Running the built command in surroundings of one's choice.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace command_test {

struct Process {
  std::string program;
  std::vector<std::string> arguments;
  std::string folder;
  /// Happens in the child before it becomes the command.
  std::function<void()> prepare = [] {};
};

struct Result {
  int status = 0;  ///< as a shell shows it
  std::string output;
  std::string messages;
};

/// Standard output and standard error are files.
Result run(const Process& process);

/// Standard error is a terminal; its line ends come as "\r\n". Output is not kept.
Result runInTerminal(const Process& process);

}  // namespace command_test

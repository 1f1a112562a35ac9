// What another process costs.
#include "benchmarks/workloads/Process.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace velto::benchmarks {
namespace {

[[noreturn]] void execute(const std::vector<std::string>& command, unsigned descriptors) {
  std::vector<char*> arguments;
  for (const std::string& argument : command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  dup2(nowhere, STDOUT_FILENO);
  const rlimit limit{3 + descriptors, 3 + descriptors};
  setrlimit(RLIMIT_NOFILE, &limit);
  execv(arguments[0], arguments.data());
  std::perror(arguments[0]);
  _exit(1);
}

double milliseconds(const timeval& time) {
  return 1e3 * static_cast<double>(time.tv_sec) + 1e-3 * static_cast<double>(time.tv_usec);
}

Cost costOfOne(const std::vector<std::string>& command, unsigned descriptors) {
  const pid_t child = fork();
  if (child == 0) execute(command, descriptors);
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  const double system = milliseconds(usage.ru_stime);
  return {milliseconds(usage.ru_utime) + system, system, static_cast<double>(usage.ru_maxrss) / 1024, status == 0};
}

}  // namespace

Cost costOf(const std::vector<std::string>& command, unsigned descriptors) {
  constexpr int fewestRuns = 3;
  constexpr int mostRuns = 9;
  constexpr double enough = 1000;
  Cost least = costOfOne(command, descriptors);
  double spent = least.milliseconds;
  for (int run = 1; run < fewestRuns || (run < mostRuns && spent < enough); ++run) {
    if (!least.isComplete) break;
    const Cost cost = costOfOne(command, descriptors);
    spent += cost.milliseconds;
    if (!cost.isComplete || cost.milliseconds < least.milliseconds) least = cost;
  }
  return least;
}

void workApart(const std::function<void()>& work) {
  const pid_t child = fork();
  if (child == 0) {
    work();
    _exit(0);
  }
  waitpid(child, nullptr, 0);
}

}  // namespace velto::benchmarks

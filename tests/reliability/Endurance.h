// What tests need that take long.
#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>

namespace velto::test {

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;

/// The share of one test in the time that there is for all, which the environment says in VELTO_SECONDS.
class Share {
 public:
  bool isUsedUp(double part = 1) const { return Seconds(Clock::now() - begin_) > part * share(); }

 private:
  static Seconds share() {
    const char* const wish = std::getenv("VELTO_SECONDS");
    return Seconds((wish ? std::atof(wish) : 60.0) / testing::UnitTest::GetInstance()->test_to_run_count());
  }

  Clock::time_point begin_ = Clock::now();
};

/// Does `work` in a process of its own, and gives how that ended, as `waitpid` tells it.
inline int inAnotherProcess(const std::function<int()>& work) {
  std::fflush(stdout);
  const pid_t child = ::fork();
  if (child == 0) std::quick_exit(work());
  int status = -1;
  ::waitpid(child, &status, 0);
  return status;
}

}  // namespace velto::test

// Signals that interrupt a system call.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/stat.h>
#include <sys/time.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <thread>

#include "tests/reliability/MachineTest.h"

namespace velto::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Interrupts every system call of this process again and again while it lives.
class Interruptions {
 public:
  explicit Interruptions(suseconds_t microseconds = 500) {
    count = 0;
    struct sigaction action {};
    action.sa_handler = [](int) { count = count + 1; };
    ::sigaction(SIGALRM, &action, &before_);
    const timeval often{0, microseconds};
    const itimerval timer{often, often};
    ::setitimer(ITIMER_REAL, &timer, nullptr);
  }
  ~Interruptions() {
    const itimerval none{};
    ::setitimer(ITIMER_REAL, &none, nullptr);
    ::sigaction(SIGALRM, &before_, nullptr);
  }
  Interruptions(const Interruptions&) = delete;
  Interruptions& operator=(const Interruptions&) = delete;

  static inline volatile std::sig_atomic_t count = 0;

 private:
  struct sigaction before_ {};
};

/// Runs on a thread of its own, which leaves the signals to the others.
std::thread undisturbed(std::function<void()> work) {
  sigset_t all;
  sigset_t before;
  sigfillset(&all);
  ::pthread_sigmask(SIG_SETMASK, &all, &before);
  std::thread thread(std::move(work));
  ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
  return thread;
}

TEST_F(MachineTest, SignalsDoNotShowInWhatIsRead) {
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  std::thread writer = undisturbed([this] {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));  // opening the pipe is waited for
    std::ofstream pipe(folder / "pipe");
    for (int piece = 0; piece < 40; ++piece) {
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
      pipe << large.substr(0, 10) << std::flush;
    }
  });
  openedByTheTest = 1;
  {
    const Interruptions interruptions;
    EXPECT_THAT(messages(R"v(process("pipe", into: "\(folder)/out"))v"), IsEmpty());
  }
  writer.join();
  EXPECT_EQ(read("out"), large.substr(0, 400));
  EXPECT_GT(Interruptions::count, 0);
}

TEST_F(MachineTest, SignalsDoNotShowInWhatIsWritten) {
  write("large", large);
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  std::string arrived;
  std::thread reader = undisturbed([&] {
    std::ifstream pipe(folder / "pipe");
    for (char piece[8192]; pipe.read(piece, sizeof piece), pipe.gcount() > 0;) {
      arrived.append(piece, static_cast<std::size_t>(pipe.gcount()));
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  });
  openedByTheTest = 1;
  {
    const Interruptions interruptions;
    EXPECT_THAT(messages(R"v(process("large", into: "\(folder)/pipe"))v"), IsEmpty());
  }
  reader.join();
  EXPECT_TRUE(arrived == large);
  EXPECT_GT(Interruptions::count, 0);
}

TEST_F(MachineTest, SignalsDoNotShowInWhatIsCopied) {
  constexpr int files = 40;
  for (int file = 0; file < files; ++file) {
    const std::string inner = "tree/" + std::to_string(file % 3) + "/inner";
    std::filesystem::create_directories(folder / inner);
    write(inner + "/" + std::to_string(file), large.substr(0, static_cast<std::size_t>(file) * 5000));
  }
  globals["fail"] = makeRef<FailingFunction>();
  int signals = 0;
  // As often as it takes for many to come while files are copied.
  for (int copies = 0; copies < 1000 && signals < 1000; ++copies) {
    std::filesystem::remove_all(folder / "copy");
    const Interruptions interruptions(100);
    ASSERT_THAT(messages(R"v(var copied = copy(from: "tree", to: "\(folder)/copy") fail("\(copied)"))v"),
                ElementsAre("true"));
    signals += Interruptions::count;
  }
  EXPECT_GE(signals, 1000);
  for (int file = 0; file < files; ++file) {
    const std::string path = std::to_string(file % 3) + "/inner/" + std::to_string(file);
    EXPECT_TRUE(read("copy/" + path) == read("tree/" + path)) << path;
  }
}

}  // namespace
}  // namespace velto::test

// The deliberate stop: what it writes, in which order, and the host's hook.
#include "Velto/Platform/Fatal.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <string>

#include "Velto/Platform/FileHandle.h"
#include "Velto/Platform/PendingOutput.h"

namespace velto {
namespace {

class Waiting final : public PendingOutput {
 public:
  explicit Waiting(std::string text) : text_(std::move(text)) {}

  void flush() noexcept override {
    ++flushes;
    writeFully(2, text_);
  }

  int flushes = 0;

 private:
  std::string text_;
};

TEST(FatalDeathTest, WritesItsTextAndAborts) {
  EXPECT_EXIT(fatalError("no way on"), testing::KilledBySignal(SIGABRT), "^fatal: no way on\n$");
}

TEST(FatalDeathTest, WritesPendingOutputFirst) {
  const auto stop = [] {
    Waiting waiting("printed before;");
    setPendingOutput(&waiting);
    fatalError("end");
  };
  EXPECT_EXIT(stop(), testing::KilledBySignal(SIGABRT), "^printed before;fatal: end\n$");
}

TEST(FatalDeathTest, CallsTheHookAfterWriting) {
  const auto stop = [] {
    setFatalHook([](std::string_view what) {
      writeFully(2, "hook: ");
      writeFully(2, what);
      std::_Exit(7);
    });
    fatalError("end");
  };
  EXPECT_EXIT(stop(), testing::ExitedWithCode(7), "^fatal: end\nhook: end$");
}

TEST(FatalDeathTest, AbortsWhenTheHookReturns) {
  const auto stop = [] {
    setFatalHook([](std::string_view) {});
    fatalError("end");
  };
  EXPECT_EXIT(stop(), testing::KilledBySignal(SIGABRT), "^fatal: end\n$");
}

TEST(FatalHook, GivesTheOneBefore) {
  const FatalHook hook = [](std::string_view) {};
  EXPECT_EQ(setFatalHook(hook), nullptr);
  EXPECT_EQ(setFatalHook(nullptr), hook);
  EXPECT_EQ(setFatalHook(nullptr), nullptr);
}

TEST(PendingOutput, IsTakenOutBeforeItIsFlushed) {
  Waiting waiting("");
  EXPECT_EQ(pendingOutput(), nullptr);
  setPendingOutput(&waiting);
  EXPECT_EQ(pendingOutput(), &waiting);
  flushPendingOutput();
  EXPECT_EQ(pendingOutput(), nullptr);
  flushPendingOutput();
  EXPECT_EQ(waiting.flushes, 1);
}

TEST(WriteFully, WritesAllAndIgnoresErrors) {
  std::array<int, 2> ends;
  ASSERT_EQ(::pipe(ends.data()), 0);
  writeFully(ends[1], "all of it");
  writeFully(ends[1], "");
  std::string read(100, ' ');
  read.resize(static_cast<std::size_t>(::read(ends[0], read.data(), read.size())));
  EXPECT_EQ(read, "all of it");
  ::close(ends[0]);
  ::close(ends[1]);
  writeFully(ends[1], "to a closed descriptor");
}

}  // namespace
}  // namespace velto

// Where messages go: into memory, or to standard error and nowhere else.
#include "Velto/Diagnostics/Logger.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "Velto/Diagnostics/Fail.h"
#include "Velto/Platform/FileHandle.h"
#include "Velto/Platform/PendingOutput.h"

namespace velto {
namespace {

struct Captured {
  std::string output;
  std::string error;
};

template <typename Action>
Captured capture(Action action) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  action();
  Captured captured;
  captured.output = testing::internal::GetCapturedStdout();
  captured.error = testing::internal::GetCapturedStderr();
  return captured;
}

TEST(ArrayLogger, IsEmptyAtTheStart) {
  EXPECT_TRUE(ArrayLogger().messages.empty());
}

TEST(ArrayLogger, KeepsAllMessagesInTheOrderOfReporting) {
  using enum Message::Level;
  ArrayLogger logger;
  for (const Message::Level level : {info, error, warning, error, error}) {
    logger.report(Message(level, "same", Range("a.txt", 1, 1)));
  }
  logger.report(info, "last", Range("b.txt", 2, 3));
  std::string seen;
  for (const Message& message : logger.messages) seen += std::string(message.description().view()) + "\n";
  EXPECT_EQ(seen,
            "a.txt:1:1: info: same\n"
            "a.txt:1:1: error: same\n"
            "a.txt:1:1: warning: same\n"
            "a.txt:1:1: error: same\n"
            "a.txt:1:1: error: same\n"
            "b.txt:2:3: info: last\n");
}

TEST(ArrayLogger, MayBeClearedByItsHost) {
  ArrayLogger logger;
  logger.report(Message::Level::info, "text", Range("", 0, 0));
  logger.messages.clear();
  EXPECT_TRUE(logger.messages.empty());
}

TEST(StdErrLogger, WritesOneLineToStandardErrorAndNothingElse) {
  const Captured captured = capture([] {
    StdErrLogger logger;
    logger.report(Message::Level::error, "Expected expression.", Range("a.txt", 3, 14, 3, 15));
  });
  EXPECT_EQ(captured.error, "a.txt:3:14: error: Expected expression.\n");
  EXPECT_EQ(captured.output, "");
}

TEST(PrintError, WritesTheStringAndALineFeed) {
  EXPECT_EQ(capture([] { printError("x"); }).error, "x\n");
}

TEST(PrintError, WritesTheTerminatorAndNeverTheSeparator) {
  EXPECT_EQ(capture([] { printError("x", "--", "!"); }).error, "x!");
  EXPECT_EQ(capture([] { printError("", "--", ""); }).error, "");
}

TEST(StandardErrorOutputStream, IsShared) {
  EXPECT_EQ(&StandardErrorOutputStream::shared(), &StandardErrorOutputStream::shared());
}

TEST(StandardErrorOutputStream, AppendsTextAsItIs) {
  const Captured captured = capture([] {
    StandardErrorOutputStream::shared().write("a\u00E9");
    StandardErrorOutputStream::shared().write("");
    StandardErrorOutputStream::shared().write(String(std::string_view("\0b", 2)));
  });
  EXPECT_EQ(captured.error, std::string("a\u00E9\0b", 5));
}

struct PrintedBefore final : PendingOutput {
  void flush() noexcept override { writeFully(2, "printed before;"); }
};

TEST(StandardErrorOutputStream, LetsPendingOutputGoFirst) {
  PrintedBefore output;
  setPendingOutput(&output);
  EXPECT_EQ(capture([] { StandardErrorOutputStream::shared().write("error"); }).error, "printed before;error");
  EXPECT_EQ(pendingOutput(), nullptr);
}

TEST(Fail, ReportsAtLevelErrorAndThenThrowsItsStep) {
  using enum VeltoError::Step;
  for (const VeltoError::Step step : {scan, parse, interpret}) {
    ArrayLogger logger;
    try {
      fail(logger, step, Range("a.txt", 3, 14, 3, 15), "Expected expression.");
    } catch (const VeltoError& error) {
      EXPECT_EQ(error.step, step);
    }
    ASSERT_EQ(logger.messages.size(), 1u);
    EXPECT_EQ(logger.messages[0].description(), String("a.txt:3:14: error: Expected expression."));
    EXPECT_EQ(logger.messages[0].range(), Range("a.txt", 3, 14, 3, 15));
  }
}

TEST(VeltoError, HasNoTextBesidesItsName) {
  using enum VeltoError::Step;
  EXPECT_LT(scan, parse);
  EXPECT_LT(parse, interpret);
  VeltoError error(scan);
  error.step = interpret;
  EXPECT_EQ(error.step, interpret);
  EXPECT_STREQ(static_cast<const Error&>(error).what(), "VeltoError");
}

}  // namespace
}  // namespace velto

// Each call of a file system fails once.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <exception>
#include <memory>
#include <new>
#include <set>
#include <string>
#include <vector>

#include "tests/reliability/FailingFileSystem.h"
#include "tests/reliability/Place.h"
#include "tests/support/BareFileSystem.h"

namespace velto::test {
namespace {

using Failure = FailingFileSystem::Failure;
using testing::AnyOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

/// What comes of `main.velto` when one call fails.
struct FailedRun {
  std::string call;  ///< empty if the run had no such call
  Outcome outcome;
};

FailedRun runFailing(int number) {
  const auto failure = std::make_shared<Failure>(Failure{number});
  MemoryPlace place([&](auto files) { return std::make_shared<FailingFileSystem>(files, failure); });
  Outcome outcome = place.run("main.velto");
  return {failure->call, std::move(outcome)};
}

/// Whatever is there is the start of what should be there.
void expectPrefixes(const Outcome& outcome) {
  for (const auto& [path, bytes] : outcome.files) {
    EXPECT_TRUE(expectedFiles().contains(path) && expectedFiles().at(path).starts_with(bytes)) << path;
  }
  EXPECT_TRUE(expectedOutput().starts_with(outcome.output)) << outcome.output;
}

TEST(EachCall, LeavesTheStartOfEachFile) {
  int number = 0;
  for (FailedRun run = runFailing(0); !run.call.empty(); run = runFailing(++number)) {
    SCOPED_TRACE(run.call);
    expectPrefixes(run.outcome);
    EXPECT_FALSE(run.outcome.lackedMemory);
  }
  EXPECT_GT(number, 20);
}

/// What is reported, for each kind of call.
void expectMessages(const FailedRun& run) {
  const std::string path = run.call.substr(run.call.find(' ') + 1);
  const std::string file = path.substr(path.rfind('/') + 1);
  const std::vector<std::string>& messages = run.outcome.messages;
  if (run.call.starts_with("write ") || run.call.starts_with("copy ") || run.call.starts_with("descriptor ")) {
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_EQ(run.outcome.step, std::nullopt);
  } else if (file == "main.velto") {
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_EQ(run.outcome.fileError, "Input/output error");
  } else if (run.call.starts_with("read ") && file != "model.json") {
    EXPECT_THAT(messages.at(0), AnyOf(EndsWith("error: Cannot process '" + file + "': Input/output error"),
                                      EndsWith("error: Cannot execute '" + file + "': Input/output error"),
                                      EndsWith("error: Cannot include '" + file + "': Input/output error.")));
    EXPECT_EQ(run.outcome.step, VeltoError::Step::interpret);
  } else if (run.call.starts_with("create ")) {
    EXPECT_THAT(messages.at(0),
                testing::MatchesRegex(".*error: `process` cannot open '.*" + file + "' for writing\\."));
    EXPECT_EQ(run.outcome.step, VeltoError::Step::interpret);
  }
}

TEST(EachCall, IsReportedAsItsKindIs) {
  int number = 0;
  std::set<std::string> kinds;
  for (FailedRun run = runFailing(0); !run.call.empty(); run = runFailing(++number)) {
    SCOPED_TRACE(run.call);
    expectMessages(run);
    kinds.insert(run.call.substr(0, run.call.find(' ')));
  }
  EXPECT_THAT(kinds, ElementsAre("copy", "create", "currentDirectory", "descriptor", "mkdir", "read", "write"));
}

/// A file system of a host's that throws what it likes.
template <typename Exception>
class ThrowingFileSystem final : public BareFileSystem {
 protected:
  std::string doRead(const Url& url) override {
    if (url.path() == "/main.velto")
      return "for part in [\"a\", \"b\"] execute(\"part\") end print(loadJSON(\"c.json\"))";
    if (url.path() == "/part") return "process(part, into: \"out\")";
    throw Exception();
  }
  std::shared_ptr<FileHandle> doCreate(const Url& url) override { return files_->create(url); }
  std::shared_ptr<FileHandle> doDescriptor(int number) override { return files_->descriptor(number); }

 private:
  std::shared_ptr<MemoryFileSystem> files_ = std::make_shared<MemoryFileSystem>();
};

struct ForeignError : std::exception {
  const char* what() const noexcept override { return "foreign"; }
};

TEST(AFileSystemOfAHost, MayThrowWhatItLikesWhereItReads) {
  const auto logger = std::make_shared<ArrayLogger>();
  Processor processor(Url("/"), logger, std::make_shared<ThrowingFileSystem<ForeignError>>());
  EXPECT_THROW(processor.process("main.velto"), VeltoError);
  ASSERT_EQ(logger->messages.size(), 4u);
  EXPECT_EQ(logger->messages[0].message, "Cannot process 'a': foreign");
  EXPECT_EQ(logger->messages[2].message, "Cannot process 'b': foreign");
}

TEST(AFileSystemOfAHost, TellsOfALackOfMemory) {
  const auto logger = std::make_shared<ArrayLogger>();
  Processor processor(Url("/"), logger, std::make_shared<ThrowingFileSystem<std::bad_alloc>>());
  EXPECT_THROW(processor.process("main.velto"), std::bad_alloc);
  EXPECT_TRUE(logger->messages.empty());
}

}  // namespace
}  // namespace velto::test

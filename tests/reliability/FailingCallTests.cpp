// Each call of a file system fails, alone or with all behind it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "tests/reliability/FailingFileSystem.h"
#include "tests/reliability/InterpreterHost.h"
#include "tests/reliability/Place.h"

namespace velto::test {
namespace {

using Failure = FailingFileSystem::Failure;
using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

MemoryPlace::Wrap failing(const std::shared_ptr<Failure>& failure) {
  return [failure](auto files) { return std::make_shared<FailingFileSystem>(files, failure); };
}

/// What comes of `main.velto` when calls fail, and of the next run, in which none does.
struct FailedRun {
  std::string call;  ///< the first one that failed; empty if the run had no such call
  Outcome outcome;
  Outcome next;
};

FailedRun runFailing(int number, bool goesOn = false) {
  const auto failure = std::make_shared<Failure>(Failure{.untilFailure = number, .goesOn = goesOn});
  MemoryPlace place(failing(failure));
  Outcome outcome = place.run("main.velto");
  failure->isMended = true;
  return {failure->call, std::move(outcome), place.run("main.velto")};
}

/// The paths of the files that are missing, or not whole.
std::set<std::string> incompleteFiles(const Outcome& outcome) {
  std::set<std::string> paths;
  for (const auto& [path, bytes] : expectedFiles()) {
    const auto file = outcome.files.find(path);
    if (file == outcome.files.end() || file->second != bytes) paths.insert(path);
  }
  return paths;
}

/// Whatever is there is the start of what should be there.
void expectPrefixes(const Outcome& outcome) {
  for (const auto& [path, bytes] : outcome.files) {
    EXPECT_TRUE(expectedFiles().contains(path) && expectedFiles().at(path).starts_with(bytes)) << path;
  }
  EXPECT_TRUE(expectedOutput().starts_with(outcome.output)) << outcome.output;
}

void expectSuccess(const Outcome& outcome) {
  Outcome expected;
  expected.files = expectedFiles();
  expected.output = expectedOutput();
  EXPECT_TRUE(outcome == expected);
}

class EachCall : public testing::TestWithParam<bool> {};

TEST_P(EachCall, LeavesTheStartOfEachFile) {
  int number = 0;
  for (FailedRun run = runFailing(0, GetParam()); !run.call.empty(); run = runFailing(++number, GetParam())) {
    SCOPED_TRACE(run.call);
    expectPrefixes(run.outcome);
    EXPECT_FALSE(run.outcome.lackedMemory);
    expectSuccess(run.next);
  }
  EXPECT_GT(number, 20);
}

INSTANTIATE_TEST_SUITE_P(Fails, EachCall, testing::Bool(),
                         [](const auto& info) { return info.param ? "WithAllBehindIt" : "Alone"; });

TEST(EachCall, IsToldInTheSameWordsIfOthersFailBehindIt) {
  int number = 0;
  for (FailedRun run = runFailing(0); !run.call.empty(); run = runFailing(++number)) {
    SCOPED_TRACE(run.call);
    const FailedRun other = runFailing(number, true);
    EXPECT_EQ(other.call, run.call);
    EXPECT_EQ(other.outcome.fileError, run.outcome.fileError);
    const bool isToldAtOnce = !run.outcome.messages.empty() && !run.call.starts_with("mkdir ");
    if (!isToldAtOnce) continue;
    EXPECT_EQ(other.outcome.messages.at(0), run.outcome.messages[0]);
    EXPECT_EQ(other.outcome.step, run.outcome.step);
  }
}

/// What is reported, for each kind of call.
void expectMessages(const std::string& call, const std::vector<std::string>& messages) {
  const std::size_t blank = call.find(' ');
  const std::string path = blank == std::string::npos ? call : call.substr(blank + 1);
  const std::string file = std::filesystem::path(path).filename().string();
  const std::string kind = call.substr(0, call.find(' '));
  if (kind == "write" || kind == "copy" || kind == "descriptor" || kind == "currentDirectory") {
    EXPECT_THAT(messages, IsEmpty());
  } else if (file == "model.json" || kind == "isDirectory") {
    // `nil` is no failure; what is done with it then is one.
    EXPECT_THAT(messages, ElementsAre(EndsWith(":12:18: error: Can only subscript arrays, dictionaries or strings.")));
  } else if (kind == "mkdir" && file == "output") {
    EXPECT_THAT(messages, IsEmpty());  // it is there
  } else if (kind == "mkdir") {
    EXPECT_THAT(messages.at(0), EndsWith(":19:10: error: `process` cannot open 'parts/first_one.txt' for writing."));
  } else if (kind == "read") {
    EXPECT_THAT(messages.at(0), AnyOf(EndsWith("error: Cannot process '" + file + "': Input/output error"),
                                      EndsWith("error: Cannot execute '" + file + "': Input/output error"),
                                      EndsWith("error: Cannot include '" + file + "': Input/output error.")));
  } else {
    EXPECT_EQ(kind, "create");
    EXPECT_THAT(messages.at(0),
                testing::MatchesRegex(".*error: `process` cannot open '.*" + file + "' for writing\\."));
  }
}

TEST(EachCall, IsReportedAsItsKindIs) {
  int number = 0;
  std::set<std::string> kinds;
  for (FailedRun run = runFailing(0); !run.call.empty(); run = runFailing(++number)) {
    SCOPED_TRACE(run.call);
    kinds.insert(run.call.substr(0, run.call.find(' ')));
    if (run.call == "read /project/main.velto") {
      EXPECT_EQ(run.outcome.fileError, "Input/output error");
      EXPECT_EQ(run.outcome.step, std::nullopt);
      EXPECT_THAT(run.outcome.messages, IsEmpty());
    } else {
      expectMessages(run.call, run.outcome.messages);
      EXPECT_EQ(run.outcome.fileError, std::nullopt);
      EXPECT_EQ(run.outcome.step.has_value(), !run.outcome.messages.empty());
      EXPECT_EQ(run.outcome.step.value_or(VeltoError::Step::interpret), VeltoError::Step::interpret);
    }
  }
  EXPECT_THAT(kinds, ElementsAre("copy", "create", "currentDirectory", "descriptor", "mkdir", "read", "write"));
}

/// What isn't whole where a failure isn't told: no more than what the call was about.
void expectOthersToBeComplete(const std::string& call, const Outcome& outcome) {
  const std::string outputFolder = "write /project/output/";
  const std::set<std::string> incomplete = incompleteFiles(outcome);
  if (call.starts_with(outputFolder)) {
    EXPECT_THAT(incomplete, ElementsAre(call.substr(outputFolder.size())));
  } else if (call.starts_with("copy ")) {
    EXPECT_THAT(incomplete, ElementsAre("static/a.txt", "static/inner/b.txt"));
  } else {
    EXPECT_THAT(incomplete, IsEmpty());
  }
  const bool isAboutOutput = call == "descriptor 1" || call == "write 1";
  EXPECT_EQ(outcome.output != expectedOutput(), isAboutOutput);
}

TEST(EachCall, LetsTheRunGoOn) {
  int number = 0;
  int untold = 0;
  int inside = 0;
  for (FailedRun run = runFailing(0); !run.call.empty(); run = runFailing(++number)) {
    SCOPED_TRACE(run.call);
    if (run.outcome.messages.empty() && !run.outcome.fileError) {
      ++untold;
      expectOthersToBeComplete(run.call, run.outcome);
    } else if (!run.outcome.messages.empty() && run.outcome.messages[0].starts_with("/project/entry.txt:")) {
      // The template is given up, and with it what it would have processed; the program that processes it goes on.
      ++inside;
      EXPECT_LE(incompleteFiles(run.outcome).size(), 2u);
      EXPECT_EQ(run.outcome.output, expectedOutput());
    }
  }
  EXPECT_GT(untold, 10);
  EXPECT_GT(inside, 4);
}

class EachCallOfAnInterpreter : public testing::TestWithParam<bool> {};

TEST_P(EachCallOfAnInterpreter, LeavesItUsable) {
  std::set<std::string> kinds;
  for (int number = 0;; ++number) {
    const auto failure = std::make_shared<Failure>(Failure{.untilFailure = number, .goesOn = GetParam()});
    InterpreterHost host(failing(failure));
    host.interpreter.interpret(host.parsed(smallProject().at("main.velto")));
    const std::vector<Message>& messages = host.logger->messages;
    if (failure->call.empty()) {
      EXPECT_EQ(host.printed, expectedOutput());
      EXPECT_FALSE(host.interpreter.hadError);
      break;
    }
    SCOPED_TRACE(failure->call);
    kinds.insert(failure->call.substr(0, failure->call.find(' ')));
    EXPECT_EQ(host.interpreter.hadError, !messages.empty());
    EXPECT_EQ(host.interpreter.stack().size(), 1u);
    if (!GetParam()) {
      std::vector<std::string> texts;
      for (const Message& message : messages) texts.emplace_back(message.description().view());
      expectMessages(failure->call, texts);
    }
    failure->isMended = true;
    host.printed = "";
    host.logger->messages.clear();
    host.interpreter.print("?");
    host.interpreter.interpret(host.parsed("print(\"!\") process(\"footer.txt\", into: \"again\")"));
    EXPECT_EQ(host.printed, "?!");
    EXPECT_EQ(host.files->files["/output/again"], "-- [1, [2: b], 0..<3] 7 --\n");
    EXPECT_THAT(messages, IsEmpty());
  }
  EXPECT_THAT(kinds,
              ElementsAre("copy", "create", "currentDirectory", "descriptor", "isDirectory", "mkdir", "read", "write"));
}

INSTANTIATE_TEST_SUITE_P(Fails, EachCallOfAnInterpreter, testing::Bool(),
                         [](const auto& info) { return info.param ? "WithAllBehindIt" : "Alone"; });

}  // namespace
}  // namespace velto::test

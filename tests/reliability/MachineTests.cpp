// The failures that the files of a machine have.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/reliability/Descriptors.h"
#include "tests/reliability/MachineTest.h"
#include "tests/reliability/Sanitizers.h"
#include "tests/reliability/StandardOutput.h"

namespace velto::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(MachineTest, AFullDiskIsNoErrorOfTheRun) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP();
  write("large", large);
  const StandardOutput output;
  EXPECT_THAT(messages("process(\"large\", into: \"/dev/full\") print(\"on\")"), IsEmpty());
  EXPECT_EQ(output.take(), "on");
}

TEST_F(MachineTest, WhatFitsIntoTheLimitOfAFileIsThere) {
  write("large", large);
  const auto limit = [] {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit size{100'000, 100'000};
    ::setrlimit(RLIMIT_FSIZE, &size);
  };
  expectInAnotherProcess(R"v(process("large", into: "\(folder)/out") process("large", into: "\(folder)/other"))v",
                         limit, [](const auto& messages) { return messages.empty(); });
  EXPECT_EQ(read("out"), large.substr(0, 100'000));
  EXPECT_EQ(read("other"), large.substr(0, 100'000));
}

TEST_F(MachineTest, ACopyThatDoesNotFitIsAFailureAndHasTheStart) {
  write("large", large);
  globals["fail"] = makeRef<FailingFunction>();
  const auto limit = [] {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit size{100'000, 100'000};
    ::setrlimit(RLIMIT_FSIZE, &size);
  };
  expectInAnotherProcess(R"v(var copied = copy(from: "large", to: "\(folder)/copy") fail("\(copied)"))v", limit,
                         [](const auto& messages) { return messages == std::vector<std::string>{"false"}; });
  EXPECT_EQ(read("copy"), large.substr(0, 100'000));
}

TEST_F(MachineTest, ACopyOfWhatCannotBeReadIsAFailure) {
  const std::string unreadable = "/proc/self/mem";  // at its start
  if (!std::filesystem::is_regular_file(unreadable)) GTEST_SKIP();
  globals["fail"] = makeRef<FailingFunction>();
  EXPECT_THAT(messages("var copied = copy(from: \"" + unreadable + R"v(", to: "\(folder)/copy") fail("\(copied)"))v"),
              ElementsAre("false"));
  EXPECT_EQ(read("copy"), "");
}

TEST_F(MachineTest, WithoutDescriptorsNothingIsOpenedAndTheRunGoesOn) {
  if (isSanitized) GTEST_SKIP() << "The sanitizer needs descriptors of its own.";
  write("small", "small");
  write("one.json", "[1]");
  write("execute", "execute(\"again\")");
  write("include", "include \"small\"");
  write("process", R"v(process("known", into: "\(folder)/out"))v");
  write("known", "known");
  const std::string path = (folder / "out").string();
  const auto isRight = [&](const std::vector<std::string>& messages) {
    return messages == std::vector<std::string>{"Cannot execute 'again': Too many open files",
                                                "Cannot include 'small': Too many open files.",
                                                "`process` cannot open '" + path + "' for writing.", "No: nil false"};
  };
  // The program and its parts are read before the limit is reached.
  bool isLimited = false;
  globals["fail"] = makeRef<FailingFunction>();
  globals["isLimited"] = makeRef<Function0>("isLimited", [&]() -> Value { return isLimited; });
  globals["limit"] = makeRef<Function0>("limit", [&]() -> Value {
    limitDescriptors(0);
    isLimited = true;
    return nullptr;
  });
  for (const char* part : {"execute", "include", "process"}) write(part, "if isLimited() " + read(part) + " end");
  expectInAnotherProcess(
      R"v(process("known", into: "\(folder)/known-out") func all() for part in ["execute", "include", "process"] )v"
      R"v(execute(part) end end all() limit() all() var json = loadJSON("one.json") )v"
      R"v(var copied = copy(from: "small", to: "\(folder)/copied") fail("No: \(json) \(copied)"))v",
      [] {}, isRight);
  EXPECT_EQ(read("known-out"), "known");
}

TEST_F(MachineTest, ManyFilesTakeNoMoreThanThreeDescriptorsAtOnce) {
  if (isSanitized) GTEST_SKIP() << "The sanitizer needs descriptors of its own.";
  std::filesystem::create_directory(folder / "out");
  write("a.json", "[1]");
  write("piece", "<%= i %>");
  write("page", "<% include \"piece\" %><%= loadJSON(\"a.json\") %>");
  const auto limit = [] { limitDescriptors(3); };
  expectInAnotherProcess(R"v(for i in 0..<1000 process("page", into: "\(folder)/out/\(i)") end)v", limit,
                         [](const auto& messages) { return messages.empty(); });
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(read("out/" + std::to_string(i)), std::to_string(i) + "[1]");
}

TEST_F(MachineTest, ProcessesAndFoldersInsideOneAnotherTakeADescriptorEach) {
  if (isSanitized) GTEST_SKIP() << "The sanitizer needs descriptors of its own.";
  std::filesystem::create_directories(folder / "tree/branch/twig");
  write("tree/branch/twig/leaf", "green");
  write("outer", R"v(<% process("inner", into: "\(folder)/inner-out") %>)v");
  write("inner", R"v(<%= copy(from: "\(folder)/tree", to: "\(folder)/copy") %>)v");
  const auto limit = [] {
    constexpr int processes = 2, folders = 3, others = 2;
    limitDescriptors(processes + folders + others);
  };
  expectInAnotherProcess(R"v(process("outer", into: "\(folder)/outer-out"))v", limit,
                         [](const auto& messages) { return messages.empty(); });
  EXPECT_EQ(read("inner-out"), "true");
  EXPECT_EQ(read("copy/branch/twig/leaf"), "green");
}

TEST_F(MachineTest, ATemplateThatProcessesItselfGivesAllDescriptorsBack) {
  if (isSanitized) GTEST_SKIP() << "The sanitizer needs descriptors of its own.";
  write("self", R"v(<% process("self", into: "\(folder)/out") %>)v");
  write("small", "small");
  const auto limit = [] { limitDescriptors(61); };
  const std::string expected = "`process` cannot open '" + (folder / "out").string() + "' for writing.";
  expectInAnotherProcess(R"v(process("self", into: "\(folder)/out") process("small", into: "\(folder)/behind"))v",
                         limit, [&](const auto& messages) { return messages == std::vector<std::string>{expected}; });
  EXPECT_EQ(read("behind"), "small");
}

TEST_F(MachineTest, RightsAreReported) {
  std::filesystem::create_directory(folder / "closed");
  write("closed/file", "secret");
  write("open", "open");
  std::filesystem::create_directories(folder / "withFile");
  std::filesystem::create_directories(folder / "withFolder/closed");
  write("withFile/closed", "secret");
  std::filesystem::permissions(folder / "withFile/closed", std::filesystem::perms::none);
  std::filesystem::permissions(folder / "withFolder/closed", std::filesystem::perms::none);
  write("a.velto", "process(\"closed/file\", into: \"-\")");
  write("b.velto", R"v(process("open", into: "\(folder)/closed/new"))v");
  write("c.velto", "include \"closed/file\"");
  write("main.velto", "");
  std::filesystem::permissions(folder / "closed", std::filesystem::perms::none);
  std::filesystem::permissions(folder, std::filesystem::perms::all);
  std::filesystem::permissions(folder / "main.velto", std::filesystem::perms::all);
  const auto becomeNobody = [] {
    constexpr uid_t nobody = 65534;
    if (::geteuid() == 0) (void)!::setuid(nobody);
  };
  const std::string path = (folder / "closed/new").string();
  const auto isRight = [&](const std::vector<std::string>& messages) {
    return messages == std::vector<std::string>{"Cannot process 'closed/file': Permission denied",
                                                "`process` cannot open '" + path + "' for writing.",
                                                "Cannot include 'closed/file': Permission denied.",
                                                "No: nil false false false false"};
  };
  globals["fail"] = makeRef<FailingFunction>();
  expectInAnotherProcess(R"v(for part in ["a", "b", "c"] execute("\(part).velto") end )v"
                         "var json = loadJSON(\"closed/file\") "
                         R"v(var copied = copy(from: "closed/file", to: "\(folder)/copied") )v"
                         R"v(var made = mkdir("\(folder)/closed/inner") )v"
                         R"v(var file = copy(from: "withFile", to: "\(folder)/fileCopied") )v"
                         R"v(var inner = copy(from: "withFolder", to: "\(folder)/folderCopied") )v"
                         R"v(fail("No: \(json) \(copied) \(made) \(file) \(inner)"))v",
                         becomeNobody, isRight);
  std::filesystem::permissions(folder / "withFolder/closed", std::filesystem::perms::all);
  std::filesystem::permissions(folder / "closed", std::filesystem::perms::all);
}

TEST_F(MachineTest, AFolderIsNoFile) {
  std::filesystem::create_directory(folder / "inner");
  write("a.velto", "process(\"inner\", into: \"-\")");
  write("b.velto", R"v(process("main.velto", into: "\(folder)/inner"))v");
  write("c.velto", "include \"inner\"");
  write("d.velto", "execute(\"inner\")");
  EXPECT_THAT(messages(R"v(for part in ["a", "b", "c", "d"] execute("\(part).velto") end)v"),
              ElementsAre("Cannot process 'inner': Is a directory",
                          "`process` cannot open '" + (folder / "inner").string() + "' for writing.",
                          "Cannot include 'inner': Is a directory.", "Cannot execute 'inner': Is a directory"));
}

TEST_F(MachineTest, AFileMayVanishOnceItIsParsed) {
  write("template", "<%= 1 %>");
  globals["vanish"] = makeRef<Function1>("vanish", [this](const Value& name) -> Value {
    return std::filesystem::remove(folder / std::string(*name.string()));
  });
  const std::string process = R"v(process("template", into: "\(folder)/out") )v";
  EXPECT_THAT(messages(process + "vanish(\"template\") vanish(\"out\") " + process), IsEmpty());
  EXPECT_EQ(read("out"), "1");
  EXPECT_THAT(messages(process), ElementsAre("Cannot process 'template': No such file or directory"));
  EXPECT_EQ(read("out"), "");
}

TEST_F(MachineTest, AnOutputMayVanishWhileItIsWritten) {
  write("template", "before <% vanish(\"out\") %> behind");
  globals["vanish"] = makeRef<Function1>("vanish", [this](const Value& name) -> Value {
    return std::filesystem::remove(folder / std::string(*name.string()));
  });
  EXPECT_THAT(messages(R"v(process("template", into: "\(folder)/out"))v"), IsEmpty());
  EXPECT_FALSE(std::filesystem::exists(folder / "out"));
}

TEST_F(MachineTest, TheCurrentFolderMayVanish) {
  std::filesystem::create_directory(folder / "gone");
  globals["fail"] = makeRef<FailingFunction>();
  const auto vanish = [this] {
    std::filesystem::current_path(folder / "gone");
    std::filesystem::remove(folder / "gone");
  };
  expectInAnotherProcess(R"v(var json = loadJSON("a.json") var made = mkdir("inner") fail("\(json) \(made)"))v", vanish,
                         [](const auto& messages) { return messages == std::vector<std::string>{"nil false"}; });
}

TEST_F(MachineTest, AReaderThatGoesDoesNotEndTheHost) {
  write("large", large);
  std::array<int, 2> ends;
  ASSERT_EQ(::pipe(ends.data()), 0);
  ::close(ends[0]);
  const StandardOutput output;
  EXPECT_THAT(messages("process(\"large\", into: \"" + std::to_string(ends[1]) + "\") print(\"on\")"), IsEmpty());
  EXPECT_EQ(output.take(), "on");
  ::close(ends[1]);
}

TEST_F(MachineTest, AStandardOutputThatIsClosedIsNoError) {
  write("small", "small");
  expectInAnotherProcess(R"v(print(1) process("small", into: "\(folder)/out") print(2))v", [] { ::close(1); },
                         [](const auto& messages) { return messages.empty(); });
  EXPECT_EQ(read("out"), "small");
}

}  // namespace
}  // namespace velto::test

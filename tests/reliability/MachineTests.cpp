// The failures that the files of a machine have.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pthread.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "Velto/Velto.h"
#include "tests/reliability/Descriptors.h"
#include "tests/reliability/Sanitizers.h"
#include "tests/reliability/StandardOutput.h"

namespace velto::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Fails with the words that it is given, which so come into the messages.
class Failing final : public Callable {
 public:
  String name() const override { return "fail"; }
  std::span<const Label> labels() const noexcept override { return labels_; }
  Value call(Interpreter&, Arguments arguments, const ReportError& reportError) const override {
    reportError(arguments[0].description());
  }

 private:
  std::array<Label, 1> labels_;
};

/// The files of this machine, in a folder that goes with the test.
class MachineTest : public testing::Test {
 protected:
  MachineTest() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velto-files-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) throw std::runtime_error("There is no folder for the test.");
    folder = pattern;
  }
  ~MachineTest() override {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }

  void write(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder / name, std::ios::binary) << bytes;
  }

  std::string read(const std::string& name) const {
    std::ifstream file(folder / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  /// What `program` reports, the folder left out.
  std::vector<std::string> messages(const std::string& program) {
    write("main.velto", program);
    const auto logger = std::make_shared<ArrayLogger>();
    Processor processor(Url(folder.string()), logger);
    processor.globals = globals;
    processor.globals["folder"] = folder.string();
    try {
      processor.process("main.velto");
    } catch (const VeltoError&) {
    }
    std::vector<std::string> texts;
    for (const Message& message : logger->messages) {
      if (message.level == Message::Level::error) texts.emplace_back(message.message.view());
    }
    return texts;
  }

  /// The same in a process of its own, whose limits and rights are its own; it ends there with 0 if `isRight`.
  template <typename IsRight>
  void expectInAnotherProcess(const std::string& program, const std::function<void()>& prepare, IsRight isRight) {
    const pid_t child = ::fork();
    if (child == 0) {
      prepare();
      ::_exit(isRight(messages(program)) ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  }

  std::filesystem::path folder;
  std::map<String, Value> globals;
};

const std::string large = std::string(200'000, 'x');

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
  globals["fail"] = makeRef<Failing>();
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
  globals["fail"] = makeRef<Failing>();
  EXPECT_THAT(messages("var copied = copy(from: \"" + unreadable + R"v(", to: "\(folder)/copy") fail("\(copied)"))v"),
              ElementsAre("false"));
  EXPECT_EQ(read("copy"), "");
}

TEST_F(MachineTest, WithoutDescriptorsNothingIsOpenedAndTheRunGoesOn) {
  if (isSanitized) GTEST_SKIP() << "The sanitizer needs descriptors of its own.";
  write("small", "small");
  write("again", R"v(process("small", into: "\(folder)/out"))v");
  const auto isRight = [](const std::vector<std::string>& messages) {
    return messages == std::vector<std::string>{"Cannot execute 'again': Too many open files"};
  };
  // The program itself is read before the limit is reached.
  globals["limit"] = makeRef<Function0>("limit", []() -> Value {
    limitDescriptors(0);
    return nullptr;
  });
  expectInAnotherProcess(
      "limit() execute(\"again\")", [] {}, isRight);
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
                                                "No: nil false false"};
  };
  globals["fail"] = makeRef<Failing>();
  expectInAnotherProcess(R"v(for part in ["a", "b", "c"] execute("\(part).velto") end )v"
                         "var json = loadJSON(\"closed/file\") "
                         R"v(var copied = copy(from: "closed/file", to: "\(folder)/copied") )v"
                         R"v(var made = mkdir("\(folder)/closed/inner") )v"
                         R"v(fail("No: \(json) \(copied) \(made)"))v",
                         becomeNobody, isRight);
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
  globals["fail"] = makeRef<Failing>();
  const auto vanish = [this] {
    std::filesystem::current_path(folder / "gone");
    std::filesystem::remove(folder / "gone");
  };
  expectInAnotherProcess(R"v(var json = loadJSON("a.json") var made = mkdir("inner") fail("\(json) \(made)"))v", vanish,
                         [](const auto& messages) { return messages == std::vector<std::string>{"nil false"}; });
}

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
    std::ofstream pipe(folder / "pipe");
    for (int piece = 0; piece < 40; ++piece) {
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
      pipe << large.substr(0, 10) << std::flush;
    }
  });
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
  globals["fail"] = makeRef<Failing>();
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

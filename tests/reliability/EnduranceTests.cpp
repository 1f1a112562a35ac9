// What takes long: repeated for as long as the environment says in VELTO_SECONDS, all of it together.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iostream>
#include <limits>
#include <memory>
#include <numeric>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "Velto/Velto.h"
#include "tests/reliability/Endurance.h"
#include "tests/reliability/FailingAllocator.h"
#include "tests/reliability/Files.h"
#include "tests/reliability/Place.h"
#include "tests/support/StackThread.h"
#include "tests/support/TestHost.h"

namespace velto::test {
namespace {

/// Different in each run; a failure tells what was drawn.
std::mt19937_64& randomness() {
  static std::mt19937_64 engine{std::random_device()()};
  return engine;
}

std::size_t drawn(std::size_t below) {
  return std::uniform_int_distribution<std::size_t>(0, below - 1)(randomness());
}

/// The example of the entities in a folder that goes with it, beside one for its output.
class Example {
 public:
  Example() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velto-endurance-XXXXXX").string();
    if (!::mkdtemp(pattern.data())) throw std::runtime_error("There is no folder for the test.");
    folder_ = pattern;
    std::filesystem::copy(VELTO_EXAMPLES "/entities", project(), std::filesystem::copy_options::recursive);
    expected_ = filesIn(project() / "expected");
    inputs_ = filesIn(project());
  }
  ~Example() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  Example(const Example&) = delete;
  Example& operator=(const Example&) = delete;

  void run() const {
    Processor processor(Url(project().string()), std::make_shared<ArrayLogger>());
    processor.globals["outputPath"] = output().string();
    processor.process("generate.velto");
  }

  /// Makes its folder the current one, where whatever goes astray would be seen.
  void enter() const { std::filesystem::current_path(folder_); }
  void clear() const { std::filesystem::remove_all(output()); }
  Files written() const { return std::filesystem::exists(output()) ? filesIn(output()) : Files(); }
  const Files& expected() const { return expected_; }
  /// Whether there is nothing beside the output that wasn't there before.
  bool isUntouchedElsewhere() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_)) names.insert(entry.path().filename());
    names.erase("output");
    return names == std::set<std::string>{"project"} && filesIn(project()) == inputs_;
  }

 private:
  std::filesystem::path project() const { return folder_ / "project"; }
  std::filesystem::path output() const { return folder_ / "output"; }

  std::filesystem::path folder_;
  Files expected_;
  Files inputs_;
};

/// All numbers below a count, in an order that is spread evenly over them from the start on, and begins elsewhere in
/// each run.
class Sweep {
 public:
  explicit Sweep(std::size_t count) : count_(count), next_(drawn(count)), stride_(strideFor(count)) {}

  bool isAtEnd() const noexcept { return done_ == count_; }
  std::size_t done() const noexcept { return done_; }
  std::size_t next() noexcept {
    const std::size_t number = next_;
    next_ = (next_ + stride_) % count_;
    ++done_;
    return number;
  }

 private:
  /// About the golden section, and without a common factor, so that every number has its turn.
  static std::size_t strideFor(std::size_t count) {
    std::size_t stride = count * 618 / 1000 + 1;
    while (std::gcd(stride, count) != 1) ++stride;
    return stride;
  }

  std::size_t count_;
  std::size_t next_;
  std::size_t stride_;
  std::size_t done_ = 0;
};

void expectPrefixes(const Files& written, const Files& expected) {
  for (const auto& [path, bytes] : written) {
    ASSERT_TRUE(expected.contains(path)) << path;
    ASSERT_TRUE(expected.at(path).starts_with(bytes)) << path;
  }
}

TEST(Killed, LeavesTheStartOfEachFileAndNothingElse) {
  const Share share;
  const Example example;
  const auto quietly = [&] {
    (void)!::freopen("/dev/null", "w", stdout);
    example.enter();
    example.run();
    return 0;
  };
  const Clock::time_point begin = Clock::now();
  ASSERT_EQ(inAnotherProcess(quietly), 0);
  const auto length = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begin).count();
  ASSERT_EQ(example.written(), example.expected());
  int kills = 0;
  int incomplete = 0;
  while (!share.isUsedUp()) {
    example.clear();
    std::fflush(stdout);
    const pid_t child = ::fork();
    if (child == 0) ::_exit(quietly());
    ::usleep(static_cast<useconds_t>(drawn(static_cast<std::size_t>(length))));
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFSIGNALED(status)) ++kills;
    const Files written = example.written();
    if (written != example.expected()) ++incomplete;
    expectPrefixes(written, example.expected());
    ASSERT_TRUE(example.isUntouchedElsewhere());
  }
  std::cout << "killed " << kills << " times, " << incomplete << " of the outputs incomplete" << std::endl;
  EXPECT_GT(kills, 0);
}

/// Runs the example with one allocation failing. False if it went through.
bool lacksMemory(const Example& example, std::size_t number, Failing failing) {
  const AllocationFailure failure(number, failing);
  try {
    example.run();
    return false;
  } catch (const std::bad_alloc&) {
    return true;
  }
}

/// How many allocations the work needs.
std::size_t countOfAllocations(const std::function<void()>& work) {
  const AllocationFailure never(std::numeric_limits<std::size_t>::max());
  work();
  return never.count();
}

TEST(LackOfMemory, EndsTheExampleAnywhereAndHarmsNothing) {
  const Share share;
  const StandardOutput output;
  const Example example;
  example.run();
  const std::size_t count = countOfAllocations([&] { example.run(); });
  const std::ptrdiff_t liveBefore = liveBlocks();
  int failures = 0;
  Sweep numbers(count);
  while (!share.isUsedUp() && !numbers.isAtEnd()) {
    const std::size_t number = numbers.next();
    for (const Failing failing : {Failing::once, Failing::fromThenOn}) {
      example.clear();
      const bool hasFailed = lacksMemory(example, number, failing);
      if (hasFailed) ++failures;
      expectPrefixes(example.written(), example.expected());
      ASSERT_TRUE(hasFailed || example.written() == example.expected()) << number;
      ASSERT_TRUE(example.isUntouchedElsewhere()) << number;
      example.clear();
      example.run();
      ASSERT_EQ(example.written(), example.expected()) << number;
      ASSERT_EQ(liveBlocks(), liveBefore) << number;
    }
  }
  std::cerr << "failed " << numbers.done() << " of " << count << " allocations, each once alone and once with all "
            << "behind it; " << failures << " of these runs ended by it" << std::endl;
  EXPECT_GT(failures, 0);
}

/// What is set up once in a process is set up where memory lacks.
TEST(LackOfMemory, AtFirstUseEndsTheRunAndHarmsNothing) {
  const Share share;
  constexpr std::size_t count = 2000;
  for (const std::string program : {"main.velto", "faulty.velto"}) {
    const auto isRight = [&](std::size_t number, Failing failing) {
      MemoryPlace place;
      const Outcome outcome = place.run(program, [&](const std::function<void()>& work) {
        const AllocationFailure failure(number, failing);
        work();
      });
      MemoryPlace other;
      const Outcome next = other.run(program);
      if (program == "main.velto" && (next.files != expectedFiles() || next.output != expectedOutput())) return 1;
      return outcome.lackedMemory || outcome == next ? 0 : 2;
    };
    Sweep numbers(count);
    while (!share.isUsedUp(program == "main.velto" ? 0.5 : 1) && !numbers.isAtEnd()) {
      const std::size_t number = numbers.next();
      for (const Failing failing : {Failing::once, Failing::fromThenOn}) {
        ASSERT_EQ(inAnotherProcess([&] { return isRight(number, failing); }), 0) << program << " " << number;
      }
    }
    std::cout << program << ": failed " << numbers.done() << " of the first " << count
              << " allocations of a process, each once alone and once with all behind it" << std::endl;
  }
}

TEST(Stacks, OfAnySizeAreEnoughToReportTheirEnd) {
  const std::vector<std::string> programs = {
      "func f(_ x) return [x].map(f) end f(1)",
      "func f(_ a, _ b) return [a, b].sorted(by: f) end f(1, 2)",
      "func f() return \"é\" + f() end f()",
      R"v(func f() return "\(f())" end f())v",
      "include \"include\"",
      "process(\"process\", into: \"/out\")",
      "execute(\"execute\")",
      "func f() for i in [1] while true switch 1 case 1: loadJSON(\"a.json\") print(book) f() end end end end f()"};
  const Share share;
  int runs = 0;
  while (!share.isUsedUp()) {
    const std::size_t size = smallStack / 2 + 16 * drawn(smallStack / 8);
    const std::string& program = programs[drawn(programs.size())];
    SCOPED_TRACE(program + " on a stack of " + std::to_string(size));
    onStack(size, [&] {
      TestHost host;
      host.files->files = {{"/include", "<% include \"include\" %>"},
                           {"/process", "<% process(\"process\", into: \"/out\") %>"},
                           {"/execute", "execute(\"execute\")"},
                           {"/a.json", "[[[[[[[[1]]]]]]]]"}};
      host.processor.globals = smallProjectGlobals();
      host.run(program);
      EXPECT_EQ(host.step, VeltoError::Step::interpret);
      ASSERT_FALSE(host.logger->messages.empty());
      EXPECT_EQ(host.logger->messages.front().message, "Stack exhausted.");
      for (const Message& message : host.logger->messages) {
        if (message.level != Message::Level::info) {
          EXPECT_EQ(message.message, "Stack exhausted.");
        }
      }
      host.logger->messages.clear();
      host.files->files["<1>"] = "";
      host.run("print(1 + 1)");
      EXPECT_EQ(host.step, std::nullopt);
      EXPECT_EQ(host.output(), "2");
      EXPECT_THAT(host.messages(), testing::IsEmpty());
    });
    ASSERT_FALSE(testing::Test::HasFailure());
    ++runs;
  }
  std::cout << runs << " stacks" << std::endl;
}

}  // namespace
}  // namespace velto::test

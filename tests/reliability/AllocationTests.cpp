// Each allocation of a run fails once.
#include <gtest/gtest.h>

#include <csignal>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "tests/reliability/FailingAllocator.h"
#include "tests/reliability/InterpreterHost.h"
#include "tests/reliability/Place.h"
#include "tests/reliability/Sanitizers.h"
#include "tests/support/StackThread.h"

namespace velto::test {
namespace {

/// What has come of a run in which the allocation `number` failed; nothing if the run had no such allocation.
std::optional<Outcome> runFailing(Place& place, const std::string& program, std::size_t number, Failing failing) {
  bool hasStruck = false;
  Outcome outcome = place.run(program, [&](const std::function<void()>& work) {
    const AllocationFailure failure(number, failing);
    work();
    hasStruck = failure.hasStruck();
  });
  if (!hasStruck) return std::nullopt;
  return outcome;
}

struct Circumstances {
  std::string program;
  bool isOnDisk;
  Failing failing;
};

class EachAllocation : public testing::TestWithParam<Circumstances> {};

/// Whether whatever has come out is the start of what should.
bool isStartOf(const Outcome& outcome, const Outcome& expected) {
  for (const auto& [path, bytes] : outcome.files) {
    const auto file = expected.files.find(path);
    if (file == expected.files.end() || !file->second.starts_with(bytes)) return false;
  }
  return expected.output.starts_with(outcome.output);
}

TEST_P(EachAllocation, EndsTheRunWithBadAllocAndHarmsNothing) {
  const auto& [program, isOnDisk, failing] = GetParam();
  const std::unique_ptr<Place> place =
      isOnDisk ? std::unique_ptr<Place>(std::make_unique<LocalPlace>()) : std::make_unique<MemoryPlace>();
  const Outcome expected = place->run(program);
  ASSERT_EQ(place->run(program), expected);
  const std::ptrdiff_t liveBefore = liveBlocks();
  const int openBefore = openDescriptors();
  // A disk is slow, and most allocations are the same.
  const std::size_t step = (isOnDisk ? 5 : 1) * (isSanitized ? 3 : 1);
  std::size_t number = 0;
  for (; const std::optional<Outcome> outcome = runFailing(*place, program, number, failing); number += step) {
    ASSERT_TRUE(outcome->lackedMemory || *outcome == expected) << "The failure of " << number << " was swallowed.";
    ASSERT_TRUE(isStartOf(*outcome, expected)) << number;
    ASSERT_EQ(openDescriptors(), openBefore) << number;
    ASSERT_EQ(place->run(program), expected) << number;
  }
  EXPECT_GT(number, 300u);
  EXPECT_EQ(liveBlocks(), liveBefore);
  RecordProperty("allocations", std::to_string(number));  // which holds memory itself
}

/// One that is used again would go on looking at the scope around it.
TEST(LackOfMemory, LetsNoScopeBeUsedAgainThatAHostHasHeldMeanwhile) {
  Interpreter interpreter;
  Ref<Environment> held(&interpreter.pushEnvironment());
  bool hasStruck = false;
  {
    const AllocationFailure failure(0, Failing::fromThenOn);
    interpreter.popEnvironment();
    hasStruck = failure.hasStruck();
  }
  EXPECT_TRUE(hasStruck);
  interpreter.pushEnvironment(std::move(held));
  interpreter.popEnvironment();
  EXPECT_FALSE(interpreter.globals().isObserved());
}

std::string nameOf(const testing::TestParamInfo<Circumstances>& info) {
  const std::string program = info.param.program.substr(0, info.param.program.find('.'));
  return program + (info.param.isOnDisk ? "OnDisk" : "InMemory") +
         (info.param.failing == Failing::once ? "Once" : "FromThenOn");
}

INSTANTIATE_TEST_SUITE_P(Runs, EachAllocation,
                         testing::Values(Circumstances{"main.velto", true, Failing::once},
                                         Circumstances{"main.velto", true, Failing::fromThenOn},
                                         Circumstances{"main.velto", false, Failing::once},
                                         Circumstances{"main.velto", false, Failing::fromThenOn},
                                         Circumstances{"keeping.velto", false, Failing::once},
                                         Circumstances{"keeping.velto", false, Failing::fromThenOn},
                                         Circumstances{"faulty.velto", true, Failing::once},
                                         Circumstances{"faulty.velto", true, Failing::fromThenOn},
                                         Circumstances{"faulty.velto", false, Failing::once},
                                         Circumstances{"faulty.velto", false, Failing::fromThenOn}),
                         nameOf);

TEST(SmallProject, IsRunAsExpected) {
  for (const auto& place : {std::shared_ptr<Place>(std::make_shared<LocalPlace>()),
                            std::shared_ptr<Place>(std::make_shared<MemoryPlace>())}) {
    const Outcome outcome = place->run("main.velto");
    EXPECT_EQ(outcome.files, expectedFiles());
    EXPECT_EQ(outcome.output, expectedOutput());
    EXPECT_TRUE(outcome.messages.empty());
    EXPECT_EQ(outcome.step, std::nullopt);
  }
}

/// Whether a guard that is made here is exhausted further down.
[[gnu::noinline]] bool isExhaustedBelow(const StackGuard& guard, int levels) {
  [[maybe_unused]] volatile char frame[4096] = {};
  const bool isExhausted = levels == 0 ? guard.isExhausted() : isExhaustedBelow(guard, levels - 1);
  frame[static_cast<std::size_t>(levels)] = 1;
  return isExhausted;
}

TEST(NamesOfAScope, AreFoundAfterALackOfMemory) {
  std::vector<String> texts;
  for (int index = 0; index < 40; ++index) texts.push_back(decimal(index));
  bool hasStruck = true;
  for (std::size_t number = 0; hasStruck; ++number) {
    Bindings names;
    std::size_t lacking = texts.size();
    {
      const AllocationFailure failure(number);
      for (std::size_t index = 0; index < texts.size(); ++index) {
        try {
          names.set(texts[index], "before");
        } catch (const std::bad_alloc&) {
          lacking = index;
        }
      }
      hasStruck = failure.hasStruck();
    }
    for (const String& text : texts) names.set(text, "after");
    ASSERT_EQ(names.size(), texts.size()) << number;
    for (const String& text : texts) ASSERT_EQ(*names.find(text), Value("after")) << number;
    EXPECT_EQ(lacking < texts.size(), hasStruck);
  }
}

TEST(AStackGuard, ThatLackedMemoryIsNoMeasureForOthers) {
  onStack(usualStack, [] {
    {
      const AllocationFailure failure(0, Failing::fromThenOn);
      const StackGuard guard;
    }
    const StackGuard guard;
    EXPECT_FALSE(isExhaustedBelow(guard, 64));
  });
}

TEST(FatalStopDeathTest, NeedsNoMemory) {
  const auto stop = [] {
    const std::string reason(100, 'x');
    // What watches the end of a process may need some.
    setFatalHook([](std::string_view) { AllocationFailure::end(); });
    const AllocationFailure failure(0, Failing::fromThenOn);
    fatalError(reason);
  };
  EXPECT_EXIT(stop(), testing::KilledBySignal(SIGABRT), "^fatal: x{100}\n$");
}

TEST(DeepValues, AreDroppedWithoutMemory) {
  onStack(smallStack, [] {
    const std::ptrdiff_t liveBefore = liveBlocks();
    Value chain = 1;
    Value tree = 1;
    Value wide = 1;
    for (int level = 0; level < 20; ++level) {
      std::vector<Value> elements = {wide};
      for (int count = 0; count < 2'000; ++count) elements.push_back(Value::arrayLiteral({count}));
      wide = Array(std::move(elements));
    }
    for (int level = 0; level < 1'000'000; ++level) chain = Value::arrayLiteral({chain});
    for (int level = 0; level < 10'000; ++level) tree = Value::arrayLiteral({Value::arrayLiteral({level}), tree});
    const AllocationFailure failure(0, Failing::fromThenOn);
    chain = nullptr;
    tree = nullptr;
    wide = nullptr;
    EXPECT_EQ(liveBlocks(), liveBefore);
  });
}

/// Whether a value of `object` couldn't be made without memory.
bool lacksMemoryAsAValue(const Ref<const Object>& object) {
  const AllocationFailure failure(0, Failing::fromThenOn);
  try {
    const Value value = object;
    return false;
  } catch (const std::bad_alloc&) {
    return true;
  }
}

TEST(AnEmptyContainerOfAHost, TellsOfALackOfMemory) {
  const Ref<const Object> array = makeRef<const HostArray>(std::vector<HostValue>());
  const Ref<const Object> dictionary = makeRef<const HostDictionary>(std::vector<HostDictionary::Entry>());
  const std::ptrdiff_t liveBefore = liveBlocks();
  EXPECT_TRUE(lacksMemoryAsAValue(array));
  EXPECT_TRUE(lacksMemoryAsAValue(dictionary));
  EXPECT_EQ(liveBlocks(), liveBefore);
  EXPECT_TRUE(Value(array).array());
  EXPECT_TRUE(Value(dictionary).dictionary());
}

struct Leaf {
  std::string name;
  int size;
};
BOOST_DESCRIBE_STRUCT(Leaf, (), (name, size))

TEST(ARecordOfAHost, TellsOfALackOfMemoryWhereItsMembersAreListed) {
  const Leaf leaf{"a", 1};
  const auto isMade = [&](std::size_t number) {
    const AllocationFailure failure(number);
    try {
      const Ref<const Object> made = object(leaf);
      return !failure.hasStruck();
    } catch (const std::bad_alloc&) {
      return false;
    }
  };
  std::size_t failures = 0;
  while (!isMade(failures)) ++failures;
  EXPECT_GT(failures, 3u);
  EXPECT_EQ(Value(object(leaf)).description(), "Leaf(name: a, size: 1)");
}

/// What has come of statements in which an allocation was to fail.
enum class End { reached, outOfMemory, failureSwallowed };

End endOf(InterpreterHost& host, const Statements& statements, std::size_t number, Failing failing) {
  const AllocationFailure failure(number, failing);
  try {
    host.interpreter.interpret(statements);
    return failure.hasStruck() ? End::failureSwallowed : End::reached;
  } catch (const std::bad_alloc&) {
    return End::outOfMemory;
  }
}

class EachAllocationOfAnInterpreter : public testing::TestWithParam<Failing> {};

TEST_P(EachAllocationOfAnInterpreter, LeavesItUsable) {
  std::size_t failures = 0;
  for (std::size_t number = 0;; ++number) {
    InterpreterHost host;
    const Statements statements = host.parsed(smallProject().at("main.velto"));
    const Statements more = host.parsed("print(\"!\") process(\"footer.txt\", into: \"again\")");
    const End end = endOf(host, statements, number, GetParam());
    if (end == End::reached) {
      EXPECT_FALSE(host.interpreter.hadError);
      EXPECT_EQ(host.printed, expectedOutput());
      break;
    }
    ASSERT_EQ(end, End::outOfMemory) << number;
    EXPECT_TRUE(host.interpreter.hadError) << number;
    EXPECT_EQ(host.interpreter.stack().size(), 1u) << number;
    host.printed = "";
    host.interpreter.interpret(more);
    ASSERT_EQ(host.printed, "!") << number;
    ASSERT_EQ(host.files->files["/output/again"], "-- [1, [2: b], 0..<3] 7 --\n") << number;
    ASSERT_TRUE(host.logger->messages.empty()) << number;
    ++failures;
  }
  EXPECT_GT(failures, 300u);
}

INSTANTIATE_TEST_SUITE_P(Interpreters, EachAllocationOfAnInterpreter,
                         testing::Values(Failing::once, Failing::fromThenOn));

}  // namespace
}  // namespace velto::test

#include "support/Bounds.h"

#include <algorithm>
#include <cstdlib>

#include "Velto/Platform/Fatal.h"
#include "Velto/Platform/StackGuard.h"
#include "support/Require.h"

namespace velto::fuzz {
namespace {

/// What is left of the limits of the action that runs.
struct Budget {
  bool isOn = false;
  bool isMemoryOn = false;
  long steps = 0;
  long stepsTaken = 0;
  std::size_t largest = 0;
  std::size_t memory = 0;
  long pieces = 0;
  long piecesTaken = 0;
  bool isOutOfMemory = false;
  bool hasRefused = false;
  bool hasFatal = false;
  char fatal[256] = {};
};

Budget budget;

/// What takes too much memory is stopped at its next step, since some of what it does on the way can't fail. A piece of
/// this size is refused at once, as there may be none.
constexpr std::size_t hugePiece = std::size_t{32} << 20;

/// A stop that somebody has caught comes again, a while later.
constexpr long stepsBehindStop = 10'000;

/// While a stop is on its way, everything may be undone without limits.
[[noreturn]] void stop(Stop::Reason reason) {
  budget.isMemoryOn = false;
  budget.hasRefused = budget.hasRefused || reason == Stop::Reason::memory;
  budget.steps = stepsBehindStop;
  throw Stop(reason);
}

void stopAtFatal(std::string_view what) {
  if (!budget.isOn) return;
  if (!budget.hasFatal) budget.fatal[what.copy(budget.fatal, sizeof budget.fatal - 1)] = '\0';
  budget.hasFatal = true;
  stop(Stop::Reason::fatal);
}

void countMemory(std::size_t size) {
  if (!budget.isMemoryOn) return;
  ++budget.piecesTaken;
  if (--budget.pieces < 0) stop(Stop::Reason::memory);
  budget.isOutOfMemory = budget.isOutOfMemory || size > budget.memory || size > budget.largest;
  budget.memory -= std::min(size, budget.memory);
  if (size >= hugePiece) stop(Stop::Reason::memory);
}

class Running {
 public:
  explicit Running(const Limits& limits) noexcept : before_(setFatalHook(stopAtFatal)) {
    budget = {.isOn = true,
              .isMemoryOn = true,
              .steps = limits.steps,
              .largest = limits.largest,
              .memory = limits.memory,
              .pieces = limits.pieces};
  }
  ~Running() {
    budget.isOn = false;
    budget.isMemoryOn = false;
    setFatalHook(before_);
  }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  FatalHook before_;
};

}  // namespace

long stepsTaken() noexcept {
  return budget.stepsTaken;
}

long piecesTaken() noexcept {
  return budget.piecesTaken;
}

void countStep() {
  ++budget.stepsTaken;
  if (!budget.isOn) return;
  if (budget.isMemoryOn && budget.isOutOfMemory) stop(Stop::Reason::memory);
  if (--budget.steps < 0) stop(Stop::Reason::steps);
}

std::optional<Stopped> bounded(const Limits& limits, const std::function<void()>& action) {
  const Running running(limits);
  try {
    action();
  } catch (const Stop& stop) {
    return Stopped{stop.reason, budget.fatal};
  }
  require(!budget.hasFatal, "A fatal stop is never caught.", budget.fatal);
  if (budget.hasRefused) return Stopped{Stop::Reason::memory, ""};  // and somebody has gone on without it
  return std::nullopt;
}

void requireLegal(const std::optional<Stopped>& stopped, std::initializer_list<std::string_view> legal) {
  if (!stopped || stopped->reason != Stop::Reason::fatal) return;
  const auto startsText = [&](std::string_view start) { return stopped->fatal.starts_with(start); };
  require(std::any_of(legal.begin(), legal.end(), startsText), "A fatal stop is one of the known ones.",
          stopped->fatal);
}

}  // namespace velto::fuzz

// All of them are replaced, so that each piece is given back the way it came.

void* operator new(std::size_t size) {
  velto::fuzz::countMemory(size);
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}

void* operator new[](std::size_t size) {
  return operator new(size);
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return std::malloc(size);
}

void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return std::malloc(size);
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete[](void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

// Recursion that is guarded ends before the stack does, on every kind of thread.
#include "Velto/Platform/StackGuard.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <thread>

#include "tests/reliability/Sanitizers.h"
#include "tests/support/Fiber.h"

namespace velto {
namespace {

/// Goes down until the guard says stop, with a frame of more than 100 bytes.
[[gnu::noinline]] int depthUntilExhausted(const StackGuard& guard, int depth) {
  if (guard.isExhausted()) return depth;
  volatile char frame[100] = {};
  frame[depth % 100] = 1;
  return depthUntilExhausted(guard, depth + 1) + frame[(depth + 1) % 100];
}

std::uintptr_t here() {
  return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
}

/// Goes down until the guard says stop, and gives the place on the stack.
[[gnu::noinline]] std::uintptr_t placeWhereExhausted(const StackGuard& guard) {
  if (guard.isExhausted()) return here();
  volatile char frame[100] = {};
  return placeWhereExhausted(guard) + static_cast<std::uintptr_t>(frame[0]);
}

/// Where the stack of this thread ends, as the system tells it.
std::uintptr_t lowestPlace() {
  pthread_attr_t attributes;
  EXPECT_EQ(::pthread_getattr_np(::pthread_self(), &attributes), 0);
  void* lowest = nullptr;
  std::size_t size = 0;
  std::size_t guard = 0;
  ::pthread_attr_getstack(&attributes, &lowest, &size);
  ::pthread_attr_getguardsize(&attributes, &guard);
  ::pthread_attr_destroy(&attributes);
  return reinterpret_cast<std::uintptr_t>(lowest) + guard;
}

/// More than any step here takes, under a sanitizer too.
constexpr std::size_t step = 4096;

void runOnThread(std::size_t stackSize, std::function<void()> run) {
  pthread_attr_t attributes;
  ASSERT_EQ(::pthread_attr_init(&attributes), 0);
  ASSERT_EQ(::pthread_attr_setstacksize(&attributes, stackSize), 0);
  pthread_t thread;
  const auto start = [](void* work) -> void* {
    (*static_cast<std::function<void()>*>(work))();
    return nullptr;
  };
  ASSERT_EQ(::pthread_create(&thread, &attributes, start, &run), 0);
  ::pthread_join(thread, nullptr);
  ::pthread_attr_destroy(&attributes);
}

TEST(StackGuard, IsNotExhaustedAtTheStart) {
  EXPECT_FALSE(StackGuard().isExhausted());
}

TEST(StackGuard, EndsRecursionOnTheMainThread) {
  EXPECT_GT(depthUntilExhausted(StackGuard(), 0), 1000);
}

TEST(StackGuard, EndsRecursionOnThreadsOfAnySize) {
  for (const std::size_t size : {256u * 1024, 1024u * 1024, 64u * 1024 * 1024}) {
    int depth = 0;
    runOnThread(size, [&] { depth = depthUntilExhausted(StackGuard(), 0); });
    EXPECT_GT(depth, 100) << size;
    EXPECT_LT(depth, static_cast<int>(size / 100)) << size;
  }
}

TEST(StackGuard, KeepsAnEighthUpToTheLargestReserve) {
  constexpr std::size_t largest = (test::isSanitized ? 512 : 128) * 1024;
  for (const std::size_t size : {256u * 1024, 64u * 1024 * 1024}) {
    std::size_t left = 0;
    runOnThread(size, [&] { left = placeWhereExhausted(StackGuard()) - lowestPlace(); });
    const std::size_t reserve = std::min(size / 8, largest);
    EXPECT_LE(left, reserve) << size;
    EXPECT_GT(left, reserve - 2 * step) << size;
  }
}

TEST(StackGuard, UsesMostOfALargeStack) {
  int small = 0;
  int large = 0;
  runOnThread(4u * 1024 * 1024, [&] { small = depthUntilExhausted(StackGuard(), 0); });
  runOnThread(64u * 1024 * 1024, [&] { large = depthUntilExhausted(StackGuard(), 0); });
  EXPECT_GT(large, 12 * small);
}

TEST(StackGuard, EndsRecursionOnAStackWithoutBounds) {
  std::size_t used = 0;
  runOnThread(std::size_t{4} << 30, [&] { used = here() - placeWhereExhausted(StackGuard()); });
  EXPECT_GT(used, 256u * 1024 * 1024 - step);
  EXPECT_LT(used, 256u * 1024 * 1024 + step);
}

TEST(StackGuard, AllowsSomeDepthOnAStackOfTheHostsOwn) {
  std::size_t used = 0;
  test::onFiber(256 * 1024, [&] { used = here() - placeWhereExhausted(StackGuard()); });
  EXPECT_GT(used, 48u * 1024 - step);
  EXPECT_LT(used, 48u * 1024 + step);
}

}  // namespace
}  // namespace velto

// Recursion that is guarded ends before the stack does, on every kind of thread.
#include "Velto/Platform/StackGuard.h"

#include <gtest/gtest.h>
#include <pthread.h>
#include <ucontext.h>

#include <functional>
#include <memory>
#include <thread>

namespace velto {
namespace {

/// Goes down until the guard says stop, with a frame of more than 100 bytes.
[[gnu::noinline]] int depthUntilExhausted(const StackGuard& guard, int depth) {
  if (guard.isExhausted()) return depth;
  volatile char frame[100] = {};
  frame[depth % 100] = 1;
  return depthUntilExhausted(guard, depth + 1) + frame[(depth + 1) % 100];
}

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

TEST(StackGuard, UsesMostOfALargeStack) {
  int small = 0;
  int large = 0;
  runOnThread(4u * 1024 * 1024, [&] { small = depthUntilExhausted(StackGuard(), 0); });
  runOnThread(64u * 1024 * 1024, [&] { large = depthUntilExhausted(StackGuard(), 0); });
  EXPECT_GT(large, 12 * small);
}

TEST(StackGuard, EndsRecursionOnAStackWithoutBounds) {
  int depth = 0;
  runOnThread(std::size_t{4} << 30, [&] { depth = depthUntilExhausted(StackGuard(), 0); });
  EXPECT_GT(depth, 100'000);
  EXPECT_LT(depth, 256 * 1024 * 1024 / 100);
}

TEST(StackGuard, AllowsSomeDepthOnAStackOfTheHostsOwn) {
  static int depth = 0;
  static ucontext_t caller;
  constexpr std::size_t size = 256 * 1024;
  const auto stack = std::make_unique<char[]>(size);
  ucontext_t fiber;
  ASSERT_EQ(::getcontext(&fiber), 0);
  fiber.uc_stack.ss_sp = stack.get();
  fiber.uc_stack.ss_size = size;
  fiber.uc_link = &caller;
  ::makecontext(
      &fiber, [] { depth = depthUntilExhausted(StackGuard(), 0); }, 0);
  ASSERT_EQ(::swapcontext(&caller, &fiber), 0);
  EXPECT_GT(depth, 50);
}

}  // namespace
}  // namespace velto

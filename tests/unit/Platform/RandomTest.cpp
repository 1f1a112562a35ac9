// Random bytes from a system that gives them one by one, not at once, or not at all.
#include "Velto/Platform/Random.h"

#include <gtest/gtest.h>

#if defined(__linux__)

#include <sys/random.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <vector>

namespace {

/// What the next calls come to, the last one first: bytes that are given at most, or an error if negative.
std::vector<ssize_t> outcomes;

}  // namespace

/// Stands before that of the system's library in this program.
extern "C" ssize_t getrandom(void* bytes, std::size_t size, unsigned int flags) {
  if (outcomes.empty()) return ::syscall(SYS_getrandom, bytes, size, flags);
  const ssize_t outcome = outcomes.back();
  outcomes.pop_back();
  if (outcome >= 0) return ::syscall(SYS_getrandom, bytes, std::min(size, static_cast<std::size_t>(outcome)), flags);
  errno = static_cast<int>(-outcome);
  return -1;
}

namespace velto {
namespace {

TEST(Random, GoesOnUntilAllBytesAreThere) {
  std::vector<std::byte> bytes(1001);
  outcomes = {400, -EINTR, 0, 1, -EINTR};
  fillRandom(std::span(bytes).first(1000));
  EXPECT_TRUE(outcomes.empty());
  EXPECT_EQ(bytes.back(), std::byte{0});
  for (const std::ptrdiff_t begin : {0, 1, 401, 900}) {
    const auto piece = bytes.begin() + begin;
    EXPECT_TRUE(std::any_of(piece, piece + 100, [](std::byte byte) { return byte != std::byte{0}; })) << begin;
  }
}

TEST(RandomDeathTest, StopsWhereTheSystemGivesNone) {
  const auto draw = [] {
    outcomes = {-ENOSYS};
    random();
  };
  EXPECT_DEATH(draw(), "fatal: The system gives no random bytes.");
}

}  // namespace
}  // namespace velto

#endif

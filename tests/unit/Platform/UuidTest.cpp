// Random identities, and the source that they are drawn from.
#include "Velto/Platform/Uuid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

#include "Velto/Platform/Random.h"

namespace velto {
namespace {

TEST(Uuid, PrintsInUpperCaseWithVersionAndVariant) {
  for (int round = 0; round < 100; ++round) {
    const std::string text(Uuid().description().view());
    EXPECT_THAT(text, testing::MatchesRegex("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}"));
  }
}

TEST(Uuid, IsFreshAtEachConstructionAndKeptByCopies) {
  const Uuid first;
  const Uuid copy = first;
  EXPECT_EQ(first, copy);
  EXPECT_EQ(first.hash(), copy.hash());
  EXPECT_EQ(first.description(), copy.description());
  EXPECT_NE(first, Uuid());
}

// Of as many throws as there are places, 63 in 100 places are hit.
TEST(Uuid, HashesAreSpreadOverTablesOfAnySize) {
  for (int bits = 8; bits <= 18; ++bits) {
    const std::size_t places = std::size_t{1} << bits;
    std::unordered_set<std::size_t> hit;
    for (std::size_t round = 0; round < places; ++round) hit.insert(Uuid().hash() & (places - 1));
    EXPECT_GT(hit.size(), places / 2) << bits;
  }
}

TEST(Uuid, DoesNotRepeat) {
  std::unordered_set<std::string> seen;
  for (int round = 0; round < 10'000; ++round) seen.emplace(Uuid().description().view());
  EXPECT_EQ(seen.size(), 10'000u);
}

TEST(Uuid, OfAForkedChildIsNotThatOfItsParent) {
  const Uuid drawnBefore;
  std::array<int, 2> ends;
  ASSERT_EQ(::pipe(ends.data()), 0);
  const pid_t child = ::fork();
  const std::string text(Uuid().description().view());
  if (child == 0) {
    ::_exit(::write(ends[1], text.data(), text.size()) == 36 ? 0 : 1);
  }
  std::string textOfChild(36, ' ');
  EXPECT_EQ(::read(ends[0], textOfChild.data(), textOfChild.size()), 36);
  EXPECT_EQ(::waitpid(child, nullptr, 0), child);
  EXPECT_NE(textOfChild, text);
}

TEST(Random, GivesAnotherNumberEachTime) {
  std::set<Int> numbers;
  for (int round = 0; round < 1000; ++round) numbers.insert(random());
  EXPECT_EQ(numbers.size(), 1000u);
}

TEST(Random, FillsStretchesOfAnySize) {
  for (const std::size_t size : {0u, 1u, 7u, 1000u, 100'000u}) {
    std::vector<std::byte> bytes(size + 1);
    fillRandom(std::span(bytes).first(size));
    EXPECT_EQ(bytes.back(), std::byte{0}) << "nothing behind the stretch is touched";
    if (size < 1000) continue;
    const auto zeros = std::count(bytes.begin(), bytes.end(), std::byte{0});
    EXPECT_LT(zeros, static_cast<std::ptrdiff_t>(size / 50)) << "one in 256 is expected";
  }
}

TEST(Random, UsesEveryBit) {
  std::uint64_t everSet = 0;
  std::uint64_t alwaysSet = ~std::uint64_t{0};
  for (int round = 0; round < 100; ++round) {
    const auto number = static_cast<std::uint64_t>(random());
    everSet |= number;
    alwaysSet &= number;
  }
  EXPECT_EQ(everSet, ~std::uint64_t{0});
  EXPECT_EQ(alwaysSet, 0u);
}

}  // namespace
}  // namespace velto

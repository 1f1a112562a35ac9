// Where nodes stand, and that nothing of it is seen from outside.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <optional>
#include <random>
#include <thread>
#include <unordered_set>
#include <vector>

#include "Velto/Parser/NodeMemory.h"

namespace velto {
namespace {

/// Memory of a node that is filled with a mark.
struct Taken {
  NodeMemory::Spot spot;
  std::size_t size;
  unsigned char mark;

  static Taken of(std::size_t size, unsigned char mark) {
    const NodeMemory::Spot spot = NodeMemory::allocate(size);
    std::memset(spot.memory, mark, size);
    return {spot, size, mark};
  }

  bool isUntouched() const {
    for (std::size_t index = 0; index < size; ++index) {
      if (spot.memory[index] != std::byte(mark)) return false;
    }
    return reinterpret_cast<std::uintptr_t>(spot.memory) % alignof(void*) == 0;
  }

  const String& file() const { return NodeMemory::fileOf(spot.memory, spot.distance); }
  Uuid identity() const { return NodeMemory::identityOf(spot.memory, spot.distance); }

  void giveBack() const { NodeMemory::release(spot.memory, spot.distance); }
};

std::vector<Taken> takenOfAllSizes(std::size_t count) {
  std::mt19937 random(1);
  std::uniform_int_distribution<std::size_t> size(1, 400);
  std::vector<Taken> places;
  for (std::size_t index = 0; index < count; ++index) {
    places.push_back(Taken::of(size(random), static_cast<unsigned char>(index)));
  }
  return places;
}

void expectUntouched(const std::vector<Taken>& places) {
  for (const Taken& place : places) ASSERT_TRUE(place.isUntouched());
}

TEST(NodeMemory, GivesEachNodeAPlaceOfItsOwn) {
  const NodeMemory::Planting planting("a.velto");
  const std::vector<Taken> places = takenOfAllSizes(2000);
  expectUntouched(places);
  for (const Taken& place : places) place.giveBack();
}

TEST(NodeMemory, StaysUntilTheLastNodeInItHasGone) {
  std::vector<Taken> places;
  {
    const NodeMemory::Planting planting("a.velto");
    places = takenOfAllSizes(2000);
  }
  for (std::size_t index = 0; index < places.size(); index += 2) places[index].giveBack();
  std::vector<Taken> rest;
  for (std::size_t index = 1; index < places.size(); index += 2) rest.push_back(places[index]);
  expectUntouched(rest);
  for (const Taken& place : rest) place.giveBack();
}

TEST(NodeMemory, ServesNodesLargerThanAnyPiece) {
  const NodeMemory::Planting planting("a.velto");
  const Taken small = Taken::of(8, 1);
  const Taken large = Taken::of(100'000, 2);
  const Taken behind = Taken::of(8, 3);
  expectUntouched({small, large, behind});
  for (const Taken& place : {large, small, behind}) place.giveBack();
}

TEST(NodeMemory, ServesNodesOutsideOfAnyGrove) {
  const Taken alone = Taken::of(100, 7);
  const NodeMemory::Planting planting("a.velto");
  const Taken within = Taken::of(100, 8);
  expectUntouched({alone, within});
  alone.giveBack();
  within.giveBack();
}

TEST(NodeMemory, IsFilledByTheInnermostGrove) {
  const NodeMemory::Planting outer("a.velto");
  const Taken first = Taken::of(16, 1);
  std::vector<Taken> inner;
  {
    const NodeMemory::Planting planting("b.velto");
    inner = takenOfAllSizes(50);
  }
  const Taken second = Taken::of(16, 2);
  EXPECT_EQ(inner.back().file(), "b.velto");
  EXPECT_EQ(second.file(), "a.velto");
  expectUntouched(inner);
  expectUntouched({first, second});
  for (const Taken& place : inner) place.giveBack();
  first.giveBack();
  second.giveBack();
}

TEST(NodeMemory, KnowsTheFileOfThePlantingForAsLongAsItStays) {
  EXPECT_EQ(NodeMemory::file(), nullptr);
  const Taken alone = Taken::of(100, 1);
  std::optional<Taken> within;
  {
    const NodeMemory::Planting planting("a.velto");
    EXPECT_EQ(*NodeMemory::file(), "a.velto");
    within = Taken::of(100, 2);
  }
  EXPECT_EQ(NodeMemory::file(), nullptr);
  EXPECT_EQ(alone.file(), "");
  EXPECT_EQ(within->file(), "a.velto");
  alone.giveBack();
  within->giveBack();
}

TEST(NodeMemory, GivesEachNodeAnIdentityOfItsOwn) {
  const NodeMemory::Planting planting("a.velto");
  const std::vector<Taken> all = takenOfAllSizes(2000);
  std::unordered_set<Uuid> identities;
  for (const Taken& taken : all) {
    identities.insert(taken.identity());
    EXPECT_EQ(taken.identity(), taken.identity());
    EXPECT_EQ(taken.identity().description().view()[14], '4');
  }
  EXPECT_EQ(identities.size(), all.size());
  for (const Taken& taken : all) taken.giveBack();
}

TEST(NodeMemory, MayBeLeftOnAnyThread) {
  const NodeMemory::Planting planting("a.velto");
  const std::vector<Taken> places = takenOfAllSizes(2000);
  const auto giveBackEvery = [&](std::size_t first) {
    for (std::size_t index = first; index < places.size(); index += 2) places[index].giveBack();
  };
  std::thread other(giveBackEvery, 1);
  giveBackEvery(0);
  other.join();
}

}  // namespace
}  // namespace velto

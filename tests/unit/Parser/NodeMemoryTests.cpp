// Where nodes stand, and that nothing of it is seen from outside.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <thread>
#include <vector>

#include "Velto/Parser/NodeMemory.h"

namespace velto {
namespace {

struct Place {
  unsigned char* memory;
  std::size_t size;
  unsigned char mark;

  static Place taken(std::size_t size, unsigned char mark) {
    auto* const memory = static_cast<unsigned char*>(NodeMemory::allocate(size));
    std::memset(memory, mark, size);
    return {memory, size, mark};
  }

  bool isUntouched() const {
    for (std::size_t index = 0; index < size; ++index) {
      if (memory[index] != mark) return false;
    }
    return reinterpret_cast<std::uintptr_t>(memory) % alignof(void*) == 0;
  }

  void giveBack() const { NodeMemory::release(memory); }
};

std::vector<Place> takenOfAllSizes(std::size_t count) {
  std::mt19937 random(1);
  std::uniform_int_distribution<std::size_t> size(1, 400);
  std::vector<Place> places;
  for (std::size_t index = 0; index < count; ++index) {
    places.push_back(Place::taken(size(random), static_cast<unsigned char>(index)));
  }
  return places;
}

void expectUntouched(const std::vector<Place>& places) {
  for (const Place& place : places) ASSERT_TRUE(place.isUntouched());
}

TEST(NodeMemory, GivesEachNodeAPlaceOfItsOwn) {
  const NodeMemory::Planting planting;
  const std::vector<Place> places = takenOfAllSizes(2000);
  expectUntouched(places);
  for (const Place& place : places) place.giveBack();
}

TEST(NodeMemory, StaysUntilTheLastNodeInItHasGone) {
  std::vector<Place> places;
  {
    const NodeMemory::Planting planting;
    places = takenOfAllSizes(2000);
  }
  for (std::size_t index = 0; index < places.size(); index += 2) places[index].giveBack();
  std::vector<Place> rest;
  for (std::size_t index = 1; index < places.size(); index += 2) rest.push_back(places[index]);
  expectUntouched(rest);
  for (const Place& place : rest) place.giveBack();
}

TEST(NodeMemory, ServesNodesLargerThanAnyPiece) {
  const NodeMemory::Planting planting;
  const Place small = Place::taken(8, 1);
  const Place large = Place::taken(100'000, 2);
  const Place behind = Place::taken(8, 3);
  expectUntouched({small, large, behind});
  for (const Place& place : {large, small, behind}) place.giveBack();
}

TEST(NodeMemory, ServesNodesOutsideOfAnyGrove) {
  const Place alone = Place::taken(100, 7);
  const NodeMemory::Planting planting;
  const Place within = Place::taken(100, 8);
  expectUntouched({alone, within});
  alone.giveBack();
  within.giveBack();
}

TEST(NodeMemory, IsFilledByTheInnermostGrove) {
  const NodeMemory::Planting outer;
  const Place first = Place::taken(16, 1);
  std::vector<Place> inner;
  {
    const NodeMemory::Planting planting;
    inner = takenOfAllSizes(50);
  }
  const Place second = Place::taken(16, 2);
  expectUntouched(inner);
  expectUntouched({first, second});
  for (const Place& place : inner) place.giveBack();
  first.giveBack();
  second.giveBack();
}

TEST(NodeMemory, MayBeLeftOnAnyThread) {
  const NodeMemory::Planting planting;
  const std::vector<Place> places = takenOfAllSizes(2000);
  const auto giveBackEvery = [&](std::size_t first) {
    for (std::size_t index = first; index < places.size(); index += 2) places[index].giveBack();
  };
  std::thread other(giveBackEvery, 1);
  giveBackEvery(0);
  other.join();
}

}  // namespace
}  // namespace velto

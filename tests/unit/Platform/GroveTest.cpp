// Objects that come and go together.
#include "Velto/Platform/Grove.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace velto {
namespace {

/// Counts those that live.
class Tree : public Plantable {
 public:
  Tree(int& count, std::string name) : name(std::move(name)), count_(count) { ++count_; }
  Tree(const Tree&) = delete;
  Tree& operator=(const Tree&) = delete;
  virtual ~Tree() { --count_; }

  const std::string name;

 private:
  int& count_;
};

class TallTree final : public Tree {
 public:
  using Tree::Tree;
  const std::array<char, 300> more{};
};

TEST(Grove, HoldsWhatIsMadeInIt) {
  Grove grove;
  int count = 0;
  std::vector<std::unique_ptr<Tree>> trees;
  for (int number = 0; number < 1'000; ++number) {
    const std::string name = std::to_string(number);
    if (number % 3 == 0) {
      trees.emplace_back(new (grove) TallTree(count, name));
    } else {
      trees.emplace_back(new (grove) Tree(count, name));
    }
  }
  EXPECT_EQ(count, 1'000);
  for (int number = 0; number < 1'000; ++number) {
    const Tree& tree = *trees[static_cast<std::size_t>(number)];
    EXPECT_EQ(tree.name, std::to_string(number));
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(&tree) % alignof(void*), 0u);
  }
  trees.clear();
  EXPECT_EQ(count, 0);
}

TEST(Grove, MayGoBeforeWhatIsInIt) {
  int count = 0;
  std::vector<std::unique_ptr<Tree>> trees;
  {
    Grove grove;
    for (int number = 0; number < 1'000; ++number) trees.emplace_back(new (grove) Tree(count, std::to_string(number)));
  }
  for (std::size_t index = 0; index < trees.size(); index += 2) trees[index].reset();
  for (std::size_t index = 1; index < trees.size(); index += 2) EXPECT_EQ(trees[index]->name, std::to_string(index));
  EXPECT_EQ(count, 500);
}

TEST(Grove, IsNotNeeded) {
  int count = 0;
  const std::unique_ptr<Tree> alone(new TallTree(count, "alone"));
  const auto shared = std::make_shared<TallTree>(count, "shared");
  const std::optional<TallTree> inPlace(std::in_place, count, "in place");
  EXPECT_EQ(count, 3);
  EXPECT_EQ(alone->name + shared->name + inPlace->name, "alonesharedin place");
}

TEST(Grove, TakesBackWhatCouldNotBeMade) {
  struct Failing final : Plantable {
    Failing() { throw std::runtime_error("no"); }
  };
  Grove grove;
  int count = 0;
  EXPECT_THROW(new (grove) Failing(), std::runtime_error);
  EXPECT_THROW(new Failing(), std::runtime_error);
  const std::unique_ptr<Tree> behind(new (grove) Tree(count, "behind"));
  EXPECT_EQ(behind->name, "behind");
}

TEST(Grove, MayBeLeftOnAnyThread) {
  Grove grove;
  std::vector<void*> places;
  for (std::size_t size = 1; size <= 2'000; ++size) places.push_back(grove.allocate(size % 400 + 1));
  const auto releaseEvery = [&](std::size_t first) {
    for (std::size_t index = first; index < places.size(); index += 2) Grove::release(places[index]);
  };
  std::thread other(releaseEvery, 1);
  releaseEvery(0);
  other.join();
}

}  // namespace
}  // namespace velto

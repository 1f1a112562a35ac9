// Shared ownership by a count inside the object, and weak references.
#include "Velto/Platform/Ref.h"

#include <gtest/gtest.h>

#include <thread>
#include <utility>
#include <vector>

namespace velto {
namespace {

struct Witness : Counted {
  explicit Witness(int& alive) noexcept : alive(alive) { ++alive; }
  Witness(const Witness& other) noexcept : Counted(other), alive(other.alive) { ++alive; }
  ~Witness() override { --alive; }

  int& alive;
};

struct DerivedWitness final : Witness {
  using Witness::Witness;
};

TEST(Ref, LetsGoWithItsLastHolder) {
  int alive = 0;
  {
    const auto first = makeRef<Witness>(alive);
    {
      const Ref<Witness> second = first;
      EXPECT_EQ(first->holderCount(), 2u);
      EXPECT_EQ(second, first);
    }
    EXPECT_EQ(first->holderCount(), 1u);
    EXPECT_EQ(alive, 1);
  }
  EXPECT_EQ(alive, 0);
}

TEST(Ref, MovesWithoutCounting) {
  int alive = 0;
  auto first = makeRef<Witness>(alive);
  const Ref<Witness> second = std::move(first);
  EXPECT_EQ(first, nullptr);
  EXPECT_EQ(second->holderCount(), 1u);
}

TEST(Ref, AssignsToItselfAndOverOthers) {
  int alive = 0;
  auto first = makeRef<Witness>(alive);
  auto second = makeRef<Witness>(alive);
  const Ref<Witness>& same = first;
  first = same;
  EXPECT_EQ(alive, 2);
  second = first;
  EXPECT_EQ(alive, 1);
  first = nullptr;
  second = nullptr;
  EXPECT_EQ(alive, 0);
}

TEST(Ref, ConvertsToItsBaseAndToConst) {
  int alive = 0;
  {
    const Ref<const Witness> base = makeRef<DerivedWitness>(alive);
    EXPECT_EQ(base->holderCount(), 1u);
  }
  EXPECT_EQ(alive, 0);
}

TEST(Ref, DetachesItsHold) {
  int alive = 0;
  auto reference = makeRef<Witness>(alive);
  Witness* const detached = reference.detach();
  EXPECT_FALSE(reference);
  EXPECT_EQ(alive, 1);
  detached->release();
  EXPECT_EQ(alive, 0);
}

TEST(Ref, OfACopiedObjectStartsItsOwnCount) {
  int alive = 0;
  const auto first = makeRef<Witness>(alive);
  const auto copy = makeRef<Witness>(*first);
  EXPECT_EQ(copy->holderCount(), 1u);
  EXPECT_EQ(first->holderCount(), 1u);
}

TEST(Ref, IsCountedRightByManyThreads) {
  int alive = 0;
  {
    const auto shared = makeRef<Witness>(alive);
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
      threads.emplace_back([shared] {
        for (int round = 0; round < 10'000; ++round) const Ref<Witness> held = shared;
      });
    }
    for (std::thread& thread : threads) thread.join();
    threads.clear();
    EXPECT_EQ(shared->holderCount(), 1u);
  }
  EXPECT_EQ(alive, 0);
}

struct Observed final : WeaklyCounted {
  Observed(int& cleared, int& destroyed) noexcept : cleared(cleared), destroyed(destroyed) {}
  ~Observed() override { ++destroyed; }
  void clear() noexcept override { ++cleared; }

  int& cleared;
  int& destroyed;
};

TEST(WeakRef, ReadsAsNullOnceTheLastHolderHasGone) {
  int cleared = 0;
  int destroyed = 0;
  auto strong = makeRef<Observed>(cleared, destroyed);
  WeakRef<Observed> weak(strong.get());
  EXPECT_EQ(weak.get(), strong.get());
  const Observed& observed = *strong;
  EXPECT_EQ(observed.observerCount(), 1u);

  strong = nullptr;
  EXPECT_EQ(observed.observerCount(), 1u);
  EXPECT_EQ(weak.get(), nullptr);
  EXPECT_EQ(cleared, 1);
  EXPECT_EQ(destroyed, 0) << "the memory waits for the last observer";

  weak = WeakRef<Observed>();
  EXPECT_EQ(destroyed, 1);
}

TEST(WeakRef, MayLookAtNothing) {
  Observed* const nothing = nullptr;
  EXPECT_EQ(WeakRef<Observed>(nothing).get(), nullptr);
}

TEST(WeakRef, KeepsNothingAlive) {
  int cleared = 0;
  int destroyed = 0;
  {
    const auto strong = makeRef<Observed>(cleared, destroyed);
    const WeakRef<Observed> weak(strong.get());
    const WeakRef<Observed> copy = weak;
    EXPECT_EQ(strong->holderCount(), 1u);
    EXPECT_EQ(strong->observerCount(), 2u);
  }
  EXPECT_EQ(cleared, 1);
  EXPECT_EQ(destroyed, 1);
}

TEST(WeakRef, MayBeEmpty) {
  EXPECT_EQ(WeakRef<Observed>().get(), nullptr);
}

}  // namespace
}  // namespace velto

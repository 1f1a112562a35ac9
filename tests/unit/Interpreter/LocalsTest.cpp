// The table of resolved variables.
#include "Velto/Interpreter/Locals.h"

#include <gtest/gtest.h>

#include <vector>

namespace velto {
namespace {

TEST(Local, RemembersAPlaceIfItIsNear) {
  for (const Int depth : {Int{0}, Int{1}, Local::farthest}) {
    const Local near(depth);
    EXPECT_EQ(near.links, static_cast<std::uint32_t>(depth));
    EXPECT_EQ(near.place, 0u);
    near.remember(3);
    EXPECT_EQ(near.place, 3u);
  }
  for (const Int depth : {Int{-1}, Local::farthest + 1}) {
    const Local far(depth);
    far.remember(3);
    EXPECT_EQ(far.place, Local::nowhere);
    EXPECT_EQ(far.links, 0u);
  }
}

TEST(Locals, KeepsTheLastDepthOfEachExpression) {
  Locals locals;
  EXPECT_TRUE(locals.isEmpty());
  EXPECT_EQ(locals.find(Uuid()), nullptr);
  const std::vector<Uuid> ids(1'000);
  for (std::size_t index = 0; index < ids.size(); ++index) locals.set(ids[index], static_cast<Int>(index));
  locals.set(ids[3], 42);
  EXPECT_EQ(locals.size(), ids.size());
  EXPECT_EQ(locals.find(ids[3])->depth, 42);
  EXPECT_EQ(locals.find(ids[999])->depth, 999);
  EXPECT_EQ(locals.find(Uuid()), nullptr);
}

TEST(Locals, SaysAtOnceNothingButWhatTheSearchFinds) {
  Locals locals;
  const std::vector<Uuid> resolved(3'000);
  const std::vector<Uuid> others(3'000);
  for (const Uuid& id : resolved) locals.set(id, 1);
  std::size_t foundAtOnce = 0;
  for (const Uuid& id : resolved) {
    ASSERT_FALSE(locals.isAbsentAtOnce(id));
    const Local* const local = locals.findAtOnce(id);
    const Local* const found = locals.find(id);
    ASSERT_NE(found, nullptr);
    if (local) {
      ASSERT_EQ(local, found);
    }
    foundAtOnce += local ? 1 : 0;
  }
  EXPECT_GT(foundAtOnce, resolved.size() / 2);
  std::size_t absentAtOnce = 0;
  for (const Uuid& id : others) {
    ASSERT_EQ(locals.findAtOnce(id), nullptr);
    absentAtOnce += locals.isAbsentAtOnce(id) ? 1 : 0;
  }
  EXPECT_GT(absentAtOnce, others.size() / 2);
}

}  // namespace
}  // namespace velto

// The table of resolved variables.
#include "Velto/Interpreter/Locals.h"

#include <gtest/gtest.h>

namespace velto {
namespace {

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

}  // namespace
}  // namespace velto

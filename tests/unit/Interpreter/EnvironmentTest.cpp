// Scopes: what they hold, how they are walked, and when they die.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TestHost.h"

namespace velto {
namespace {

using testing::ElementsAre;

const Range range("f", 1, 2, 1, 3);

Token token(const char* name) {
  return Token(TokenType::identifier, name, range);
}

class EnvironmentTest : public testing::Test {
 protected:
  std::vector<std::string> messages() const {
    std::vector<std::string> result;
    for (const Message& message : logger->messages) result.push_back(test::exact(message));
    return result;
  }

  const std::shared_ptr<ArrayLogger> logger = std::make_shared<ArrayLogger>();
  const Ref<Environment> outer = makeRef<Environment>(logger);
  const Ref<Environment> inner = makeRef<Environment>(outer.get(), logger);
};

TEST_F(EnvironmentTest, DefinesByStringOverAnything) {
  outer->define("a", 1);
  outer->define("a", 2);
  EXPECT_EQ(outer->get(token("a")), Value(2));
}

TEST_F(EnvironmentTest, RefusesToDefineByTokenTwice) {
  outer->define(token("a"), 1);
  EXPECT_THROW(outer->define(token("a"), 2), VeltoError);
  EXPECT_THAT(messages(), ElementsAre("f:1:2...1:3: error: Variable with this name already declared in this scope."));
  EXPECT_EQ(outer->get("a"), Value(1));
}

TEST_F(EnvironmentTest, LetsAnInnerNameHideAnOuterOne) {
  outer->define(token("a"), 1);
  inner->define(token("a"), 2);
  inner->assign(token("a"), 3);
  EXPECT_EQ(inner->get("a"), Value(3));
  EXPECT_EQ(outer->get("a"), Value(1));
}

TEST_F(EnvironmentTest, AssignsOutward) {
  outer->define("a", Value::uninitialized());
  inner->assign(token("a"), 1);
  EXPECT_EQ(outer->get("a"), Value(1));
  EXPECT_FALSE(inner->values.contains("a"));
}

TEST_F(EnvironmentTest, ReadsAnUninitializedValueWithoutComplaint) {
  outer->define("a", Value::uninitialized());
  EXPECT_TRUE(inner->get(token("a")).isUninitialized());
}

TEST_F(EnvironmentTest, ReportsAnUndefinedName) {
  EXPECT_THROW(inner->get(token("a")), VeltoError);
  EXPECT_THROW(inner->assign(token("b"), 1), VeltoError);
  EXPECT_THAT(messages(), ElementsAre("f:1:2...1:3: error: Undefined variable 'a'.",
                                      "f:1:2...1:3: error: Undefined variable 'b'."));
  EXPECT_EQ(inner->get("a"), std::nullopt);
}

TEST_F(EnvironmentTest, ReportsToTheScopeThatEndsTheChain) {
  const auto other = std::make_shared<ArrayLogger>();
  const auto innermost = makeRef<Environment>(inner.get(), other);
  EXPECT_THROW(innermost->get(token("a")), VeltoError);
  EXPECT_EQ(logger->messages.size(), 1u);
  EXPECT_TRUE(other->messages.empty());
}

TEST_F(EnvironmentTest, ReportsToTheInnermostScopeThatLostItsLink) {
  const auto other = std::make_shared<ArrayLogger>();
  auto lost = makeRef<Environment>(outer.get(), logger);
  const auto orphan = makeRef<Environment>(lost.get(), other);
  const auto innermost = makeRef<Environment>(orphan.get(), logger);
  lost = nullptr;
  outer->define("a", 1);
  EXPECT_THROW(innermost->get(token("a")), VeltoError);
  EXPECT_EQ(other->messages.size(), 1u);
  EXPECT_TRUE(logger->messages.empty());
}

TEST_F(EnvironmentTest, ReadsAndWritesAtADepth) {
  outer->define("a", 1);
  inner->define("a", 2);
  EXPECT_EQ(inner->get(token("a"), 0), Value(2));
  EXPECT_EQ(inner->get(token("a"), 1), Value(1));
  inner->assign(token("a"), 3, 1);
  EXPECT_EQ(outer->get("a"), Value(3));
}

TEST_F(EnvironmentTest, CreatesANameAtADepth) {
  inner->assign(token("b"), 1, 1);
  EXPECT_EQ(outer->get("b"), Value(1));
}

TEST_F(EnvironmentTest, FindsNamesByCanonicalEquivalence) {
  outer->define("\u00E9", 1);
  EXPECT_EQ(inner->get(token("e\u0301")), Value(1));
}

TEST_F(EnvironmentTest, FindsManyNames) {
  for (Int index = 0; index < 1000; ++index) outer->define(decimal(index), index);
  for (Int index = 0; index < 1000; ++index) EXPECT_EQ(inner->get(decimal(index)), Value(index));
  EXPECT_EQ(inner->get("1000"), std::nullopt);
  EXPECT_EQ(outer->values.size(), 1000u);
  EXPECT_EQ(outer->values.bindings()[7].name, "7");
}

TEST(Environment, DiesWithItsLastHolder) {
  const auto logger = std::make_shared<ArrayLogger>();
  auto outer = makeRef<Environment>(logger);
  const auto inner = makeRef<Environment>(outer.get(), logger);
  outer->define("a", 1);
  EXPECT_EQ(inner->enclosing(), outer.get());
  outer = nullptr;
  EXPECT_EQ(inner->enclosing(), nullptr);
  EXPECT_THROW(inner->get(token("a")), VeltoError);
  EXPECT_EQ(logger->messages.size(), 1u);
}

TEST_F(EnvironmentTest, IsObservedByThoseInside) {
  const auto around = makeRef<Environment>(logger);
  EXPECT_FALSE(around->isObserved());
  {
    const Environment inside(around.get(), logger);
    EXPECT_TRUE(around->isObserved());
  }
  EXPECT_FALSE(around->isObserved());
}

using EnvironmentDeathTest = EnvironmentTest;

TEST_F(EnvironmentDeathTest, StopsAtABrokenPromiseOfTheResolver) {
  EXPECT_DEATH(inner->get(token("a"), 0), "fatal: The scope of a resolved variable doesn't have 'a'.");
  EXPECT_DEATH(inner->get(token("a"), -1), "fatal: The depth of a variable can't be negative.");
  EXPECT_DEATH(inner->get(token("a"), 2), "fatal: The scope of a resolved variable has died.");
  EXPECT_DEATH(inner->assign(token("a"), 1, 2), "fatal: The scope of a resolved variable has died.");
  EXPECT_DEATH(inner->assign(token("a"), 1, -1), "fatal: The depth of a variable can't be negative.");
}

}  // namespace
}  // namespace velto

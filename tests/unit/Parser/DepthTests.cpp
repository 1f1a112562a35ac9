// Nesting that is too deep for the stack.
#include <gtest/gtest.h>
#include <pthread.h>

#include <functional>
#include <string>

#include "tests/unit/Parser/TreePrinter.h"

namespace velto {
namespace {

constexpr std::size_t smallStack = 1024 * 1024;

/// Runs `work` on a stack that is soon exhausted.
void onSmallStack(std::function<void()> work) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, smallStack);
  pthread_t thread;
  const auto run = [](void* work) -> void* {
    (*static_cast<std::function<void()>*>(work))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

std::string repeated(std::string_view piece, int count) {
  std::string all;
  for (int index = 0; index < count; ++index) all += piece;
  return all;
}

class Depth : public testing::TestWithParam<const char*> {};

TEST_P(Depth, EndsInMessagesWhenItIsTooGreat) {
  const auto logger = std::make_shared<ArrayLogger>();
  Parser parser(programTokens(repeated(GetParam(), 20'000) + "x\nreturn 1"), logger);
  onSmallStack([&] { parser.parse(); });
  EXPECT_TRUE(parser.hadError());
  ASSERT_FALSE(logger->messages.empty());
  EXPECT_EQ(logger->messages[0].message, "Nesting is too deep.");
  EXPECT_EQ(logger->messages[0].range().startLine, 1);
}

INSTANTIATE_TEST_SUITE_P(Parser, Depth,
                         testing::Values("(", "[", "[1:", "-", "f(", "a[", "a=", "1+(", "if a ", "if a else;",
                                         "if a else if b ", "while a ", "for a in b ", "func f() ",
                                         "switch a case 1:", "switch a default:", "\"\\("));

TEST(ParserDepth, LeavesTheStatementsBehindIt) {
  const auto logger = std::make_shared<ArrayLogger>();
  Parser parser(programTokens(repeated("(", 20'000) + "x\nreturn 1 y"), logger);
  onSmallStack([&] { EXPECT_EQ(TreePrinter().text(parser.parse()), "(return 1) y"); });
  EXPECT_EQ(logger->messages.size(), 1u);
}

TEST(ParserDepth, LeavesRoomForThousandsOfLevels) {
  EXPECT_EQ(parsedProgram(repeated("(", 2'000) + "1" + repeated(")", 2'000)),
            repeated("(group ", 2'000) + "1" + repeated(")", 2'000));
}

TEST(ParserDepth, IsAnErrorEvenInTheValueOfAReturn) {
  const auto logger = std::make_shared<ArrayLogger>();
  Parser parser(programTokens("return " + repeated("(", 20'000) + "1"), logger);
  onSmallStack([&] { parser.parse(); });
  EXPECT_TRUE(parser.hadError());
}

}  // namespace
}  // namespace velto

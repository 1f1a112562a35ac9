// Nesting that is too deep for the stack.
#include <gtest/gtest.h>

#include <string>

#include "tests/unit/Parser/SmallStack.h"
#include "tests/unit/Parser/TreePrinter.h"

namespace velto {
namespace {

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
  // At most half as many levels again as there is room for, so that the rest can be read.
  for (int depth = 100; logger->messages.empty(); depth += depth / 2) {
    Parser parser(programTokens("return " + repeated("-", depth) + "1"), logger);
    onSmallStack([&] { parser.parse(); });
    EXPECT_EQ(parser.hadError(), !logger->messages.empty());
  }
  EXPECT_EQ(logger->messages.size(), 1u);
  EXPECT_EQ(logger->messages[0].message, "Nesting is too deep.");
}

}  // namespace
}  // namespace velto

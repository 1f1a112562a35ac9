// The fast way over plain text against the plain one.
#include "Velto/Scanner/TemplateText.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "Velto/Platform/Utf8.h"

namespace velto {
namespace {

void skipByCharacters(ScannableString& source) {
  while (!source.isAtEnd() && !source.peekMatchString("<%")) source.advance();
}

/// Compares both ways from every tag to the next one.
void expectSameStops(const std::string& text) {
  ScannableString fast{String(text)};
  ScannableString plain{String(text)};
  while (true) {
    const std::size_t begin = fast.index;
    const bool isASCII = skipTemplateText(fast);
    skipByCharacters(plain);
    ASSERT_EQ(fast.index, plain.index) << text;
    ASSERT_EQ(fast.line, plain.line) << text;
    ASSERT_EQ(fast.column, plain.column) << text;
    ASSERT_EQ(isASCII, utf8::isASCII(std::string_view(text).substr(begin, plain.index - begin))) << text;
    if (plain.isAtEnd()) return;
    fast.advance();
    plain.advance();
  }
}

const std::vector<std::string> pieces{
    "a",      "<",          "%",        "<%",     ">",       " ",          "\t",          "\n",
    "\r",     "\r\n",       "\u0301",   "\u00E9", "e\u0301", "\U0001F600", "\u200D",      "\u0600",
    "\uFE0F", "\U0001F1E9", "\u1100",   "\u1161", "word ",   "eight888",   "\n\n",        "<a>\n",
    "\u0085", "\u2028",     "line\r\n", "\x01",   "\u0903",  "\U000E0020", "\u0915\u094D"};

std::string randomText(std::mt19937& random, std::size_t length) {
  std::uniform_int_distribution<std::size_t> choice(0, pieces.size() - 1);
  std::string text;
  for (std::size_t count = 0; count < length; ++count) text += pieces[choice(random)];
  return text;
}

TEST(TemplateText, StopsWhereThePlainWayDoes) {
  for (const std::string& first : pieces) {
    for (const std::string& second : pieces) {
      for (const std::string& third : pieces) expectSameStops("x" + first + second + third);
    }
  }
}

TEST(TemplateText, StopsWhereThePlainWayDoesInRandomTexts) {
  std::mt19937 random(1);
  for (int round = 0; round < 3000; ++round) expectSameStops(randomText(random, 40));
}

TEST(TemplateText, StopsWhereThePlainWayDoesInLongTexts) {
  std::mt19937 random(2);
  std::uniform_int_distribution<std::size_t> length(4080, 4110);
  for (int round = 0; round < 300; ++round) {
    expectSameStops(std::string(length(random), 'x') + randomText(random, 6) + std::string(length(random), '\n') +
                    randomText(random, 6));
  }
}

TEST(TemplateText, TakesTheFastWayOverASCII) {
  ScannableString source("ab\ncde<f<%g");
  EXPECT_TRUE(skipASCIITemplateText(source));
  EXPECT_EQ(source.substring(), "<%g");
  EXPECT_EQ(source.line, 2);
  EXPECT_EQ(source.column, 6);
  EXPECT_FALSE(skipASCIITemplateText(source));
}

TEST(TemplateText, StaysAtTheEnd) {
  ScannableString source{String("text")};
  EXPECT_TRUE(skipTemplateText(source));
  EXPECT_TRUE(source.isAtEnd());
  EXPECT_FALSE(skipASCIITemplateText(source));
  EXPECT_EQ(source.index, 4u);
}

TEST(TemplateText, TakesASingleByte) {
  ScannableString alone{String("a")};
  EXPECT_TRUE(skipASCIITemplateText(alone));
  EXPECT_EQ(alone.index, 1u);
  ScannableString beforeAnother{String("\n\u00E9")};
  EXPECT_TRUE(skipASCIITemplateText(beforeAnother));
  EXPECT_EQ(beforeAnother.line, 2);
}

TEST(TemplateText, LeavesCarriageReturns) {
  ScannableString source("a\r\nb");
  EXPECT_TRUE(skipASCIITemplateText(source));
  EXPECT_EQ(source.substring(), "\r\nb");
  EXPECT_FALSE(skipASCIITemplateText(source));
}

TEST(TemplateText, LeavesTheCharacterThatAMarkMayFollow) {
  ScannableString source("abe\u0301");
  EXPECT_TRUE(skipASCIITemplateText(source));
  EXPECT_EQ(source.substring(), "e\u0301");
  EXPECT_FALSE(skipASCIITemplateText(source));
}

}  // namespace
}  // namespace velto

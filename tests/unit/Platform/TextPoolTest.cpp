// Texts that are kept once.
#include "Velto/Platform/TextPool.h"

#include <gtest/gtest.h>

#include <string>

namespace velto {
namespace {

TEST(TextPool, GivesTheSameTextForTheSameBytes) {
  TextPool texts;
  const String first = texts.shared("name");
  EXPECT_EQ(first.view(), "name");
  EXPECT_TRUE(texts.shared(std::string("name")).isSameAs(first));
  EXPECT_TRUE(texts.find("name")->isSameAs(first));
  EXPECT_EQ(texts.find("nam"), nullptr);
  EXPECT_TRUE(texts.shared("").isEmpty());
}

TEST(TextPool, KeepsEquivalentTextsApart) {
  TextPool texts;
  EXPECT_EQ(texts.shared("e\u0301").view(), "e\u0301");
  EXPECT_EQ(texts.shared("\u00E9").view(), "\u00E9");
}

TEST(TextPool, TakesInATextAsItIs) {
  TextPool texts;
  const String text = "name";
  texts.add(text);
  EXPECT_TRUE(texts.find("name")->isSameAs(text));
}

TEST(TextPool, LetsGoOfWhatNobodyUses) {
  TextPool texts;
  const String used = texts.shared("used");
  for (int number = 0; number < 5'000; ++number) texts.shared(std::to_string(number));
  EXPECT_EQ(texts.find("1"), nullptr);
  EXPECT_TRUE(texts.find("used")->isSameAs(used));
}

}  // namespace
}  // namespace velto

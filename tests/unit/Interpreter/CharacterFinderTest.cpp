// Characters by number, asked for in any order.
#include "Velto/Interpreter/CharacterFinder.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "Velto/Platform/Character.h"

namespace velto {
namespace {

/// The plain way: from the start, each time.
std::optional<String> slicedFromStart(const String& text, Int lower, Int upper) {
  if (lower < 0) return std::nullopt;
  std::vector<std::size_t> places{0};
  for (const Character character : Characters(text)) places.push_back(places.back() + character.text().size());
  const auto first = static_cast<std::size_t>(lower);
  const auto last = static_cast<std::size_t>(upper);
  if (last >= places.size()) return std::nullopt;
  return text.slice(places[first], places[last] - places[first]);
}

const std::vector<String> texts = {
    "",
    "plain text",
    "two\r\nlines\r\n\r\n",
    "\r\r\n\n\r",
    "Übermut und Größe",
    "e\u0301a\u0301\u0302 o\u0308\r\nn\u0303",
    "\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7\U0001F1EE x",
    "\U0001F468\u200D\U0001F469\u200D\U0001F467 family",
    "한국어 각",
};

TEST(CharacterFinder, FindsInAnyOrderWhatThePlainWayFinds) {
  std::mt19937 random(1);
  CharacterFinder finder;
  for (unsigned count = 0; count < 20'000; ++count) {
    const String& text = texts[(count / 50 + random() % 2) % texts.size()];
    const Int lower = static_cast<Int>(random() % 22) - 1;
    const Int upper = lower + static_cast<Int>(random() % 4);
    ASSERT_EQ(finder.slice(text, lower, upper), slicedFromStart(text, lower, upper)) << text << lower << " " << upper;
  }
}

TEST(CharacterFinder, KnowsATextThatHasGrown) {
  CharacterFinder finder;
  String text = "ab";
  EXPECT_EQ(finder.slice(text, 1, 2), String("b"));
  text = std::move(text).appending("\r");
  EXPECT_EQ(finder.slice(text, 2, 3), String("\r"));
  text = std::move(text).appending("\nc");
  EXPECT_EQ(finder.slice(text, 2, 3), String("\r\n"));
  EXPECT_EQ(finder.slice(text, 3, 4), String("c"));
  EXPECT_EQ(text.characterCount(), 4);
}

}  // namespace
}  // namespace velto

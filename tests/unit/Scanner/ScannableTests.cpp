// The cursors over arrays and over text.
#include <gtest/gtest.h>

#include <stdexcept>
#include <set>
#include <string>
#include <vector>

#include "Velto/Scanner/Scannable.h"
#include "Velto/Scanner/ScannableString.h"

namespace velto {
namespace {

std::string place(const ScannableString& source) {
  return std::to_string(source.line) + ":" + std::to_string(source.column);
}

std::string currentText(const ScannableString& source) {
  return std::string(source.current().value_or(Character("none")).text());
}

TEST(ScannableArray, OfNoElementsHasNone) {
  const ScannableArray<int> none(std::vector<int>{});
  EXPECT_TRUE(none.isAtEnd());
  EXPECT_EQ(none.current(), nullptr);
  EXPECT_EQ(none.next(), nullptr);
  EXPECT_EQ(none.previous(), nullptr);
}

TEST(ScannableArray, TakesTheElementsOfAnyCollection) {
  const std::set<int> collection = {3, 1, 2};
  ScannableArray<int> numbers(collection);
  EXPECT_EQ(numbers.advance(), 1);
  numbers.index = 3;
  EXPECT_TRUE(numbers.isAtEnd());
  numbers.index = 7;
  EXPECT_TRUE(numbers.isAtEnd());
  EXPECT_EQ(numbers.current(), nullptr);
}

TEST(ScannableArray, LooksAroundTheCursor) {
  ScannableArray<int> numbers({1, 2, 3});
  EXPECT_EQ(numbers.index, 0);
  EXPECT_EQ(numbers.previous(), nullptr);
  EXPECT_EQ(numbers.advance(), 1);
  EXPECT_EQ(*numbers.previous(), 1);
  EXPECT_EQ(*numbers.current(), 2);
  EXPECT_EQ(*numbers.next(), 3);
  numbers.advance();
  EXPECT_EQ(numbers.next(), nullptr);
  numbers.advance();
  EXPECT_TRUE(numbers.isAtEnd());
  EXPECT_EQ(numbers.current(), nullptr);
  EXPECT_EQ(*numbers.previous(), 3);
}

TEST(ScannableArray, MatchesElementsAndPredicates) {
  ScannableArray<int> numbers({1, 2});
  EXPECT_TRUE(numbers.peekMatch(1));
  EXPECT_FALSE(numbers.peekMatch());
  EXPECT_FALSE(numbers.match());
  EXPECT_FALSE(numbers.match(2, 3));
  EXPECT_EQ(numbers.index, 0);
  EXPECT_TRUE(numbers.match(3, 1));
  EXPECT_EQ(numbers.index, 1);
  EXPECT_TRUE(numbers.peekMatch([](int number) { return number == 2; }));
  EXPECT_FALSE(numbers.match([](int number) { return number == 1; }));
  EXPECT_TRUE(numbers.match([](int number) { return number == 2; }));
  EXPECT_TRUE(numbers.isAtEnd());
}

TEST(ScannableArray, AsksNoPredicateAtTheEnd) {
  ScannableArray<int> none(std::vector<int>{});
  const auto unexpected = [](int) -> bool { throw std::logic_error("asked"); };
  EXPECT_FALSE(none.match(unexpected));
  EXPECT_FALSE(none.peekMatch(unexpected));
  EXPECT_FALSE(none.match(1));
  EXPECT_FALSE(none.peekMatch(1));
}

TEST(ScannableArray, LetsPassWhatAPredicateThrows) {
  ScannableArray<int> numbers({1});
  EXPECT_THROW(numbers.match([](int) -> bool { throw std::logic_error("asked"); }), std::logic_error);
  EXPECT_EQ(numbers.index, 0);
}

TEST(ScannableArrayDeathTest, StopsAtAStepOverTheEnd) {
  ScannableArray<int> numbers({1});
  numbers.advance();
  EXPECT_DEATH(numbers.advance(), "fatal: ");
}

TEST(ScannableString, OfNoTextIsAtItsEnd) {
  const ScannableString empty("");
  EXPECT_TRUE(empty.isAtEnd());
  EXPECT_FALSE(empty.current());
  EXPECT_EQ(place(empty), "1:1");
  EXPECT_EQ(empty.substring(), "");
}

TEST(ScannableString, CountsLinesAndColumns) {
  ScannableString source("a\nb");
  EXPECT_EQ(source.advance(), Character("a"));
  EXPECT_EQ(place(source), "1:2");
  EXPECT_EQ(source.advance(), Character("\n"));
  EXPECT_EQ(place(source), "2:1");
  EXPECT_EQ(source.advance(), Character("b"));
  EXPECT_EQ(place(source), "2:2");
  EXPECT_TRUE(source.isAtEnd());
}

TEST(ScannableString, TakesCarriageReturnAndLineFeedAsOneCharacterAndNoLineEnd) {
  ScannableString source("a\r\nb");
  source.advance();
  EXPECT_FALSE(source.peekMatch(Character("\n")));
  EXPECT_FALSE(source.peekMatch(Character("\r")));
  EXPECT_EQ(source.advance(), Character("\r\n"));
  EXPECT_EQ(place(source), "1:3");
  EXPECT_EQ(currentText(source), "b");
}

TEST(ScannableString, StepsByGraphemeClusters) {
  ScannableString source("e\u0301\U0001F469\u200D\U0001F680x");
  EXPECT_EQ(source.advance().text(), "e\u0301");
  EXPECT_EQ(source.advance().text(), "\U0001F469\u200D\U0001F680");
  EXPECT_EQ(place(source), "1:3");
  EXPECT_EQ(source.substring(), "x");
}

TEST(ScannableString, LooksAroundTheCursor) {
  ScannableString source("ae\u0301\r\n");
  EXPECT_EQ(source.next()->text(), "e\u0301");
  source.advance();
  EXPECT_EQ(source.previous()->text(), "a");
  EXPECT_EQ(source.next()->text(), "\r\n");
  source.advance();
  EXPECT_EQ(source.previous()->text(), "e\u0301");
  EXPECT_FALSE(source.next());
  source.advance();
  EXPECT_EQ(source.previous()->text(), "\r\n");
}

TEST(ScannableString, MatchesEquivalentCharacters) {
  ScannableString source("e\u0301\u037E");
  EXPECT_FALSE(source.match(Character("e")));
  EXPECT_TRUE(source.match(Character("x"), Character("\u00E9")));
  EXPECT_TRUE(source.match(Character(";")));
  EXPECT_TRUE(source.isAtEnd());
  EXPECT_FALSE(source.match(Character(";")));
}

TEST(ScannableString, MatchesTexts) {
  ScannableString source("abc");
  EXPECT_TRUE(source.peekMatchString("ab"));
  EXPECT_EQ(source.column, 1);
  EXPECT_TRUE(source.matchString("ab"));
  EXPECT_EQ(source.column, 3);
  EXPECT_EQ(currentText(source), "c");

  ScannableString other("xab");
  EXPECT_FALSE(other.matchString("ab"));
  EXPECT_FALSE(other.peekMatchString("ab"));
  EXPECT_EQ(other.column, 1);
  EXPECT_EQ(other.index, 0u);
  EXPECT_FALSE(other.matchString("xabc"));
}

TEST(ScannableString, MatchesTextsByCharacters) {
  EXPECT_FALSE(ScannableString("\\(\u0301").peekMatchString("\\("));
  EXPECT_FALSE(ScannableString("\r\n").peekMatchString("\r"));
  EXPECT_TRUE(ScannableString("e\u0301x").peekMatchString("\u00E9"));
  ScannableString source("\u00E9x");
  EXPECT_TRUE(source.matchString("e\u0301"));
  EXPECT_EQ(source.column, 2);
  EXPECT_EQ(currentText(source), "x");
}

/// Everything that a short way may have to leave to the long one.
const std::vector<std::string> neighbours{"",  "x",      " ",      "\t",     "\n",     "\r",     "\r\n", "%", ">",
                                          "=", "\u0301", "\u00E9", "\u200D", "\u0338", "\u4E00", "\x01", "~", "\x7F"};

TEST(ScannableString, MatchesASCIIAsItMatchesTexts) {
  for (const std::string text : {"%", "=", "%>", "<%", ".."}) {
    for (const std::string& before : neighbours) {
      for (const std::string& behind : neighbours) {
        ScannableString fast(before + text + behind);
        ScannableString plain = fast;
        while (!plain.isAtEnd()) {
          ASSERT_EQ(fast.isAtASCII(text), plain.peekMatchString(text)) << before << text << behind;
          ASSERT_EQ(fast.matchASCII(text), plain.matchString(text)) << before << text << behind;
          ASSERT_EQ(fast.index, plain.index);
          ASSERT_EQ(place(fast), place(plain));
          if (plain.isAtEnd()) break;
          fast.advance();
          plain.advance();
        }
        ASSERT_FALSE(fast.isAtASCII(text));
      }
    }
  }
}

TEST(ScannableString, SkipsBlanksAsItAdvances) {
  for (const std::string& before : neighbours) {
    for (const std::string& between : neighbours) {
      for (const std::string& behind : neighbours) {
        ScannableString fast(before + between + behind);
        ScannableString plain = fast;
        fast.skipBlanks();
        while (!plain.isAtEnd() && plain.index < fast.index) {
          const std::string_view text = plain.advance().text();
          ASSERT_TRUE(text == " " || text == "\t" || text == "\n");
        }
        ASSERT_EQ(fast.index, plain.index);
        ASSERT_EQ(place(fast), place(plain));
      }
    }
  }
  ScannableString source(" \n\t x");
  source.skipBlanks();
  EXPECT_EQ(currentText(source), "x");
  EXPECT_EQ(place(source), "2:3");
}

TEST(ScannableString, AdvancesByBytesWhereNothingJoins) {
  for (const std::string& first : neighbours) {
    for (const std::string& second : neighbours) {
      const std::string text = first + second;
      ScannableString source(text);
      std::string all;
      while (!source.isAtEnd()) {
        ASSERT_EQ(nextBoundaryByRules(text, source.index), nextBoundary(text, source.index));
        const std::size_t end = nextBoundaryByRules(text, source.index);
        all += source.advance().text();
        ASSERT_EQ(source.index, end) << text;
      }
      ASSERT_EQ(all, text);
    }
  }
}

TEST(ScannableString, MatchingATextLeavesTheLine) {
  ScannableString source("a\nb");
  EXPECT_TRUE(source.matchString("a\n"));
  EXPECT_EQ(place(source), "1:3");
}

TEST(ScannableString, MatchesTheEmptyTextAnywhereButAtTheEnd) {
  ScannableString source("a");
  EXPECT_TRUE(source.matchString(""));
  EXPECT_EQ(source.column, 1);
  source.advance();
  EXPECT_FALSE(source.matchString(""));
  EXPECT_FALSE(source.peekMatchString(""));
}

TEST(ScannableStringDeathTest, StopsBeyondTheText) {
  ScannableString source("a");
  EXPECT_DEATH(source.previous(), "fatal: ");
  source.advance();
  EXPECT_DEATH(source.advance(), "fatal: ");
  EXPECT_DEATH(source.next(), "fatal: ");
}

TEST(ScannableString, TellsDigits) {
  for (const char* digit : {"0", "5", "9", "3\u0301"}) EXPECT_TRUE(Character(digit).isDigit()) << digit;
  for (const char* other : {"a", "/", ":", "9\u0301", "\u0663", "\uFF13"}) {
    EXPECT_FALSE(Character(other).isDigit()) << other;
  }
}

TEST(ScannableString, TellsWhatAWordIsMadeOf) {
  for (const char* start : {"a", "Z", "_", "\u00E9", "\u200B", "\u540D", "\U0001F600"}) {
    EXPECT_TRUE(Character(start).isValidIdentifierStart()) << start;
    EXPECT_TRUE(Character(start).isValidIdentifierContinuation()) << start;
  }
  for (const char* continuation : {"0", "9", "e\u0301"}) {
    EXPECT_FALSE(Character(continuation).isValidIdentifierStart()) << continuation;
    EXPECT_TRUE(Character(continuation).isValidIdentifierContinuation()) << continuation;
  }
  for (const char* other : {" ", "-", "\u00A0", "#", "\r\n", "-\u0301"}) {
    EXPECT_FALSE(Character(other).isValidIdentifierStart()) << other;
    EXPECT_FALSE(Character(other).isValidIdentifierContinuation()) << other;
  }
}

TEST(ScannableString, SkipsPlainCharactersAsByAdvancing) {
  const auto isPlain = [](char byte) { return 'a' <= byte && byte <= 'z'; };
  for (const char* text : {"", "ab", "ab1", "1ab", "ab\u0301c", "a\u0301", "ab\u00E9", "ab\n", "ab\r\nc", "\u0600ab"}) {
    ScannableString fast{String(text)};
    ScannableString plain{String(text)};
    const auto moveByCharacters = [&](ScannableString& source) {
      while (source.match(
          [&](Character character) { return character.text().size() == 1 && isPlain(character.text().front()); })) {
      }
    };
    const std::string_view skipped = fast.skipPlain(isPlain);
    EXPECT_EQ(skipped, fast.string.view().substr(0, fast.index)) << text;
    moveByCharacters(fast);  // over one that only might have been of more
    moveByCharacters(plain);
    EXPECT_EQ(fast.index, plain.index) << text;
    EXPECT_EQ(fast.line, plain.line) << text;
    EXPECT_EQ(fast.column, plain.column) << text;
  }
}

}  // namespace
}  // namespace velto

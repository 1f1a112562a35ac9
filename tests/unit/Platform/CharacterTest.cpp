// Where characters begin and end, against ICU's own iterator, and what kinds of characters there are.
#include "Velto/Platform/Character.h"

#include <gtest/gtest.h>
#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/utext.h>

#include <algorithm>
#include <memory>
#include <random>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "Velto/Platform/String.h"
#include "Velto/Platform/Unicode.h"

namespace velto {
namespace {

using Boundaries = std::vector<std::size_t>;

/// ICU's iterator, whose rules are written apart from ours.
class ReferenceIterator {
 public:
  ReferenceIterator() {
    UErrorCode status = U_ZERO_ERROR;
    iterator_.reset(icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
  }

  Boundaries boundaries(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    UText* const input = utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status);
    iterator_->setText(input, status);
    utext_close(input);
    EXPECT_TRUE(U_SUCCESS(status));
    Boundaries result;
    for (int end = iterator_->next(); end != icu::BreakIterator::DONE; end = iterator_->next()) {
      result.push_back(static_cast<std::size_t>(end));
    }
    return result;
  }

 private:
  std::unique_ptr<icu::BreakIterator> iterator_;
};

Boundaries boundariesForward(std::string_view text) {
  Boundaries result;
  for (std::size_t offset = 0; offset < text.size();) result.push_back(offset = nextBoundary(text, offset));
  return result;
}

Boundaries boundariesByRules(std::string_view text) {
  Boundaries result;
  for (std::size_t offset = 0; offset < text.size();) result.push_back(offset = nextBoundaryByRules(text, offset));
  return result;
}

Boundaries boundariesBackward(std::string_view text) {
  Boundaries result;
  for (std::size_t offset = text.size(); offset > 0; offset = previousBoundary(text, offset)) {
    result.insert(result.begin(), offset);
  }
  return result;
}

std::string scalarsOf(std::string_view text) {
  std::ostringstream scalars;
  for (std::size_t offset = 0; offset < text.size();) {
    scalars << std::hex << std::uint32_t{unicode::decode(text, offset)} << ' ';
  }
  return scalars.str();
}

void expectAllWaysAgree(std::string_view text, ReferenceIterator& reference) {
  const Boundaries expected = reference.boundaries(text);
  ASSERT_EQ(boundariesForward(text), expected);
  ASSERT_EQ(boundariesByRules(text), expected);
  ASSERT_EQ(boundariesBackward(text), expected);
  ASSERT_EQ(characterCount(text), static_cast<Int>(expected.size()));
}

constexpr char32_t interesting[] = {
    U'a',    U' ',    U'9',    U'\r',   U'\n',   U'\t',   0x7F,    0x85,    0xA0,    0xA9,    0xAD,    0xAE,   0xE9,
    0x300,   0x301,   0x323,   0x34F,   0x391,   0x438,   0x483,   0x488,   0x489,   0x531,   0x591,   0x600,  0x6DD,
    0x70F,   0x903,   0x915,   0x937,   0x93E,   0x94D,   0x9BE,   0x9CD,   0xC15,   0xC4D,   0x9A4,   0x93C,  0xE33,
    0xEB3,   0xD4E,   0x1100,  0x115F,  0x1160,  0x1161,  0x11A8,  0xAC00,  0xAC01,  0xD7B0,  0xD7CB,  0x200B, 0x200C,
    0x200D,  0x200E,  0x2028,  0x203C,  0x2764,  0x3030,  0x3042,  0x3099,  0x4E00,  0x4DC0,  0xFE0F,  0xFEFF, 0xFFFD,
    0x110BD, 0x1F1E6, 0x1F1FF, 0x1F3FB, 0x1F468, 0x1F469, 0x1F600, 0x1F9D1, 0x20000, 0xE0001, 0xE0020, 0xE0100};

TEST(Boundaries, AgreeWithTheReferenceOnRandomMixtures) {
  std::mt19937 generator(20);
  std::uniform_int_distribution<std::size_t> pick(0, std::size(interesting) - 1);
  std::uniform_int_distribution<int> length(1, 12);
  ReferenceIterator reference;
  for (int round = 0; round < 20'000; ++round) {
    StringBuilder text;
    for (int left = length(generator); left > 0; --left) text.appendScalar(interesting[pick(generator)]);
    ASSERT_NO_FATAL_FAILURE(expectAllWaysAgree(text.view(), reference)) << scalarsOf(text.view());
  }
}

TEST(Boundaries, AgreeWithTheReferenceOnEveryScalarInEveryCompany) {
  ReferenceIterator reference;
  StringBuilder text;
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    if (scalar == 0xD800) scalar = 0xE000;
    if (scalar == 0x20100) scalar = 0xE0000;  // nothing but ideographs between
    for (const char32_t neighbour : {U'a', U'\x600', U'\x200D', U'\x1100', U'\xAC00', U'\xAC01', U'\x1F1E6'}) {
      text.appendScalar(neighbour).appendScalar(scalar).append("\n");
    }
    text.appendScalar(0x1F468).appendScalar(0x200D).appendScalar(scalar).appendScalar(0x200D).appendScalar(0x1F468);
    text.append("\n").appendScalar(scalar).append("a").appendScalar(scalar).appendScalar(0x301).append("\n");
    if (text.view().size() < 20'000) continue;
    ASSERT_EQ(boundariesForward(text.view()), reference.boundaries(text.view())) << "up to " << std::uint32_t{scalar};
    text.clear();
  }
}

TEST(Boundaries, TheShortWaysForASCIIGiveTheSame) {
  constexpr std::string_view bytes = "a\r\n \x7F";
  std::vector<std::string> texts{""};
  for (std::size_t first = 0; texts[first].size() < 4; ++first) {
    for (const char byte : bytes) texts.push_back(texts[first] + byte);
    texts.push_back(texts[first] + "\u0301");
    texts.push_back(texts[first] + "\u00E9");
  }
  for (const std::string& text : texts) {
    for (std::size_t offset = 0; offset < text.size(); offset = nextBoundary(text, offset)) {
      EXPECT_EQ(nextBoundary(text, offset), nextBoundaryByRules(text, offset)) << text;
    }
    for (std::size_t offset = text.size(); offset > 0; offset = previousBoundary(text, offset)) {
      EXPECT_EQ(previousBoundary(text, offset), previousBoundaryByRules(text, offset)) << text;
    }
  }
}

TEST(Boundaries, StandBetweenASCIICharactersButNotInsideCRLF) {
  EXPECT_EQ(boundariesForward("ab\r\nc\n\r\r\n"), (Boundaries{1, 2, 4, 5, 6, 7, 9}));
  EXPECT_EQ(boundariesBackward("ab\r\nc\n\r\r\n"), (Boundaries{1, 2, 4, 5, 6, 7, 9}));
  EXPECT_EQ(boundariesForward("\r"), (Boundaries{1}));
}

TEST(Boundaries, KeepMarksFamiliesFlagsAndConjunctsTogether) {
  EXPECT_EQ(characterCount("e\u0301\u0323x"), 2);
  EXPECT_EQ(characterCount("\U0001F468\u200D\U0001F469\u200D\U0001F467!"), 2);
  EXPECT_EQ(characterCount("\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7\U0001F1EE"), 3);
  EXPECT_EQ(characterCount("\u1112\u1161\u11AB"), 1);
  EXPECT_EQ(characterCount("\u0915\u094D\u0937"), 1);
  EXPECT_EQ(characterCount("\u0915\u094D\u200C\u0937"), 2) << "a non-joiner parts them";
}

TEST(Boundaries, AreFoundBackwardInsideALongRunOfFlags) {
  std::string flags;
  for (int flag = 0; flag < 5; ++flag) flags += "\U0001F1E9\U0001F1EA";
  EXPECT_EQ(previousBoundary(flags, flags.size()), flags.size() - 8);
  EXPECT_EQ(previousBoundary(flags + "\U0001F1E9", flags.size() + 4), flags.size());
}

TEST(CharacterCount, OfASCIICountsBytesAndCRLFOnce) {
  EXPECT_EQ(characterCount(""), 0);
  EXPECT_EQ(characterCount("abc"), 3);
  EXPECT_EQ(characterCount("a\r\nb\r\n\r\r\n"), 6);
}

TEST(CharacterCount, LooksBehindTheLastASCIICharacterOfARun) {
  EXPECT_EQ(characterCount("abcdefghe\u0301"), 9);
  EXPECT_EQ(characterCount("ab\r\n\u0301"), 4) << "nothing extends a line end";
  EXPECT_EQ(characterCount("ab\r\u0301\r\n\u00E9"), 6);
  EXPECT_EQ(characterCount("\u00E9ab\u0301\u00E9"), 4);
}

TEST(Characters, GoThroughATextInOrder) {
  std::vector<std::string> characters;
  std::vector<std::size_t> offsets;
  const Characters all("a\r\ne\u0301");
  for (auto at = all.begin(); at != all.end(); at++) {
    characters.emplace_back((*at).text());
    offsets.push_back(at.offset());
  }
  EXPECT_EQ(characters, (std::vector<std::string>{"a", "\r\n", "e\u0301"}));
  EXPECT_EQ(offsets, (std::vector<std::size_t>{0, 1, 3}));
  EXPECT_EQ(Characters("").begin(), Characters("").end());
}

TEST(Character, TellsItsFirstScalar) {
  EXPECT_EQ(std::uint32_t{Character("e\u0301").firstScalar()}, 'e');
  EXPECT_EQ(std::uint32_t{Character("\r\n").firstScalar()}, '\r');
  EXPECT_EQ(std::uint32_t{Character("\U0001F600").firstScalar()}, 0x1F600u);
}

TEST(CharacterEquality, GoesByCanonicalEquivalence) {
  EXPECT_EQ(Character("\u00E9"), Character("e\u0301"));
  EXPECT_EQ(Character("K"), Character("\u212A"));
  EXPECT_NE(Character("e"), Character("e\u0301"));
  EXPECT_NE(Character("a"), Character("b"));
}

TEST(CharacterEquality, TellsALineEndPairFromItsHalves) {
  EXPECT_EQ(Character("\r\n"), Character("\r\n"));
  EXPECT_NE(Character("\r\n"), Character("\r"));
  EXPECT_NE(Character("\r\n"), Character("\n"));
}

TEST(CharacterOrder, IsThatOfTheDecomposedTexts) {
  EXPECT_LT(Character("a"), Character("b"));
  EXPECT_LT(Character("e"), Character("\u00E9"));
  EXPECT_LT(Character("\u00E9"), Character("f"));
  EXPECT_EQ(Character("\u00E9") <=> Character("e\u0301"), std::strong_ordering::equal);
}

TEST(CharacterIsDigit, HoldsFromZeroToNineInTheOrderOfCharacters) {
  EXPECT_TRUE(Character("0").isDigit());
  EXPECT_TRUE(Character("9").isDigit());
  EXPECT_FALSE(Character("/").isDigit());
  EXPECT_FALSE(Character(":").isDigit());
  EXPECT_FALSE(Character("\u0661").isDigit()) << "a digit of another script";
  EXPECT_FALSE(Character("\uFF11").isDigit()) << "a wide digit";
  EXPECT_FALSE(Character("\r\n").isDigit());
}

TEST(CharacterIsDigit, HoldsForMarkedDigitsBelowNine) {
  EXPECT_TRUE(Character("0\u0301").isDigit());
  EXPECT_TRUE(Character("8\u0301").isDigit());
  EXPECT_FALSE(Character("9\u0301").isDigit()) << "it stands behind the bare 9";
}

TEST(CharacterIsDigit, AgreesWithTheOrderForEveryScalar) {
  for (char32_t scalar = 1; scalar <= 0x10FFFF; ++scalar) {
    if (scalar == 0xD800) scalar = 0xE000;
    StringBuilder text;
    text.appendScalar(scalar);
    const Character character(text.view());
    ASSERT_EQ(character.isDigit(), Character("0") <= character && character <= Character("9")) << std::uint32_t{scalar};
  }
}

TEST(CharacterIdentifier, StartsWithALetterOrUnderscore) {
  for (const char* const start : {"a", "Z", "_", "\u00E9", "\u4E00", "\U0001F600", "\u200D", "\u3007"}) {
    EXPECT_TRUE(Character(start).isValidIdentifierStart()) << start;
    EXPECT_TRUE(Character(start).isValidIdentifierContinuation()) << start;
  }
}

TEST(CharacterIdentifier, GoesOnWithDigitsAndMarksWhichCannotStartIt) {
  for (const char* const character : {"0", "9", "e\u0301", "a\u20DD", "\u0301", "a\uFE20", "a\u1DC0"}) {
    EXPECT_FALSE(Character(character).isValidIdentifierStart()) << character;
    EXPECT_TRUE(Character(character).isValidIdentifierContinuation()) << character;
  }
}

TEST(CharacterIdentifier, TakesNoPunctuationOrSpace) {
  for (const char* const character :
       {" ", "-", "@", "[", "`", "{", "/", ":", "\r\n", "\u00A0", "\u00B6", "\u00D7", "\u2014", "\u3000", "\uFD3E"}) {
    EXPECT_FALSE(Character(character).isValidIdentifierStart()) << character;
    EXPECT_FALSE(Character(character).isValidIdentifierContinuation()) << character;
  }
}

struct Scalars {
  char32_t first;
  char32_t last;
};

constexpr Scalars neverInIdentifiers[] = {
    {0x0, 0x2F},      {0x3A, 0x40},     {0x5B, 0x5E},     {0x60, 0x60},       {0x7B, 0xA7},     {0xA9, 0xA9},
    {0xAB, 0xAC},     {0xAE, 0xAE},     {0xB0, 0xB1},     {0xB6, 0xB6},       {0xBB, 0xBB},     {0xBF, 0xBF},
    {0xD7, 0xD7},     {0xF7, 0xF7},     {0x1680, 0x1680}, {0x180E, 0x180E},   {0x2000, 0x200A}, {0x200E, 0x2029},
    {0x202F, 0x203E}, {0x2041, 0x2053}, {0x2055, 0x205F}, {0x2190, 0x245F},   {0x2500, 0x2775}, {0x2794, 0x2BFF},
    {0x2E00, 0x2E7F}, {0x3000, 0x3003}, {0x3008, 0x3020}, {0x3030, 0x3030},   {0xD800, 0xF8FF}, {0xFD3E, 0xFD3F},
    {0xFDD0, 0xFDEF}, {0xFE45, 0xFE46}, {0xFFFE, 0xFFFF}, {0xF0000, 0x10FFFF}};

constexpr Scalars onlyInsideIdentifiers[] = {
    {0x30, 0x39}, {0x300, 0x36F}, {0x1DC0, 0x1DFF}, {0x20D0, 0x20FF}, {0xFE20, 0xFE2F}};

bool isIn(std::span<const Scalars> stretches, char32_t scalar) {
  return std::any_of(std::begin(stretches), std::end(stretches),
                     [&](Scalars each) { return each.first <= scalar && scalar <= each.last; });
}

TEST(CharacterIdentifier, HasExactlyTheseGaps) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    if (scalar == 0xD800) scalar = 0xE000;
    if (scalar > 0x10000 && (scalar & 0xFFFF) == 0x100) scalar |= 0xFF00;  // all the same inside a plane
    StringBuilder text;
    text.appendScalar(scalar);
    const Character character(text.view());
    const bool isEndOfPlane = (scalar & 0xFFFF) >= 0xFFFE;
    const bool continues = !isIn(neverInIdentifiers, scalar) && !isEndOfPlane;
    const bool starts = continues && !isIn(onlyInsideIdentifiers, scalar);
    ASSERT_EQ(character.isValidIdentifierStart(), starts) << std::uint32_t{scalar};
    ASSERT_EQ(character.isValidIdentifierContinuation(), continues) << std::uint32_t{scalar};
  }
}

}  // namespace
}  // namespace velto

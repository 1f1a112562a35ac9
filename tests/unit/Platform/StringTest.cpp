// The text type: what it takes in, shares, counts, and how it compares.
#include "Velto/Platform/String.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <unordered_set>
#include <vector>

#include "Velto/Platform/Unicode.h"

namespace velto {
namespace {

/// Each `%XX` stands for a byte.
std::string bytes(std::string_view text) {
  std::string result;
  for (std::size_t offset = 0; offset < text.size(); ++offset) {
    if (text[offset] != '%') {
      result.push_back(text[offset]);
    } else {
      result.push_back(static_cast<char>(std::stoi(std::string(text.substr(offset + 1, 2)), nullptr, 16)));
      offset += 2;
    }
  }
  return result;
}

TEST(String, OfNullIsEmpty) {
  const char* const null = nullptr;
  EXPECT_TRUE(String(null).isEmpty());
}

TEST(String, MayBeEmpty) {
  EXPECT_TRUE(String().isEmpty());
  EXPECT_TRUE(String().isASCII());
  EXPECT_EQ(String(), String(""));
  EXPECT_EQ(String().hash(), String("").hash());
  EXPECT_TRUE(String().isSameAs(String("")));
  EXPECT_EQ(String().view(), "");
}

TEST(String, KeepsWellFormedTextAsItIs) {
  for (const std::string_view text : {"plain", "\u00E9\u4E00\U0001F600", "\uFEFFmark", "\uFFFE\U0010FFFF"}) {
    EXPECT_EQ(String(text).view(), text);
    EXPECT_TRUE(String::isWellFormed(text));
  }
  const std::string_view withNull("a\0b", 3);
  EXPECT_EQ(String(withNull).view(), withNull);
}

TEST(String, KnowsWhetherItIsASCII) {
  EXPECT_TRUE(String("0123456789abcdefghi").isASCII());
  EXPECT_TRUE(String("\x7F").isASCII());
  for (std::size_t position = 0; position < 20; ++position) {
    std::string text(20, 'x');
    text.replace(position, 1, "\u00E9");
    EXPECT_FALSE(String(text).isASCII()) << position;
    EXPECT_FALSE(String::fromWellFormed(text).isASCII()) << position;
  }
}

struct IllFormed {
  const char* written;
  const char* mended;
};

class StringMending : public testing::TestWithParam<IllFormed> {};

TEST_P(StringMending, ReplacesEachMaximalPart) {
  const std::string text = bytes(GetParam().written);
  EXPECT_FALSE(String::isWellFormed(text));
  EXPECT_EQ(String(text).view(), GetParam().mended);
  EXPECT_EQ(String("01234567" + text + "89").view(), std::string("01234567") + GetParam().mended + "89");
}

INSTANTIATE_TEST_SUITE_P(Table, StringMending,
                         testing::Values(IllFormed{"%80", "\uFFFD"},                              //
                                         IllFormed{"a%BFb", "a\uFFFDb"},                          //
                                         IllFormed{"%C0%80", "\uFFFD\uFFFD"},                     //
                                         IllFormed{"%C1%BF", "\uFFFD\uFFFD"},                     //
                                         IllFormed{"%C3", "\uFFFD"},                              //
                                         IllFormed{"%C3a", "\uFFFDa"},                            //
                                         IllFormed{"%C3%C3%A9", "\uFFFD\u00E9"},                  //
                                         IllFormed{"%E0%80%80", "\uFFFD\uFFFD\uFFFD"},            //
                                         IllFormed{"%E0%9F%BF", "\uFFFD\uFFFD\uFFFD"},            //
                                         IllFormed{"%E4%B8", "\uFFFD"},                           //
                                         IllFormed{"%E4%B8a", "\uFFFDa"},                         //
                                         IllFormed{"%ED%A0%80", "\uFFFD\uFFFD\uFFFD"},            //
                                         IllFormed{"%ED%BF%BF", "\uFFFD\uFFFD\uFFFD"},            //
                                         IllFormed{"%F0%80%80%80", "\uFFFD\uFFFD\uFFFD\uFFFD"},   //
                                         IllFormed{"%F0%8F%BF%BF", "\uFFFD\uFFFD\uFFFD\uFFFD"},   //
                                         IllFormed{"%F0%9F%98", "\uFFFD"},                        //
                                         IllFormed{"%F0%9F%98%F0%9F%98%80", "\uFFFD\U0001F600"},  //
                                         IllFormed{"%F4%90%80%80", "\uFFFD\uFFFD\uFFFD\uFFFD"},   //
                                         IllFormed{"%F5%80", "\uFFFD\uFFFD"},                     //
                                         IllFormed{"%FE%FF", "\uFFFD\uFFFD"},                     //
                                         IllFormed{"%61%F1%80%80%E1%80%C2%62%80%63%80%BF%64",     //
                                                   "a\uFFFD\uFFFD\uFFFDb\uFFFDc\uFFFD\uFFFDd"}));

TEST(String, TakesTheEdgesOfEveryLength) {
  for (const char* const text : {"%7F", "%C2%80", "%DF%BF", "%E0%A0%80", "%EC%BF%BF", "%ED%80%80", "%ED%9F%BF",
                                 "%EE%80%80", "%EF%BF%BF", "%F0%90%80%80", "%F3%BF%BF%BF", "%F4%8F%BF%BF"}) {
    EXPECT_TRUE(String::isWellFormed(bytes(text))) << text;
    EXPECT_EQ(String(bytes(text)).characterCount(), 1) << text;
  }
}

TEST(String, IsMendedIntoWellFormedTextWhateverComesIn) {
  std::mt19937 generator(7);
  constexpr std::string_view likely = "a\x80\xBF\xC3\xA9\xE4\xB8\xED\xA0\xF0\x9F\x98\x80\xF4\x90\xFF";
  for (int round = 0; round < 20'000; ++round) {
    std::string text;
    for (auto left = generator() % 24; left > 0; --left) text.push_back(likely[generator() % likely.size()]);
    const String mended(text);
    ASSERT_TRUE(String::isWellFormed(mended));
    ASSERT_EQ(String::isWellFormed(text), mended.view() == text);
    ASSERT_EQ(String(mended.view()).view(), mended.view());
  }
}

TEST(String, ConcatenatesPieces) {
  EXPECT_EQ(String::concatenation({"a", "", "b\u00E9", "c"}).view(), "ab\u00E9c");
  EXPECT_FALSE(String::concatenation({"a", "\u00E9"}).isASCII());
  EXPECT_TRUE(String::concatenation({}).isEmpty());
  EXPECT_TRUE(String::concatenation({"", ""}).isSameAs(String()));
}

TEST(String, IsSharedByItsCopies) {
  const String text("shared");
  const String copy = text;
  EXPECT_TRUE(copy.isSameAs(text));
  EXPECT_EQ(copy.view().data(), text.view().data());
  EXPECT_FALSE(String("shared").isSameAs(text));
}

TEST(String, OfAGroveIsATextLikeAnyOther) {
  const std::vector<std::string> texts{"",
                                       "a",
                                       "plain",
                                       "\u00E9t\u00E9",
                                       std::string(511, 'x'),
                                       std::string(512, 'x'),
                                       std::string(513, 'x'),
                                       std::string(10'000, 'x') + "\u00E9"};
  std::vector<String> planted;
  {
    Grove grove;
    for (const std::string& text : texts) planted.push_back(String::fromWellFormed(text, grove));
  }
  for (std::size_t index = 0; index < texts.size(); ++index) {
    const String& text = planted[index];
    const String usual(texts[index]);
    EXPECT_EQ(text.view(), texts[index]);
    EXPECT_EQ(text, usual);
    EXPECT_EQ(text.hash(), usual.hash());
    EXPECT_EQ(text.isASCII(), usual.isASCII());
    EXPECT_EQ(text.characterCount(), usual.characterCount());
  }
}

TEST(String, OfAGroveNeverGrowsThere) {
  Grove grove;
  String first = String::fromWellFormed("first", grove);
  const String second = String::fromWellFormed("second", grove);
  first = std::move(first).appending(" and more");
  EXPECT_EQ(first, "first and more");
  String third = String::fromWellFormed("third", grove);
  third.rewrite("3");
  EXPECT_EQ(third, "3");
  EXPECT_EQ(second, "second");
}

TEST(StringSlice, OfATextOfAGroveOutlivesIt) {
  String slice;
  {
    Grove grove;
    const String whole = String::fromWellFormed("first second third", grove);
    slice = whole.slice(6, 12).slice(0, 6);
    EXPECT_EQ(slice.view().data(), whole.view().data() + 6);
  }
  EXPECT_EQ(slice.view(), "second");
}

TEST(StringSlice, SharesTheBytesAndOutlivesTheWhole) {
  String slice;
  {
    const String whole("first second third");
    slice = whole.slice(6, 12).slice(0, 6);
    EXPECT_EQ(slice.view().data(), whole.view().data() + 6);
  }
  EXPECT_EQ(slice.view(), "second");
}

TEST(StringSlice, OfAllIsTheTextItselfAndOfNothingIsEmpty) {
  const String text("text");
  EXPECT_TRUE(text.slice(0, 4).isSameAs(text));
  EXPECT_TRUE(text.slice(2, 0).isSameAs(String()));
  EXPECT_TRUE(String().slice(0, 0).isEmpty());
}

TEST(StringSlice, KnowsByItselfWhetherItIsASCII) {
  const String text("plain \u00E9");
  EXPECT_TRUE(text.slice(0, 5).isASCII());
  EXPECT_FALSE(text.slice(6, 2).isASCII());
}

TEST(StringSlice, TakesWhatIsKnownOfIt) {
  const String text("plain \u00E9");
  EXPECT_TRUE(text.slice(0, 5, true).isASCII());
  EXPECT_EQ(text.slice(0, 5, true), "plain");
  EXPECT_FALSE(text.slice(6, 2, false).isASCII());
  EXPECT_TRUE(text.slice(0, 8, false).isSameAs(text));
  EXPECT_TRUE(text.slice(3, 0, true).isSameAs(String()));
}

TEST(StringCounts, AreInBytesCharactersAndUtf16Units) {
  const String text("e\u0301\r\n\u4E00\U0001F600");
  EXPECT_EQ(text.size(), 12u);
  EXPECT_EQ(text.characterCount(), 4);
  EXPECT_EQ(text.utf16Length(), 7);
  EXPECT_EQ(String("abc\r\n").utf16Length(), 5);
  EXPECT_EQ(String().utf16Length(), 0);
}

TEST(StringEquality, OfASCIIGoesByBytes) {
  EXPECT_EQ(String("name"), String("name"));
  EXPECT_NE(String("name"), String("nam"));
  EXPECT_NE(String("name"), String("Name"));
  EXPECT_NE(String("\r\n"), String("\n"));
}

struct Equivalent {
  const char* one;
  const char* other;
};

class StringEquivalence : public testing::TestWithParam<Equivalent> {};

TEST_P(StringEquivalence, HoldsForEqualityOrderAndHash) {
  for (const std::string_view before : {"", "a", "\u00E9", "abcdefgh"}) {
    for (const std::string_view behind : {"", "z", "\u0323", "\u00E9z"}) {
      const String one = String::concatenation({before, GetParam().one, behind});
      const String other = String::concatenation({before, GetParam().other, behind});
      EXPECT_EQ(one, other);
      EXPECT_EQ(other, one);
      EXPECT_EQ(one <=> other, std::strong_ordering::equal);
      EXPECT_EQ(one.hash(), other.hash());
      EXPECT_NE(one, String::concatenation({other, "x"}));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Table, StringEquivalence,
                         testing::Values(Equivalent{"\u00E9", "e\u0301"},               //
                                         Equivalent{"\u212A", "K"},                     //
                                         Equivalent{"\u037E", ";"},                     //
                                         Equivalent{"\u1FEF", "`"},                     //
                                         Equivalent{"\u212B", "A\u030A"},               //
                                         Equivalent{"\u212B", "\u00C5"},                //
                                         Equivalent{"\u1E69", "s\u0307\u0323"},         //
                                         Equivalent{"s\u0323\u0307", "s\u0307\u0323"},  //
                                         Equivalent{"\uAC01", "\u1100\u1161\u11A8"},    //
                                         Equivalent{"\uAC01", "\uAC00\u11A8"},          //
                                         Equivalent{"\u0958", "\u0915\u093C"},          //
                                         Equivalent{"\u0344", "\u0308\u0301"},          //
                                         Equivalent{"\U0002F800", "\u4E3D"}));

TEST(StringEquality, IsNotCompatibility) {
  EXPECT_NE(String("\uFB01"), String("fi"));
  EXPECT_NE(String("\u00B2"), String("2"));
  EXPECT_NE(String("\u00DF"), String("ss"));
  EXPECT_NE(String("\u00E9"), String("e"));
  EXPECT_NE(String("\u00E9"), String("\u00E8"));
  EXPECT_NE(String("\u0391"), String("A"));
}

TEST(StringOrder, OfASCIIIsThatOfTheBytes) {
  EXPECT_LT(String(""), String("a"));
  EXPECT_LT(String("a"), String("ab"));
  EXPECT_LT(String("Z"), String("a"));
  EXPECT_GT(String("b"), String("ab"));
}

TEST(StringOrder, GoesByTheScalarsOfTheDecomposedTexts) {
  EXPECT_LT(String("e"), String("\u00E9"));
  EXPECT_LT(String("\u00E9"), String("f"));
  EXPECT_LT(String("\u00E8"), String("\u00E9")) << "the grave accent stands before the acute";
  EXPECT_LT(String("\u00E9"), String("e\u0301a"));
  EXPECT_LT(String("\uFFFD"), String("\U00010000")) << "by scalars, not by UTF-16 units";
  EXPECT_LT(String("\u212A"), String("L"));
  EXPECT_GT(String("a\u0301\u0323"), String("a\u0302")) << "marks are put in order first";
  EXPECT_GT(String("\u00E9z"), String("ea"));
}

/// Random texts of a few scalars that decompose, compose and reorder.
String randomText(std::mt19937& generator) {
  constexpr char32_t scalars[] = {U'a',   U'e',   U'K',   0xE9,    0xC5,   0x300,  0x301,  0x323,  0x308,  0x344,
                                  0x1E69, 0x212A, 0x37E,  U';',    0x1100, 0x1161, 0x11A8, 0xAC00, 0xAC01, 0x438,
                                  0x439,  0x306,  0x4E3D, 0x2F800, 0x915,  0x93C,  0x958,  0x1F71, 0x3B1,  0x1F600};
  StringBuilder text;
  for (auto left = generator() % 6; left > 0; --left) {
    text.appendScalar(scalars[generator() % std::size(scalars)]);
  }
  return text.build();
}

TEST(StringOrder, AgreesWithEqualityAndHashOnRandomTexts) {
  std::mt19937 generator(3);
  std::vector<String> texts;
  for (int number = 0; number < 300; ++number) texts.push_back(randomText(generator));
  int equivalentPairs = 0;
  for (const String& left : texts) {
    for (const String& right : texts) {
      const std::strong_ordering order = left <=> right;
      ASSERT_EQ(order == 0, left == right);
      ASSERT_EQ(order<0, right> left);
      if (left != right) continue;
      ASSERT_EQ(left.hash(), right.hash());
      equivalentPairs += left.view() != right.view();
    }
  }
  EXPECT_GT(equivalentPairs, 10);
}

TEST(StringOrder, IsTransitiveOnRandomTexts) {
  std::mt19937 generator(4);
  std::vector<String> texts;
  for (int number = 0; number < 2000; ++number) texts.push_back(randomText(generator));
  std::sort(texts.begin(), texts.end());
  for (std::size_t first = 0; first < texts.size(); first += 7) {
    for (std::size_t second = first; second < texts.size(); second += 13) {
      ASSERT_TRUE(texts[first] <= texts[second]);
    }
  }
}

TEST(StringHash, TellsTextsApartAndStaysTheSame) {
  std::unordered_set<std::size_t> hashes;
  for (Int number = 0; number < 1000; ++number) hashes.insert(decimal(number).hash());
  EXPECT_EQ(hashes.size(), 1000u);
  const String text("\u00E9");
  EXPECT_EQ(text.hash(), text.hash());
  EXPECT_EQ(std::hash<String>()(text), text.hash());
}

TEST(StringHash, OfASliceIsThatOfTheSameText) {
  EXPECT_EQ(String("a name b").slice(2, 4).hash(), String("name").hash());
  EXPECT_EQ(String("\u00E9 K").slice(3, 1).hash(), String("\u212A").hash());
}

TEST(StringBuilder, GrowsAndBeginsAnew) {
  StringBuilder builder;
  std::string expected;
  for (int number = 0; number < 1'000; ++number) {
    builder.append(std::to_string(number)).append(',');
    expected += std::to_string(number) + ',';
    ASSERT_EQ(builder.view(), expected);
  }
  EXPECT_EQ(builder.build().view(), expected);
  builder.clear();
  EXPECT_TRUE(builder.build().isEmpty());
  EXPECT_EQ(builder.append("again").build().view(), "again");
}

TEST(StringBuilder, TellsHowMuchCanBeAppendedWhereItStands) {
  StringBuilder builder;
  builder.reserve(1000);
  EXPECT_GE(builder.room(), 1000u);
  const char* const place = builder.view().data();
  builder.append(std::string(builder.room(), 'x'));
  EXPECT_EQ(builder.room(), 0u);
  EXPECT_EQ(builder.view().data(), place);
}

TEST(StringBuilder, CollectsPiecesCharactersAndScalars) {
  StringBuilder builder;
  builder.reserve(20);
  builder.append("ab").append('c').appendScalar(U'\u00E9').appendScalar(0x4E00).appendScalar(0x1F600);
  builder.appendScalar(U'x');
  EXPECT_EQ(builder.view(), "abc\u00E9\u4E00\U0001F600x");
  EXPECT_EQ(builder.build().view(), builder.view());
}

TEST(StringBuilder, KeepsTextsOfEveryLength) {
  for (std::size_t size = 0; size < 2000; size = size * 9 / 8 + 1) {
    StringBuilder builder;
    std::string expected;
    while (expected.size() < size) {
      builder.append("\u00E9").append('x');
      expected += "\u00E9x";
    }
    EXPECT_EQ(builder.build().view(), expected);
    EXPECT_EQ(builder.view(), expected) << "a builder that goes on keeps its text";
    EXPECT_EQ(std::move(builder).build().view(), expected);
  }
}

TEST(StringBuilder, TakesAPartOfItsOwnText) {
  StringBuilder builder;
  builder.append("0123456789");
  std::string expected = "0123456789";
  for (int round = 0; round < 8; ++round) {
    builder.append(builder.view());
    expected += expected;
    EXPECT_EQ(builder.view(), expected);
  }
}

TEST(StringBuilder, CanBeUsedAgainAfterItsTextWasTaken) {
  StringBuilder builder;
  const std::string text(1000, 'x');
  const String taken = std::move(builder.append(text)).build();
  builder.clear();
  builder.append("other");
  EXPECT_EQ(taken.view(), text);
  EXPECT_EQ(builder.build().view(), "other");
}

TEST(StringBuilder, LetsOthersWriteAndDropsWhatIsTooMuch) {
  for (const std::size_t most : {5u, 5000u}) {
    StringBuilder builder;
    builder.append("a").appendWritten(most, [](char* end) { return std::fill_n(end, 5, 'b'); });
    EXPECT_EQ(builder.view(), "abbbbb");
    builder.truncate(3);
    EXPECT_EQ(std::move(builder).build().view(), "abb");
  }
}

TEST(StringBuilder, TellsASCIIByItsBytes) {
  for (const std::size_t size : {1u, 500u}) {
    StringBuilder builder;
    EXPECT_TRUE(builder.append(std::string(size, 'x')).build().isASCII());
    EXPECT_FALSE(std::move(builder.append("\u00E9")).build().isASCII());
  }
}

TEST(StringAppending, IsConcatenation) {
  for (const std::string_view text : {"", "a", "\u00E9", "0123456789"}) {
    for (const std::string_view piece : {"", "b", "\u00E8", "abcdefghijklmnopqrstuvwxyz"}) {
      const String expected = String::concatenation({text, piece});
      const String appended = String(text).appending(piece);
      EXPECT_EQ(appended.view(), expected.view());
      EXPECT_EQ(appended.isASCII(), expected.isASCII());
      EXPECT_EQ(appended.hash(), expected.hash());
    }
  }
}

TEST(String, IsWrittenToAStreamByteByByte) {
  std::ostringstream stream;
  stream << String(std::string_view("a\0b", 3)) << String("\u00E9") << String();
  EXPECT_EQ(stream.str(), std::string("a\0b\u00E9", 5));
}

TEST(StringAppending, GrowsInPlaceWhatNobodyElseHolds) {
  String text("row");
  std::string expected = "row";
  int moves = 0;
  for (Int number = 0; number < 10'000; ++number) {
    const char* const before = text.view().data();
    const std::size_t hashBefore = text.hash();
    text = std::move(text).appending(decimal(number));
    expected += decimal(number);
    moves += text.view().data() != before;
    ASSERT_NE(text.hash(), hashBefore);
  }
  EXPECT_EQ(text.view(), expected);
  EXPECT_EQ(text.hash(), String(expected).hash());
  EXPECT_LT(moves, 40);
}

TEST(StringAppending, LeavesAloneWhatOthersHold) {
  String text = String("0123456789").appending("abc");
  const String copy = text;
  text = std::move(text).appending("d");
  EXPECT_EQ(copy.view(), "0123456789abc");
  EXPECT_EQ(text.view(), "0123456789abcd");
  const String slice = text.slice(10, 4);
  text = std::move(text).appending("e");
  EXPECT_EQ(slice.view(), "abcd");
  EXPECT_EQ(String(slice).appending("f").view(), "abcdf");
  EXPECT_EQ(text.slice(0, 10).appending("-").view(), "0123456789-");
  EXPECT_EQ(text.view(), "0123456789abcde");
}

TEST(Decimal, PrintsEveryInteger) {
  EXPECT_EQ(decimal(0).view(), "0");
  EXPECT_EQ(decimal(12).view(), "12");
  EXPECT_EQ(decimal(-3).view(), "-3");
  EXPECT_EQ(decimal(1'000'000).view(), "1000000");
  EXPECT_EQ(decimal(std::numeric_limits<Int>::max()).view(), "9223372036854775807");
  EXPECT_EQ(decimal(std::numeric_limits<Int>::min()).view(), "-9223372036854775808");
}

TEST(String, IsRewrittenWithAnyText) {
  String text = String("0123456789").appending("abc");
  for (const std::string piece : {"x", "", "0123456789abc", "0", "\u00E9"}) {
    text.rewrite(piece);
    EXPECT_EQ(text, String(piece));
    EXPECT_EQ(text.hash(), String(piece).hash());
  }
  text.rewrite(std::string(1000, 'x'));
  EXPECT_EQ(text, String(std::string(1000, 'x')));
  const String other = text;
  text.rewrite("y");
  EXPECT_EQ(other.size(), 1000u);
}

}  // namespace
}  // namespace velto

// Scalars and their classes, case mapping, and searches that see through the ways to write a character.
#include "Velto/Platform/Unicode.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <random>
#include <string>

namespace velto::unicode {
namespace {

TEST(Decode, StepsThroughScalarsOfEveryLength) {
  const std::string_view text = "a\u00E9\u4E00\U0001F600\U0010FFFF";
  std::size_t offset = 0;
  for (const char32_t scalar : {U'a', U'\u00E9', U'\u4E00', U'\U0001F600', U'\U0010FFFF'}) {
    EXPECT_EQ(std::uint32_t{decode(text, offset)}, std::uint32_t{scalar});
  }
  EXPECT_EQ(offset, text.size());
}

TEST(Decode, ReadsBackEveryScalar) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    if (scalar == 0xD800) scalar = 0xE000;
    StringBuilder text;
    text.appendScalar(scalar);
    std::size_t offset = 0;
    ASSERT_EQ(std::uint32_t{decode(text.view(), offset)}, std::uint32_t{scalar});
    ASSERT_EQ(offset, text.view().size());
    ASSERT_TRUE(String::isWellFormed(text.view()));
  }
}

TEST(CaseMapping, OfASCIIMapsLettersOnly) {
  EXPECT_EQ(lowercased("@AZ[`az{09 \n").view(), "@az[`az{09 \n");
  EXPECT_EQ(uppercased("@AZ[`az{09 \n").view(), "@AZ[`AZ{09 \n");
  EXPECT_TRUE(lowercased("").isEmpty());
}

TEST(CaseMapping, MayMakeSeveralCharactersOfOne) {
  EXPECT_EQ(uppercased("stra\u00DFe").view(), "STRASSE");
  EXPECT_EQ(uppercased("\uFB01").view(), "FI");
  EXPECT_EQ(lowercased("\u0130").view(), "i\u0307");
  EXPECT_EQ(uppercased("\u0390").view(), "\u0399\u0308\u0301");
}

TEST(CaseMapping, TellsAFinalSigmaByItsContext) {
  EXPECT_EQ(lowercased("\u039F\u03A3").view(), "\u03BF\u03C2");
  EXPECT_EQ(lowercased("\u039F\u03A3\u039F").view(), "\u03BF\u03C3\u03BF");
  EXPECT_EQ(lowercased("\u03A3").view(), "\u03C3");
  EXPECT_EQ(lowercased("\u039F\u03A3 \u039F\u03A3!").view(), "\u03BF\u03C2 \u03BF\u03C2!");
}

TEST(CaseMapping, KnowsNoLocale) {
  EXPECT_EQ(lowercased("I\u00C9").view(), "i\u00E9");
  EXPECT_EQ(uppercased("i\u00E9").view(), "I\u00C9");
  EXPECT_EQ(uppercased("\u03AC").view(), "\u0386") << "accents stay on Greek capitals";
}

TEST(CaseMapping, AppendsToWhatIsThere) {
  StringBuilder text;
  text.append("=");
  appendUppercased("a", text);
  appendUppercased("\u00DF", text);
  appendLowercased("B", text);
  appendLowercased("\u00C9", text);
  EXPECT_EQ(text.view(), "=ASSb\u00E9");
}

TEST(CaseMapping, OfLongTextKeepsAllOfIt) {
  std::string text;
  std::string mapped;
  for (int round = 0; round < 5000; ++round) {
    text += "aB\u00C9\U00010400";
    mapped += "ab\u00E9\U00010428";
  }
  EXPECT_EQ(lowercased(text).view(), mapped);
}

String mapped(void (*append)(std::string_view, StringBuilder&), std::string_view text) {
  StringBuilder result;
  append(text, result);
  return result.build();
}

void expectTheSameBothWays(std::string_view text) {
  ASSERT_EQ(mapped(appendLowercased, text).view(), mapped(appendLowercasedByContext, text).view()) << text;
  ASSERT_EQ(mapped(appendUppercased, text).view(), mapped(appendUppercasedByContext, text).view()) << text;
}

TEST(CaseMapping, OfOneScalarIsThatByContext) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    if (scalar == 0xD800) scalar = 0xE000;
    StringBuilder text;
    expectTheSameBothWays(text.appendScalar(scalar).view());
  }
}

TEST(CaseMapping, OfMixedTextsIsThatByContext) {
  constexpr std::string_view pieces[] = {"a",      "I",      " ",      ".",      "\u0307", "\u0301",     "\u03A3",
                                         "\u03C3", "\u03AC", "\u0390", "\u00DF", "\u0130", "\u0149",     "\u0416",
                                         "\u0436", "\u65E5", "\u30A2", "\u3042", "\u0345", "\u1FB3",     "\uFB01",
                                         "\uAC00", "\u00E9", "\u00C9", "J",      "\u012E", "\U00010400", "\u00AD"};
  std::mt19937 generator(5);
  for (int round = 0; round < 50'000; ++round) {
    std::string text;
    for (auto left = generator() % 7; left > 0; --left) text += pieces[generator() % std::size(pieces)];
    expectTheSameBothWays(text);
  }
}

TEST(Searches, OfASCIIGoByBytes) {
  EXPECT_TRUE(hasPrefix("abc", "ab"));
  EXPECT_FALSE(hasPrefix("abc", "bc"));
  EXPECT_FALSE(hasPrefix("ab", "abc"));
  EXPECT_TRUE(hasSuffix("abc", "bc"));
  EXPECT_FALSE(hasSuffix("abc", "ab"));
  EXPECT_FALSE(hasSuffix("bc", "abc"));
  EXPECT_TRUE(contains("abcd", "bc"));
  EXPECT_TRUE(contains("abcd", "abcd"));
  EXPECT_FALSE(contains("abcd", "cb"));
  EXPECT_FALSE(contains("", "a"));
}

TEST(Searches, OfOtherTextInASCII) {
  EXPECT_FALSE(hasPrefix("e", "\u00E9"));
  EXPECT_FALSE(hasSuffix("e", "\u00E9"));
  EXPECT_TRUE(hasPrefix("K", "\u212A"));
  EXPECT_TRUE(hasSuffix("K", "\u212A"));
}

TEST(Searches, OfAnEmptyText) {
  for (const String text : {"", "ab", "\u00E9"}) {
    EXPECT_TRUE(hasPrefix(text, ""));
    EXPECT_TRUE(hasSuffix(text, ""));
    EXPECT_FALSE(contains(text, ""));
  }
}

TEST(Searches, FindEitherWayOfWritingACharacter) {
  EXPECT_TRUE(hasPrefix("\u00E9t\u00E9", "e\u0301t"));
  EXPECT_TRUE(hasSuffix("e\u0301te\u0301", "t\u00E9"));
  EXPECT_TRUE(contains("un \u00E9t\u00E9", "e\u0301te\u0301"));
  EXPECT_TRUE(contains("20 \u212A", "K"));
  EXPECT_TRUE(contains("20 K", "\u212A"));
  EXPECT_FALSE(contains("\u00E8", "\u00E9"));
}

TEST(Searches, CompareScalarsSoABaseLetterIsFoundWithoutItsMark) {
  EXPECT_TRUE(hasPrefix("\u00E9", "e"));
  EXPECT_TRUE(hasSuffix("\u00E9", "\u0301"));
  EXPECT_TRUE(contains("caf\u00E9s", "\u0301s"));
  EXPECT_FALSE(hasSuffix("\u00E9", "e"));
}

TEST(Searches, PutMarksInOrderFirst) {
  EXPECT_TRUE(hasPrefix("a\u0301\u0323x", "a\u0323\u0301"));
  EXPECT_FALSE(hasPrefix("a\u0301\u0323", "a\u0301")) << "the mark below comes first in the decomposed text";
}

TEST(Classes, OfASCII) {
  for (char32_t scalar = 0; scalar < 0x80; ++scalar) {
    const bool isUpper = 'A' <= scalar && scalar <= 'Z';
    const bool isLower = 'a' <= scalar && scalar <= 'z';
    const bool isNumber = '0' <= scalar && scalar <= '9';
    EXPECT_EQ(isUppercaseLetter(scalar), isUpper);
    EXPECT_EQ(isLowercaseLetter(scalar), isLower);
    EXPECT_EQ(isLetter(scalar), isUpper || isLower);
    EXPECT_EQ(isAlphanumeric(scalar), isUpper || isLower || isNumber);
    EXPECT_EQ(isWhitespaceOrNewline(scalar), scalar == ' ' || (0xA <= scalar && scalar <= 0xD));
  }
}

TEST(Classes, AreToldTogetherAsTheyAreOneByOne) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    const ScalarClass class_ = scalarClass(scalar);
    ASSERT_EQ(class_ == ScalarClass::whitespaceOrNewline, isWhitespaceOrNewline(scalar));
    ASSERT_EQ(class_ == ScalarClass::uppercaseLetter, isUppercaseLetter(scalar));
    ASSERT_EQ(class_ == ScalarClass::lowercaseLetter, isLowercaseLetter(scalar));
    const bool isAlphanumericClass = class_ >= ScalarClass::uppercaseLetter;
    ASSERT_EQ(isAlphanumericClass, isAlphanumeric(scalar));
  }
}

TEST(Classes, ATabIsNoWhiteSpace) {
  EXPECT_FALSE(isWhitespaceOrNewline(U'\t'));
}

TEST(Classes, GoByGeneralCategory) {
  for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
    const auto category = u_charType(static_cast<UChar32>(scalar));
    const auto isOf = [&](auto... categories) { return ((category == categories) || ...); };
    const bool isMark = isOf(U_NON_SPACING_MARK, U_ENCLOSING_MARK, U_COMBINING_SPACING_MARK);
    const bool isUpper = isOf(U_UPPERCASE_LETTER, U_TITLECASE_LETTER);
    const bool isLower = isOf(U_LOWERCASE_LETTER);
    const bool isOther = isOf(U_MODIFIER_LETTER, U_OTHER_LETTER);
    const bool isNumber = isOf(U_DECIMAL_DIGIT_NUMBER, U_LETTER_NUMBER, U_OTHER_NUMBER);
    const bool isSeparator = isOf(U_SPACE_SEPARATOR, U_LINE_SEPARATOR, U_PARAGRAPH_SEPARATOR);
    const bool isLineEnd = (0xA <= scalar && scalar <= 0xD) || scalar == 0x85;
    ASSERT_EQ(isUppercaseLetter(scalar), isUpper);
    ASSERT_EQ(isLowercaseLetter(scalar), isLower);
    ASSERT_EQ(isLetter(scalar), isUpper || isLower || isOther || isMark);
    ASSERT_EQ(isAlphanumeric(scalar), isUpper || isLower || isOther || isMark || isNumber);
    ASSERT_EQ(isWhitespaceOrNewline(scalar), isSeparator || isLineEnd);
  }
}

TEST(Classes, OfWellKnownScalars) {
  EXPECT_TRUE(isUppercaseLetter(U'\u01C5')) << "a titlecase letter";
  EXPECT_TRUE(isLetter(U'\u0301')) << "a mark";
  EXPECT_TRUE(isAlphanumeric(U'\u00BD')) << "a fraction";
  EXPECT_TRUE(isWhitespaceOrNewline(U'\u00A0')) << "a no-break space";
  EXPECT_TRUE(isWhitespaceOrNewline(U'\u2028'));
  EXPECT_FALSE(isWhitespaceOrNewline(U'\u200B')) << "a zero width space";
  EXPECT_FALSE(isAlphanumeric(U'\U0001F600'));
}

TEST(Comparison, BacksUpToWhereDecompositionsCannotMix) {
  EXPECT_TRUE(areEquivalent("x\u0323\u0301\u0307", "x\u0323\u0301\u0307"));
  EXPECT_TRUE(areEquivalent("q\u0307\u0323", "q\u0323\u0307"));
  EXPECT_FALSE(areEquivalent("q\u0307\u0323", "q\u0323\u0301"));
  EXPECT_TRUE(areEquivalent("\uAC00\u11A8", "\uAC01"));
  EXPECT_FALSE(areEquivalent("\uAC00", "\uAC01"));
  EXPECT_EQ(compare("\uAC00b", "\uAC01"), std::strong_ordering::less);
  EXPECT_EQ(compare("", "\u00E9"), std::strong_ordering::less);
  EXPECT_EQ(compare("\u00E9", ""), std::strong_ordering::greater);
  EXPECT_EQ(compare("", ""), std::strong_ordering::equal);
}

std::string decomposed(std::string_view text) {
  UErrorCode status = U_ZERO_ERROR;
  std::string result;
  icu::StringByteSink<std::string> sink(&result);
  icu::Normalizer2::getNFDInstance(status)->normalizeUTF8(0, text, sink, nullptr, status);
  return result;
}

TEST(Comparison, AgreesWithThatOfTheDecomposedBytes) {
  constexpr std::string_view pieces[] = {"a",      "b",      "e",      "K",      "\u00E9", "\u00C5",    "\u0301",
                                         "\u0302", "\u0323", "\u1E69", "\u212A", "\u1100", "\u1161",    "\u11A8",
                                         "\uAC00", "\uAC01", "\u0438", "\u0439", "\u4E3D", "\U0002F800"};
  std::mt19937 generator(11);
  const auto randomText = [&] {
    std::string text;
    for (auto left = generator() % 6; left > 0; --left) text += pieces[generator() % std::size(pieces)];
    return text;
  };
  for (int round = 0; round < 30'000; ++round) {
    const std::string common = randomText();
    const std::string left = common + randomText();
    const std::string right = common + randomText();
    ASSERT_EQ(compare(left, right), decomposed(left).compare(decomposed(right)) <=> 0) << left << " and " << right;
    ASSERT_EQ(areEquivalent(left, right), decomposed(left) == decomposed(right)) << left << " and " << right;
  }
}

TEST(Hash, AgreesWithEquivalence) {
  EXPECT_EQ(hash("\u00E9"), hash("e\u0301"));
  EXPECT_EQ(hash("\u212A"), hash("K"));
  EXPECT_NE(hash("\u00E9"), hash("\u00E8"));
}

/// A text of any size that takes next to no memory: a letter beyond ASCII, and NUL characters that aren't touched.
class HugeText {
 public:
  explicit HugeText(std::size_t size) : size_(size) {
    constexpr int flags = MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE;
    bytes_ = static_cast<char*>(::mmap(nullptr, size, PROT_READ | PROT_WRITE, flags, -1, 0));
    if (bytes_ == MAP_FAILED) throw std::bad_alloc();
    std::memcpy(bytes_, "\u00E9", 2);
  }
  ~HugeText() { ::munmap(bytes_, size_); }
  HugeText(const HugeText&) = delete;
  HugeText& operator=(const HugeText&) = delete;

  std::string_view view() const noexcept { return {bytes_, size_}; }

 private:
  std::size_t size_;
  char* bytes_ = nullptr;
};

TEST(Texts, ThatAreLongerThanICUCountsHaveNoRoom) {
  for (const std::size_t size : {std::size_t{1} << 31, (std::size_t{1} << 32) + 2}) {
    const HugeText text(size);
    StringBuilder result;
    EXPECT_THROW(hash(text.view()), std::bad_alloc);
    EXPECT_THROW(appendLowercasedByContext(text.view(), result), std::bad_alloc);
    EXPECT_THROW(appendUppercasedByContext(text.view(), result), std::bad_alloc);
    EXPECT_EQ(result.view(), "");
  }
}

}  // namespace
}  // namespace velto::unicode

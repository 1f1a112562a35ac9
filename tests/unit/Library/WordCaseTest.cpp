// The spellings of names, one row a text.
#include "Velto/Library/WordCase.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "Velto/Library/StringForms.h"
#include "tests/unit/Value/Calls.h"

namespace velto {
namespace {

TEST(CharacterType, StandsInItsOrderAndIsDecidedByTheFirstScalar) {
  EXPECT_LT(CharacterType::space, CharacterType::uppercase);
  EXPECT_LT(CharacterType::uppercase, CharacterType::lowercase);
  EXPECT_LT(CharacterType::lowercase, CharacterType::other);
  EXPECT_LT(CharacterType::other, CharacterType::invalid);
  struct Row {
    const char* character;
    CharacterType type;
  };
  const Row rows[] = {
      {" ", CharacterType::space},           {"\n", CharacterType::space},     {"\r\n", CharacterType::space},
      {"\u00A0", CharacterType::space},      {"\u0085", CharacterType::space}, {"\u2028", CharacterType::space},
      {" \u0301", CharacterType::space},     {"\t", CharacterType::invalid},   {"_", CharacterType::invalid},
      {"-", CharacterType::invalid},         {"€", CharacterType::invalid},    {"😀", CharacterType::invalid},
      {"\u0001", CharacterType::invalid},    {"A", CharacterType::uppercase},  {"É", CharacterType::uppercase},
      {"E\u0301", CharacterType::uppercase}, {"ǅ", CharacterType::uppercase},  {"a", CharacterType::lowercase},
      {"ß", CharacterType::lowercase},       {"1", CharacterType::other},      {"½", CharacterType::other},
      {"Ⅷ", CharacterType::other},           {"日", CharacterType::other},     {"ª", CharacterType::other},
      {"\u0301", CharacterType::other},
  };
  for (const Row& row : rows) EXPECT_EQ(characterType(row.character), row.type) << row.character;
}

TEST(WordCase, AllSpellings) {
  struct Row {
    const char* text;
    const char* lowerCamel;
    const char* upperCamel;
    const char* snake;
  };
  const Row rows[] = {
      {"", "_0", "_0", ""},
      {"   ", "_0", "_0", ""},
      {"---", "_0", "_0", "_"},
      {"_", "_0", "_0", "_"},
      {"hello", "hello", "Hello", "hello"},
      {"hello world", "helloWorld", "HelloWorld", "hello_world"},
      {"  hello   world  ", "helloWorld", "HelloWorld", "hello_world"},
      {"hello\nworld", "helloWorld", "HelloWorld", "hello_world"},
      {"hello\u00A0world", "helloWorld", "HelloWorld", "hello_world"},
      {"hello\tworld", "helloworld", "Helloworld", "hello_world"},
      {"\thello", "hello", "Hello", "_hello"},
      {"\t", "_0", "_0", "_"},
      {"HELLO", "hello", "Hello", "hello"},
      {"XMLParser", "xmlparser", "Xmlparser", "xmlparser"},
      {"fooBar", "fooBar", "FooBar", "foobar"},
      {"fooBarBAZ", "fooBarBaz", "FooBarBaz", "foobarbaz"},
      {"foo_bar", "foobar", "Foobar", "foo_bar"},
      {"foo_Bar", "foobar", "Foobar", "foo_bar"},
      {"foo-bar", "foobar", "Foobar", "foo_bar"},
      {"foo - bar", "fooBar", "FooBar", "foo_bar"},
      {"foo -bar", "foobar", "Foobar", "foo_bar"},
      {"foo- bar", "fooBar", "FooBar", "foo_bar"},
      {"foo-", "foo", "Foo", "foo_"},
      {"-foo", "foo", "Foo", "_foo"},
      {"- foo", "Foo", "Foo", "_foo"},
      {"- - foo", "Foo", "Foo", "_foo"},
      {"-- --", "_0", "_0", "_"},
      {"a1B", "a1b", "A1b", "a1b"},
      {"a1 b", "a1B", "A1B", "a1_b"},
      {"1abc", "_1abc", "_1abc", "_abc"},
      {"1", "_1", "_1", "_"},
      {"-1a", "_1a", "_1a", "__a"},
      {"- 1a", "_1a", "_1a", "__a"},
      {"9 lives", "_9Lives", "_9Lives", "__lives"},
      {"Ⅷ b", "_ⅷB", "_ⅷB", "__b"},
      {"äÖü", "äÖü", "ÄÖü", "äöü"},
      {"straße", "straße", "Straße", "straße"},
      {"ßa", "ßa", "SSa", "ßa"},
      {"a ßb", "aSSb", "ASSb", "a_ßb"},
      {"e\u0301te\u0301 a\u0300", "e\u0301te\u0301A\u0300", "E\u0301te\u0301A\u0300", "e\u0301te\u0301_a\u0300"},
      {"ΟΔΟΣ", "οδοσ", "Οδοσ", "οδοσ"},
      {"日本 語", "日本語", "日本語", "日本_語"},
      {"\u0301a", "\u0301a", "\u0301a", "\u0301a"},
      {"a\r\nb", "aB", "AB", "a_b"},
      {"a.b.c", "abc", "Abc", "a_b_c"},
      {"😀", "_0", "_0", "_"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(lowerCamelCased(row.text).view(), row.lowerCamel) << row.text;
    EXPECT_EQ(upperCamelCased(row.text).view(), row.upperCamel) << row.text;
    EXPECT_EQ(snakeCased(row.text).view(), row.snake) << row.text;
  }
}

/// All texts of up to `length` of the characters.
std::vector<std::string> textsOfUpTo(std::size_t length, std::string_view characters) {
  std::vector<std::string> texts{""};
  for (std::size_t first = 0; texts[first].size() < length; ++first) {
    for (const char character : characters) texts.push_back(texts[first] + character);
  }
  return texts;
}

TEST(WordCase, TheShortWayForASCIIGivesTheSame) {
  for (const std::string& text : textsOfUpTo(4, "aB1 _-\t\r\n")) {
    EXPECT_EQ(lowerCamelCased(text), camelCasedByCharacters(text, false)) << text;
    EXPECT_EQ(upperCamelCased(text), camelCasedByCharacters(text, true)) << text;
    EXPECT_EQ(snakeCased(text), snakeCasedByCharacters(text)) << text;
  }
}

TEST(WordCase, OfEveryASCIICharacterIsThatByCharacters) {
  for (char character = 0; character >= 0 && character < 0x7F; ++character) {
    for (const std::string_view before : {"", "a", "a ", "A", "1", "-"}) {
      const String text = String::concatenation({before, {&character, 1}, "b"});
      ASSERT_EQ(lowerCamelCased(text).view(), camelCasedByCharacters(text, false).view()) << text;
      ASSERT_EQ(upperCamelCased(text).view(), camelCasedByCharacters(text, true).view()) << text;
      ASSERT_EQ(snakeCased(text).view(), snakeCasedByCharacters(text).view()) << text;
    }
  }
}

TEST(WordCase, OfLongTextsKeepsAllOfThem) {
  std::string text;
  std::string camel = "word";
  std::string snake = "word";
  for (int word = 0; word < 1000; ++word) {
    text += word == 0 ? "word" : " word";
    if (word == 0) continue;
    camel += "Word";
    snake += "_word";
  }
  EXPECT_EQ(lowerCamelCased(text).view(), camel);
  EXPECT_EQ(snakeCased(text).view(), snake);
  EXPECT_EQ(snakeCased("a" + std::string(5000, '-') + "b").view(), "a_b");
}

TEST(Trimmed, OfASCIIIsThatByCharacters) {
  for (const std::string& bytes : textsOfUpTo(5, "a \t\r\n")) {
    const String text = bytes;
    ASSERT_EQ(trimmed(text), trimmedByCharacters(text)) << text;
  }
}

TEST(Escaped, OfASCIIIsThatByCharacters) {
  for (const std::string& text : textsOfUpTo(5, "a\"\\\n\r\t")) {
    ASSERT_EQ(escaped(text).view(), escapedByCharacters(text).view()) << text;
  }
}

}  // namespace
}  // namespace velto

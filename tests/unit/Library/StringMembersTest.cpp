// The members of strings.
#include <gtest/gtest.h>

#include "Velto/Value/Array.h"
#include "Velto/Value/Callable.h"
#include "tests/unit/Value/Calls.h"

namespace velto {
namespace {

using test::callMember;

TEST(StringMembers, EachIsAFunctionOfItsNameWithoutLabels) {
  struct Row {
    const char* name;
    Int arity;
  };
  const Row rows[] = {
      {"contains", 1},           {"equals", 2},          {"escaped", 0},    {"hasPrefix", 1},  {"hasSuffix", 1},
      {"lowercased", 0},         {"lowerCamelCased", 0}, {"snakeCased", 0}, {"uppercased", 0}, {"upperCamelCased", 0},
      {"trimmingWhitespace", 0},
  };
  for (const Row& row : rows) {
    const std::optional<Value> member = Value("text").get(row.name);
    ASSERT_TRUE(member && member->callable()) << row.name;
    EXPECT_EQ(member->callable()->name(), String(row.name));
    EXPECT_EQ(member->callable()->arity(), row.arity) << row.name;
    EXPECT_FALSE(member->callable()->mayHoldFunctions()) << row.name;
    for (const Label& label : member->callable()->labels()) EXPECT_FALSE(label);
  }
}

TEST(StringMembers, ThereAreNoOthers) {
  for (const char* name :
       {"count", "isEmpty", "", "Contains", "contain", "containss", "zzz", "lowerCased", "reversed"}) {
    EXPECT_FALSE(Value("text").get(name)) << name;
  }
}

TEST(StringMembers, EachReadGivesAFreshFunctionThatHoldsTheText) {
  std::optional<Value> text = Value("Text");
  const Value first = *text->get("lowercased");
  const Value second = *text->get("lowercased");
  text.reset();
  EXPECT_NE(first.callable(), second.callable());
  EXPECT_EQ(test::call(first, {}), Value("text"));
}

TEST(StringMembers, Transformations) {
  struct Row {
    const char* text;
    const char* member;
    const char* result;
  };
  const Row rows[] = {
      {"Straße", "uppercased", "STRASSE"},
      {"ÀÉ", "lowercased", "àé"},
      {"ΟΔΟΣ", "lowercased", "οδος"},
      {"", "uppercased", ""},
      {" x ", "trimmingWhitespace", "x"},
      {"\u00A0x y\u2003\n", "trimmingWhitespace", "x y"},
      {"\r\n x\r\n", "trimmingWhitespace", "x"},
      {"   ", "trimmingWhitespace", ""},
      {"", "trimmingWhitespace", ""},
      {"x", "trimmingWhitespace", "x"},
      {"\tx\t", "trimmingWhitespace", "\tx\t"},
      {" \u0301x", "trimmingWhitespace", "x"},
      {"a\nb", "escaped", "a\\nb"},
      {"a\tb", "escaped", "a\\tb"},
      {"say \"hi\"", "escaped", "say \\\"hi\\\""},
      {"a\\b", "escaped", "a\\\\b"},
      {"\\n", "escaped", "\\\\n"},
      {"\r", "escaped", "\r"},
      {"a\r\nb\n", "escaped", "a\r\nb\\n"},
      {"\"\u0301\"", "escaped", "\"\u0301\\\""},
      {"plain é", "escaped", "plain é"},
      {"", "escaped", ""},
      {"hello world", "lowerCamelCased", "helloWorld"},
      {"hello world", "upperCamelCased", "HelloWorld"},
      {"hello world", "snakeCased", "hello_world"},
  };
  for (const Row& row : rows) {
    const Value result = callMember(row.text, row.member, {});
    ASSERT_TRUE(result.string());
    EXPECT_EQ(result.string()->view(), row.result) << row.member << " of " << row.text;
  }
}

TEST(StringMembers, Searches) {
  struct Row {
    const char* text;
    const char* member;
    Value argument;
    bool result;
  };
  const Row rows[] = {
      {"ab", "hasPrefix", "", true},
      {"ab", "hasSuffix", "", true},
      {"ab", "contains", "", false},
      {"", "contains", "", false},
      {"", "hasPrefix", "", true},
      {"abc", "hasPrefix", "ab", true},
      {"abc", "hasPrefix", "bc", false},
      {"abc", "hasSuffix", "bc", true},
      {"abc", "hasSuffix", "ab", false},
      {"abc", "contains", "b", true},
      {"abc", "contains", "B", false},
      {"abc", "contains", "abcd", false},
      {"a1", "hasSuffix", 1, true},
      {"1.5e", "hasPrefix", 1.5, true},
      {"is nil", "contains", nullptr, true},
      {"so true", "hasSuffix", true, true},
      {"x[1, 2]", "contains", Value::arrayLiteral({1, 2}), true},
      {"caf\u00E9", "hasSuffix", "e\u0301", true},
      {"cafe\u0301", "contains", "\u00E9", true},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(callMember(row.text, row.member, {row.argument}), Value(row.result))
        << row.text << " " << row.member << " " << row.argument.description().view();
  }
}

TEST(StringMembers, EqualsComparesItsArgumentsAlone) {
  EXPECT_EQ(callMember("text", "equals", {1, 1}), Value(true));
  EXPECT_EQ(callMember("text", "equals", {"text", "other"}), Value(false));
  EXPECT_EQ(callMember("text", "equals", {"\u00E9", "e\u0301"}), Value(true));
}

}  // namespace
}  // namespace velto

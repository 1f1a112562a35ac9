// The members of dictionaries, and how dictionaries print.
#include <gtest/gtest.h>

#include <map>

#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"
#include "tests/unit/Value/Calls.h"
#include "tests/unit/Value/HostTypes.h"

namespace velto {
namespace {

Value hostDictionary() {
  return makeRef<HostDictionary>(HostDictionary({{"a", 1.0}, {2, "b"}}));
}

TEST(DictionaryMembers, CountAndIsEmptyNeedNoCall) {
  const Value dictionary = Value::dictionaryLiteral({{"a", 1}});
  EXPECT_EQ(dictionary.get("count"), Value(1));
  EXPECT_EQ(dictionary.get("isEmpty"), Value(false));
  EXPECT_EQ(Value(Dictionary()).get("count"), Value(0));
  EXPECT_EQ(Value(Dictionary()).get("isEmpty"), Value(true));
  EXPECT_EQ(hostDictionary().get("count"), Value(2));
  EXPECT_EQ(hostDictionary().get("isEmpty"), Value(false));
}

TEST(DictionaryMembers, EqualsComparesItsArgumentsAlone) {
  const Value dictionary = Value::dictionaryLiteral({{"a", 1}});
  const Value equals = *dictionary.get("equals");
  EXPECT_EQ(equals.callable()->name(), String("equals"));
  EXPECT_EQ(equals.callable()->arity(), 2);
  EXPECT_EQ(test::callMember(dictionary, "equals", {1, 1}), Value(true));
  EXPECT_EQ(test::callMember(hostDictionary(), "equals", {1, 2}), Value(false));
}

TEST(DictionaryMembers, KeysAreNone) {
  const Value dictionary = Value::dictionaryLiteral({{"a", 1}, {"size", 2}});
  for (const char* name : {"a", "size", "keys", "values", "Count", ""}) EXPECT_FALSE(dictionary.get(name)) << name;
  EXPECT_FALSE(hostDictionary().get("a"));
}

TEST(DictionaryDescription, TextsAreBareUnlessTheyAreTheHosts) {
  EXPECT_EQ(Value(Dictionary()).description(), String("[:]"));
  EXPECT_EQ(Value::dictionaryLiteral({{"a", 1}, {"b", 2}}).description(), String("[a: 1, b: 2]"));
  EXPECT_EQ(Value::dictionaryLiteral({{1, "x"}, {true, nullptr}}).description(), String("[1: x, true: nil]"));
  EXPECT_EQ(hostDictionary().description(), String("[\"a\": 1.0, 2: \"b\"]"));
  const std::map<std::string, std::vector<std::string>> nested = {{"a", {"b"}}};
  EXPECT_EQ(HostValue(nested).asValue()->description(), String("[\"a\": [\"b\"]]"));
}

}  // namespace
}  // namespace velto

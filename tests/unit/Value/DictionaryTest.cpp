// Dictionaries against a plain list of entries.
#include "Velto/Value/Dictionary.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

#include "tests/unit/Value/Calls.h"

namespace velto {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(Dictionary, AReplacedValueKeepsTheFirstKeyAndItsPlace) {
  Dictionary dictionary;
  dictionary.set("e\u0301", 1);
  dictionary.set("b", 2);
  dictionary.set("\u00E9", 3);
  ASSERT_EQ(dictionary.size(), 2u);
  EXPECT_EQ(dictionary.entries()[0].key.string()->view(), "e\u0301");
  EXPECT_EQ(dictionary.entries()[0].value, Value(3));
  EXPECT_EQ(dictionary.objectDescription(), String("[e\u0301: 3, b: 2]"));
}

TEST(Dictionary, IsMovedWithAllThatItHas) {
  Dictionary dictionary;
  dictionary.set(1, "one");
  dictionary.reserve(1000);
  dictionary.set(2, "two");
  Dictionary other;
  other.set("gone", 3);
  other = std::move(dictionary);
  EXPECT_EQ(other.objectDescription(), String("[1: one, 2: two]"));
  EXPECT_EQ(*other.find(2), Value("two"));
  EXPECT_EQ(other.find("gone"), nullptr);
}

TEST(Dictionary, TextsAreFoundWhereverTheyStandInMemory) {
  for (const int size : {1, 8, 9, 16, 17, 100}) {
    Dictionary dictionary;
    std::vector<String> keys;
    for (int number = 0; number < size; ++number) keys.emplace_back("key" + std::to_string(number));
    for (int number = 0; number < size; ++number) dictionary.set(keys[static_cast<std::size_t>(number)], number);
    dictionary.set("e\u0301", -1);
    for (const String& key : keys) {
      EXPECT_EQ(dictionary.findText(key), dictionary.find(Value(key)));
      EXPECT_EQ(dictionary.findText(String(key.view())), dictionary.find(Value(key)));
      EXPECT_NE(dictionary.findText(key), nullptr);
    }
    EXPECT_EQ(*dictionary.findText("\u00E9"), Value(-1));
    EXPECT_EQ(dictionary.findText("key"), nullptr);
  }
}

TEST(Dictionary, ACopyIsFilledOnItsOwn) {
  for (const int size : {3, 20}) {
    Dictionary dictionary;
    for (int number = 0; number < size; ++number) dictionary.add("key" + std::to_string(number), number);
    Dictionary copy = dictionary;
    copy.set("more", true);
    EXPECT_EQ(dictionary.find("more"), nullptr);
    EXPECT_NE(copy.find("more"), nullptr);
    EXPECT_EQ(*copy.find("key2"), Value(2));
    copy = dictionary;
    EXPECT_EQ(Value(copy), Value(dictionary));
  }
}

TEST(Dictionary, TextsStayFoundWhenOtherKeysCome) {
  Dictionary dictionary;
  dictionary.set("a", 1);
  EXPECT_EQ(dictionary.find(Value(1)), nullptr);
  dictionary.add(1, "one");
  dictionary.set("b", 2);
  EXPECT_EQ(*dictionary.find("a"), Value(1));
  EXPECT_EQ(*dictionary.find(1), Value("one"));
  EXPECT_EQ(*dictionary.findText("b"), Value(2));
}

TEST(Dictionary, KeysAreFoundByEquality) {
  Dictionary dictionary;
  dictionary.set(1, "one");
  dictionary.set(0.0, "zero");
  dictionary.set(true, "true");
  dictionary.set("1", "text");
  EXPECT_EQ(*dictionary.find(1.0), Value("one"));
  EXPECT_EQ(*dictionary.find(-0.0), Value("zero"));
  EXPECT_EQ(*dictionary.find(true), Value("true"));
  EXPECT_EQ(*dictionary.find("1"), Value("text"));
  EXPECT_FALSE(dictionary.find(2));
  EXPECT_FALSE(dictionary.find(nullptr));
}

TEST(Dictionary, NaNIsInsertedEachTimeAndNeverFound) {
  for (const int count : {3, 100}) {
    Dictionary dictionary;
    for (int index = 0; index < count; ++index) dictionary.set(nan, index);
    EXPECT_EQ(dictionary.size(), static_cast<std::size_t>(count));
    EXPECT_FALSE(dictionary.find(nan));
  }
}

TEST(Dictionary, WhatHoldsNaNIsInsertedEachTimeToo) {
  for (const int count : {3, 100}) {
    Dictionary dictionary;
    for (int index = 0; index < count; ++index) {
      dictionary.set(Value::arrayLiteral({index, nan, Value::arrayLiteral({1})}), index);
      dictionary.set(Value::dictionaryLiteral({{"a", Value::arrayLiteral({nan})}}), index);
    }
    EXPECT_EQ(dictionary.size(), static_cast<std::size_t>(2 * count));
    EXPECT_FALSE(dictionary.find(Value::arrayLiteral({0, nan, Value::arrayLiteral({1})})));
  }
}

TEST(Dictionary, RoomForFewerThanThereIsRoomForChangesNothing) {
  Dictionary dictionary;
  for (const std::size_t count : {100u, 50u, 0u}) dictionary.reserve(count);
  for (int index = 0; index < 100; ++index) dictionary.set(index, -index);
  for (int index = 0; index < 100; ++index) EXPECT_EQ(*dictionary.find(index), Value(-index));
}

TEST(Dictionary, AnEmptyOneHasNoCounterpart) {
  Dictionary other;
  other.set("a", 1);
  EXPECT_FALSE(Dictionary().counterpart(other, 0));
}

/// The same operations on a dictionary and on a list that is searched from its start.
void compareWithList(int distinctKeys, int operations, bool reserves) {
  std::mt19937 generator(7);
  Dictionary dictionary;
  if (reserves) dictionary.reserve(static_cast<std::size_t>(distinctKeys));
  std::vector<std::pair<Value, Value>> list;
  for (int count = 0; count < operations; ++count) {
    const int number = static_cast<int>(generator() % static_cast<unsigned>(distinctKeys));
    const Value key = number % 2 == 0 ? Value(number) : Value(decimal(number));
    const auto place = std::find_if(list.begin(), list.end(), [&](const auto& entry) { return entry.first == key; });
    if (place == list.end()) {
      list.emplace_back(key, count);
    } else {
      place->second = count;
    }
    dictionary.set(key, count);
  }
  ASSERT_EQ(dictionary.size(), list.size());
  for (std::size_t index = 0; index < list.size(); ++index) {
    EXPECT_EQ(dictionary.entries()[index].key, list[index].first);
    EXPECT_EQ(dictionary.entries()[index].value, list[index].second);
    EXPECT_EQ(*dictionary.find(list[index].first), list[index].second);
  }
  EXPECT_FALSE(dictionary.find("missing"));
}

TEST(Dictionary, HoldsWhatAListHolds) {
  for (const int distinctKeys : {1, 7, 8, 9, 10, 16, 17, 100, 1000}) {
    compareWithList(distinctKeys, distinctKeys * 3, false);
    compareWithList(distinctKeys, distinctKeys * 3, true);
  }
}

TEST(Dictionary, ACopyIsADictionaryOfItsOwn) {
  Dictionary first;
  first.set("a", 1);
  Dictionary second = first;
  second.set("a", 2);
  second.set("b", 3);
  EXPECT_EQ(first.objectDescription(), String("[a: 1]"));
  EXPECT_EQ(second.objectDescription(), String("[a: 2, b: 3]"));
}

TEST(Dictionary, KeysAreSharedUntilOneMoreComes) {
  for (const int size : {3, 20}) {
    Dictionary first;
    for (int number = 0; number < size; ++number) first.set("key" + std::to_string(number), number);
    Dictionary second = first.withValues(std::vector<Value>(static_cast<std::size_t>(size), true));
    EXPECT_EQ(&first.entries()[0].key, &second.entries()[0].key);
    EXPECT_EQ(*second.find("key2"), Value(true));

    second.set("more", 1);
    EXPECT_NE(&first.entries()[0].key, &second.entries()[0].key);
    EXPECT_EQ(first.size(), static_cast<std::size_t>(size));
    EXPECT_EQ(*first.find("key2"), Value(2));
    EXPECT_FALSE(first.find("more"));
    EXPECT_EQ(*second.find("more"), Value(1));
  }
}

TEST(Dictionary, EqualityLooksAtTheValuesOfSharedKeys) {
  Dictionary first;
  first.set("a", 1);
  first.set(nan, 2);
  EXPECT_NE(Value(first), Value(first));  // no number that isn't one equals another
  Dictionary texts;
  texts.set("a", 1);
  texts.set("b", 2);
  EXPECT_EQ(Value(texts.withValues({1, 2})), Value(texts));
  EXPECT_NE(Value(texts.withValues({2, 1})), Value(texts));
}

}  // namespace
}  // namespace velto

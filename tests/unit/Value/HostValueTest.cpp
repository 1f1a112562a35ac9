// Host values: how they are told apart, what they become, and how the host prints them.
#include "Velto/Value/HostValue.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <list>
#include <map>
#include <set>
#include <unordered_map>
#include <vector>

#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"
#include "Velto/Value/IntegerRange.h"
#include "Velto/Value/NativeFunctions.h"
#include "tests/unit/Value/Calls.h"
#include "tests/unit/Value/HostTypes.h"

namespace velto {
namespace {

using Strings = std::vector<std::string>;

Ref<const Callable> someFunction() {
  return makeRef<Function1>("f", [](const Value& value) { return value; });
}

TEST(HostValueConversion, EveryKindBecomesItsValue) {
  enum Colour { red };
  struct Row {
    HostValue host;
    std::optional<Value> value;
  };
  const Row rows[] = {
      {HostValue(), Value::nil()},
      {std::nullopt, Value::nil()},
      {nullptr, Value::nil()},
      {std::optional<int>(), Value::nil()},
      {std::optional<int>(3), Value(3)},
      {static_cast<const char*>(nullptr), Value::nil()},
      {Ref<const Object>(), Value::nil()},
      {Ref<const Callable>(), Value::nil()},
      {std::shared_ptr<shop::Person>(), Value::nil()},
      {std::make_shared<int>(4), Value(4)},
      {someFunction(), Value(someFunction())},
      {Function1("f", [](const Value& value) { return value; }), Value(someFunction())},
      {Value::uninitialized(), Value::uninitialized()},
      {Value("a"), Value("a")},
      {true, Value(true)},
      {1.5, Value(1.5)},
      {1.5f, Value(1.5)},
      {CGFloat{2.5}, Value(2.5)},
      {1.5L, Value(1.5)},
      {Int{7}, Value(7)},
      {static_cast<short>(-7), Value(-7)},
      {static_cast<unsigned char>(200), Value(200)},
      {1ull << 63, Value(9223372036854775808.0)},
      {"a", Value("a")},
      {std::string("a"), Value("a")},
      {std::string_view("a"), Value("a")},
      {String("a"), Value("a")},
      {std::filesystem::path("a/b"), Value("a/b")},
      {'a', Value("a")},
      {U'é', Value("é")},
      {Strings{"a", "b"}, Value::arrayLiteral({"a", "b"})},
      {std::vector<bool>{true, false}, Value::arrayLiteral({true, false})},
      {std::array<int, 2>{1, 2}, Value::arrayLiteral({1, 2})},
      {std::list<double>{1, 2}, Value::arrayLiteral({1, 2})},
      {std::set<int>{2, 1}, Value::arrayLiteral({1, 2})},
      {Strings(), Value::arrayLiteral({})},
      {std::vector<Strings>{{"a"}, {}}, Value::arrayLiteral({Value::arrayLiteral({"a"}), Value::arrayLiteral({})})},
      {std::vector<std::optional<int>>{1, std::nullopt}, Value::arrayLiteral({1, nullptr})},
      {std::vector<HostValue>{1, "a", nullptr}, Value::arrayLiteral({1, "a", nullptr})},
      {Array({Value(1)}), Value::arrayLiteral({1})},
      {std::map<std::string, int>{{"a", 1}}, Value::dictionaryLiteral({{"a", 1}})},
      {std::unordered_map<int, Strings>{{1, {"a"}}}, Value::dictionaryLiteral({{1, Value::arrayLiteral({"a"})}})},
      {std::vector<std::pair<std::string, int>>{{"b", 1}, {"a", 2}}, Value::dictionaryLiteral({{"b", 1}, {"a", 2}})},
      {std::map<std::string, int>(), Value::dictionaryLiteral({})},
      {shop::Opaque(), std::nullopt},
      {std::shared_ptr<void>(std::make_shared<int>(1)), std::nullopt},
      {red, std::nullopt},
      {std::make_pair(1, 2), std::nullopt},
      {std::vector<HostValue>{1, shop::Opaque()}, std::nullopt},
      {std::vector<std::vector<shop::Opaque>>{{shop::Opaque()}}, std::nullopt},
      {std::map<int, shop::Opaque>{{1, {}}}, std::nullopt},
      {std::vector<std::pair<shop::Opaque, int>>{{{}, 1}}, std::nullopt},
      {std::vector<shop::Opaque>(), Value::arrayLiteral({})},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Value::from(row.host), row.value) << row.host.debugPrinted().view();
  }
}

TEST(HostValueConversion, ALaterEqualKeyReplacesTheValue) {
  const std::vector<std::pair<HostValue, int>> entries = {{1, 1}, {"a", 2}, {1.0, 3}};
  EXPECT_EQ(Value::from(entries)->description(), String("[1: 3, a: 2]"));
}

TEST(HostValueConversion, ObjectsStayTheSameObjects) {
  const Ref<const Object> record = object(shop::Person{"Ann", 41});
  EXPECT_EQ(Value::from(record)->object(), record.get());
  const Ref<const Object> range = makeRef<CountableRange>(0, 2);
  EXPECT_EQ(Value::from(range)->openRange(), range.get());
  const Ref<const Array> array = makeRef<Array>(std::vector<Value>{1});
  EXPECT_EQ(Value::from(array)->array(), array.get());
}

TEST(HostValueConversion, HostArraysAndDictionariesBehindAReferenceAreConvertedDeeply) {
  const Ref<const Object> array = makeRef<HostArray>(HostValue::Elements{Strings{"a"}, 1});
  EXPECT_EQ(Value::from(array), Value::arrayLiteral({Value::arrayLiteral({"a"}), 1}));
  const Ref<const Object> dictionary = makeRef<HostDictionary>(HostValue::Entries{{"a", Strings{"b"}}});
  EXPECT_EQ(Value::from(dictionary), Value::dictionaryLiteral({{"a", Value::arrayLiteral({"b"})}}));
}

TEST(HostValueConversion, AValueIsTakenAsItStands) {
  const Value hostArray = makeRef<HostArray>(HostValue::Elements{"a"});
  EXPECT_FALSE(Value::from(hostArray)->array());
}

TEST(HostValueConversion, DescribedRecordsBecomeObjects) {
  const Value copied = *Value::from(shop::Person{"Ann", 41});
  EXPECT_EQ(copied.get("name"), Value("Ann"));
  const auto person = std::make_shared<shop::Person>(shop::Person{"Bob", 42});
  const Value shared = *Value::from(person);
  person->age = 43;
  EXPECT_EQ(shared.get("age"), Value(43));
}

TEST(HostValueAsValue, IsShallow) {
  EXPECT_FALSE(HostValue().asValue());
  EXPECT_FALSE(HostValue(shop::Opaque()).asValue());
  EXPECT_EQ(HostValue(1).asValue(), Value(1));
  EXPECT_EQ(HostValue(0.5f).asValue(), Value(0.5));
  const Value hostArray = *HostValue(Strings{"a"}).asValue();
  EXPECT_FALSE(hostArray.array());
  EXPECT_EQ(hostArray.get("count"), Value(1));
  const Value hostDictionary = *HostValue(std::map<std::string, int>{{"a", 1}}).asValue();
  EXPECT_FALSE(hostDictionary.dictionary());
  EXPECT_EQ(hostDictionary.get("count"), Value(1));
  EXPECT_FALSE((HostValue(std::unordered_map<Value, int>{{"a", 1}}).asValue()->dictionary()));
}

TEST(HostValueAsValue, ArraysAndDictionariesOfValuesAreThatAtOnce) {
  EXPECT_EQ(HostValue(std::vector<Value>{1, "a"}).asValue(), Value::arrayLiteral({1, "a"}));
  EXPECT_TRUE(HostValue(Strings()).asValue()->array());
  EXPECT_EQ(HostValue(std::unordered_map<Value, Value>{{1, "a"}}).asValue(), Value::dictionaryLiteral({{1, "a"}}));
  EXPECT_TRUE((HostValue(std::map<std::string, int>()).asValue()->dictionary()));
}

TEST(HostValuePrinting, IsThatOfTheHost) {
  struct Row {
    HostValue host;
    const char* printed;
  };
  const Row rows[] = {
      {nullptr, "nil"},
      {true, "true"},
      {1, "1"},
      {1234567, "1234567"},
      {1.0, "1.0"},
      {1234567.5, "1234567.5"},
      {0.1f, "0.1"},
      {"a", "a"},
      {Value(1234567), "1.23457e+06"},
      {Value("a"), "a"},
      {someFunction(), "<callable arity 1>"},
      {shop::Opaque(), "Opaque"},
      {CGPoint{1, 2}, "{1.0, 2.0}"},
      {Strings{"a", "b"}, "[\"a\", \"b\"]"},
      {std::vector<Value>{"a", "b"}, "[a, b]"},
      {std::vector<int>(), "[]"},
      {std::map<std::string, double>{{"a", 1}}, "[\"a\": 1.0]"},
      {std::map<std::string, int>(), "[:]"},
      {std::vector<std::map<std::string, int>>{{{"a", 1}}, {}}, "[[\"a\": 1], [:]]"},
      {std::vector<Strings>{{"a\"\\\n\r\t"}}, "[[\"a\\\"\\\\\\n\\r\\t\"]]"},
  };
  for (const Row& row : rows) EXPECT_EQ(row.host.printed(), String(row.printed));
  EXPECT_EQ(HostValue("a").debugPrinted(), String("\"a\""));
  EXPECT_EQ(HostValue(Value("a")).debugPrinted(), String("a"));
}

}  // namespace
}  // namespace velto

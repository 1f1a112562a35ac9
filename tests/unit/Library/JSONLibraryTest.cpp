// JSON documents as values, and `loadJSON`.
#include "Velto/Library/JSONLibrary.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "Velto/Interpreter/Interpreter.h"
#include "Velto/Library/JSONNumber.h"
#include "Velto/Platform/MemoryFileSystem.h"
#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"

namespace velto {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

/// A value as text that tells all kinds apart.
std::string shown(const Value& value) {
  std::string text;
  if (const String* string = value.string()) return "'" + std::string(*string) + "'";
  if (const Array* array = value.array()) {
    for (const Value& element : array->elements()) text += shown(element) + ",";
    return "[" + text + "]";
  }
  if (const Dictionary* dictionary = value.dictionary()) {
    for (const auto& [key, element] : dictionary->entries()) text += shown(key) + ":" + shown(element) + ",";
    return "{" + text + "}";
  }
  return std::string(value.description());
}

std::string parsed(std::string_view document) {
  const std::optional<Value> value = parseJSON(std::string(document));
  return value ? shown(*value) : "invalid";
}

TEST(JSONDocumentTest, TakesWhatIsValid) {
  const std::vector<std::pair<std::string_view, const char*>> table = {
      {"[]", "[]"},
      {"{}", "{}"},
      {" \t\r\n[ \t\r\n] \t\r\n", "[]"},
      {"[ ]", "[]"},
      {"{ }", "{}"},
      {"[[]]", "[[],]"},
      {"[{}]", "[{},]"},
      {"{\"a\":{}}", "{'a':{},}"},
      {"[1,2,3]", "[1,2,3,]"},
      {"[1 , 2\n,\t3 ]", "[1,2,3,]"},
      {"[true,false,null]", "[true,false,nil,]"},
      {"[ true , false , null ]", "[true,false,nil,]"},
      {R"([1, "a", true, null, {"k": 2.5}])", "[1,'a',true,nil,{'k':2.5,},]"},
      {R"({"a":1,"b":[2],"c":{"d":null}})", "{'a':1,'b':[2,],'c':{'d':nil,},}"},
      {R"({ "a" : 1 })", "{'a':1,}"},
      {R"({"":1})", "{'':1,}"},
      {R"({"b":1,"a":2})", "{'b':1,'a':2,}"},
      {R"({"a":1,"b":2,"a":3})", "{'a':3,'b':2,}"},
      {R"({"a":1,"\u0061":2})", "{'a':2,}"},
      {R"([""])", "['',]"},
      {R"(["a b"])", "['a b',]"},
      {R"(["\"\\\/\b\f\n\r\t"])", "['\"\\/\b\f\n\r\t',]"},
      {R"(["\u0041\u00e9\u20AC"])", "['A\xC3\xA9\xE2\x82\xAC',]"},
      {R"(["\ud83d\ude00"])", "['\xF0\x9F\x98\x80',]"},
      {R"(["\uD83D\uDE00"])", "['\xF0\x9F\x98\x80',]"},
      {"[\"\xF0\x9F\x98\x80\xC3\xA9\"]", "['\xF0\x9F\x98\x80\xC3\xA9',]"},
      {"[\"\x7F\"]", "['\x7F',]"},
      {R"(["[1,2]{}:,"])", "['[1,2]{}:,',]"},
      {R"(["\\"])", "['\\',]"},
      {R"(["\\\\\""])", "['\\\\\"',]"},
      {R"(["null",null])", "['null',nil,]"},
      {"\xEF\xBB\xBF[1]", "[1,]"},
      {"\xEF\xBB\xBF 1", "1"},
      {"1", "1"},
      {" 1 ", "1"},
      {"-1.5e2", "-150"},
      {"\"a\"", "'a'"},
      {" \"a\"\n", "'a'"},
      {"true", "true"},
      {"false ", "false"},
      {"null", "nil"},
      {"\nnull ", "nil"},
  };
  for (const auto& [document, text] : table) EXPECT_EQ(parsed(document), text) << document;
}

TEST(JSONDocumentTest, RefusesWhatIsNotValid) {
  const std::vector<std::string_view> documents = {
      "", " ", "\n", "\xEF\xBB\xBF", "\xEF\xBB\xBF\xEF\xBB\xBF[]", " \xEF\xBB\xBF[]",
      // structure
      "[", "]", "{", "}", "[]]", "[[]", "[}", "{]", "[]{}", "{}[]", "[],", ",[]", "[] x", "[]1", "x[]", "[1,]", "[,1]",
      "[,]", "[1,,2]", "[1 2]", "[1:2]", "[1;2]", "[[1]", "[[1,]]", "[1}", "[[1}]", "{\"a\":[1}", "{\"a\":1]",
      "[{\"a\":1]}", "[{\"a\":1]", "[{\"a\":1", "{\"a\"}", "{\"a\":}", "{:1}", "{\"a\" 1}", "{\"a\":1,}", "{,\"a\":1}",
      "{\"a\":1,,\"b\":2}", "{\"a\":1 \"b\":2}", "{\"a\",1}", "{\"a\"::1}", "{\"a\":1:2}", "{a:1}", "{1:2}", "{'a':1}",
      "{null:1}", "{[]:1}", "{true:1}", "{\"a\":1}}", "{{}}", "[\"a\":1]", "{\"a\"\"b\"}", "[][]", ":", ",", "1,2",
      "1]", "[1]]", "]1", "1 2", "\"a\" 1", "\"a\"\"b\"", "\"a\",", "null null", "true]", "1}", "[1] [2]", "[1]\n{}",
      "],[", "][",
      // comments, and blanks that are none
      "[1]//", "/**/[1]", "[1,/**/2]", "#", "[1]#", "[\f]", "[\v1]", "\xC2\xA0[]", "[]\xC2\xA0", "[1\xE2\x80\x83]",
      // words
      "[nul]", "[nulll]", "[Null]", "[NULL]", "[nil]", "[tru]", "[True]", "[truefalse]", "[true false]", "[undefined]",
      "[NaN]", "[Infinity]", "[-Infinity]", "[inf]", "[nan]", "nul", "nullx", "nulll", "truex", "t", "f", "n", "[n]",
      "[a]", "a", "[null\"a\"]", "[true\"a\"]", "null\"", "[\\n]", "\\", "['a']", "'a'", "`a`",
      // numbers
      "[01]", "[00]", "[-01]", "[1.]", "[.5]", "[-.5]", "[+1]", "[-]", "[--1]", "[-+1]", "[1e]", "[1e+]", "[1e-]",
      "[1E]", "[e1]", "[1.e1]", "[1.5.5]", "[1e1.5]", "[1e1e1]", "[1 e1]", "[- 1]", "[1. 5]", "[0x1]", "[1_000]",
      "[1a]", "[1f]", "[1L]", "[\xEF\xBC\x91]", "01", "1.", ".5", "+1", "-", "1e", "0x10", "1a", "[1\"a\"]", "[1true]",
      "[1null]", "[0 1]", "[-a]", "[1e1a]", "[1-]", "[1-2]", "[1+2]", "[00.5]", "[1,0123]",
      // texts
      "\"", "[\"]", "[\"a]", "[\"a", "[a\"]", "[\"a\"b]", "[\"\\\"]", "[\"\\x41\"]", "[\"\\a\"]", "[\"\\'\"]",
      "[\"\\0\"]", "[\"\\\n\"]", "[\"\\ \"]", "[\"\\u\"]", "[\"\\u1\"]", "[\"\\u12\"]", "[\"\\u123\"]", "[\"\\u123g\"]",
      "[\"\\U0041\"]", "[\"\\u 041\"]", "[\"\\u+041\"]", "[\"\\u{41}\"]", "[\"\n\"]", "[\"\t\"]", "[\"\r\"]",
      "[\"\x01\"]", "[\"\x1F\"]", "{\"\n\":1}", "{\"\\x\":1}",
      // surrogates
      "[\"\\ud800\"]", "[\"\\udc00\"]", "[\"\\udbff\"]", "[\"\\udfff\"]", "[\"\\ud800a\"]", "[\"\\ud800\\n\"]",
      "[\"\\ud800\\u0041\"]", "[\"\\ud800\\ud800\"]", "[\"\\udc00\\ud800\"]", "[\"\\ud800\\udbff\"]",
      "[\"\\ud800\\ue000\"]", "[\"\\ud800 \\udc00\"]", "{\"\\ud800\":1}",
      // UTF-8
      "[\"\xFF\"]", "[\"\x80\"]", "[\"\xC3\"]", "[\"\xC0\x80\"]", "[\"\xE2\x82\"]", "[\"\xED\xA0\x80\"]",
      "[\"\xF4\x90\x80\x80\"]", "[\"\xF8\x88\x80\x80\x80\"]", "[\xFF]", "\xFE\xFF", "{\"\xFF\":1}"};
  for (const std::string_view document : documents) EXPECT_EQ(parsed(document), "invalid") << document;
}

TEST(JSONDocumentTest, ANulIsNoBlankAndNoEnd) {
  using namespace std::string_view_literals;
  for (const std::string_view document : {"\0"sv, "[]\0"sv, "[1\0]"sv, "\0[]"sv, "[\"\0\"]"sv, "1\0"sv, "null\0"sv}) {
    EXPECT_EQ(parsed(document), "invalid");
  }
  EXPECT_EQ(parsed(R"(["\u0000"])"), std::string("['\0',]", 6));
}

TEST(JSONDocumentTest, RoundsNumbersToTheNearestFloat) {
  const std::vector<std::pair<const char*, double>> table = {
      {"0", 0},
      {"-1", -1},
      {"10", 10},
      {"1.5", 1.5},
      {"1e2", 100},
      {"1E+2", 100},
      {"1e-2", 0.01},
      {"0e1", 0},
      {"0.0e-0", 0},
      {"1e00", 1},
      {"1e0000000000000000000000002", 100},
      {"0.1", 0.1},
      {"9007199254740993", 9007199254740992.0},
      {"9223372036854775807", 9223372036854775808.0},
      {"18446744073709551616", 18446744073709551616.0},
      {"123456789012345678901234567890", 123456789012345678901234567890.0},
      {"0.12345678901234567890123", 0.12345678901234567890123},
      {"0.000000000000000000000000000000123", 1.23e-31},
      {"1.7976931348623157e308", 1.7976931348623157e308},
      {"1.7976931348623159e308", infinity},
      {"1e400", infinity},
      {"-1e400", -infinity},
      {"1E+400", infinity},
      {"0.001e400", infinity},
      {"1e99999999999999999999", infinity},
      {"4.9e-324", 4.9e-324},
      {"2e-324", 0},
      {"1e-400", 0},
      {"1000e-400", 0},
      {"0e400", 0},
      {"0.0e99999999999999999999", 0},
      {"1e-99999999999999999999", 0},
  };
  for (const auto& [text, number] : table) {
    EXPECT_EQ(parseJSONNumber(text), number) << text;
    const std::optional<Value> alone = parseJSON(text);
    const std::optional<Value> inside = parseJSON("[" + std::string(text) + "]");
    ASSERT_TRUE(alone && alone->number() && inside) << text;
    EXPECT_EQ(*alone->number(), number) << text;
    EXPECT_EQ(*inside->array()->elements()[0].number(), number) << text;
  }
}

TEST(JSONDocumentTest, TheShortWayForNumbersGivesTheSame) {
  std::mt19937 generator(20261121);
  constexpr std::string_view characters = "0123456789012345678901234567890123456789-.e+";
  for (int round = 0; round < 200'000; ++round) {
    std::string text(1 + generator() % 18, ' ');
    for (char& character : text) character = characters[generator() % characters.size()];
    const std::optional<double> number = parseJSONNumber(text);
    EXPECT_EQ(number, parseAnyJSONNumber(text)) << text;
    if (!number) continue;
    EXPECT_EQ(std::signbit(*number), std::signbit(*parseAnyJSONNumber(text))) << text;
  }
}

TEST(JSONDocumentTest, FillsDictionariesAsOneEntryAfterTheOther) {
  const std::vector<std::string> keys{"a",       "b",    "c",    "key", "\u00E9", "e\u0301", "", "a longer key",
                                      "\\u0061", "k\\n", "\\\"", "d"};
  std::mt19937 generator(20261121);
  for (int round = 0; round < 3000; ++round) {
    std::string text = "[";
    std::vector<Dictionary> expected(1 + generator() % 3);
    for (Dictionary& dictionary : expected) {
      text += text.size() > 1 ? ",{" : "{";
      const std::size_t count = generator() % 12;
      for (std::size_t index = 0; index < count; ++index) {
        const std::string& key = keys[generator() % keys.size()];
        const std::string number = std::to_string(generator() % 1000);
        text += (index > 0 ? ",\"" : "\"") + key + "\":" + number;
        dictionary.set(*parseJSON("\"" + key + "\""), std::stoi(number));
      }
      text += "}";
    }
    const std::optional<Value> value = parseJSON(text + "]");
    ASSERT_TRUE(value) << text;
    for (std::size_t index = 0; index < expected.size(); ++index) {
      EXPECT_EQ(value->array()->elements()[index].description(), Value(expected[index]).description()) << text;
    }
  }
}

TEST(JSONDocumentTest, KnowsAnExpectedKeyFromOneThatOnlyBeginsLikeIt) {
  const auto read = [](const char* text) { return parseJSON(text)->description(); };
  EXPECT_EQ(read(R"([{"a":1,"b":2},{"a":3,"bc":4},{"a":5,"b":6}])"),
            String("[[a: 1, b: 2], [a: 3, bc: 4], [a: 5, b: 6]]"));
  EXPECT_EQ(read(R"([{"a\"b":1},{"a\"b":2}])"), String("[[a\"b: 1], [a\"b: 2]]"));
  EXPECT_EQ(read(R"([{"a\":1,\"b":2},{"a\":1,\"b":2},{"a":1,"b":2}])"),
            String("[[a\":1,\"b: 2], [a\":1,\"b: 2], [a: 1, b: 2]]"));
  EXPECT_EQ(read(R"([{"a\\u0041":1},{"a\\u0041":2},{"a\u0041":3}])"),
            String("[[a\\u0041: 1], [a\\u0041: 2], [aA: 3]]"));
  EXPECT_FALSE(parseJSON(R"([{"a\"b":1},{"a"b":2}])"));
  EXPECT_FALSE(parseJSON(R"([{"a":1},{"a"b":2}])"));
  EXPECT_FALSE(parseJSON(R"([{"a":1},{"a)"));
}

TEST(JSONDocumentTest, KnowsAnExpectedKeyOfAnyLength) {
  std::string document = "[";
  std::vector<std::string> keys;
  for (std::size_t length = 0; length <= 40; ++length) {
    const std::string key(length, 'k');
    for (const std::string& each : {key, key, key + "x", "x" + key, key}) keys.push_back(each);
  }
  for (const std::string& key : keys) document += (document.size() > 1 ? ",{\"" : "{\"") + key + "\":1}";
  for (const std::string space : {"", " ", "\n\t"}) {
    const std::optional<Value> value = parseJSON(document + space + "]");
    ASSERT_TRUE(value);
    for (std::size_t index = 0; index < keys.size(); ++index) {
      const Dictionary& dictionary = *value->array()->elements()[index].dictionary();
      EXPECT_EQ(*dictionary.entries()[0].key.string(), String(keys[index]));
    }
  }
}

TEST(JSONDocumentTest, KnowsLongKeysFromThoseThatOnlyBeginLikeThem) {
  const std::string start = "sixteen letters_";
  const std::vector<std::string> keys{
      start + "and more",           start + "and some", start + "and", start + "and more", start,
      start + "and more than that", start + "and more"};
  std::string document = "[";
  std::string expected = "[";
  for (const std::string& key : keys) {
    document += (document.size() > 1 ? ",{\"" : "{\"") + key + "\":1}";
    expected += "{'" + key + "':1,},";
  }
  EXPECT_EQ(parsed(document + "]"), expected + "]");
}

TEST(JSONDocumentTest, KnowsKeysThatAgreeInSomeOfTheirParts) {
  std::vector<std::string> keys;
  for (const std::string first : {"aaaaaaaa", "bbbbbbbb"}) {
    for (const std::string second : {"", "a", "aaaaaaa", "bbbbbbb", "aaaaaab", "aaaaaaaa", "bbbbbbbb"}) {
      keys.push_back(first + second);
    }
  }
  for (const std::string& expected : keys) {
    for (const std::string& other : keys) {
      const std::string start = "[{\"" + expected + "\":1},{\"" + expected + "\":2},";
      EXPECT_EQ(parsed(start + "{\"" + other + "\":3}]"),
                "[{'" + expected + "':1,},{'" + expected + "':2,},{'" + other + "':3,},]");
    }
  }
}

TEST(JSONDocumentTest, KnowsAnExpectedKeyAtTheEndOfTheDocument) {
  for (std::size_t length = 0; length <= 40; ++length) {
    const std::string key(length, 'k');
    const std::string first = "[{\"" + key + "\":1},{\"" + key + "\":2},{\"";
    for (std::size_t given = 0; given <= length; ++given) EXPECT_FALSE(parseJSON(first + key.substr(0, given)));
    EXPECT_FALSE(parseJSON(first + key + "\""));
    EXPECT_TRUE(parseJSON(first + key + "\":3}]"));
  }
}

TEST(JSONDocumentTest, TakesKeysWithANulFromNoOther) {
  EXPECT_EQ(parsed(R"([{"\u0000":1},{"\u0000":2},{"":3},{"\u0000":4}])"),
            std::string("[{'\0':1,},{'\0':2,},{'':3,},{'\0':4,},]", 37));
  EXPECT_FALSE(parseJSON(std::string("[{\"a\\\"\":1},{\"") + std::string(16, '\0') + "\":2}]"));
}

TEST(JSONDocumentTest, FindsTheEndsOfTextsWhateverStandsBehind) {
  for (const std::string space : {"", " ", "\t \r\n", "                                      "}) {
    for (const std::string text :
         {"", "a", "long enough to go on for more than a few words", R"(\")", R"(\\)", R"(a\\\"b)"}) {
      const std::string quoted = "\"" + text + "\"" + space;
      const std::string expected = parsed("\"" + text + "\"");
      EXPECT_EQ(parsed(quoted), expected);
      EXPECT_EQ(parsed("[" + quoted + "," + quoted + "]"), "[" + expected + "," + expected + ",]");
      EXPECT_EQ(parsed("{" + quoted + ":" + quoted + "}"), "{" + expected + ":" + expected + ",}");
    }
  }
}

TEST(JSONDocumentTest, KnowsTextsWithEscapesFromThoseWithout) {
  EXPECT_EQ(parsed(R"(["a","\u0041","b","c\n","d",{"\u0041":"e","f":"\u0041"},"g"])"),
            "['a','A','b','c\n','d',{'A':'e','f':'A',},'g',]");
}

TEST(JSONDocumentTest, TakesWordsForNothingElse) {
  for (const char* const word : {"true", "false", "null"}) EXPECT_TRUE(parseJSON(word)) << word;
  for (const char* const word :
       {"tru", "truE", "truee", "fals", "falze", "falsee", "nul", "nil", "nulll", "t", "f", "n"}) {
    EXPECT_FALSE(parseJSON(word)) << word;
    EXPECT_FALSE(parseJSON("[" + std::string(word) + "]")) << word;
  }
}

TEST(JSONDocumentTest, TakesAnySpaceBehindWordsAndNumbers) {
  for (const std::string space : {"", " ", "\t", "\n", "\r", " \t\n\r "}) {
    EXPECT_EQ(parsed("[true" + space + ",1" + space + ",null" + space + "]"), "[true,1,nil,]");
  }
  for (const char* const space : {"\v", "\f", "\xC2\xA0", "\b"}) {
    EXPECT_FALSE(parseJSON("[true" + std::string(space) + "]"));
    EXPECT_FALSE(parseJSON("[1" + std::string(space) + "]"));
  }
}

TEST(JSONDocumentTest, SharesShortTextsWithThePrograms) {
  TextPool texts;
  const String known = texts.shared("known");
  const std::optional<Value> value = parseJSON(R"(["known","unknown","known"])", texts);
  const auto& elements = value->array()->elements();
  EXPECT_TRUE(elements[0].string()->isSameAs(known));
  EXPECT_TRUE(elements[2].string()->isSameAs(known));
  EXPECT_EQ(texts.find("unknown"), nullptr);
}

TEST(JSONDocumentTest, KeepsWhatIsTakenOutOfADocument) {
  Value kept;
  {
    const std::optional<Value> value = parseJSON(R"([{"a":["some text",{"b":"another text"}]},"rest"])");
    kept = value->array()->elements()[0].dictionary()->entries()[0].value;
  }
  EXPECT_EQ(kept.description(), String("[some text, [b: another text]]"));
}

TEST(JSONDocumentTest, SharesKeysWithThePrograms) {
  TextPool texts;
  const String known = texts.shared("known");
  const std::optional<Value> value = parseJSON(R"([{"known":1,"twice":2,"once":3},{"twice":4}])", texts);
  const auto entries = value->array()->elements()[0].dictionary()->entries();
  EXPECT_TRUE(entries[0].key.string()->isSameAs(known));
  ASSERT_NE(texts.find("twice"), nullptr);
  EXPECT_TRUE(entries[1].key.string()->isSameAs(*texts.find("twice")));
  EXPECT_EQ(texts.find("once"), nullptr);
}

TEST(JSONDocumentTest, RoundsLongNumbers) {
  const std::string zeros(2000, '0');
  EXPECT_EQ(parseJSONNumber("1" + zeros), infinity);
  EXPECT_EQ(parseJSONNumber("0." + zeros + "1"), 0);
  EXPECT_EQ(parseJSONNumber("1" + zeros + "e-2000"), 1);
  EXPECT_EQ(parseJSONNumber("0." + zeros + "1e2001"), 1);
  EXPECT_EQ(parseJSONNumber("1." + zeros), 1);
  EXPECT_EQ(parseJSONNumber("1" + zeros + "1e-1000"), infinity);
  EXPECT_EQ(parseJSONNumber("0." + zeros + "1e1000"), 0);
  EXPECT_EQ(parseJSONNumber("0." + zeros + "1e+1000"), 0);
  EXPECT_EQ(parsed("0." + zeros + "1"), "0");
}

TEST(JSONDocumentTest, ANumberEndsWithItsText) {
  const std::string text = "0." + std::string(400, '0') + "1e1000";
  EXPECT_EQ(parseJSONNumber(text), std::numeric_limits<double>::infinity());
  EXPECT_EQ(parseJSONNumber(std::string_view(text).substr(0, text.size() - 3)), 0);
}

TEST(JSONDocumentTest, KeepsTheSignOfZero) {
  for (const char* text : {"-0", "-0.0", "-0e5", "-1e-400"}) {
    const std::optional<double> number = parseJSONNumber(text);
    ASSERT_TRUE(number) << text;
    EXPECT_TRUE(*number == 0 && std::signbit(*number)) << text;
  }
}

TEST(JSONDocumentTest, AnOneIsANumberAndNoBoolean) {
  const std::optional<Value> value = parseJSON("[1, true]");
  EXPECT_TRUE(value->array()->elements()[0].number());
  EXPECT_TRUE(value->array()->elements()[1].boolean());
}

TEST(JSONDocumentTest, KeysThatAreCanonicallyEquivalentAreOne) {
  EXPECT_EQ(parsed("{\"e\xCC\x81\":1,\"\xC3\xA9\":2}"), "{'e\xCC\x81':2,}");
}

TEST(JSONDocumentTest, KeysThatRepeatShareOneText) {
  const std::optional<Value> value = parseJSON(R"([{"name":1},{"name":2}])");
  const auto keyOf = [&](std::size_t index) {
    return value->array()->elements()[index].dictionary()->entries()[0].key.string();
  };
  EXPECT_TRUE(keyOf(0)->isSameAs(*keyOf(1)));
}

TEST(JSONDocumentTest, ObjectsWithTheSameKeysInTheSameOrderShareThem) {
  const std::optional<Value> value =
      parseJSON(R"([{"a":1,"b":2},{"b":3,"a":4},{"a":5,"b":6},{"a":7},{"a":8,"b":9,"c":0}])");
  const auto keysOf = [&](std::size_t index) {
    return &value->array()->elements()[index].dictionary()->entries()[0].key;
  };
  EXPECT_EQ(keysOf(0), keysOf(2));
  for (const std::size_t other : {1u, 3u, 4u}) EXPECT_NE(keysOf(0), keysOf(other));
  EXPECT_EQ(value->description(), String("[[a: 1, b: 2], [b: 3, a: 4], [a: 5, b: 6], [a: 7], [a: 8, b: 9, c: 0]]"));
}

TEST(JSONDocumentTest, ObjectsWithManyKeysAreReadLikeThoseWithFew) {
  for (const int count : {1, 8, 9, 64, 65, 1000}) {
    std::string object = "{\"key 0\":0";
    for (int number = 1; number < count; ++number) {
      object += ",\"key " + std::to_string(number) + "\":" + std::to_string(number);
    }
    object += "}";
    const std::optional<Value> value = parseJSON("[" + object + "," + object + "]");
    ASSERT_TRUE(value) << count;
    const auto& elements = value->array()->elements();
    EXPECT_EQ(elements[0], elements[1]);
    const auto keys = [](const Value& element) { return &element.dictionary()->entries()[0].key; };
    EXPECT_EQ(keys(elements[0]) == keys(elements[1]), count <= 64);
    for (const Value& element : elements) {
      EXPECT_EQ(*element.dictionary()->find("key " + std::to_string(count - 1)), Value(count - 1));
      EXPECT_FALSE(element.dictionary()->find("key"));
    }
  }
}

TEST(JSONDocumentTest, ObjectsWithManyKeysAreReadLikeThoseWithFewAlsoIfTheyRepeat) {
  const auto object = [](int count, const std::vector<std::string>& others) {
    std::string text = "{\"key 1\":0";
    for (int number = 1; number < count; ++number)
      text += ",\"key " + std::to_string(number) + "\":" + std::to_string(number);
    for (const std::string& other : others) text += ",\"" + other + "\":\"" + other + "\"";
    return text + "}";
  };
  for (const int count : {2, 63, 64, 65}) {
    std::string document = "[";
    std::vector<std::string> alone;
    for (const std::vector<std::string>& others :
         {std::vector<std::string>{}, {"one more"}, {}, {"key 1"}, {"one more", "one more"}, {"another"}, {}}) {
      alone.push_back(object(count, others));
      document += (document.size() > 1 ? "," : "") + alone.back();
    }
    std::string expected = "[";
    for (const std::string& each : alone) expected += parsed(each) + ",";
    EXPECT_EQ(parsed(document + "]"), expected + "]");
    EXPECT_EQ(parseJSON(alone[0])->dictionary()->size(), static_cast<std::size_t>(count - 1));
  }
}

TEST(JSONDocumentTest, ManyKindsOfObjectsAreReadLikeFew) {
  std::mt19937 generator(20261122);
  std::string document = "[";
  std::string expected = "[";
  for (int round = 0; round < 3000; ++round) {
    std::string object = "{";
    // A third of them are of one kind, so that there are always some more.
    const std::size_t count = round % 3 == 0 ? 3 : generator() % 8;
    for (std::size_t index = 0; index < count; ++index) {
      const std::size_t key = round % 3 == 0 ? index : generator() % 40;
      object += (index > 0 ? ",\"k" : "\"k") + std::to_string(key) + "\":\"" + std::to_string(round) + "\"";
    }
    object += "}";
    document += (round > 0 ? "," : "") + object;
    expected += parsed(object) + ",";
  }
  EXPECT_EQ(parsed(document + "]"), expected + "]");
}

TEST(JSONDocumentTest, ObjectsOfManyKindsShareTheirKeysWhereEachComesAgain) {
  std::string document = "[0";
  for (int number = 0; number < 3000; ++number) {
    const std::string object = ",{\"key " + std::to_string(number) + "\":0}";
    document += object + object + object;
  }
  const std::optional<Value> value = parseJSON(document + "]");
  ASSERT_TRUE(value);
  const auto& elements = value->array()->elements();
  const auto keysOf = [&](std::size_t index) { return &elements[index].dictionary()->entries()[0].key; };
  for (std::size_t index = 1; index < elements.size(); index += 3) ASSERT_EQ(keysOf(index), keysOf(index + 2));
}

TEST(JSONDocumentTest, ObjectsOfFewAmongManyKindsShareTheirKeysNoMore) {
  std::string document = "[{\"first\":1,\"second\":2},{\"first\":3,\"second\":4}";
  for (int number = 0; number < 2000; ++number) document += ",{\"key " + std::to_string(number) + "\":0}";
  document += ",{\"late\":1},{\"late\":2},{\"first\":5,\"second\":6}]";
  const std::optional<Value> value = parseJSON(document);
  ASSERT_TRUE(value);
  const auto& elements = value->array()->elements();
  const auto keysOf = [&](std::size_t index) { return &elements[index].dictionary()->entries()[0].key; };
  EXPECT_EQ(keysOf(0), keysOf(1));
  EXPECT_EQ(keysOf(0), keysOf(2004));
  EXPECT_NE(keysOf(2002), keysOf(2003));
  EXPECT_EQ(shown(elements[2003]), "{'late':2,}");
}

std::string nested(std::size_t depth, std::string_view open, std::string_view close) {
  std::string document;
  for (std::size_t i = 0; i < depth; ++i) document += open;
  document += "1";
  for (std::size_t i = 0; i < depth; ++i) document += close;
  return document;
}

TEST(JSONDocumentTest, TakesDeepDocuments) {
  for (const std::size_t depth : {10u, 1000u}) {  // deeper ones as the stack allows
    for (const auto& [open, close] : {std::pair("[", "]"), std::pair("{\"a\":", "}")}) {
      std::optional<Value> value = parseJSON(nested(depth, open, close));
      ASSERT_TRUE(value) << depth;
      for (std::size_t i = 0; i < depth; ++i) {
        const Array* const array = value->array();
        value = Value(array ? array->elements()[0] : value->dictionary()->entries()[0].value);
      }
      EXPECT_EQ(*value->number(), 1);
    }
  }
}

TEST(JSONDocumentTest, ExtremeDepthIsInvalidAndNoCrash) {
  EXPECT_EQ(parseJSON(nested(3'000'000, "[", "]")), std::nullopt);
  EXPECT_EQ(parseJSON(nested(3'000'000, "{\"a\":", "}")), std::nullopt);
  EXPECT_EQ(parseJSON(std::string(3'000'000, '[')), std::nullopt);
}

TEST(JSONDocumentTest, TakesLargeDocuments) {
  std::string document = "[";
  for (int i = 0; i < 100'000; ++i) document += std::to_string(i) + ",";
  document.back() = ']';
  const std::optional<Value> value = parseJSON(document);
  ASSERT_TRUE(value);
  ASSERT_EQ(value->array()->size(), 100'000u);
  EXPECT_EQ(*value->array()->elements()[99'999].number(), 99'999);
}

class LoadJSONTest : public testing::Test {
 protected:
  Value load(const Value& path, std::optional<Url> base = Url("/base/")) {
    Interpreter interpreter(std::move(base), std::make_shared<ArrayLogger>(), files);
    return call(interpreter, path);
  }

  static Value call(Interpreter& interpreter, const Value& path) {
    const std::optional<Value> function = interpreter.globals().get("loadJSON");
    const auto fail = [](const String& message) { throw std::runtime_error(std::string(message)); };
    return function->callable()->call(interpreter, {path}, ReportError(fail));
  }

  std::shared_ptr<MemoryFileSystem> files = std::make_shared<MemoryFileSystem>();
};

TEST_F(LoadJSONTest, IsAFunctionOfOneUnlabelledValue) {
  Interpreter interpreter(std::nullopt, std::make_shared<ArrayLogger>(), files);
  const std::optional<Value> function = interpreter.globals().get("loadJSON");
  ASSERT_TRUE(function && function->callable());
  EXPECT_EQ(function->callable()->name(), String("loadJSON"));
  ASSERT_EQ(function->callable()->arity(), 1);
  EXPECT_FALSE(function->callable()->labels()[0]);
}

TEST_F(LoadJSONTest, ReadsArraysAndObjects) {
  files->files["/base/a.json"] = R"([1, "a", true, null, {"k": 2.5}])";
  files->files["/base/b.json"] = "\xEF\xBB\xBF{\"k\": [2]}";
  EXPECT_EQ(shown(load("a.json")), "[1,'a',true,nil,{'k':2.5,},]");
  EXPECT_EQ(shown(load("b.json")), "{'k':[2,],}");
}

TEST_F(LoadJSONTest, EveryFailureIsNil) {
  files->files = {{"/base/number", "42"}, {"/base/text", "\"text\""}, {"/base/null", "null"}, {"/base/empty", ""},
                  {"/base/bad", "[1"},    {"/base/a b", "[1]"},       {"/base/list", "[1]"}};
  for (const char* path : {"number", "text", "null", "empty", "bad", "missing", "a b", "", ".", "http://host/base/list",
                           "//host/base/list", "list%00", "%ff"}) {
    EXPECT_TRUE(load(path).isNil()) << path;
  }
  EXPECT_TRUE(load(3).isNil());
  EXPECT_TRUE(load(nullptr).isNil());
  EXPECT_TRUE(load(Value::arrayLiteral({"list"})).isNil());
  EXPECT_FALSE(load("list").isNil());
}

TEST_F(LoadJSONTest, ResolvesThePathAsAUrl) {
  files->files = {{"/base/a b.json", "[1]"}, {"/a.json", "[2]"}, {"/base/sub/a.json", "[3]"}};
  EXPECT_EQ(shown(load("a%20b.json")), "[1,]");
  EXPECT_EQ(shown(load("/a.json")), "[2,]");
  EXPECT_EQ(shown(load("../a.json")), "[2,]");
  EXPECT_EQ(shown(load("file:///a.json")), "[2,]");
  EXPECT_EQ(shown(load("sub/a.json?query#fragment")), "[3,]");
}

TEST_F(LoadJSONTest, ABaseThatIsADirectoryCountsAsOne) {
  files->files = {{"/base/a.json", "[1]"}, {"/a.json", "[2]"}};
  EXPECT_EQ(shown(load("a.json", Url("/base"))), "[1,]");
  EXPECT_EQ(shown(load("a.json", Url::directory("/base"))), "[1,]");
  EXPECT_EQ(shown(load("a.json", Url("base"))), "[1,]");
  EXPECT_EQ(shown(load("a.json", Url("/base/a.json"))), "[1,]");
  EXPECT_EQ(shown(load("a.json", Url("/missing"))), "[2,]");
}

TEST_F(LoadJSONTest, WithoutABaseTheCurrentDirectoryIsOne) {
  files->files = {{"/a.json", "[2]"}};
  EXPECT_EQ(shown(load("a.json", std::nullopt)), "[2,]");
}

TEST_F(LoadJSONTest, TheLibraryKeepsItsBase) {
  files->files["/base/a.json"] = "[1]";
  const auto library = std::make_shared<JSONLibrary>();
  EXPECT_FALSE(library->baseURL());
  Interpreter interpreter(Url("/base"), std::make_shared<ArrayLogger>(), files);
  interpreter.load(library);
  EXPECT_EQ(library->baseURL(), Url("/base/"));
  EXPECT_EQ(shown(call(interpreter, "a.json")), "[1,]");
  Interpreter other(Url("/"), std::make_shared<ArrayLogger>(), files);
  other.load(library);
  EXPECT_TRUE(call(interpreter, "a.json").isNil()) << "the function reads the base of its library";
}

}  // namespace
}  // namespace velto

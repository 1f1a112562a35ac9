// Values within values, too deep for any recursion.
#include <gtest/gtest.h>

#include "Velto/Value/Array.h"
#include "Velto/Value/Dictionary.h"
#include "Velto/Value/NativeFunctions.h"
#include "tests/support/StackThread.h"
#include "tests/unit/Parser/SmallStack.h"
#include "tests/unit/Value/Calls.h"
#include "tests/unit/Value/HostTypes.h"

namespace velto {
namespace {

Value inArray(Value inner) {
  return Array({std::move(inner)});
}

Value inDictionary(Value inner) {
  Dictionary dictionary;
  dictionary.set("a", std::move(inner));
  return dictionary;
}

Value inFunction(Value inner) {
  return makeRef<Function0>("f", [inner = std::move(inner)] { return inner; });
}

struct Holder {
  Value inner;
};

Value inRecord(Value inner) {
  return object(Holder{std::move(inner)}, {{"inner", &Holder::inner}});
}

HostValue inHostArray(HostValue inner) {
  return std::vector<HostValue>{std::move(inner)};
}

HostValue inHostDictionary(HostValue inner) {
  return std::vector<std::pair<HostValue, HostValue>>{{"a", std::move(inner)}};
}

HostValue inHostArrayObject(HostValue inner) {
  return Ref<const Object>(makeRef<HostArray>(HostValue::Elements{std::move(inner)}));
}

HostValue inHostDictionaryObject(HostValue inner) {
  return Ref<const Object>(makeRef<HostDictionary>(HostValue::Entries{{"a", std::move(inner)}}));
}

template <typename T>
T nested(T (*wrap)(T), int depth, T inner = 1) {
  for (int level = 0; level < depth; ++level) inner = wrap(std::move(inner));
  return inner;
}

/// So deep that a frame for each level would take more than the stack, however small it were.
void whereItIsDeep(const std::function<void(int depth)>& work) {
  test::onStack(test::smallStack, [&] { work(10'000); });
}

using Wrap = Value (*)(Value);
using WrapHost = HostValue (*)(HostValue);

TEST(DeepValues, AreFreed) {
  for (const Wrap wrap : {inArray, inDictionary, inFunction, inRecord}) {
    whereItIsDeep([&](int depth) { nested<Value>(wrap, depth); });
  }
  for (const WrapHost wrap : {inHostArray, inHostDictionary, inHostArrayObject, inHostDictionaryObject}) {
    whereItIsDeep([&](int depth) { nested<HostValue>(wrap, depth); });
  }
}

TEST(DeepValues, ArePrinted) {
  whereItIsDeep([](int depth) {
    EXPECT_TRUE(nested<Value>(inArray, depth).description() == repeated("[", depth) + "1" + repeated("]", depth));
    EXPECT_TRUE(nested<Value>(inDictionary, depth).description() ==
                repeated("[a: ", depth) + "1" + repeated("]", depth));
    EXPECT_TRUE(nested<HostValue>(inHostArray, depth).printed() == repeated("[", depth) + "1" + repeated("]", depth));
    EXPECT_TRUE(nested<HostValue>(inHostDictionaryObject, depth).printed() ==
                repeated("[\"a\": ", depth) + "1" + repeated("]", depth));
  });
}

TEST(DeepValues, AreCompared) {
  for (const Wrap wrap : {inArray, inDictionary}) {
    whereItIsDeep([&](int depth) {
      EXPECT_TRUE(nested<Value>(wrap, depth) == nested<Value>(wrap, depth));
      EXPECT_FALSE(nested<Value>(wrap, depth) == nested<Value>(wrap, depth, 2));
      EXPECT_FALSE(nested<Value>(wrap, depth) == nested<Value>(wrap, depth - 1));
    });
  }
}

TEST(DeepValues, AreHashedAndFoundAsKeys) {
  whereItIsDeep([](int depth) {
    EXPECT_EQ(nested<Value>(inArray, depth).hashValue(), nested<Value>(inArray, depth).hashValue());
    EXPECT_EQ(nested<Value>(inDictionary, depth).hashValue(), nested<Value>(inDictionary, depth).hashValue());
    Dictionary dictionary;
    dictionary.set(nested<Value>(inArray, depth), "array");
    dictionary.set(nested<Value>(inDictionary, depth), "dictionary");
    EXPECT_EQ(*dictionary.find(nested<Value>(inArray, depth)), Value("array"));
    EXPECT_EQ(*dictionary.find(nested<Value>(inDictionary, depth)), Value("dictionary"));
    EXPECT_FALSE(dictionary.find(nested<Value>(inArray, depth, 2)));
  });
}

TEST(DeepValues, AreComparedWhenTheKeysAreDeep) {
  constexpr Wrap inKey = [](Value inner) -> Value {
    Dictionary dictionary;
    dictionary.set(std::move(inner), 1);
    return dictionary;
  };
  onSmallStack([&] { EXPECT_TRUE(nested<Value>(inKey, 3'000) == nested<Value>(inKey, 3'000)); });
  onSmallStack([&] { EXPECT_FALSE(nested<Value>(inKey, 3'000) == nested<Value>(inKey, 3'000, 2)); });
}

TEST(DeepValues, AreVerified) {
  const Value names = *HostValue(std::vector<std::string>{"a"}).asValue();
  for (const Wrap wrap : {inArray, inDictionary}) {
    whereItIsDeep([&](int depth) {
      EXPECT_TRUE(Value::verify(nested<Value>(wrap, depth)));
      EXPECT_FALSE(Value::verify(nested<Value>(wrap, depth, names)));
    });
  }
}

TEST(DeepValues, AreMadeFromThoseOfTheHost) {
  for (const WrapHost wrap : {inHostArray, inHostArrayObject}) {
    whereItIsDeep([&](int depth) {
      EXPECT_TRUE(Value::from(nested<HostValue>(wrap, depth)) == nested<Value>(inArray, depth));
      EXPECT_FALSE(Value::from(nested<HostValue>(wrap, depth, shop::Opaque())));
    });
  }
  for (const WrapHost wrap : {inHostDictionary, inHostDictionaryObject}) {
    whereItIsDeep([&](int depth) {
      EXPECT_TRUE(Value::from(nested<HostValue>(wrap, depth)) == nested<Value>(inDictionary, depth));
      EXPECT_FALSE(Value::from(nested<HostValue>(wrap, depth, shop::Opaque())));
    });
  }
}

}  // namespace
}  // namespace velto

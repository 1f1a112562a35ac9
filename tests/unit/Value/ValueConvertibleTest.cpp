// What turns itself into a value.
#include "Velto/Value/ValueConvertible.h"

#include <gtest/gtest.h>

#include <vector>

#include "Velto/Value/IntegerRange.h"
#include "Velto/Value/NativeFunctions.h"

namespace velto {
namespace {

TEST(ValueConvertible, TakesPlainTypesAsWhatTheyAre) {
  EXPECT_EQ(asValue(true).kind(), Value::Case::boolean);
  EXPECT_EQ(asValue(1.5), Value(1.5));
  EXPECT_EQ(asValue(0.5f), Value(0.5));
  EXPECT_EQ(asValue(Int{3}), Value(3));
  EXPECT_EQ(asValue(String("a")), Value("a"));
  EXPECT_TRUE(asValue(Value::nil()).isNil());
}

TEST(ValueConvertible, TakesObjectsAndCallablesThemselves) {
  const auto range = makeRef<CountableRange>(0, 3);
  EXPECT_EQ(asValue(*range).openRange(), range.get());
  const auto function = makeRef<Function0>("f", [] { return Value(); });
  EXPECT_EQ(asValue(*function).callable(), function.get());
  EXPECT_EQ(asValue(function).callable(), function.get());
}

TEST(ValueConvertible, LeavesOutWhatNeedsAConversion) {
  struct Unknown {};
  EXPECT_FALSE(ValueConvertible<Unknown>);
  EXPECT_FALSE(ValueConvertible<std::vector<std::string>>);
}

}  // namespace
}  // namespace velto

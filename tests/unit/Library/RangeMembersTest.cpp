// Integer ranges: their members, their texts and their bounds.
#include <gtest/gtest.h>

#include <limits>

#include "Velto/Value/Callable.h"
#include "Velto/Value/IntegerRange.h"
#include "tests/unit/Value/Calls.h"

namespace velto {
namespace {

constexpr Int largest = std::numeric_limits<Int>::max();
constexpr Int smallest = std::numeric_limits<Int>::min();

Value open(Int lower, Int upper) {
  return makeRef<CountableRange>(lower, upper);
}

Value closed(Int lower, Int upper) {
  return makeRef<CountableClosedRange>(lower, upper);
}

TEST(RangeMembers, CountIsEmptyAndText) {
  struct Row {
    Value range;
    double count;
    bool isEmpty;
    const char* text;
  };
  const Row rows[] = {
      {open(0, 0), 0, true, "0..<0"},
      {open(0, 3), 3, false, "0..<3"},
      {open(-2, 3), 5, false, "-2..<3"},
      {closed(0, 0), 1, false, "0...0"},
      {closed(0, 3), 4, false, "0...3"},
      {closed(-3, -1), 3, false, "-3...-1"},
      {open(largest, largest), 0, true, "9223372036854775807..<9223372036854775807"},
      {closed(largest, largest), 1, false, "9223372036854775807...9223372036854775807"},
      {open(smallest, largest), 0x1p64, false, "-9223372036854775808..<9223372036854775807"},
      {closed(smallest, largest), 0x1p64, false, "-9223372036854775808...9223372036854775807"},
      {closed(0, largest), 0x1p63, false, "0...9223372036854775807"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(row.range.get("count"), Value(row.count)) << row.text;
    EXPECT_EQ(row.range.get("isEmpty"), Value(row.isEmpty)) << row.text;
    EXPECT_EQ(row.range.description(), String(row.text));
  }
}

TEST(RangeMembers, EqualsComparesItsArgumentsAlone) {
  for (const Value& range : {open(0, 3), closed(0, 3)}) {
    EXPECT_EQ(range.get("equals")->callable()->name(), String("equals"));
    EXPECT_EQ(test::callMember(range, "equals", {1, 1}), Value(true));
    EXPECT_EQ(test::callMember(range, "equals", {1, 2}), Value(false));
  }
}

TEST(RangeMembers, ThereAreNoOthers) {
  for (const char* name : {"lower", "upper", "first", "contains", "map", ""}) {
    EXPECT_FALSE(open(0, 3).get(name)) << name;
    EXPECT_FALSE(closed(0, 3).get(name)) << name;
  }
}

TEST(RangeDeathTest, AnUpperBoundBelowTheLowerOneIsAFatalStop) {
  EXPECT_DEATH(open(3, 2), "fatal: ");
  EXPECT_DEATH(closed(3, 2), "fatal: ");
  EXPECT_DEATH(closed(largest, smallest), "fatal: ");
}

}  // namespace
}  // namespace velto

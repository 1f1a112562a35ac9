// Points, sizes and rectangles as objects.
#include "Velto/Library/Geometry.h"

#include <gtest/gtest.h>

#include "tests/unit/Value/Calls.h"

namespace velto {
namespace {

Value point() {
  return asObject(CGPoint{1, 0.5});
}

Value size() {
  return asObject(CGSize{10, 20.5});
}

Value rect() {
  return asObject(CGRect{{1, 2}, {-10, 20.5}});
}

TEST(Geometry, HoldsNoFunctions) {
  for (const Value& value : {point(), size(), rect()}) {
    EXPECT_FALSE(value.object()->mayHoldFunctions()) << value.description();
  }
}

TEST(Geometry, PointsAndSizesHaveTheirFieldsAndNoOtherMembers) {
  EXPECT_EQ(point().get("x"), Value(1));
  EXPECT_EQ(point().get("y"), Value(0.5));
  EXPECT_EQ(size().get("width"), Value(10));
  EXPECT_EQ(size().get("height"), Value(20.5));
  for (const char* name : {"width", "height", "center", "equals", ""}) EXPECT_FALSE(point().get(name)) << name;
  for (const char* name : {"x", "y", "center", "equals", ""}) EXPECT_FALSE(size().get(name)) << name;
}

TEST(Geometry, ARectangleHasItsFieldsItsCenterAndItsExtent) {
  EXPECT_EQ(rect().get("origin")->get("x"), Value(1));
  EXPECT_EQ(rect().get("size")->get("width"), Value(-10));
  EXPECT_EQ(rect().get("width"), Value(10));
  EXPECT_EQ(rect().get("height"), Value(20.5));
  EXPECT_EQ(rect().get("center")->get("x"), Value(-4));
  EXPECT_EQ(rect().get("center")->get("y"), Value(12.25));
  for (const char* name : {"x", "y", "minX", "equals", ""}) EXPECT_FALSE(rect().get(name)) << name;
}

TEST(Geometry, ARectangleOfNegativeSizeHasAPositiveExtentAndItsCenterWhereItLies) {
  const Value negative = asObject(CGRect{{1, 2}, {-10, -20.5}});
  EXPECT_EQ(negative.get("size")->get("width"), Value(-10));
  EXPECT_EQ(negative.get("size")->get("height"), Value(-20.5));
  EXPECT_EQ(negative.get("width"), Value(10));
  EXPECT_EQ(negative.get("height"), Value(20.5));
  EXPECT_EQ(negative.get("center")->get("x"), Value(-4));
  EXPECT_EQ(negative.get("center")->get("y"), Value(-8.25));
}

TEST(Geometry, CoordinatesPrintAsFloatsOfTheHost) {
  EXPECT_EQ(point().description(), String("{1.0, 0.5}"));
  EXPECT_EQ(point().get("x")->description(), String("1"));
  EXPECT_EQ(size().description(), String("{10.0, 20.5}"));
  EXPECT_EQ(asObject(CGRect{{0, 0}, {10, 20.5}})->objectDescription(), String("{{0.0, 0.0}, {10.0, 20.5}}"));
  EXPECT_EQ(rect().get("center")->description(), String("{-4.0, 12.25}"));
}

TEST(Geometry, AllIsZeroUnlessItIsGiven) {
  EXPECT_EQ(CGPoint(), (CGPoint{0, 0}));
  EXPECT_EQ(CGSize(), (CGSize{0, 0}));
  EXPECT_EQ(CGRect(), (CGRect{{0, 0}, {0, 0}}));
}

TEST(Geometry, AsValuesTheyAreEqualToNothing) {
  for (const Value& value : {point(), size(), rect()}) EXPECT_NE(value, value);
}

TEST(Geometry, HaveTheNamesOfTheirTypes) {
  EXPECT_EQ(point().object()->typeName(), String("CGPoint"));
  EXPECT_EQ(size().object()->typeName(), String("CGSize"));
  EXPECT_EQ(rect().object()->typeName(), String("CGRect"));
}

}  // namespace
}  // namespace velto

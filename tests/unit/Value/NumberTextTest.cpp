// Numbers as the language and as the host print them, against the C library.
#include "Velto/Value/NumberText.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include "Velto/Value/Value.h"
#include "tests/unit/Value/Calls.h"

namespace velto {
namespace {

std::string formatted(const char* format, double number) {
  char text[64];
  std::snprintf(text, sizeof text, format, number);
  return text;
}

void expectLikeC(double number) {
  EXPECT_EQ(numberDescription(number).view(), formatted("%g", number)) << formatted("%a", number);
}

TEST(NumberDescription, IsThatOfCForAllSmallIntegersAndAroundTheLimit) {
  for (int number = -2000; number <= 2000; ++number) expectLikeC(number);
  for (int number = 998000; number <= 1002000; ++number) {
    expectLikeC(number);
    expectLikeC(-number);
  }
}

TEST(NumberDescription, IsThatOfCForFractionsAndPowersOfTen) {
  for (int exponent = -320; exponent <= 308; ++exponent) {
    for (const double factor : {1.0, 1.5, 9.99999, 9.999994, 9.999995, 9.9999999, -1.0, -2.5}) {
      expectLikeC(factor * std::pow(10.0, exponent));
    }
  }
  for (int eighth = -8000; eighth <= 8000; ++eighth) expectLikeC(eighth / 8.0);
}

TEST(NumberDescription, IsThatOfCForDecimalFractionsAndTheirNeighbours) {
  for (int digits = -20'000; digits <= 20'000; ++digits) {
    for (const double scale : {10.0, 100.0, 1000.0, 1e4, 1e5}) {
      expectLikeC(digits / scale);
      expectLikeC(std::nextafter(digits / scale, 1e9));
    }
  }
  for (int digits = 990'000; digits <= 1'010'000; ++digits) expectLikeC(digits / 100.0);
}

TEST(NumberDescription, IsThatOfCForRandomBits) {
  std::mt19937_64 generator(20240229);
  for (int count = 0; count < 200000; ++count) {
    const double number = std::bit_cast<double>(generator());
    if (!std::isnan(number)) expectLikeC(number);
  }
}

String descriptionByHost(double number) {
  StringBuilder text;
  appendNumberDescriptionByHost(number, text);
  return text.build();
}

TEST(NumberDescription, IsThatOfTheHostForShortFractions) {
  std::mt19937_64 generator(20240301);
  constexpr double scales[] = {1, 10, 100, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11};
  for (int count = 0; count < 300'000; ++count) {
    // Seven digits are half of the time exactly between two numbers of six, or next to it.
    const double digits = static_cast<double>(generator() % 10'000'000 / 5 * 5);
    const double number = digits / scales[generator() % std::size(scales)];
    for (const double near : {number, std::nextafter(number, 0), std::nextafter(number, 1e9), -number}) {
      ASSERT_EQ(numberDescription(near).view(), descriptionByHost(near).view()) << formatted("%a", near);
    }
  }
}

TEST(NumberDescription, IsThatOfTheHostWhereTheFormChanges) {
  for (const double limit : {1e-5, 1e-4, 1e-3, 0.1, 1.0, 10.0, 1e5, 999999.0, 999999.5, 1e6}) {
    double below = limit;
    double above = limit;
    for (int step = 0; step < 100; ++step) {
      ASSERT_EQ(numberDescription(below).view(), descriptionByHost(below).view()) << formatted("%a", below);
      ASSERT_EQ(numberDescription(above).view(), descriptionByHost(above).view()) << formatted("%a", above);
      below = std::nextafter(below, 0);
      above = std::nextafter(above, 1e9);
    }
  }
}

TEST(HostDescription, ShowsThatItIsAFloat) {
  struct Row {
    double number;
    const char* text;
  };
  const Row rows[] = {
      {0, "0.0"},
      {-0.0, "-0.0"},
      {1, "1.0"},
      {-20.5, "-20.5"},
      {0.5, "0.5"},
      {0.1, "0.1"},
      {1.0 / 3, "0.333333333333333"},
      {100000000000000, "100000000000000.0"},
      {1e15, "1e+15"},
      {123456789012345678.0, "1.23456789012346e+17"},
      {1e-5, "1e-05"},
      {std::numeric_limits<double>::infinity(), "inf"},
      {-std::numeric_limits<double>::infinity(), "-inf"},
      {std::numeric_limits<double>::quiet_NaN(), "nan"},
  };
  for (const Row& row : rows) EXPECT_EQ(hostDescription(row.number), String(row.text));
}

TEST(HostDescription, ShowsNoMoreDigitsThanA32BitFloatHas) {
  EXPECT_EQ(hostDescription(0.1f), String("0.1"));
  EXPECT_EQ(hostDescription(3.0f), String("3.0"));
  EXPECT_EQ(hostDescription(1.0f / 3), String("0.333333"));
}

}  // namespace
}  // namespace velto

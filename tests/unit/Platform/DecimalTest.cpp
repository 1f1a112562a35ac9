// Numbers are read to the last bit, and no further than they go.
#include "Velto/Platform/Decimal.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <string>

namespace velto {
namespace {

struct Read {
  double number;
  std::errc error;
  std::size_t size;
};

Read read(std::string_view text) {
  double number = -7;
  const auto [end, error] = parseDecimal(text, number);
  return {number, error, static_cast<std::size_t>(end - text.data())};
}

TEST(Decimal, IsReadToTheLastBit) {
  struct Row {
    const char* text;
    std::uint64_t bits;
  };
  const Row rows[] = {
      {"0", 0x0},
      {"-0.0", 0x8000000000000000},
      {"0e999999999999999999999", 0x0},
      {"0.1", 0x3FB999999999999A},
      {"9007199254740993", 0x4340000000000000},
      {"9007199254740993.000000000000000000000001", 0x4340000000000001},
      {"-1.7976931348623157e308", 0xFFEFFFFFFFFFFFFF},
      {"2.2250738585072011e-308", 0x000FFFFFFFFFFFFF},
      {"3e-324", 0x1},
      {"1E+2", 0x4059000000000000},
  };
  for (const Row& row : rows) {
    const Read result = read(row.text);
    EXPECT_EQ(std::bit_cast<std::uint64_t>(result.number), row.bits) << row.text;
    EXPECT_EQ(result.error, std::errc()) << row.text;
    EXPECT_EQ(result.size, std::string_view(row.text).size()) << row.text;
  }
}

TEST(Decimal, EndsWhereTheNumberEnds) {
  EXPECT_EQ(read("1.5\u0301").size, 3u);
  EXPECT_EQ(read("1.5\u0301").number, 1.5);
  EXPECT_EQ(read("1,5").size, 1u);
  EXPECT_EQ(read(std::string_view("123", 2)).number, 12) << "what stands behind the text isn't read";
  EXPECT_EQ(read(std::string_view("1\0002", 3)).size, 1u);
}

TEST(Decimal, LeavesWhatIsNoFloat) {
  for (const std::string& text : {std::string("1e309"), "-1" + std::string(400, '0'), std::string("1e-400"),
                                  "-0." + std::string(400, '0') + "1", std::string("2e-324")}) {
    const Read result = read(text);
    EXPECT_EQ(result.error, std::errc::result_out_of_range) << text;
    EXPECT_EQ(result.number, -7) << text;
    EXPECT_EQ(result.size, text.size()) << text;
  }
  EXPECT_EQ(read("x").error, std::errc::invalid_argument);
  EXPECT_EQ(read("").size, 0u);
}

}  // namespace
}  // namespace velto

// Positions, stretches and how they print.
#include "Velto/Diagnostics/Range.h"

#include <gtest/gtest.h>

#include <csignal>

namespace velto {
namespace {

TEST(Cursor, PrintsFileLineAndColumn) {
  EXPECT_EQ((Cursor{"a.txt", 3, 14}).description(), String("a.txt:3:14"));
}

TEST(Cursor, ComparesAllItsFields) {
  const Cursor cursor{"a.txt", 3, 14};
  EXPECT_EQ(cursor, (Cursor{"a.txt", 3, 14}));
  EXPECT_NE(cursor, (Cursor{"b.txt", 3, 14}));
  EXPECT_NE(cursor, (Cursor{"a.txt", 4, 14}));
  EXPECT_NE(cursor, (Cursor{"a.txt", 3, 15}));
}

TEST(Range, KeepsItsFiveValues) {
  Range range("a.txt", 3, 14, 4, 2);
  EXPECT_EQ(range.file, String("a.txt"));
  EXPECT_EQ(range.startLine, 3);
  EXPECT_EQ(range.startColumn, 14);
  EXPECT_EQ(range.endLine, 4);
  EXPECT_EQ(range.endColumn, 2);
  range.endColumn = 9;
  EXPECT_EQ(range.end(), (Cursor{"a.txt", 4, 9}));
}

TEST(Range, OfNoLengthStartsWhereItEnds) {
  const Range range("a.txt", 3, 14);
  EXPECT_EQ(range.start(), range.end());
  EXPECT_EQ(range.start(), (Cursor{"a.txt", 3, 14}));
}

TEST(Range, GivesBackTheCursorsThatItWasMadeOf) {
  const Cursor start{"a.txt", 3, 14};
  const Cursor end{"a.txt", 4, 2};
  const Range range(start, end);
  EXPECT_EQ(range.start(), start);
  EXPECT_EQ(range.end(), end);
}

TEST(Range, TakesFilesThatAreEqualButWrittenInTwoWays) {
  const Range range(Cursor{"\u00E9.txt", 1, 1}, Cursor{"e\u0301.txt", 1, 2});
  EXPECT_EQ(range.file.view(), "\u00E9.txt");
}

TEST(RangeDeathTest, CannotLeadFromOneFileToAnother) {
  EXPECT_EXIT(Range(Cursor{"a.txt", 1, 1}, Cursor{"b.txt", 1, 2}), testing::KilledBySignal(SIGABRT), "^fatal: ");
}

TEST(Range, PrintsBothLinesAndThenBothColumns) {
  EXPECT_EQ(Range("a.txt", 3, 14, 4, 2).description(), String("a.txt:3...4:14...2"));
  EXPECT_EQ(Range("", 0, 0).description(), String(":0...0:0...0"));
}

TEST(Range, SpansFromTheFirstToTheLast) {
  const Range first("a.txt", 1, 2, 1, 5);
  const Range last("a.txt", 3, 1, 3, 4);
  EXPECT_EQ(spanning(first, last), Range("a.txt", 1, 2, 3, 4));
  EXPECT_EQ(spanning(first, first), first);
}

}  // namespace
}  // namespace velto

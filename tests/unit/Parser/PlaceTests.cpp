// Which positions four bytes can tell.
#include <gtest/gtest.h>

#include <limits>

#include "Velto/Parser/Place.h"

namespace velto {
namespace {

TEST(Place, TellsPositionsOfManyLinesAndOfLongOnes) {
  constexpr Int lines = 4'194'303;
  constexpr Int fewLines = 4'095;
  constexpr Int columns = 524'287;
  constexpr Int fewColumns = 511;
  for (const Position position :
       {Position{1, 1}, Position{1, 0}, Position{0, 1}, Position{1, fewColumns}, Position{1, fewColumns + 1},
        Position{lines, 1}, Position{lines, fewColumns}, Position{fewLines, columns}, Position{1, columns},
        Position{fewLines + 1, fewColumns}, Position{fewLines, fewColumns}, Position{0, columns}}) {
    const Place place(position);
    EXPECT_TRUE(place.isKnown()) << position.line << ":" << position.column;
    EXPECT_EQ(place.position(), position) << position.line << ":" << position.column;
  }
}

TEST(Place, DoesNotKnowAnyOther) {
  constexpr Int most = std::numeric_limits<Int>::max();
  constexpr Int least = std::numeric_limits<Int>::min();
  for (const Position position : {Position{0, 0}, Position{4'194'304, 1}, Position{4'096, 512},
                                  Position{4'194'303, 512}, Position{1, 524'288}, Position{-1, 1}, Position{1, -1},
                                  Position{most, 1}, Position{1, most}, Position{least, 1}, Position{1, least}}) {
    EXPECT_FALSE(Place(position).isKnown()) << position.line << ":" << position.column;
  }
  EXPECT_FALSE(Place().isKnown());
}

TEST(Place, IsTheSameAsAnotherOfItsPosition) {
  EXPECT_EQ(Place(Position{3, 14}), Place(Position{3, 14}));
  EXPECT_NE(Place(Position{3, 14}), Place(Position{3, 15}));
  EXPECT_NE(Place(Position{3, 14}), Place(Position{4, 14}));
  EXPECT_NE(Place(Position{3, 14}), Place(Position{3, 514}));
}

TEST(Place, AdvancesBeyondWhatItCanTell) {
  EXPECT_EQ(Place(Position{4'194'303, 500}).advancedBy(100), (Position{4'194'303, 600}));
}

}  // namespace
}  // namespace velto

#include "study/CardZoom.h"

#include <gtest/gtest.h>

namespace {

TEST(CardZoom, TheSmallestCardShowsTheFontAsItIs) {
  EXPECT_EQ(CardZoom(SmallestCardWidth, SmallestCardHeight), 1);
}

TEST(CardZoom, ACardThatGrowsBothWaysEnlargesItsTextInProportion) {
  EXPECT_FLOAT_EQ(CardZoom(SmallestCardWidth * 3 / 2, SmallestCardHeight * 3 / 2), 1.5F);
  EXPECT_FLOAT_EQ(CardZoom(SmallestCardWidth * 3, SmallestCardHeight * 3), 3);
}

TEST(CardZoom, AWideFlatCardIsLimitedByItsHeight) {
  EXPECT_FLOAT_EQ(CardZoom(SmallestCardWidth * 4, SmallestCardHeight * 2), 2);
}

TEST(CardZoom, ATallNarrowCardIsLimitedByItsWidth) {
  EXPECT_FLOAT_EQ(CardZoom(SmallestCardWidth * 2, SmallestCardHeight * 4), 2);
}

TEST(CardZoom, GrowsToFourTimesAndNoFurther) {
  EXPECT_FLOAT_EQ(CardZoom(SmallestCardWidth * 4, SmallestCardHeight * 4), 4);
  EXPECT_FLOAT_EQ(CardZoom(SmallestCardWidth * 9, SmallestCardHeight * 9), 4);
}

TEST(CardZoom, NeverMakesTheTextSmaller) {
  EXPECT_EQ(CardZoom(SmallestCardWidth / 2, SmallestCardHeight * 2), 1);
  EXPECT_EQ(CardZoom(0, 0), 1);
}

}  // namespace

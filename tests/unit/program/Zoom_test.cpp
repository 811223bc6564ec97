#include "program/Zoom.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

TEST(Zoom, GoesUpInStepsToFourTimesTheExactSizeAndDownToHalfOfIt) {
  std::vector<int> up{SmallestZoom};
  while (LargerZoom(up.back()) != up.back()) up.push_back(LargerZoom(up.back()));
  EXPECT_EQ(up, (std::vector{50, 75, 100, 125, 150, 175, 200, 250, 300, 350, 400}));
  std::vector<int> down{LargestZoom};
  while (SmallerZoom(down.back()) != down.back()) down.push_back(SmallerZoom(down.back()));
  EXPECT_EQ(std::vector(down.rbegin(), down.rend()), up);
}

TEST(Zoom, AValueBetweenTwoStepsGoesToTheNextOne) {
  EXPECT_EQ(LargerZoom(110), 125);
  EXPECT_EQ(SmallerZoom(110), 100);
  EXPECT_EQ(LargerZoom(999), LargestZoom);
  EXPECT_EQ(SmallerZoom(1), SmallestZoom);
}

TEST(Zoom, TheSmallestFontOpensEnlargedAndALargeOneAsItIs) {
  EXPECT_EQ(ReadableZoom(8.25F, 8.25F), 175);
  EXPECT_EQ(ReadableZoom(12, 12), 125);
  EXPECT_EQ(ReadableZoom(14, 14), 100);
  EXPECT_EQ(ReadableZoom(32, 32), 100);
}

TEST(Zoom, TheSmallerOfTwoSizesDecidesAndBothAreEnlargedAlike) {
  EXPECT_EQ(ReadableZoom(8.25F, 24), 175);
  EXPECT_EQ(ReadableZoom(24, 8.25F), 175);
}

TEST(Zoom, ATinySizeOpensAtTwiceItsSizeAndNoMore) {
  EXPECT_EQ(ReadableZoom(1, 1), 200);
  EXPECT_EQ(ReadableZoom(0, -5), 200);
}

}  // namespace

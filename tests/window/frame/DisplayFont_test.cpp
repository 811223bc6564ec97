#include "windows/frame/DisplayFont.h"

#include "settings/TopicSettings.h"
#include "tests/window/WindowFixture.h"

#include <gtest/gtest.h>

namespace {

TEST(DisplayFont, KeepsTheNameThoughNoSuchFontIsHere) {
  EXPECT_EQ(DisplayFont(u"No Such Font", 12).family(), "No Such Font");
  EXPECT_EQ(DisplayFont(DefaultFontName, 12).family(), "MS Sans Serif");
}

TEST(DisplayFont, KeepsEverySizeThatAFieldTakes) {
  for (const float size : {1.0F, 8.25F, 32.0F, 34.0F}) {
    EXPECT_EQ(DisplayFont(DefaultFontName, size).pointSizeF(), size);
  }
}

TEST(DisplayFont, DrawsUnheardOfSizesAsTheNearest) {
  EXPECT_EQ(DisplayFont(DefaultFontName, 1e9F).pointSizeF(), LargestDisplaySize);
  EXPECT_EQ(DisplayFont(DefaultFontName, 1e-9F).pointSizeF(), 1);
}

TEST(DisplayFont, EnlargesTheSizeThatItDraws) {
  EXPECT_EQ(DisplayFont(DefaultFontName, 10, 2.5F).pointSizeF(), 25);
  EXPECT_EQ(DisplayFont(DefaultFontName, 1e9F, 2).pointSizeF(), LargestDisplaySize * 2);
}

TEST(DisplayFont, AnEmptyNameIsTheDesktopsOwnFont) {
  EXPECT_EQ(DisplayFont(u"", 10).family(), QApplication::font().family());
}

}  // namespace

#include "windows/frame/Icons.h"

#include "tests/window/WindowFixture.h"
#include "windows/main/frmAboutBox.h"

namespace {

class IconsTest : public WindowTest {};

// Each icon object keeps the pictures that are drawn from it in the toolkit's store of 10 MiB, also
// when it is gone. A window with an icon of its own would fill the store a little at each opening.
TEST_F(IconsTest, AllWindowsHaveTheOneIconOfTheProgram) {
  frmAboutBox first(shared, platform, nullptr);
  frmAboutBox second(shared, platform, nullptr);
  ASSERT_FALSE(first.windowIcon().isNull());
  EXPECT_EQ(first.windowIcon().cacheKey(), QApplication::windowIcon().cacheKey());
  EXPECT_EQ(second.windowIcon().cacheKey(), first.windowIcon().cacheKey());
  EXPECT_EQ(Find<QLabel>(first, "imgIcon").pixmap().cacheKey(),
            Find<QLabel>(second, "imgIcon").pixmap().cacheKey());
}

}  // namespace

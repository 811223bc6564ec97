#include "windows/frame/KeptSize.h"

#include "tests/window/WindowFixture.h"

#include <QScreen>

namespace {

class KeptSizeTest : public WindowTest {
 protected:
  /// A window of 300 x 200 that keeps its size.
  std::unique_ptr<QWidget> Open() {
    auto window = std::make_unique<QWidget>();
    window->resize(300, 200);
    new KeptSize(window.get(), state, u"test");
    window->show();
    WaitUntilActive(*window);
    return window;
  }
};

TEST_F(KeptSizeTest, AWindowOpensAtTheSizeItWasGiven) {
  const auto first = Open();
  EXPECT_EQ(first->size(), QSize(300, 200));
  first->resize(400, 250);
  first->close();
  EXPECT_EQ(Open()->size(), QSize(400, 250));
}

TEST_F(KeptSizeTest, ASizeThatNobodyChangedIsNotKept) {
  Open()->close();
  EXPECT_FALSE(files.Has(StatePath));
}

TEST_F(KeptSizeTest, AWindowIsNeverLargerThanTheScreen) {
  state.KeepSize(u"test", {30000, 30000});
  const auto window = Open();
  EXPECT_EQ(window->size(), window->screen()->availableSize());
}

TEST_F(KeptSizeTest, AMaximisedWindowLeavesTheSizeItHadBefore) {
  const auto window = Open();
  window->resize(350, 220);
  window->showMaximized();
  ASSERT_TRUE(QTest::qWaitFor([&] { return window->isMaximized(); }));
  window->close();
  EXPECT_EQ(state.Size(u"test"), (WindowSize{350, 220}));
}

}  // namespace

#include "windows/frame/KeptSize.h"

#include "program/WindowPlacement.h"
#include "tests/window/WindowFixture.h"

#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

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
  ResizeByUser(*first, {400, 250});
  first->close();
  EXPECT_EQ(Open()->size(), QSize(400, 250));
}

TEST_F(KeptSizeTest, ASizeThatNobodyChangedIsNotKept) {
  Open()->close();
  EXPECT_FALSE(files.Has(StatePath));
}

TEST_F(KeptSizeTest, ASizeThatTheProgramOrTheScreenGaveIsNotKept) {
  state.KeepSize(u"test", {900, 700});
  {
    const auto window = Open();
    window->resize(400, 250);  // as a screen asks for that has no room for more
    window->close();
  }
  EXPECT_EQ(state.Size(u"test"), (WindowSize{900, 700}));
  {
    const auto window = std::make_unique<QWidget>();
    new KeptSize(window.get(), state, u"test");
    window->winId();
    window->windowHandle()->resize(420, 260);  // by the desktop, before anybody sees the window
    window->show();
    WaitUntilActive(*window);
    window->close();
  }
  EXPECT_EQ(state.Size(u"test"), (WindowSize{900, 700}));
}

TEST_F(KeptSizeTest, ASizeIsKeptThatFollowsOneFromTheScreen) {
  const auto window = Open();
  window->resize(400, 250);
  ResizeByUser(*window, {420, 260});
  window->close();
  EXPECT_EQ(state.Size(u"test"), (WindowSize{420, 260}));
}

TEST_F(KeptSizeTest, AWindowIsNeverLargerThanTheScreen) {
  state.KeepSize(u"test", {30000, 30000});
  const auto window = Open();
  const QRect screen = window->screen()->availableGeometry();
  EXPECT_TRUE(screen.contains(window->frameGeometry()));
  EXPECT_GT(window->width(), screen.width() / 2);
}

TEST_F(KeptSizeTest, AWindowIsCentredWhateverItsSize) {
  state.KeepSize(u"test", {411, 233});
  const auto window = Open();
  const QPoint off =
      window->frameGeometry().center() - window->screen()->availableGeometry().center();
  EXPECT_LE(off.manhattanLength(), UsualFrame.top) << off.x() << ',' << off.y();
}

TEST_F(KeptSizeTest, WhatTheContentsNeedIsNotKept) {
  auto window = std::make_unique<QWidget>();
  auto* const column = new QVBoxLayout(window.get());
  auto* const words = new QLabel(QStringLiteral("a"));
  column->addWidget(words);
  window->resize(300, 50);
  new KeptSize(window.get(), state, u"test");
  window->show();
  WaitUntilActive(*window);
  words->setMinimumHeight(200);
  ASSERT_TRUE(QTest::qWaitFor([&] { return window->height() >= 200; }));
  window->close();
  EXPECT_FALSE(files.Has(StatePath));
}

TEST_F(KeptSizeTest, AMaximisedWindowLeavesTheSizeItHadBefore) {
  const auto window = Open();
  ResizeByUser(*window, {350, 220});
  window->showMaximized();
  ASSERT_TRUE(QTest::qWaitFor([&] { return window->isMaximized(); }));
  window->close();
  EXPECT_EQ(state.Size(u"test"), (WindowSize{350, 220}));
}

}  // namespace

#include "tests/window/WindowFixture.h"
#include "windows/main/frmMain.h"

namespace {

class BeginnersHint : public WindowTest {
 protected:
  BeginnersHint() {
    files.Put(u"/cards/animals.QBC", "General\r\nAnimals\r\ndog  \r\nperro  \r\n");
  }

  frmMain& Open(const Text& commandLine) {
    main = std::make_unique<frmMain>(shared, platform, commandLine, nullptr);
    main->show();
    WaitUntilActive(*main);
    return *main;
  }

  bool IsShown() { return Find<QWidget>(*main, "lblHint").isVisible(); }

  std::unique_ptr<frmMain> main;
};

TEST_F(BeginnersHint, IsShownWhileNoStackIsLoaded) {
  Open(u"");
  EXPECT_TRUE(IsShown());
}

TEST_F(BeginnersHint, NamesTheCommandsToBeginWith) {
  const QString hint = TextOf(Open(u""), "lblHint");
  EXPECT_TRUE(hint.contains("Load"));
  EXPECT_TRUE(hint.contains("Create"));
}

TEST_F(BeginnersHint, IsGoneWhenAStackIsLoaded) {
  Open(u"animals.QBC");
  EXPECT_FALSE(IsShown());
}

TEST_F(BeginnersHint, ComesBackWithTheLastStackRemovedAndTheWindowStays) {
  frmMain& window = Open(u"animals.QBC");
  const QRect before = window.geometry();
  Find<QAction>(window, "mnuRemove").trigger();
  EXPECT_TRUE(IsShown());
  QApplication::processEvents();
  EXPECT_EQ(window.geometry(), before);
  EXPECT_TRUE(Find<QWidget>(window, "lblHint").geometry().bottom() < window.height());
}

TEST_F(BeginnersHint, LeavesAWindowAsHighAsTheUserMadeIt) {
  frmMain& window = Open(u"animals.QBC");
  window.resize(window.width(), 600);
  Find<QAction>(window, "mnuRemove").trigger();
  EXPECT_EQ(window.height(), 600);
}

}  // namespace

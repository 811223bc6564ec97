#include "windows/frame/FitScreen.h"

#include "tests/window/WindowFixture.h"

#include <QDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

class FittedWindow : public QDialog {
  void showEvent(QShowEvent* event) override {
    QDialog::showEvent(event);
    FitOnScreen(*this);
  }
};

/// A window with a menu bar, a column of fields and a row of two buttons.
class FitScreenTest : public testing::Test {
 protected:
  void Build(int fields, int fieldHeight = 40) {
    auto* const column = new QVBoxLayout(&window);
    column->setMenuBar(new QMenuBar(&window));
    column->menuBar()->setObjectName("bar");
    static_cast<QMenuBar*>(column->menuBar())->addAction("&Help");
    for (int i = 0; i < fields; ++i) {
      auto* const field = new QLineEdit(&window);
      field->setObjectName(QStringLiteral("field%1").arg(i));
      field->setMinimumHeight(fieldHeight);
      column->addWidget(field);
    }
    auto* const row = new QHBoxLayout;
    row->addStretch();
    for (const char* const name : {"ok", "cancel"}) {
      auto* const button = new QPushButton(QString::fromLatin1(name), &window);
      button->setObjectName(QString::fromLatin1(name));
      row->addWidget(button);
    }
    column->addLayout(row);
  }

  void Show() {
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  QScrollArea* Area() { return window.findChild<QScrollArea*>(); }

  QWidget& Control(const char* name) {
    return *window.findChild<QWidget*>(QString::fromLatin1(name));
  }

  /// True when the whole control can be seen in the window.
  bool InSight(const char* name) {
    const QWidget& control = Control(name);
    return control.visibleRegion().boundingRect() == control.rect();
  }

  FittedWindow window;
  const QRect screen = window.screen()->availableGeometry();
};

TEST_F(FitScreenTest, LeavesAWindowThatFitsAsItIs) {
  Build(3);
  window.adjustSize();
  const QSize size = window.size();
  Show();
  EXPECT_EQ(Area(), nullptr);
  EXPECT_EQ(window.size(), size);
  EXPECT_TRUE(screen.contains(window.frameGeometry()));
}

TEST_F(FitScreenTest, CutsAWindowThatIsLargerThanItHasToBe) {
  Build(3);
  window.resize(5000, 5000);
  Show();
  EXPECT_EQ(Area(), nullptr);
  EXPECT_TRUE(screen.contains(window.frameGeometry()));
}

TEST_F(FitScreenTest, ScrollsWhatTheScreenHasNoRoomFor) {
  Build(60);
  Show();
  ASSERT_NE(Area(), nullptr);
  EXPECT_TRUE(screen.contains(window.frameGeometry()));
  EXPECT_TRUE(Area()->verticalScrollBar()->maximum() > 0);
  EXPECT_EQ(Area()->horizontalScrollBar()->maximum(), 0);
  EXPECT_TRUE(InSight("field0"));
  EXPECT_FALSE(InSight("field59"));
}

TEST_F(FitScreenTest, KeepsMenusAndTheLastButtonsInSight) {
  Build(60);
  Show();
  for (const char* const name : {"bar", "ok", "cancel"}) EXPECT_TRUE(InSight(name)) << name;
}

TEST_F(FitScreenTest, ScrollsToTheControlThatGetsTheFocus) {
  Build(60);
  Show();
  Control("field59").setFocus();
  EXPECT_TRUE(InSight("field59"));
  Control("field0").setFocus();
  EXPECT_TRUE(InSight("field0"));
}

TEST_F(FitScreenTest, KeepsTheTabOrder) {
  Build(30);
  Show();
  ASSERT_NE(Area(), nullptr);
  Control("field0").setFocus();
  for (int i = 1; i < 30; ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QStringLiteral("field%1").arg(i));
  }
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(QApplication::focusWidget()->objectName(), "ok");
}

TEST_F(FitScreenTest, ScrollsAShownWindowThatHasGrown) {
  Build(3);
  Show();
  Control("field1").setMinimumHeight(2000);
  window.layout()->activate();
  KeepOnScreen(window);
  ASSERT_NE(Area(), nullptr);
  EXPECT_TRUE(screen.contains(window.frameGeometry()));
}

TEST_F(FitScreenTest, ScrollsAWindowOfFixedSizeToo) {
  Build(60);
  window.layout()->setSizeConstraint(QLayout::SetFixedSize);
  Show();
  EXPECT_TRUE(screen.contains(window.frameGeometry()));
  EXPECT_TRUE(InSight("ok"));
}

}  // namespace

#include "tests/window/WindowFixture.h"
#include "windows/frame/Form.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>

namespace {

/// A button, a box, two options and a button, side by side; it counts the arrows that come to it.
class ArrowWindow : public Form {
 public:
  ArrowWindow(SharedState& shared, Platform& platform)
      : Form("ArrowWindow", shared, platform, nullptr) {
    int left = 0;
    for (QWidget* const control :
         {static_cast<QWidget*>(Add<QPushButton>(QStringLiteral("first"))),
          static_cast<QWidget*>(Add<QCheckBox>(QStringLiteral("box"))),
          static_cast<QWidget*>(Add<QRadioButton>(QStringLiteral("one"))),
          static_cast<QWidget*>(Add<QRadioButton>(QStringLiteral("other"))),
          static_cast<QWidget*>(Add<QPushButton>(QStringLiteral("last")))}) {
      control->setGeometry(left, 0, 60, 30);
      left += 60;
    }
  }
  int arrows = 0;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    ++arrows;
    Form::keyPressEvent(event);
  }
};

class ArrowKeysTest : public WindowTest {
 protected:
  ArrowKeysTest() {
    window.show();
    WaitUntilActive(window);
  }
  QString FocusAfter(const char* control, Qt::Key key) {
    Find<QWidget>(window, control).setFocus();
    QTest::keyClick(window.focusWidget(), key);
    return window.focusWidget()->objectName();
  }
  ArrowWindow window{shared, platform};
};

constexpr std::array Arrows = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down};

TEST_F(ArrowKeysTest, LeaveTheFocusOnAButtonAndComeToTheWindow) {
  for (const Qt::Key key : Arrows) {
    for (const char* const name : {"first", "box", "last"}) {
      EXPECT_EQ(FocusAfter(name, key), name);
    }
  }
  EXPECT_EQ(window.arrows, 12);
}

TEST_F(ArrowKeysTest, ChooseAmongOptions) {
  Click(window, "one");
  EXPECT_EQ(FocusAfter("one", Qt::Key_Right), "other");
  EXPECT_TRUE(Find<QRadioButton>(window, "other").isChecked());
  EXPECT_EQ(FocusAfter("other", Qt::Key_Left), "one");
}

}  // namespace

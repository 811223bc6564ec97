#include "tests/window/WindowFixture.h"
#include "windows/frame/Form.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

bool IsEnter(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const int key = static_cast<const QKeyEvent&>(event).key();
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// A control as it is on a desktop where Enter presses buttons: it takes the key, and is clicked by
/// it if it is a button.
template <class Control>
class Eager : public Control {
 public:
  using Control::Control;

 protected:
  bool event(QEvent* event) override {
    if (!IsEnter(*event)) return Control::event(event);
    event->accept();
    if constexpr (std::is_base_of_v<QAbstractButton, Control>) this->click();
    return true;
  }
};

/// Two push buttons, of which the first is OK, and what stands in and beside a group box.
class EagerWindow : public Form {
 public:
  EagerWindow(SharedState& shared, Platform& platform)
      : Form("EagerWindow", shared, platform, nullptr),
        ok(Add<Eager<QPushButton>>(QStringLiteral("ok"))),
        other(Add<Eager<QPushButton>>(QStringLiteral("other"))),
        check(Add<Eager<QCheckBox>>(QStringLiteral("check"))),
        group(Add<Eager<QGroupBox>>(QStringLiteral("group"))),
        inside(new QLineEdit(group)),
        option(new Eager<QRadioButton>(group)) {
    SetOkButton(ok);
    auto* const rows = new QVBoxLayout(this);
    for (QWidget* const control : {static_cast<QWidget*>(ok), static_cast<QWidget*>(other),
                                   static_cast<QWidget*>(check), static_cast<QWidget*>(group)}) {
      rows->addWidget(control);
    }
    auto* const column = new QVBoxLayout(group);
    column->addWidget(inside);
    column->addWidget(option);
    connect(ok, &QPushButton::clicked, this, [this] { ++okClicks; });
    connect(other, &QPushButton::clicked, this, [this] { ++otherClicks; });
  }

  QPushButton* ok;
  QPushButton* other;
  QCheckBox* check;
  QGroupBox* group;
  QLineEdit* inside;
  QRadioButton* option;
  int okClicks = 0;
  int otherClicks = 0;
};

class EnterKeyTest : public WindowTest {
 protected:
  EnterKeyTest() {
    window.show();
    WaitUntilActive(window);
  }
  void Press(QWidget* control, Qt::Key key, Qt::KeyboardModifiers held = {}) {
    control->setFocus();
    ASSERT_EQ(QApplication::focusWidget(), control);
    QTest::keyClick(control, key, held);
  }
  EagerWindow window{shared, platform};
};

TEST_F(EnterKeyTest, MeansOkInEveryControlThatIsNoPushButton) {
  int presses = 0;
  for (QWidget* const control :
       {static_cast<QWidget*>(window.check), static_cast<QWidget*>(window.inside),
        static_cast<QWidget*>(window.option)}) {
    for (const auto& [key, held] : {std::pair(Qt::Key_Return, Qt::KeyboardModifiers()),
                                    {Qt::Key_Enter, Qt::KeypadModifier}}) {
      Press(control, key, held);
      EXPECT_EQ(window.okClicks, ++presses);
    }
  }
  EXPECT_FALSE(window.check->isChecked());
  EXPECT_FALSE(window.option->isChecked());
}

TEST_F(EnterKeyTest, PressesAPushButtonOnce) {
  Press(window.other, Qt::Key_Return);
  EXPECT_EQ(window.otherClicks, 1);
  Press(window.ok, Qt::Key_Return);
  EXPECT_EQ(window.okClicks, 1);
  EXPECT_EQ(window.otherClicks, 1);
}

TEST_F(EnterKeyTest, LeavesSpaceToTheControl) {
  Press(window.check, Qt::Key_Space);
  EXPECT_TRUE(window.check->isChecked());
  Press(window.option, Qt::Key_Space);
  EXPECT_TRUE(window.option->isChecked());
  EXPECT_EQ(window.okClicks, 0);
}

}  // namespace

#include "tests/window/WindowFixture.h"
#include "windows/study/frmTime.h"

#include <QAccessible>
#include <QCheckBox>
#include <QRadioButton>

namespace {

class AccessibleOptionsTest : public WindowTest {
 protected:
  static QAccessibleInterface& Of(QWidget& option) {
    return *QAccessible::queryAccessibleInterface(&option);
  }
  static void Toggle(QWidget& option) {
    Of(option).actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  }

  frmTime window{shared, platform, nullptr};
};

}  // namespace

TEST_F(AccessibleOptionsTest, TurningOneActsAsAClick) {
  window.show();
  WaitUntilActive(window);
  Toggle(Find<QRadioButton>(window, "o1000msecs"));
  EXPECT_EQ(shared.Timer.TimerInterval, 1000);
  auto& box = Find<QCheckBox>(window, "PlaySound");
  const bool before = box.isChecked();
  Toggle(box);
  EXPECT_NE(box.isChecked(), before);
}

TEST_F(AccessibleOptionsTest, SaysCaptionKeyAndState) {
  window.show();
  WaitUntilActive(window);
  auto& option = Find<QRadioButton>(window, "o1000msecs");
  EXPECT_EQ(Of(option).text(QAccessible::Name), "1 Second");
  EXPECT_EQ(Of(option).text(QAccessible::Accelerator), "Alt+1");
  EXPECT_EQ(Of(option).role(), QAccessible::RadioButton);
  EXPECT_TRUE(Of(option).state().checkable);
  EXPECT_FALSE(Of(option).state().checked);
  Toggle(option);
  EXPECT_TRUE(Of(option).state().checked);
  EXPECT_EQ(Of(Find<QCheckBox>(window, "PlaySound")).role(), QAccessible::CheckBox);
}

TEST_F(AccessibleOptionsTest, DisabledOneCannotBeTurned) {
  window.show();
  WaitUntilActive(window);
  auto& box = Find<QCheckBox>(window, "PlaySound");
  box.setEnabled(false);
  EXPECT_FALSE(Of(box).actionInterface()->actionNames().contains(
      QAccessibleActionInterface::toggleAction()));
  const bool before = box.isChecked();
  Toggle(box);
  EXPECT_EQ(box.isChecked(), before);
}

#include "authoring/frmEdit.h"
#include "authoring/frmFind.h"
#include "tests/window/study/StudyFixture.h"

#include <QCheckBox>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>

namespace {

/// Some captions share a mnemonic, as they are given; none of them may be out of the keyboard's
/// reach.
class SharedKeysTest : public StudyWindowTest {
 protected:
  /// What a key with Alt comes to: the menu that opens, which is closed again, else the control
  /// that has the focus then.
  static QString Press(QWidget& window, Qt::Key letter) {
    QTest::keyClick(window.focusWidget(), letter, Qt::AltModifier);
    return WhereItIs(window);
  }

  static QString WhereItIs(QWidget& window) {
    QWidget* const menu = QApplication::activePopupWidget();
    if (menu == nullptr) return window.focusWidget()->objectName();
    QTest::keyClick(menu, Qt::Key_Escape);
    auto& bar = *window.findChild<QMenuBar*>();
    if (bar.hasFocus()) QTest::keyClick(&bar, Qt::Key_Escape);
    return menu->objectName();
  }
};

}  // namespace

TEST_F(SharedKeysTest, EditKeyComesToButtonAndMenuInTurn) {
  LoadStack(u"Verbs", 5);
  frmFind find(shared, platform, nullptr);
  frmEdit window(shared, platform, nullptr, find);
  window.show();
  WaitUntilActive(window);
  for (const char* const from : {"sspListBox", "txtFront", "cmdEnd"}) {
    SCOPED_TRACE(from);
    Find<QWidget>(window, from).setFocus();
    EXPECT_EQ(Press(window, Qt::Key_E), "cmdEdit");
    EXPECT_EQ(Press(window, Qt::Key_E), "mnuEdit");
  }
}

TEST_F(SharedKeysTest, FindKeyTurnsTheCheckBoxWhileItsMenuCannotBeOpened) {
  LoadStack(u"Verbs", 5);
  frmFind window(shared, platform, nullptr);
  window.show();
  WaitUntilActive(window);
  for (const auto& [key, name] : {std::pair{Qt::Key_F, "sscFront"}, {Qt::Key_B, "sscBack"}}) {
    SCOPED_TRACE(name);
    const auto& box = Find<QCheckBox>(window, name);
    Find<QWidget>(window, "cmdOK").setFocus();
    EXPECT_EQ(Press(window, key), name);
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(Press(window, key), name);
    EXPECT_TRUE(box.isChecked());
  }
}

TEST_F(SharedKeysTest, FindFieldsMenusOpenThroughTheMenuBar) {
  LoadStack(u"Verbs", 5);
  frmFind window(shared, platform, nullptr);
  window.show();
  WaitUntilActive(window);
  Find<QWidget>(window, "cmdOK").setFocus();
  Find<QWidget>(window, "txtFind").setFocus();
  auto& bar = *window.findChild<QMenuBar*>();
  QTest::keyClick(&window, Qt::Key_Alt);
  ASSERT_TRUE(bar.hasFocus());
  QTest::keyClick(&bar, Qt::Key_Down);
  EXPECT_EQ(WhereItIs(window), "mnuFKeys");
}

TEST_F(SharedKeysTest, SpellersKeyOpensTheMenuWhileTypingAndTurnsTheCardAfterwards) {
  frmStepper& window = Open(2, {1, 2}, StudyMode::Speller);
  Next(window);
  ASSERT_EQ(WhereItIs(window), "txtSpell");
  EXPECT_EQ(Press(window, Qt::Key_B), "mnuBKeys");
  Find<QWidget>(window, "txtSpell").setFocus();
  Next(window);
  EXPECT_EQ(Press(window, Qt::Key_B), "cmdNext");
  EXPECT_TRUE(Find<QRadioButton>(window, "ssoBack").isChecked());
  EXPECT_EQ(Press(window, Qt::Key_F), "cmdNext");
  EXPECT_TRUE(Find<QRadioButton>(window, "ssoFront").isChecked());
}

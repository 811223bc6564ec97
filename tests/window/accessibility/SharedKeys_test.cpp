#include "tests/window/study/StudyFixture.h"
#include "windows/authoring/frmCreate.h"
#include "windows/authoring/frmEdit.h"
#include "windows/authoring/frmFind.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
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

TEST_F(SharedKeysTest, EditKeyOpensTheMenuAtOnceAndLeavesTheFocus) {
  LoadStack(u"Verbs", 5);
  frmFind find(shared, platform, nullptr);
  frmEdit window(shared, platform, nullptr, find);
  window.show();
  WaitUntilActive(window);
  for (const char* const from : {"sspListBox", "txtFront", "txtBackWave", "cmdEnd"}) {
    SCOPED_TRACE(from);
    Find<QWidget>(window, from).setFocus();
    for (int press = 0; press < 3; ++press) {
      EXPECT_EQ(Press(window, Qt::Key_E), "mnuEdit");
      EXPECT_EQ(window.focusWidget()->objectName(), from);
    }
  }
}

TEST_F(SharedKeysTest, EditKeyKeepsWhatIsSelectedForTheMenu) {
  LoadStack(u"Verbs", 5);
  frmFind find(shared, platform, nullptr);
  frmEdit window(shared, platform, nullptr, find);
  window.show();
  WaitUntilActive(window);
  QTest::keyClick(&Find<QWidget>(window, "sspListBox"), Qt::Key_Down);
  for (const auto& [field, text] : {std::pair{"txtFront", "front 1"}, {"txtBackWave", "x.wav"}}) {
    SCOPED_TRACE(field);
    auto& box = Find<QWidget>(window, field);
    box.setFocus();
    if (box.inherits("QLineEdit")) QTest::keyClicks(&box, text);
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&box, Qt::Key_E, Qt::AltModifier);
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(Find<QAction>(window, "mnuCut").isEnabled());
    QTest::keyClick(menu, Qt::Key_T);
    EXPECT_EQ(QApplication::clipboard()->text(), text);
    EXPECT_TRUE(box.hasFocus());
  }
}

TEST_F(SharedKeysTest, OneEscapeLeavesAMenuForTheField) {
  LoadStack(u"Verbs", 5);
  frmCreate window(shared, platform, nullptr);
  window.show();
  WaitUntilActive(window);
  auto& box = Find<QPlainTextEdit>(window, "txtFront");
  for (const Qt::Key letter : {Qt::Key_V, Qt::Key_E, Qt::Key_F}) {
    box.clear();
    QTest::keyClick(&box, letter, Qt::AltModifier);
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(menu, Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_TRUE(box.hasFocus());
    QTest::keyClicks(window.focusWidget(), "ab");
    EXPECT_EQ(box.toPlainText(), "ab");
  }
}

TEST_F(SharedKeysTest, OneEscapeAlsoLeavesAMenuThatWasOpenedThroughTheBar) {
  LoadStack(u"Verbs", 5);
  frmCreate window(shared, platform, nullptr);
  window.show();
  WaitUntilActive(window);
  auto& bar = *window.findChild<QMenuBar*>();
  QTest::keyClick(&window, Qt::Key_Alt);
  ASSERT_TRUE(bar.hasFocus());
  QTest::keyClick(&bar, Qt::Key_Down);
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
  EXPECT_EQ(bar.activeAction(), nullptr);
  EXPECT_TRUE(Find<QPlainTextEdit>(window, "txtFront").hasFocus());
}

TEST_F(SharedKeysTest, TheKeyOfAMenuThatCannotBeOpenedDoesNothing) {
  LoadStack(u"Verbs", 5);
  frmCreate window(shared, platform, nullptr);
  window.show();
  WaitUntilActive(window);
  auto& box = Find<QPlainTextEdit>(window, "txtFront");
  QTest::keyClick(&box, Qt::Key_B, Qt::AltModifier);  // of the other side's field
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  EXPECT_EQ(window.findChild<QMenuBar*>()->activeAction(), nullptr);
  EXPECT_TRUE(box.hasFocus());
  QTest::keyClicks(window.focusWidget(), "ab");
  EXPECT_EQ(box.toPlainText(), "ab");
}

TEST_F(SharedKeysTest, FindKeysOpenTheMenusWhileTypingAndTurnNoBox) {
  LoadStack(u"Verbs", 5);
  frmFind window(shared, platform, nullptr);
  window.show();
  WaitUntilActive(window);
  auto& field = Find<QLineEdit>(window, "txtFind");
  field.setText("dog");
  field.setFocus();
  field.selectAll();
  for (const auto& [key, menu] : {std::pair{Qt::Key_F, "mnuFKeys"}, {Qt::Key_B, "mnuBKeys"}}) {
    for (int press = 0; press < 2; ++press) EXPECT_EQ(Press(window, key), menu);
  }
  EXPECT_TRUE(Find<QCheckBox>(window, "sscFront").isChecked());
  EXPECT_TRUE(Find<QCheckBox>(window, "sscBack").isChecked());
  EXPECT_TRUE(field.hasFocus());
  EXPECT_EQ(field.selectedText(), "dog");
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
  QTest::keyClick(&bar, Qt::Key_Right);  // past View
  QTest::keyClick(&bar, Qt::Key_Down);
  EXPECT_EQ(WhereItIs(window), "mnuFKeys");
}

TEST_F(SharedKeysTest, SpellersKeyOpensTheMenuWhileTypingAndTurnsTheCardAfterwards) {
  frmStepper& window = Open(2, {1, 2}, StudyMode::Speller);
  Next(window);
  ASSERT_EQ(WhereItIs(window), "txtSpell");
  for (int press = 0; press < 2; ++press) {
    EXPECT_EQ(Press(window, Qt::Key_B), "mnuBKeys");
    EXPECT_EQ(window.focusWidget()->objectName(), "txtSpell");
  }
  Next(window);
  EXPECT_EQ(Press(window, Qt::Key_B), "cmdNext");
  EXPECT_TRUE(Find<QRadioButton>(window, "ssoBack").isChecked());
  EXPECT_EQ(Press(window, Qt::Key_F), "cmdNext");
  EXPECT_TRUE(Find<QRadioButton>(window, "ssoFront").isChecked());
}

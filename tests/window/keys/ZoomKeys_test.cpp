#include "windows/keys/ZoomKeys.h"

#include "program/Zoom.h"
#include "tests/window/WindowFixture.h"
#include "windows/keys/CardField.h"

#include <QLineEdit>
#include <QMenuBar>
#include <QSignalSpy>
#include <QVBoxLayout>

namespace {

/// A window with a card text field and the menu View.
class ZoomKeysTest : public WindowTest {
 protected:
  void SetUp() override {
    auto* const column = new QVBoxLayout(&window);
    column->setMenuBar(bar);
    column->addWidget(field);
    window.show();
    field->setFocus();
    WaitUntilActive(window);
  }

  void Press(int key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    QTest::keyClick(field, static_cast<Qt::Key>(key), modifiers);
  }

  KeyTable keys;
  QWidget window;
  QMenuBar* bar = new QMenuBar(&window);
  QLineEdit* field = new QLineEdit(&window);
  CardField* card = new CardField(field, keys);
  ZoomKeys* zoom = new ZoomKeys(bar, state, u"test", 175);
  QSignalSpy changes{zoom, &ZoomKeys::Changed};
};

TEST_F(ZoomKeysTest, OpensAtTheGivenFactor) {
  EXPECT_EQ(zoom->Percent(), 175);
  EXPECT_FLOAT_EQ(zoom->Factor(), 1.75F);
  EXPECT_FALSE(files.Has(StatePath));
}

TEST_F(ZoomKeysTest, PlusMinusAndZeroChangeIt) {
  Press(Qt::Key_Plus);
  EXPECT_EQ(zoom->Percent(), 200);
  Press(Qt::Key_Minus);
  Press(Qt::Key_Minus);
  EXPECT_EQ(zoom->Percent(), 150);
  Press(Qt::Key_0);
  EXPECT_EQ(zoom->Percent(), ExactZoom);
  Press(Qt::Key_0);
  EXPECT_EQ(changes.count(), 4);
  EXPECT_EQ(field->text(), "");
}

TEST_F(ZoomKeysTest, PlusIsFoundBesideEqualsAndOnTheKeypad) {
  Press(Qt::Key_Equal);
  EXPECT_EQ(zoom->Percent(), 200);
  Press(Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(zoom->Percent(), 250);
  Press(Qt::Key_Minus, Qt::ControlModifier | Qt::KeypadModifier);
  EXPECT_EQ(zoom->Percent(), 200);
}

TEST_F(ZoomKeysTest, ZeroIsFoundByItsPlaceWhereTheLayoutPrintsALetterThere) {
  constexpr quint32 PlaceOfZero = 19;  // as X11 and Wayland report it
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Agrave, Qt::ControlModifier, PlaceOfZero, 0, 0,
                  QStringLiteral("\u00E0"));
  QApplication::sendEvent(field, &press);
  EXPECT_EQ(zoom->Percent(), ExactZoom);
  EXPECT_EQ(field->text(), "");
}

TEST_F(ZoomKeysTest, TheChoiceIsRememberedUnderItsName) {
  Press(Qt::Key_Plus);
  QMenuBar other;
  EXPECT_EQ(ZoomKeys(&other, state, u"test", 100).Percent(), 200);
  EXPECT_EQ(ZoomKeys(&other, state, u"elsewhere", 100).Percent(), 100);
}

TEST_F(ZoomKeysTest, AnAssignedKeystrokeOfTheTopicComesFirst) {
  keys.KeyCount = 1;
  keys.Slots[1] = {BothSidesMark, CharCode{'2'}, CharCode{189}, CharCode{0xE9}};  // Ctrl+-
  Press(Qt::Key_Minus);
  EXPECT_EQ(zoom->Percent(), 175);
  EXPECT_EQ(field->text(), QStringLiteral("\u00E9"));
  Press(Qt::Key_0);
  EXPECT_EQ(zoom->Percent(), ExactZoom);
}

TEST_F(ZoomKeysTest, TheMenuNamesTheKeysAndEndsAtTheLimits) {
  auto& larger = Find<QAction>(window, "mnuLarger");
  auto& smaller = Find<QAction>(window, "mnuSmaller");
  EXPECT_EQ(larger.shortcut().toString(), "Ctrl++");
  EXPECT_EQ(smaller.shortcut().toString(), "Ctrl+-");
  EXPECT_EQ(Find<QAction>(window, "mnuExactSize").shortcut().toString(), "Ctrl+0");
  while (larger.isEnabled()) larger.trigger();
  EXPECT_EQ(zoom->Percent(), LargestZoom);
  while (smaller.isEnabled()) smaller.trigger();
  EXPECT_EQ(zoom->Percent(), SmallestZoom);
}

}  // namespace

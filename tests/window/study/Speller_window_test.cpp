#include "tests/window/study/StudyFixture.h"

#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>

namespace {

class SpellerWindow : public StudyWindowTest {
 protected:
  frmStepper& OpenSpeller(int cards, std::vector<int> draws) {
    return Open(cards, std::move(draws), StudyMode::Speller);
  }

  static QLineEdit& Field(frmStepper& window) { return Find<QLineEdit>(window, "txtSpell"); }
  static void Type(frmStepper& window, const QString& text) {
    QTest::keyClicks(&Field(window), text);
  }
  static bool Shows(frmStepper& window, const char* name) {
    return Find<QWidget>(window, name).isVisible();
  }

  /// é on Ctrl+E for the front, ñ on Ctrl+Alt+N for both sides.
  void AssignKeys() {
    shared.Topic.Keys.KeyCount = 2;
    shared.Topic.Keys.Slots[1] = {FrontSideMark, CharCode{'2'}, CharCode{'E'}, CharCode{0xE9}};
    shared.Topic.Keys.Slots[2] = {BothSidesMark, CharCode{'6'}, CharCode{'N'}, CharCode{0xF1}};
  }
};

TEST_F(SpellerWindow, HasItsTitleCaptionsAndControls) {
  frmStepper& window = OpenSpeller(2, {});
  EXPECT_EQ(window.windowTitle(), "Speller - Verbs (Spanish)");
  EXPECT_EQ(Find<QAbstractButton>(window, "cmdNext").text(), "Next");
  EXPECT_EQ(Find<QAbstractButton>(window, "cmdRedo").text(), "Redo");
  EXPECT_EQ(Find<QAbstractButton>(window, "cmdQuit").text(), "Quit");
  EXPECT_TRUE(Shows(window, "txtSpell"));
  EXPECT_FALSE(Shows(window, "optChoice(0)"));
  EXPECT_EQ(TextOf(window, "lblRight"), "0");
  EXPECT_EQ(TextOf(window, "lblWrong"), "0");
}

TEST_F(SpellerWindow, ANewQuestionPutsTheFocusIntoTheEmptyAnswerField) {
  frmStepper& window = OpenSpeller(2, {2});
  Field(window).setText("left over");
  Next(window);
  EXPECT_EQ(TextOf(window, "lblTop"), "front 2");
  EXPECT_EQ(Field(window).text(), "");
  EXPECT_TRUE(Field(window).hasFocus());
}

TEST_F(SpellerWindow, ARightAnswerIsMarkedCountedAndShownInItsOwnLetterCase) {
  frmStepper& window = OpenSpeller(2, {2});
  Next(window);
  Type(window, "BACK 2 ");
  Next(window);
  EXPECT_EQ(TextOf(window, "lblSpellAnswer"), "back 2");
  EXPECT_EQ(TextOf(window, "lblBottom"), "back 2");
  EXPECT_EQ(TextOf(window, "lblRight"), "1");
  EXPECT_EQ(TextOf(window, "lblWrong"), "0");
  EXPECT_TRUE(Shows(window, "imgPicture(4)"));
  EXPECT_FALSE(Shows(window, "imgPicture(5)"));
  EXPECT_TRUE(Find<QWidget>(window, "cmdNext").hasFocus());
  EXPECT_TRUE(IsEnabled(window, "cmdRedo"));
}

TEST_F(SpellerWindow, NothingTypedIsWrong) {
  frmStepper& window = OpenSpeller(2, {1});
  Next(window, 2);
  EXPECT_EQ(TextOf(window, "lblWrong"), "1");
  EXPECT_TRUE(Shows(window, "imgPicture(5)"));
  EXPECT_EQ(TextOf(window, "lblSpellAnswer"), "back 1");
}

TEST_F(SpellerWindow, TheNextQuestionHidesTheVerdict) {
  frmStepper& window = OpenSpeller(2, {1, 2});
  Next(window, 3);
  EXPECT_FALSE(Shows(window, "imgPicture(4)"));
  EXPECT_FALSE(Shows(window, "imgPicture(5)"));
  EXPECT_EQ(TextOf(window, "lblSpellAnswer"), "");
  EXPECT_EQ(TextOf(window, "lblBottom"), "");
}

TEST_F(SpellerWindow, AWholeCardGoesWithoutTheMouse) {
  frmStepper& window = OpenSpeller(2, {1, 2});
  QTest::keyClick(window.focusWidget(), Qt::Key_Space);
  QTest::keyClicks(window.focusWidget(), "back 1");
  QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
  QTest::keyClick(window.focusWidget(), Qt::Key_Return);
  EXPECT_EQ(TextOf(window, "lblRight"), "1");
  QTest::keyClick(window.focusWidget(), Qt::Key_Return);
  EXPECT_EQ(TextOf(window, "lblTop"), "front 2");
  EXPECT_TRUE(Field(window).hasFocus());
}

TEST_F(SpellerWindow, EnterInTheFieldCarriesOutNextAndTypesNothing) {
  frmStepper& window = OpenSpeller(2, {1, 2});
  Next(window);
  Type(window, "back 1");
  QTest::keyClick(&Field(window), Qt::Key_Return);
  EXPECT_EQ(Field(window).text(), "back 1");
  EXPECT_EQ(TextOf(window, "lblRight"), "1");
  QTest::keyClick(window.focusWidget(), Qt::Key_Return);
  EXPECT_TRUE(Field(window).hasFocus());
  Type(window, "back 2");
  QTest::keyClick(&Field(window), Qt::Key_Enter, Qt::KeypadModifier);
  EXPECT_EQ(TextOf(window, "lblRight"), "2");
}

TEST_F(SpellerWindow, EnterHeldDownChecksOneAnswer) {
  frmStepper& window = OpenSpeller(2, {1, 2});
  Next(window);
  for (const bool again : {false, true, true, true}) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, {}, QStringLiteral("\r"), again);
    QApplication::sendEvent(window.focusWidget(), &press);
  }
  EXPECT_EQ(TextOf(window, "lblWrong"), "1");
  EXPECT_EQ(TextOf(window, "lblTop"), "front 1");
}

TEST_F(SpellerWindow, AnAssignmentToEnterComesBeforeNext) {
  shared.Topic.Keys.KeyCount = 1;
  shared.Topic.Keys.Slots[1] = {BothSidesMark, CharCode{'2'}, CharCode{13}, CharCode{0xE9}};
  frmStepper& window = OpenSpeller(1, {1});
  Next(window);
  QTest::keyClick(&Field(window), Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(Field(window).text(), QStringLiteral("\u00E9"));
  EXPECT_EQ(TextOf(window, "lblWrong"), "0");
}

TEST_F(SpellerWindow, EscapeDoesNothing) {
  frmStepper& window = OpenSpeller(1, {1});
  Next(window);
  Type(window, "ba");
  QTest::keyClick(&Field(window), Qt::Key_Escape);
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(Field(window).text(), "ba");
  EXPECT_TRUE(Field(window).hasFocus());
}

TEST_F(SpellerWindow, UndoDoesNotBringTheLastAnswerBack) {
  frmStepper& window = OpenSpeller(2, {1, 2});
  Next(window);
  Type(window, "back 1");
  Next(window, 2);
  QTest::keyClick(&Field(window), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(Field(window).text(), "");
}

TEST_F(SpellerWindow, APastedAnswerEndsAtItsLineBreak) {
  LoadStack(u"House", 1).SetSideText(1, Back, u"casa");
  frmStepper& window = OpenOnCurrent({1}, StudyMode::Speller);
  Next(window);
  QApplication::clipboard()->setText(QStringLiteral("casa\r\n"));
  QTest::keyClick(&Field(window), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(Field(window).text(), "casa");
  Next(window);
  EXPECT_EQ(TextOf(window, "lblRight"), "1");
}

TEST_F(SpellerWindow, TheBlanksThatAStackFilePadsWithAreNoPartOfTheAnswer) {
  LoadStack(u"House", 1).SetSideText(1, Back, u"casa  ");
  frmStepper& window = OpenOnCurrent({1}, StudyMode::Speller);
  Next(window);
  Type(window, "casa");
  Next(window);
  EXPECT_EQ(TextOf(window, "lblRight"), "1");
  EXPECT_EQ(TextOf(window, "lblSpellAnswer"), "casa");
  EXPECT_EQ(TextOf(window, "lblBottom"), "casa");
}

TEST_F(SpellerWindow, NothingMovesAtTheCheck) {
  for (const Text& answer : {Text(u"casa"), Text(u"one\r\ntwo"), Text(300, u'x')}) {
    LoadStack(u"House", 1).SetSideText(1, Back, answer);
    frmStepper& window = OpenOnCurrent({1}, StudyMode::Speller);
    Next(window);
    const auto places = [&] {
      QCoreApplication::processEvents();
      std::vector<QRect> all;
      for (const char* const name :
           {"sspTop", "txtSpell", "lblCorrect", "lblSpellAnswer", "cmdNext", "cmdQuit"}) {
        auto& control = Find<QWidget>(window, name);
        all.emplace_back(control.mapTo(&window, QPoint()), control.size());
      }
      return all;
    };
    const std::vector<QRect> before = places();
    Next(window);
    EXPECT_EQ(TextOf(window, "lblSpellAnswer"), ToShownText(answer));
    EXPECT_TRUE(places() == before) << ToQString(answer).toStdString();
    window.Unload();
  }
}

TEST_F(SpellerWindow, ARedoneCardIsCountedAgain) {
  frmStepper& window = OpenSpeller(1, {1, 1});
  Next(window, 2);
  Click(window, "cmdRedo");
  EXPECT_TRUE(Field(window).hasFocus());
  Next(window);
  Type(window, "back 1");
  Next(window);
  EXPECT_EQ(TextOf(window, "lblRight"), "1");
  EXPECT_EQ(TextOf(window, "lblWrong"), "1");
}

TEST_F(SpellerWindow, RestartCountsFromZeroAndEmptiesTheFields) {
  prompts.Expect(Answer::Yes);
  frmStepper& window = OpenSpeller(1, {1});
  Next(window, 3);
  EXPECT_EQ(TextOf(window, "lblWrong"), "0");
  EXPECT_EQ(Field(window).text(), "");
  EXPECT_EQ(TextOf(window, "lblSpellAnswer"), "");
  EXPECT_FALSE(Shows(window, "imgPicture(5)"));
}

TEST_F(SpellerWindow, TheCheckStopsTheTimerAndBringsNoBlankedQuestionBack) {
  shared.Timer.TimerInterval = 20;
  frmStepper& window = OpenSpeller(1, {1});
  Next(window);
  ASSERT_TRUE(QTest::qWaitFor([&] { return TextOf(window, "lblTop").isEmpty(); }));
  Next(window);
  EXPECT_FALSE(Find<QTimer>(window, "tmrTimer").isActive());
  EXPECT_EQ(TextOf(window, "lblTop"), "");
}

TEST_F(SpellerWindow, AsksFromTheBackWhenBackIsChosen) {
  frmStepper& window = OpenSpeller(1, {1});
  Click(window, "ssoBack");
  Next(window);
  EXPECT_EQ(TextOf(window, "lblTop"), "back 1");
  Type(window, "front 1");
  Next(window);
  EXPECT_EQ(TextOf(window, "lblRight"), "1");
}

TEST_F(SpellerWindow, AnAssignedKeystrokeTypesItsCharacterAtTheCaret) {
  AssignKeys();
  frmStepper& window = OpenSpeller(1, {1});
  Next(window);
  Type(window, "abc");
  Field(window).setCursorPosition(0);
  QTest::keyClick(&Field(window), Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(Field(window).text(), QStringLiteral("\u00E9abc"));
  EXPECT_EQ(Field(window).cursorPosition(), 1);
}

TEST_F(SpellerWindow, LaterKeysOfTheTopicDoNotReachAnOpenWindow) {
  frmStepper& window = OpenSpeller(1, {1});
  AssignKeys();
  Next(window);
  QTest::keyClick(&Field(window), Qt::Key_N, Qt::ControlModifier | Qt::AltModifier);
  EXPECT_EQ(Field(window).text(), "");
}

TEST_F(SpellerWindow, TheKeyMenuOfTheAnswerSideIsThereWhileTheFieldHasTheFocus) {
  AssignKeys();
  frmStepper& window = OpenSpeller(1, {1});
  const auto enabled = [&](const char* head) { return Find<QAction>(window, head).isEnabled(); };
  EXPECT_FALSE(enabled("mnuBKeysHead"));
  Next(window);
  EXPECT_TRUE(enabled("mnuBKeysHead"));
  EXPECT_FALSE(enabled("mnuFKeysHead"));
  Next(window);
  EXPECT_FALSE(enabled("mnuBKeysHead"));
  Click(window, "ssoBack");
  Field(window).setFocus();
  EXPECT_TRUE(enabled("mnuFKeysHead"));
}

TEST_F(SpellerWindow, AKeyMenuItemTypesIntoTheField) {
  AssignKeys();
  frmStepper& window = OpenSpeller(1, {1});
  Next(window);
  EXPECT_EQ(window.findChild<QAction*>("mnuBKeys(1)"), nullptr);  // the front's alone
  auto& item = Find<QAction>(window, "mnuBKeys(2)");
  EXPECT_EQ(item.text(), QStringLiteral("\u00F1 = Ctrl+Alt+N"));
  item.trigger();
  EXPECT_TRUE(QTest::qWaitFor([&] { return Field(window).text() == QStringLiteral("\u00F1"); }));
}

TEST_F(SpellerWindow, ASideInAnotherFontHasNoKeyMenu) {
  AssignKeys();
  shared.Topic.Fonts.BackFont = u"DejaVu Serif";
  frmStepper& window = OpenSpeller(1, {1});
  EXPECT_TRUE(Find<QAction>(window, "mnuFKeysHead").isVisible());
  EXPECT_FALSE(Find<QAction>(window, "mnuBKeysHead").isVisible());
}

}  // namespace

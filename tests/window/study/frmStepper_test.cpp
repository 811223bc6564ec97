#include "windows/study/frmStepper.h"

#include "tests/window/study/StudyFixture.h"

#include <QPointer>
#include <QRadioButton>
#include <QTimer>

namespace {

using frmStepperTest = StudyWindowTest;

TEST_F(frmStepperTest, TheTitleNamesModeStackAndTopic) {
  EXPECT_EQ(Open(3, {}).windowTitle(), "Stepper - Verbs (Spanish)");
}

TEST_F(frmStepperTest, NoCardIsDrawnAtTheStart) {
  frmStepper& window = Open(3, {});
  EXPECT_EQ(TextOf(window, "lblTop"), "");
  EXPECT_EQ(TextOf(window, "lblCardCount"), "0/3");
  EXPECT_FALSE(IsEnabled(window, "cmdRedo"));
  EXPECT_TRUE(IsEnabled(window, "ssoBack"));
  EXPECT_TRUE(Find<QRadioButton>(window, "ssoFront").isChecked());
}

TEST_F(frmStepperTest, NextShowsAQuestionAndNextItsAnswer) {
  frmStepper& window = Open(3, {2});
  Next(window);
  EXPECT_EQ(TextOf(window, "lblTop"), "front 2");
  EXPECT_EQ(TextOf(window, "lblBottom"), "");
  EXPECT_EQ(TextOf(window, "lblCardCount"), "1/3");
  EXPECT_FALSE(IsEnabled(window, "cmdRedo"));
  EXPECT_FALSE(IsEnabled(window, "ssoFront"));
  Next(window);
  EXPECT_EQ(TextOf(window, "lblTop"), "front 2");
  EXPECT_EQ(TextOf(window, "lblBottom"), "back 2");
  EXPECT_TRUE(IsEnabled(window, "cmdRedo"));
  EXPECT_TRUE(IsEnabled(window, "ssoFront"));
}

TEST_F(frmStepperTest, EnterAndSpacePressNext) {
  frmStepper& window = Open(2, {1});
  QTest::keyClick(window.focusWidget(), Qt::Key_Return);
  EXPECT_EQ(TextOf(window, "lblTop"), "front 1");
  QTest::keyClick(window.focusWidget(), Qt::Key_Space);
  EXPECT_EQ(TextOf(window, "lblBottom"), "back 1");
}

TEST_F(frmStepperTest, EscapeDoesNothing) {
  frmStepper& window = Open(2, {1});
  QTest::keyClick(&window, Qt::Key_Escape);
  EXPECT_TRUE(window.isVisible());
}

TEST_F(frmStepperTest, BackTurnsTheCardOverInPlaceAndAsksLaterCardsFromTheBack) {
  frmStepper& window = Open(2, {1, 2});
  Next(window, 2);
  Click(window, "ssoBack");
  EXPECT_EQ(TextOf(window, "lblTop"), "back 1");
  EXPECT_EQ(TextOf(window, "lblBottom"), "front 1");
  EXPECT_TRUE(Find<QWidget>(window, "cmdNext").hasFocus());
  Next(window);
  EXPECT_EQ(TextOf(window, "lblTop"), "back 2");
}

TEST_F(frmStepperTest, ClickingTheChosenSideAgainLeavesTheCardAlone) {
  frmStepper& window = Open(1, {1});
  Next(window, 2);
  Click(window, "ssoFront");
  EXPECT_EQ(TextOf(window, "lblTop"), "front 1");
}

TEST_F(frmStepperTest, BackBeforeTheFirstCardAsksEveryCardFromTheBack) {
  frmStepper& window = Open(1, {1});
  Click(window, "ssoBack");
  Next(window, 2);
  EXPECT_EQ(TextOf(window, "lblTop"), "back 1");
  EXPECT_EQ(TextOf(window, "lblBottom"), "front 1");
}

TEST_F(frmStepperTest, TheLowerHalfOfTheCardWaitsForTheAnswer) {
  frmStepper& window = Open(4, {1});
  Next(window);
  EXPECT_TRUE(Find<QWidget>(window, "lblBottom").isVisible());
}

TEST_F(frmStepperTest, TheChoosersQuestionHasTheWholeCardUntilItIsTurnedOver) {
  LoadStack(u"Verbs", 4);
  frmStepper& window =
      OpenWithNumbers({Draw(2, 4), 0.3, Draw(1, 4), Draw(3, 4), Draw(4, 4)}, StudyMode::Chooser);
  Next(window);
  EXPECT_FALSE(Find<QWidget>(window, "lblBottom").isVisible());
  Click(window, "optChoice(1)");
  Click(window, "ssoBack");
  EXPECT_EQ(TextOf(window, "lblBottom"), "front 2");
  EXPECT_TRUE(Find<QWidget>(window, "lblBottom").isVisible());
}

TEST_F(frmStepperTest, RedoBringsTheCardBackAndNextHasTheFocus) {
  frmStepper& window = Open(1, {1, 1});
  Next(window, 2);
  Click(window, "cmdRedo");
  EXPECT_TRUE(Find<QWidget>(window, "cmdNext").hasFocus());
  Next(window);
  EXPECT_EQ(TextOf(window, "lblTop"), "front 1");
  EXPECT_EQ(TextOf(window, "lblCardCount"), "1/1");
}

TEST_F(frmStepperTest, YesAtTheEndStartsANewPassFromTheFront) {
  prompts.Expect(Answer::Yes);
  frmStepper& window = Open(1, {1, 1});
  Click(window, "ssoBack");
  Next(window, 3);
  ExpectPrompt(prompts.shown.at(0), u"No more cards - Restart?", PromptIcon::Information,
               PromptButtons::YesNo);
  EXPECT_EQ(TextOf(window, "lblTop"), "");
  EXPECT_EQ(TextOf(window, "lblBottom"), "");
  EXPECT_EQ(TextOf(window, "lblCardCount"), "0/1");
  EXPECT_TRUE(Find<QRadioButton>(window, "ssoFront").isChecked());
  EXPECT_TRUE(IsEnabled(window, "cmdRedo"));
  Next(window);
  EXPECT_EQ(TextOf(window, "lblTop"), "front 1");
}

TEST_F(frmStepperTest, RedoRightAfterARestartIsWithoutEffect) {
  prompts.Expect(Answer::Yes);
  frmStepper& window = Open(1, {1, 1});
  Next(window, 3);
  Click(window, "cmdRedo");
  Next(window);
  EXPECT_EQ(TextOf(window, "lblCardCount"), "1/1");
}

TEST_F(frmStepperTest, AMnemonicActsBeforeTheKeyTypedNext) {
  frmStepper& window = Open(1, {1, 1});
  Next(window, 2);
  QTest::keyClick(&window, Qt::Key_R, Qt::AltModifier);
  QTest::keyClick(window.focusWidget(), Qt::Key_Space);
  EXPECT_EQ(TextOf(window, "lblCardCount"), "1/1");
  EXPECT_EQ(TextOf(window, "lblBottom"), "");
}

TEST_F(frmStepperTest, EnterPressesTheButtonThatHasTheFocus) {
  frmStepper& window = Open(2, {1, 1});
  Next(window, 2);
  Find<QWidget>(window, "ssoBack").setFocus();
  QTest::keyClick(window.focusWidget(), Qt::Key_Return);
  EXPECT_EQ(TextOf(window, "lblTop"), "back 1");
  Find<QWidget>(window, "cmdRedo").setFocus();
  QTest::keyClick(window.focusWidget(), Qt::Key_Enter, Qt::KeypadModifier);
  Next(window);
  EXPECT_EQ(TextOf(window, "lblCardCount"), "1/2");
}

TEST_F(frmStepperTest, EnterHeldDownPressesOnce) {
  frmStepper& window = Open(2, {1, 2});
  for (const bool again : {false, true, true}) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, {}, QStringLiteral("\r"), again);
    QApplication::sendEvent(window.focusWidget(), &press);
  }
  EXPECT_EQ(TextOf(window, "lblTop"), "front 1");
  EXPECT_EQ(TextOf(window, "lblBottom"), "");
}

TEST_F(frmStepperTest, ArrowKeysDoNotWalkTheFocusFromButtonToButton) {
  frmStepper& window = Open(1, {1, 1});
  Next(window, 2);
  for (const char* const name : {"cmdNext", "cmdRedo", "cmdQuit"}) {
    auto& button = Find<QWidget>(window, name);
    button.setFocus();
    for (const auto key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up}) {
      QTest::keyClick(window.focusWidget(), key);
      EXPECT_TRUE(button.hasFocus()) << name;
    }
  }
}

TEST_F(frmStepperTest, NoAtTheEndClosesTheWindow) {
  prompts.Expect(Answer::No);
  const QPointer<frmStepper> window(&Open(1, {1}));
  Next(*window, 3);
  EXPECT_TRUE(window == nullptr || !window->isVisible());
}

TEST_F(frmStepperTest, AnEmptyStackIsOverAtOnce) {
  prompts.Expect(Answer::No);
  Next(Open(0, {}));
  EXPECT_EQ(prompts.shown.size(), 1U);
}

TEST_F(frmStepperTest, TheProgramMayEndWhileTheEndQuestionIsOpen) {
  prompts.Expect(Answer::Yes);
  const QPointer<frmStepper> window(&Open(1, {1}));
  Next(*window, 2);
  prompts.WhileShown([this] {
    studyWindows.CloseAll();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  });
  Find<QAbstractButton>(*window, "cmdNext").click();
  EXPECT_EQ(window, nullptr);
}

TEST_F(frmStepperTest, AWindowClosedWhileTheEndQuestionIsOpenDoesNotGoOn) {
  prompts.Expect(Answer::Yes);
  frmStepper& window = Open(1, {1, 1});
  Next(window, 2);
  prompts.WhileShown([&] { window.Unload(); });
  Find<QAbstractButton>(window, "cmdNext").click();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(TextOf(window, "lblCardCount"), "1/1");
}

TEST_F(frmStepperTest, AClosedWindowDrawsNoCardAndLeavesItsPlaceToTheNext) {
  frmStepper& closed = Open(2, {1, 2});
  closed.Unload();
  const frmStepper& window = studyWindows.Open();  // in its place; the closed one is still there
  Find<QAbstractButton>(closed, "cmdNext").click();
  EXPECT_EQ(TextOf(closed, "lblCardCount"), "0/2");
  closed.Unload();
  studyWindows.CloseAll();  // the other window's place is still its own
  EXPECT_FALSE(window.isVisible());
}

TEST_F(frmStepperTest, TheTimerBlanksTheQuestionAndTheAnswerBringsItBack) {
  shared.Timer.TimerInterval = 20;
  frmStepper& window = Open(1, {1}, StudyMode::Quibber);
  EXPECT_EQ(window.windowTitle(), "Quibber - Verbs (Spanish)");
  EXPECT_FALSE(Find<QTimer>(window, "tmrTimer").isActive());
  Next(window);
  EXPECT_EQ(TextOf(window, "lblTop"), "front 1");
  EXPECT_TRUE(QTest::qWaitFor([&] { return TextOf(window, "lblTop").isEmpty(); }));
  EXPECT_TRUE(Find<QTimer>(window, "tmrTimer").isActive());  // its own tick does not stop it
  Next(window);
  EXPECT_EQ(TextOf(window, "lblTop"), "front 1");
  EXPECT_EQ(TextOf(window, "lblBottom"), "back 1");
  EXPECT_FALSE(Find<QTimer>(window, "tmrTimer").isActive());
}

TEST_F(frmStepperTest, TheIntervalIsCopiedWhenTheWindowOpens) {
  shared.Timer.TimerInterval = 250;
  frmStepper& window = Open(1, {1});
  shared.Timer.TimerInterval = 0;
  EXPECT_EQ(Find<QTimer>(window, "tmrTimer").interval(), 250);
}

TEST_F(frmStepperTest, TimedQuestionsMayHideTheirWord) {
  shared.Timer.HideWord = true;
  frmStepper& window = Open(1, {1}, StudyMode::Quibber);
  Next(window);
  EXPECT_EQ(TextOf(window, "lblTop"), "");
  Next(window);
  EXPECT_EQ(TextOf(window, "lblTop"), "front 1");
}

TEST_F(frmStepperTest, StepperAlwaysShowsTheWordForTheWholeProgram) {
  shared.Timer.HideWord = true;
  Open(1, {1});
  EXPECT_FALSE(shared.Timer.HideWord);
}

TEST_F(frmStepperTest, CardTextIsNeverMarkup) {
  LoadStack(u"Tags", 1).SetSideText(1, Front, u"<b>x</b> & y");
  frmStepper& window = OpenOnCurrent({1});
  Next(window);
  EXPECT_EQ(TextOf(window, "lblTop"), "<b>x</b> & y");
  EXPECT_EQ(Find<QLabel>(window, "lblTop").textFormat(), Qt::PlainText);
}

TEST_F(frmStepperTest, ALineBreakOfTheCardIsShownAsOne) {
  LoadStack(u"Lines", 1).SetSideText(1, Front, u"the cat\r\nel gato");
  frmStepper& window = OpenOnCurrent({1});
  Next(window);
  EXPECT_EQ(TextOf(window, "lblTop"), "the cat\nel gato");
}

TEST_F(frmStepperTest, TheBlanksBehindATextThatAStackFilePadsWithAreNotShown) {
  CardStack& stack = LoadStack(u"Padded", 1);
  stack.SetSideText(1, Front, u"dog  ");
  stack.SetSideText(1, Back, Text(40, u'x') + u"  ");
  frmStepper& window = OpenOnCurrent({1});
  Next(window, 2);
  EXPECT_EQ(TextOf(window, "lblTop"), "dog");
  EXPECT_EQ(TextOf(window, "lblBottom"), QString(40, u'x'));
}

TEST_F(frmStepperTest, SeveralWindowsGoTheirOwnWays) {
  frmStepper& first = Open(2, {1});
  LoadStack(u"Nouns", 2);
  frmStepper& second = OpenOnCurrent({2});
  Next(first);
  Next(second);
  EXPECT_EQ(TextOf(first, "lblTop"), "front 1");
  EXPECT_EQ(TextOf(second, "lblTop"), "front 2");
  EXPECT_EQ(second.windowTitle(), "Stepper - Nouns (Spanish)");
}

TEST_F(frmStepperTest, RemovingAStackClosesItsWindowsAndTheOthersFollowTheirStack) {
  const QPointer<frmStepper> first(&Open(1, {1}));
  LoadStack(u"Nouns", 2);
  frmStepper& second = OpenOnCurrent({2});
  shared.Stacks.CurrentStack = 0;
  studyWindows.StackRemoved(0);
  shared.Stacks.RemoveCurrentStack();
  EXPECT_TRUE(first == nullptr || !first->isVisible());
  EXPECT_EQ(second.StackIndex(), 0);
  Next(second);
  EXPECT_EQ(TextOf(second, "lblTop"), "front 2");
}

TEST_F(frmStepperTest, QuitClosesTheWindowInAnyState) {
  const QPointer<frmStepper> window(&Open(2, {1}));
  Next(*window);
  Click(*window, "cmdQuit");
  EXPECT_TRUE(window == nullptr || !window->isVisible());
}

TEST_F(frmStepperTest, HelpAsksForItsPage) {
  Find<QAction>(Open(1, {}), "mnuHelp").trigger();
  EXPECT_EQ(help.contexts, std::vector{HelpContext::Stepper});
}

}  // namespace

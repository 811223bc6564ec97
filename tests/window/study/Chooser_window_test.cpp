#include "tests/window/study/StudyFixture.h"

#include <QRadioButton>
#include <QTimer>

namespace {

class ChooserWindow : public StudyWindowTest {
 protected:
  static constexpr int Cards = 5;

  /// Card 2 is asked first, with 1, 2, 3, 4 as choices; then card 5 with 5, 5, 1, 2.
  frmStepper& OpenChooser() {
    LoadStack(u"Verbs", Cards);
    return OpenWithNumbers({Draw(2, Cards), 0.3, Draw(1, Cards), Draw(3, Cards), Draw(4, Cards),
                            Draw(5, Cards), 0.0, Draw(5, Cards), Draw(1, Cards), Draw(2, Cards)},
                           StudyMode::Chooser);
  }

  static QString Option(int i) { return QStringLiteral("optChoice(%1)").arg(i); }
  static void Choose(frmStepper& window, int i) { Click(window, Option(i).toLatin1()); }
  static bool OptionEnabled(frmStepper& window, int i) {
    return IsEnabled(window, Option(i).toLatin1());
  }
  static bool Shows(frmStepper& window, const char* name) {
    return Find<QWidget>(window, name).isVisible();
  }
};

TEST_F(ChooserWindow, OffersNothingBeforeTheFirstCard) {
  frmStepper& window = OpenChooser();
  EXPECT_EQ(window.windowTitle(), "Chooser - Verbs (Spanish)");
  for (int i = 0; i < ChoiceCount; ++i) EXPECT_FALSE(OptionEnabled(window, i));
  QTest::keyClick(&window, Qt::Key_1);
  EXPECT_EQ(TextOf(window, "lblRight"), "0");
}

TEST_F(ChooserWindow, AQuestionOffersFourAnswersAndHoldsNextBack) {
  frmStepper& window = OpenChooser();
  Next(window);
  EXPECT_EQ(TextOf(window, "lblTop"), "front 2");
  EXPECT_EQ(TextOf(window, "lblChoice(0)"), "back 1");
  EXPECT_EQ(TextOf(window, "lblChoice(1)"), "back 2");
  EXPECT_EQ(TextOf(window, "lblChoice(2)"), "back 3");
  EXPECT_EQ(TextOf(window, "lblChoice(3)"), "back 4");
  for (int i = 0; i < ChoiceCount; ++i) {
    EXPECT_TRUE(OptionEnabled(window, i));
    EXPECT_FALSE(Find<QRadioButton>(window, Option(i).toLatin1()).isChecked());
  }
  EXPECT_FALSE(IsEnabled(window, "cmdNext"));
  EXPECT_FALSE(IsEnabled(window, "cmdRedo"));
}

TEST_F(ChooserWindow, TheRightChoiceIsMarkedAndCounted) {
  frmStepper& window = OpenChooser();
  Next(window);
  Choose(window, 1);
  EXPECT_EQ(TextOf(window, "lblRight"), "1");
  EXPECT_TRUE(Shows(window, "imgPicture(4)"));
  EXPECT_FALSE(OptionEnabled(window, 0));
  EXPECT_TRUE(OptionEnabled(window, 1));
  EXPECT_FALSE(IsEnabled(window, "lblChoice(2)"));
  EXPECT_TRUE(IsEnabled(window, "cmdNext"));
  EXPECT_TRUE(IsEnabled(window, "cmdRedo"));
  EXPECT_TRUE(IsEnabled(window, "ssoBack"));
}

TEST_F(ChooserWindow, AWrongChoiceIsCountedOnceAndTheRightOneStaysEnabled) {
  frmStepper& window = OpenChooser();
  Next(window);
  Choose(window, 3);
  Choose(window, 1);
  EXPECT_EQ(TextOf(window, "lblWrong"), "1");
  EXPECT_EQ(TextOf(window, "lblRight"), "0");
  EXPECT_TRUE(Shows(window, "imgPicture(5)"));
}

TEST_F(ChooserWindow, ARepeatedRightAnswerStaysEnabledInBothPlaces) {
  frmStepper& window = OpenChooser();
  Next(window);
  Choose(window, 1);
  Next(window);
  EXPECT_EQ(TextOf(window, "lblChoice(0)"), "back 5");
  EXPECT_EQ(TextOf(window, "lblChoice(1)"), "back 5");
  Choose(window, 1);
  EXPECT_TRUE(OptionEnabled(window, 0));
  EXPECT_TRUE(OptionEnabled(window, 1));
  EXPECT_EQ(TextOf(window, "lblRight"), "2");
}

TEST_F(ChooserWindow, TheNumberKeysChoose) {
  frmStepper& window = OpenChooser();
  Next(window);
  QTest::keyClick(window.focusWidget(), Qt::Key_2);
  EXPECT_EQ(TextOf(window, "lblRight"), "1");
  EXPECT_TRUE(Find<QWidget>(window, "cmdNext").hasFocus());
}

TEST_F(ChooserWindow, TheNumberKeysChooseByTheirPlaceOnAFrenchKeyboard) {
  frmStepper& window = OpenChooser();
  Next(window);
  constexpr quint32 PlaceOf2 = 11;
  QKeyEvent press(QEvent::KeyPress, Qt::Key_Eacute, {}, PlaceOf2, 0, 0, QStringLiteral("\u00E9"));
  QApplication::sendEvent(window.focusWidget(), &press);
  EXPECT_EQ(TextOf(window, "lblRight"), "1");
}

TEST_F(ChooserWindow, AClickOnTheAnswerChoosesIt) {
  frmStepper& window = OpenChooser();
  Next(window);
  Click(window, "lblChoice(1)");
  EXPECT_EQ(TextOf(window, "lblRight"), "1");
}

TEST_F(ChooserWindow, SpaceAndEnterOnTheQuestionChooseNothing) {
  frmStepper& window = OpenChooser();
  Next(window);
  QTest::keyClick(window.focusWidget(), Qt::Key_Space);
  QTest::keyClick(window.focusWidget(), Qt::Key_Return);
  EXPECT_EQ(TextOf(window, "lblRight"), "0");
  EXPECT_EQ(TextOf(window, "lblWrong"), "0");
}

TEST_F(ChooserWindow, AHiddenQuestionIsShownAfterTheChoice) {
  shared.Timer.HideWord = true;
  frmStepper& window = OpenChooser();
  Next(window);
  EXPECT_EQ(TextOf(window, "lblTop"), "");
  Choose(window, 0);
  EXPECT_EQ(TextOf(window, "lblTop"), "front 2");
  EXPECT_TRUE(Shows(window, "imgPicture(5)"));
}

TEST_F(ChooserWindow, ATimedQuestionIsShownAgainWithItsSound) {
  shared.Timer.TimerInterval = 20;
  LoadStack(u"Verbs", Cards).SetSideSound(2, Front, u"/cards/two.wav");
  files.Put(u"/cards/two.wav", "RIFF");
  frmStepper& window = OpenWithNumbers(
      {Draw(2, Cards), 0.3, Draw(1, Cards), Draw(3, Cards), Draw(4, Cards)}, StudyMode::Chooser);
  Next(window);
  ASSERT_TRUE(QTest::qWaitFor([&] { return TextOf(window, "lblTop").isEmpty(); }));
  sound.whilePlaying = [&] { EXPECT_FALSE(Shows(window, "imgPicture(4)")); };
  Choose(window, 1);
  EXPECT_EQ(TextOf(window, "lblTop"), "front 2");
  EXPECT_EQ(sound.played.size(), 2U);
  EXPECT_TRUE(Shows(window, "imgPicture(4)"));
  EXPECT_FALSE(Find<QTimer>(window, "tmrTimer").isActive());
}

TEST_F(ChooserWindow, RestartCountsFromZero) {
  prompts.Expect(Answer::Yes);
  LoadStack(u"Verbs", 1);
  frmStepper& window = OpenWithNumbers({Draw(1, 1)}, StudyMode::Chooser);
  Next(window);
  Choose(window, 2);
  EXPECT_EQ(TextOf(window, "lblRight"), "1");
  Next(window);
  EXPECT_EQ(TextOf(window, "lblRight"), "0");
  EXPECT_EQ(TextOf(window, "lblChoice(0)"), "");
  EXPECT_FALSE(OptionEnabled(window, 0));
}

TEST_F(ChooserWindow, ChoicesStandInTheFontOfTheAnswerSide) {
  shared.Topic.Fonts = {u"DejaVu Sans", 12, u"DejaVu Serif", 20};
  state.KeepZoom(u"study", 100);
  frmStepper& window = OpenChooser();
  const auto& choice = Find<QLabel>(window, "lblChoice(0)");
  EXPECT_EQ(choice.font().pointSizeF(), 20);
  EXPECT_EQ(choice.font().family(), "DejaVu Serif");
  Click(window, "ssoBack");
  EXPECT_EQ(choice.font().pointSizeF(), 12);
}

TEST_F(ChooserWindow, OnlyTheLeftButtonGoingDownAndUpOnOneAnswerChoosesIt) {
  frmStepper& window = OpenChooser();
  Next(window);
  auto& one = Find<QLabel>(window, "lblChoice(0)");
  auto& two = Find<QLabel>(window, "lblChoice(1)");
  const auto expectNone = [&] {
    EXPECT_EQ(TextOf(window, "lblRight") + TextOf(window, "lblWrong"), "00");
  };
  QTest::mouseClick(&two, Qt::RightButton);
  QTest::mouseClick(&two, Qt::MiddleButton);
  expectNone();
  QTest::mouseRelease(&two, Qt::LeftButton);  // it went down elsewhere
  expectNone();
  QTest::mousePress(&one, Qt::LeftButton);
  QTest::mouseRelease(&one, Qt::LeftButton, {}, QPoint(5, one.height() + 5));
  expectNone();
  QTest::mousePress(&one, Qt::LeftButton);
  QTest::mouseRelease(&two, Qt::LeftButton);
  expectNone();
  QTest::mousePress(&two, Qt::LeftButton);
  QTest::mouseRelease(&two, Qt::LeftButton);
  EXPECT_EQ(TextOf(window, "lblRight"), "1");
}

TEST_F(ChooserWindow, EnterChoosesTheAnswerThatHasTheFocus) {
  frmStepper& window = OpenChooser();
  Next(window);
  Find<QWidget>(window, "optChoice(0)").setFocus();
  QTest::keyClick(window.focusWidget(), Qt::Key_Down);
  EXPECT_TRUE(Find<QWidget>(window, "optChoice(1)").hasFocus());
  EXPECT_EQ(TextOf(window, "lblRight"), "0");
  QTest::keyClick(window.focusWidget(), Qt::Key_Return);
  EXPECT_EQ(TextOf(window, "lblRight"), "1");
}

TEST_F(ChooserWindow, ANewPassBeginsWithNothingSelected) {
  prompts.Expect(Answer::Yes);
  LoadStack(u"Verbs", 1);
  frmStepper& window = OpenWithNumbers({Draw(1, 1)}, StudyMode::Chooser);
  Next(window);
  Choose(window, 2);
  EXPECT_TRUE(Find<QRadioButton>(window, "optChoice(2)").isChecked());
  Next(window);
  for (int i = 0; i < ChoiceCount; ++i) {
    EXPECT_FALSE(Find<QRadioButton>(window, Option(i).toLatin1()).isChecked());
  }
}

TEST_F(ChooserWindow, AnAnswerWiderThanTheWindowIsNotWrappedAndScrollsWithTheKeyboard) {
  LoadStack(u"Long", Cards).SetSideText(1, Back, Text(400, u'x'));
  frmStepper& window = OpenWithNumbers(
      {Draw(2, Cards), 0.3, Draw(1, Cards), Draw(3, Cards), Draw(4, Cards)}, StudyMode::Chooser);
  Next(window);
  QCoreApplication::sendPostedEvents();  // the panel learns of the new widths by an event
  const auto& choice = Find<QLabel>(window, "lblChoice(0)");
  EXPECT_EQ(choice.text(), QString(400, u'x'));
  EXPECT_FALSE(choice.wordWrap());
  EXPECT_GT(choice.width(), window.width());
  const int left = choice.mapTo(&window, QPoint()).x();
  for (int i = 0; i < 1000 && choice.visibleRegion().boundingRect().right() < choice.width() - 1;
       ++i) {
    QTest::keyClick(window.focusWidget(), Qt::Key_Right);
  }
  EXPECT_LT(choice.mapTo(&window, QPoint()).x(), left);
  EXPECT_GE(choice.visibleRegion().boundingRect().right(), choice.width() - 1);
  EXPECT_EQ(TextOf(window, "lblRight") + TextOf(window, "lblWrong"), "00");
}

TEST_F(ChooserWindow, AChoiceIsDescribedInPlainWords) {
  LoadStack(u"Tags", Cards).SetSideText(2, Back, u"<b>x</b> & y");
  frmStepper& window = OpenWithNumbers(
      {Draw(2, Cards), 0.3, Draw(1, Cards), Draw(3, Cards), Draw(4, Cards)}, StudyMode::Chooser);
  Next(window);
  EXPECT_EQ(Find<QWidget>(window, "optChoice(1)").accessibleName(), "<b>x</b> & y");
  EXPECT_EQ(Find<QWidget>(window, "lblChoice(1)").toolTip(), "");
  EXPECT_EQ(Find<QWidget>(window, "optChoice(1)").toolTip(), "Choose this answer (key 2)");
}

}  // namespace

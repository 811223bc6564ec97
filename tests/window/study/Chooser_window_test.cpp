#include "study/CardZoom.h"
#include "tests/window/study/StudyFixture.h"

#include <QRadioButton>
#include <QTimer>

#include <climits>

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

TEST_F(ChooserWindow, ChoicesStandInTheFontOfTheAnswerSideAndGrowWithTheCardsWidth) {
  shared.Topic.Fonts = {u"DejaVu Sans", 12, u"DejaVu Serif", 20};
  frmStepper& window = OpenChooser();
  const auto expectPoints = [&](float points) {
    const float zoom = CardZoom(Find<QWidget>(window, "sspTop").width(), INT_MAX);
    EXPECT_NEAR(Find<QLabel>(window, "lblChoice(0)").font().pointSizeF(), points * zoom, 0.01);
    return zoom;
  };
  window.resize(window.minimumSize());
  const float least = expectPoints(20);
  Click(window, "ssoBack");
  expectPoints(12);
  window.resize(window.minimumSize() + QSize(SmallestCardWidth / 4, 0));
  EXPECT_GT(expectPoints(12), least);
}

}  // namespace

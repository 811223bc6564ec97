#include "tests/window/study/StudyFixture.h"

#include <QAccessible>
#include <QPointer>
#include <QRadioButton>
#include <QTimer>

namespace {

/// What a screen reader, or any program that speaks its language, does during a sound: nothing
/// holds that up as keys and clicks are held up.
class DuringASound : public StudyWindowTest {
 protected:
  DuringASound() {
    files.Put(u"/cards/q.wav", "RIFF");
    files.Put(u"/cards/a.wav", "RIFF");
  }

  frmStepper& OpenWithSounds(StudyMode mode = StudyMode::Stepper) {
    CardStack& stack = LoadStack(u"Verbs", 4);
    for (int card = 1; card <= 4; ++card) {
      stack.SetSideSound(card, Front, u"/cards/q.wav");
      stack.SetSideSound(card, Back, u"/cards/a.wav");
    }
    return mode == StudyMode::Chooser ? OpenInMode(mode) : OpenOnCurrent({1, 2, 3, 4}, mode);
  }

  /// As the accessibility library does it.
  static void DoAction(QObject& window, const char* name, const QString& action) {
    QAccessibleInterface* const control =
        QAccessible::queryAccessibleInterface(&Find<QWidget>(window, name));
    ASSERT_NE(control, nullptr);
    ASSERT_TRUE(control->actionInterface()->actionNames().contains(action)) << name;
    control->actionInterface()->doAction(action);
  }

  static void Press(QObject& window, const char* name) {
    // A button shows that it is pressed for a moment before it acts.
    const QPointer button(&Find<QAbstractButton>(window, name));
    DoAction(window, name, QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([&] { return button == nullptr || !button->isDown(); }));
  }

  static void Toggle(QObject& window, const char* name) {
    DoAction(window, name, QAccessibleActionInterface::toggleAction());
  }

  /// Runs `act` once, while the next sound plays.
  void WhileTheNextSoundPlays(std::function<void()> act) {
    sound.whilePlaying = [this, act = std::move(act)] {
      const auto now = act;  // what it stands in goes with the next line
      sound.whilePlaying = nullptr;
      now();
    };
  }

  const std::vector<Text> bothSounds{u"/cards/q.wav", u"/cards/a.wav"};
};

TEST_F(DuringASound, NextShowsTheAnswerOnceItHasEndedAndPlaysItsSound) {
  frmStepper& window = OpenWithSounds();
  WhileTheNextSoundPlays([&] {
    Press(window, "cmdNext");
    EXPECT_EQ(TextOf(window, "lblBottom"), "");
  });
  Next(window);
  EXPECT_EQ(TextOf(window, "lblBottom"), "back 1");
  EXPECT_EQ(sound.played, bothSounds);
  EXPECT_TRUE(IsEnabled(window, "cmdRedo"));
}

TEST_F(DuringASound, TheTimerOfAQuestionThatIsOverDoesNotBlankItsAnswer) {
  shared.Timer.TimerInterval = 1;
  frmStepper& window = OpenWithSounds();
  WhileTheNextSoundPlays([&] { Press(window, "cmdNext"); });
  Next(window);
  EXPECT_FALSE(Find<QTimer>(window, "tmrTimer").isActive());
  EXPECT_EQ(TextOf(window, "lblTop"), "front 1");
}

TEST_F(DuringASound, AChoiceCountsOnceItHasEnded) {
  frmStepper& window = OpenWithSounds(StudyMode::Chooser);
  WhileTheNextSoundPlays([&] {
    Toggle(window, "optChoice(0)");
    Toggle(window, "optChoice(1)");
    EXPECT_EQ(TextOf(window, "lblRight"), "0");
    EXPECT_EQ(TextOf(window, "lblWrong"), "0");
  });
  Next(window);
  EXPECT_EQ(TextOf(window, "lblRight").toInt() + TextOf(window, "lblWrong").toInt(), 1);
  EXPECT_TRUE(Find<QRadioButton>(window, "optChoice(0)").isChecked());
  EXPECT_TRUE(IsEnabled(window, "cmdNext"));
}

TEST_F(DuringASound, WhatIsDisabledWhenItEndsIsLeftOut) {
  frmStepper& window = OpenWithSounds();
  Next(window, 2);
  WhileTheNextSoundPlays([&] {
    Press(window, "cmdNext");
    Toggle(window, "ssoBack");
    Press(window, "cmdRedo");
  });
  Click(window, "ssrSound(0)");
  EXPECT_EQ(TextOf(window, "lblTop"), "front 2");
  EXPECT_TRUE(Find<QRadioButton>(window, "ssoFront").isChecked());
  EXPECT_EQ(TextOf(window, "lblCardCount"), "2/4");
  Next(window, 2);
  EXPECT_EQ(TextOf(window, "lblCardCount"), "3/4") << "card 2 was not redone";
}

TEST_F(DuringASound, AnotherStudyWindowWaitsToo) {
  frmStepper& first = OpenWithSounds();
  frmStepper& second = OpenWithSounds();
  WhileTheNextSoundPlays([&] {
    Press(second, "cmdNext");
    EXPECT_EQ(TextOf(second, "lblTop"), "");
  });
  Next(first);
  EXPECT_EQ(TextOf(second, "lblTop"), "front 1");
  EXPECT_EQ(sound.played.size(), 2U);
}

TEST_F(DuringASound, TheTickOfATimerWaits) {
  shared.Timer.TimerInterval = 1;
  frmStepper& window = OpenWithSounds();
  Next(window);
  WhileTheNextSoundPlays([&] {
    QTimer& timer = Find<QTimer>(window, "tmrTimer");
    bool ticked = false;
    QObject::connect(&timer, &QTimer::timeout, &window, [&] { ticked = true; });
    EXPECT_TRUE(QTest::qWaitFor([&] { return ticked; }));
    timer.disconnect(&window);
    EXPECT_EQ(TextOf(window, "lblTop"), "front 1");
  });
  Click(window, "ssrSound(0)");
  EXPECT_EQ(TextOf(window, "lblTop"), "");
}

TEST_F(DuringASound, QuitEndsItAtOnce) {
  const QPointer<frmStepper> window(&OpenWithSounds());
  WhileTheNextSoundPlays([&] {
    Press(*window, "cmdQuit");
    EXPECT_TRUE(window == nullptr || !window->isVisible());
    EXPECT_EQ(sound.stops, 1);
  });
  Find<QAbstractButton>(*window, "cmdNext").click();
  EXPECT_EQ(sound.played.size(), 1U);
}

TEST_F(DuringASound, ClosingAnotherWindowDoesNotEndIt) {
  frmStepper& first = OpenWithSounds();
  frmStepper& second = OpenWithSounds();
  WhileTheNextSoundPlays([&] { second.close(); });
  Next(first);
  EXPECT_EQ(sound.stops, 0);
}

}  // namespace

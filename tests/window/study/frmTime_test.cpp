#include "windows/study/frmTime.h"

#include "tests/window/WindowFixture.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QRadioButton>

namespace {

class frmTimeTest : public WindowTest {
 protected:
  void WithDialog(const std::function<void(frmTime&)>& act) {
    WithModal<frmTime>([this] { frmTime(shared, platform, nullptr).ShowModal(); }, act);
  }

  static bool IsChecked(QObject& window, const char* name) {
    return Find<QAbstractButton>(window, name).isChecked();
  }

  static void TypeOther(frmTime& window, const char* seconds) {
    Click(window, "oOther");
    auto& other = Find<QLineEdit>(window, "txtOther");
    other.clear();
    QTest::keyClicks(&other, QLatin1String(seconds));
    Click(window, "cmdOK");
  }
};

TEST_F(frmTimeTest, ShowsItsCaptions) {
  WithDialog([](frmTime& window) {
    EXPECT_EQ(window.windowTitle(), "Set Timer");
    EXPECT_EQ(TextOf(window, "Label1"), "Quib Time");
    EXPECT_EQ(Find<QRadioButton>(window, "oNone").text(), "&None");
    EXPECT_EQ(Find<QRadioButton>(window, "o250msecs").text(), "0.&25 Seconds");
    EXPECT_EQ(Find<QRadioButton>(window, "o500msecs").text(), "0.&50 Seconds");
    EXPECT_EQ(Find<QRadioButton>(window, "o1000msecs").text(), "&1 Second");
    EXPECT_EQ(Find<QRadioButton>(window, "oOther").text(), "&Other ->");
    EXPECT_EQ(Find<QCheckBox>(window, "DisplayWord").text(), "&Display Word");
    EXPECT_EQ(Find<QCheckBox>(window, "PlaySound").text(), "&Play Sound");
    EXPECT_EQ(Find<QCheckBox>(window, "ShowPicture").text(), "&Show Picture");
    EXPECT_EQ(Find<QAbstractButton>(window, "cmdOK").text(), "OK");
    EXPECT_EQ(Find<QAbstractButton>(window, "cmdCanc").text(), "&Cancel");
    Click(window, "cmdCanc");
  });
}

TEST_F(frmTimeTest, ChecksABoxWhereItsSwitchIsFalse) {
  shared.Timer.HideWord = true;
  shared.Timer.NoPicture = true;
  WithDialog([](frmTime& window) {
    EXPECT_FALSE(IsChecked(window, "DisplayWord"));
    EXPECT_TRUE(IsChecked(window, "PlaySound"));
    EXPECT_FALSE(IsChecked(window, "ShowPicture"));
    Click(window, "cmdCanc");
  });
}

TEST_F(frmTimeTest, OkStoresTheSwitchesNegated) {
  WithDialog([](frmTime& window) {
    QTest::keyClick(&window, Qt::Key_D, Qt::AltModifier);
    Find<QCheckBox>(window, "DisplayWord").setChecked(false);
    Find<QCheckBox>(window, "PlaySound").setChecked(false);
    Click(window, "cmdOK");
  });
  EXPECT_TRUE(shared.Timer.HideWord);
  EXPECT_TRUE(shared.Timer.NoSound);
  EXPECT_FALSE(shared.Timer.NoPicture);
  EXPECT_TRUE(shared.Timer.TimerSettingsConfirmed);
}

TEST_F(frmTimeTest, CancelStoresNoSwitchAndIsNoConfirmation) {
  shared.Timer.TimerSettingsConfirmed = true;
  WithDialog([](frmTime& window) {
    Find<QCheckBox>(window, "PlaySound").setChecked(false);
    Click(window, "cmdCanc");
  });
  EXPECT_FALSE(shared.Timer.NoSound);
  EXPECT_FALSE(shared.Timer.TimerSettingsConfirmed);
}

TEST_F(frmTimeTest, CancelKeepsAnIntervalThatWasPicked) {
  WithDialog([](frmTime& window) {
    Click(window, "o500msecs");
    Click(window, "cmdCanc");
  });
  EXPECT_EQ(shared.Timer.TimerInterval, 500);
}

TEST_F(frmTimeTest, EachOptionWritesItsIntervalAtOnce) {
  WithDialog([this](frmTime& window) {
    for (const auto& [name, interval] :
         {std::pair("o250msecs", 250), {"o1000msecs", 1000}, {"o500msecs", 500}, {"oNone", 0}}) {
      Click(window, name);
      EXPECT_EQ(shared.Timer.TimerInterval, interval);
    }
    Click(window, "cmdCanc");
  });
}

TEST_F(frmTimeTest, OpeningSelectsTheIntervalWithoutWritingIt) {
  shared.Timer.TimerInterval = 1000;
  WithDialog([this](frmTime& window) {
    EXPECT_TRUE(IsChecked(window, "o1000msecs"));
    EXPECT_FALSE(IsEnabled(window, "txtOther"));
    EXPECT_EQ(shared.Timer.TimerInterval, 1000);
    Click(window, "cmdCanc");
  });
}

TEST_F(frmTimeTest, AnyOtherIntervalIsShownInSeconds) {
  shared.Timer.TimerInterval = 750;
  WithDialog([](frmTime& window) {
    EXPECT_TRUE(IsChecked(window, "oOther"));
    EXPECT_TRUE(IsEnabled(window, "txtOther"));
    EXPECT_EQ(Find<QLineEdit>(window, "txtOther").text(), "0.75");
    Click(window, "cmdCanc");
  });
}

TEST_F(frmTimeTest, OtherIsReadOnOk) {
  WithDialog([](frmTime& window) { TypeOther(window, "0.3"); });
  EXPECT_EQ(shared.Timer.TimerInterval, 300);
}

TEST_F(frmTimeTest, OtherWithoutANumberMeansNoTimer) {
  shared.Timer.TimerInterval = 250;
  WithDialog([](frmTime& window) { TypeOther(window, "abc"); });
  EXPECT_EQ(shared.Timer.TimerInterval, 0);
}

TEST_F(frmTimeTest, OtherWritesNothingWhenItIsOnlySelected) {
  shared.Timer.TimerInterval = 250;
  WithDialog([this](frmTime& window) {
    Click(window, "oOther");
    EXPECT_EQ(shared.Timer.TimerInterval, 250);
    EXPECT_TRUE(Find<QLineEdit>(window, "txtOther").hasFocus());
    Click(window, "cmdCanc");
  });
}

TEST_F(frmTimeTest, ATooLongIntervalKeepsTheDialogOpenAndStoresNothing) {
  prompts.Expect(Answer::Ok);
  shared.Timer.TimerInterval = 250;
  WithDialog([this](frmTime& window) {
    Find<QCheckBox>(window, "PlaySound").setChecked(false);
    TypeOther(window, "32.768");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(shared.Timer.TimerInterval, 250);
    EXPECT_FALSE(shared.Timer.NoSound);
    Click(window, "cmdCanc");
  });
  EXPECT_EQ(prompts.shown.at(0).icon, PromptIcon::Exclamation);
}

TEST_F(frmTimeTest, AClickIntoTheDisabledBoxSelectsOther) {
  WithDialog([](frmTime& window) {
    const auto& other = Find<QLineEdit>(window, "txtOther");
    QTest::mouseClick(&window, Qt::LeftButton, {}, other.geometry().center());
    EXPECT_TRUE(IsChecked(window, "oOther"));
    EXPECT_TRUE(other.isEnabled());
    EXPECT_TRUE(other.hasFocus());
    Click(window, "cmdCanc");
  });
}

TEST_F(frmTimeTest, EscapeCancelsAndEnterConfirms) {
  WithDialog([](frmTime& window) { QTest::keyClick(&window, Qt::Key_Escape); });
  EXPECT_FALSE(shared.Timer.TimerSettingsConfirmed);
  WithDialog([](frmTime& window) { QTest::keyClick(&window, Qt::Key_Return); });
  EXPECT_TRUE(shared.Timer.TimerSettingsConfirmed);
}

TEST_F(frmTimeTest, HelpAsksForItsPage) {
  WithDialog([](frmTime& window) {
    Find<QAction>(window, "mnuHelp").trigger();
    Click(window, "cmdCanc");
  });
  EXPECT_EQ(help.contexts, std::vector{HelpContext::Timer});
}

}  // namespace

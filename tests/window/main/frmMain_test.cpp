#include "windows/main/frmMain.h"

#include "tests/window/WindowFixture.h"
#include "windows/main/frmAboutBox.h"
#include "windows/stacks/frmLoad.h"
#include "windows/study/frmStepper.h"
#include "windows/study/frmTime.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

namespace {

constexpr auto SpanishStack = "Spanish\r\nAnimals\r\ndog  \r\nperro  \r\n";
constexpr auto GeneralStack = "General\r\nPlants\r\ntree  \r\narbol  \r\n";
constexpr auto Settings =
    "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Spanish\r\n"
    "[General]\r\nFRONTFONT=MS Sans Serif\r\nFRONTSIZE=8.25\r\n"
    "BACKFONT=MS Sans Serif\r\nBACKSIZE=8.25\r\n"
    "[Spanish]\r\nFRONTFONT=DejaVu Sans\r\nFRONTSIZE=10\r\n"
    "BACKFONT=DejaVu Serif\r\nBACKSIZE=12.5\r\n";

class frmMainTest : public WindowTest {
 protected:
  frmMainTest() {
    files.Put(SettingsPath, Settings);
    files.Put(u"/cards/animals.QBC", SpanishStack);
    files.Put(u"/cards/plants.QBC", GeneralStack);
  }

  frmMain& Open(const Text& commandLine = {}) {
    main = std::make_unique<frmMain>(shared, platform, commandLine, nullptr);
    main->show();
    WaitUntilActive(*main);
    return *main;
  }

  void Trigger(const char* item) { Find<QAction>(*main, item).trigger(); }
  bool ItemEnabled(const char* item) { return Find<QAction>(*main, item).isEnabled(); }
  QString StackShown() { return Find<QComboBox>(*main, "cboStacks").currentText(); }

  void Load(const QString& name) {
    WithModal<frmLoad>([this] { Trigger("mnuLoad"); },
                       [&](frmLoad& window) {
                         QTest::keyClicks(&Find<QLineEdit>(window, "txtActFile"), name);
                         Click(window, "cmdOK");
                         if (window.isVisible()) Click(window, "cmdCancel");
                       });
  }

  std::unique_ptr<frmMain> main;
};

TEST_F(frmMainTest, StartsWithNothingLoaded) {
  frmMain& window = Open();
  EXPECT_EQ(window.windowTitle(), "Quib!Cards 5.50");
  EXPECT_EQ(StackShown(), "None");
  EXPECT_TRUE(IsEnabled(window, "ssrLoad"));
  for (const char* const button :
       {"ssrPrint", "ssrEdit", "ssrUnLoad", "ssrAction(0)", "ssrAction(1)"}) {
    EXPECT_FALSE(IsEnabled(window, button)) << button;
  }
}

TEST_F(frmMainTest, MakesTheSettingsFileOnAFirstStart) {
  (void)files.Remove(SettingsPath);
  Open();
  EXPECT_EQ(files.Content(SettingsPath),
            "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n[General]\r\nFRONTFONT=MS Sans Serif\r\n"
            "FRONTSIZE=8.25\r\nBACKFONT=MS Sans Serif\r\nBACKSIZE=8.25\r\n");
}

TEST_F(frmMainTest, CentresItself) {
  frmMain& window = Open();
  const QRect area = window.screen()->availableGeometry();
  const QRect frame = window.frameGeometry();
  EXPECT_EQ(frame.x(), (area.width() - frame.width()) / 2);
  EXPECT_EQ(frame.y(), (area.height() - frame.height()) / 2);
}

TEST_F(frmMainTest, TheDefaultTopicIsSelectedAtTheStart) {
  files.Put(SettingsPath, std::string(Settings).replace(18, 1, "1"));
  Open();
  EXPECT_EQ(shared.Topics.CurrentTopic, 1);
  EXPECT_TRUE(Find<QAction>(*main, "mnuTopicName(1)").isChecked());
  EXPECT_FALSE(Find<QAction>(*main, "mnuTopicName(0)").isChecked());
}

TEST_F(frmMainTest, TheCommandLineLoadsAStackAndSelectsItsTopic) {
  frmMain& window = Open(u"animals");
  EXPECT_EQ(StackShown(), "animals");
  EXPECT_EQ(shared.Topics.CurrentTopic, 1);
  EXPECT_TRUE(Find<QAction>(*main, "mnuTopicName(1)").isChecked());
  EXPECT_EQ(TextOf(window, "sspFrontFont"), "DejaVu Sans, 10");
  EXPECT_EQ(TextOf(window, "sspBackFont"), "DejaVu Serif, 12.5");
  EXPECT_TRUE(IsEnabled(window, "ssrAction(0)"));
}

TEST_F(frmMainTest, TheCommandLinesFolderBecomesTheDefaultFolder) {
  files.Put(u"/other/x.QBC", GeneralStack);
  Open(u"/other/x.QBC");
  EXPECT_EQ(shared.Switches.DefaultFolder, u"/other");
  EXPECT_EQ(StackShown(), "x");
}

TEST_F(frmMainTest, ACommandLineThatNamesAFolderLoadsNothingFromIt) {
  Open(u"/cards/");
  EXPECT_EQ(StackShown(), "None");
  EXPECT_EQ(shared.Switches.DefaultFolder, u"/cards");
}

TEST_F(frmMainTest, AFailedCommandLineIsToldWithTheTextOfAMissingFile) {
  prompts.Expect(Answer::Ok);
  files.failRead = FileStatus::Ok;
  Open(u"absent");
  ExpectPrompt(prompts.shown.at(0), u"Error: File not found\r\nCan't load file: absent.QBC",
               PromptIcon::Exclamation, PromptButtons::Ok);
  EXPECT_EQ(StackShown(), "None");
}

TEST_F(frmMainTest, LoadAppendsSelectsAndSwitchesToTheStacksTopic) {
  Open(u"plants");
  Load("animals.QBC");
  EXPECT_EQ(StackShown(), "animals");
  EXPECT_EQ(shared.Stacks.CurrentStack, 1);
  EXPECT_EQ(shared.Topics.CurrentTopic, 1);
  EXPECT_EQ(shared.Topic.Fonts.FrontFont, u"DejaVu Sans");
}

TEST_F(frmMainTest, LoadTakesTheTopicsSettingsFromTheFileAgain) {
  Open(u"plants");
  shared.Topic.Fonts.FrontFont = u"changed for this run";
  Load("plants.QBC");
  EXPECT_EQ(shared.Topic.Fonts.FrontFont, u"MS Sans Serif");
}

TEST_F(frmMainTest, ACancelledLoadChangesNothing) {
  Open(u"animals");
  WithModal<frmLoad>([this] { Trigger("mnuLoad"); },
                     [](frmLoad& window) { Click(window, "cmdCancel"); });
  EXPECT_EQ(StackShown(), "animals");
  EXPECT_EQ(shared.Topics.CurrentTopic, 1);
}

TEST_F(frmMainTest, AFailedLoadLeavesTheSelectedStack) {
  prompts.Expect(Answer::Ok);
  Open(u"animals");
  Load("absent.QBC");
  EXPECT_EQ(StackShown(), "animals");
  EXPECT_EQ(shared.Stacks.CurrentStack, 0);
}

TEST_F(frmMainTest, ChoosingAStackSwitchesToItsTopic) {
  Open(u"plants");
  Load("animals.QBC");
  auto& list = Find<QComboBox>(*main, "cboStacks");
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Up);
  EXPECT_EQ(shared.Stacks.CurrentStack, 0);
  EXPECT_EQ(shared.Topics.CurrentTopic, 0);
}

TEST_F(frmMainTest, ATopicOfTheMenuIsCheckedAloneAndItsFontsAreShown) {
  frmMain& window = Open();
  Trigger("mnuTopicName(1)");
  EXPECT_EQ(shared.Topics.CurrentTopic, 1);
  EXPECT_TRUE(Find<QAction>(window, "mnuTopicName(1)").isChecked());
  EXPECT_FALSE(Find<QAction>(window, "mnuTopicName(0)").isChecked());
  EXPECT_EQ(TextOf(window, "sspBackFont"), "DejaVu Serif, 12.5");
}

TEST_F(frmMainTest, AGapInTheTopicsHasNoMenuItem) {
  files.Put(SettingsPath, "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n2=A & B\r\n");
  Open();
  EXPECT_EQ(main->findChild<QAction*>("mnuTopicName(1)"), nullptr);
  EXPECT_EQ(Find<QAction>(*main, "mnuTopicName(2)").text(), "A && B");
}

TEST_F(frmMainTest, RemoveTakesTheStackOffTheListAndSelectsItsNeighbour) {
  Open(u"plants");
  Load("animals.QBC");
  Load("plants.QBC");
  Find<QComboBox>(*main, "cboStacks").setCurrentIndex(1);
  shared.Stacks.CurrentStack = 1;
  Trigger("mnuRemove");
  EXPECT_EQ(Find<QComboBox>(*main, "cboStacks").count(), 2);
  EXPECT_EQ(shared.Stacks.CurrentStack, 0);
  EXPECT_TRUE(files.Has(u"/cards/animals.QBC"));
}

TEST_F(frmMainTest, RemovingTheOnlyStackShowsNoneAndDisablesItsCommands) {
  frmMain& window = Open(u"plants");
  Click(window, "ssrUnLoad");
  EXPECT_EQ(StackShown(), "None");
  EXPECT_FALSE(IsEnabled(window, "ssrUnLoad"));
  EXPECT_FALSE(ItemEnabled("mnuRunItem(0)"));
}

TEST_F(frmMainTest, AStackCalledNoneHasItsCommandsDisabled) {
  files.Put(u"/cards/None.QBC", GeneralStack);
  Open(u"None");
  EXPECT_FALSE(ItemEnabled("mnuRunItem(0)"));
}

TEST_F(frmMainTest, StudyOpensAWindowOnlyAfterOk) {
  Open(u"plants");
  WithModal<frmTime>([this] { Trigger("mnuRunItem(0)"); },
                     [](frmTime& window) { Click(window, "cmdCanc"); });
  const auto studyWindow = [] {
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
      if (qobject_cast<frmStepper*>(widget) != nullptr) return qobject_cast<frmStepper*>(widget);
    }
    return static_cast<frmStepper*>(nullptr);
  };
  EXPECT_EQ(studyWindow(), nullptr);
  WithModal<frmTime>([this] { Click(*main, "ssrAction(0)"); },
                     [](frmTime& window) { Click(window, "cmdOK"); });
  ASSERT_NE(studyWindow(), nullptr);
  EXPECT_EQ(studyWindow()->windowTitle(), "Stepper - plants (General)");
}

TEST_F(frmMainTest, ClosingTheMainWindowClosesTheStudyWindowsAndTheSplash) {
  QWidget splash;
  splash.show();
  main = std::make_unique<frmMain>(shared, platform, u"plants", &splash);
  main->show();
  WaitUntilActive(*main);
  WithModal<frmTime>([this] { Trigger("mnuRunItem(0)"); },
                     [](frmTime& window) { Click(window, "cmdOK"); });
  Trigger("mnuQuit");
  EXPECT_FALSE(splash.isVisible());
  for (QWidget* const widget : QApplication::topLevelWidgets()) {
    EXPECT_FALSE(widget->isVisible()) << widget->objectName().toStdString();
  }
}

TEST_F(frmMainTest, TheSplashGoesWhenTheWindowIsFirstLeft) {
  QWidget splash;
  splash.show();
  main = std::make_unique<frmMain>(shared, platform, Text(), &splash);
  main->show();
  main->activateWindow();
  WaitUntilActive(*main);
  EXPECT_TRUE(splash.isVisible());
  WithModal<frmAboutBox>([this] { Trigger("mnuAbout"); },
                         [](frmAboutBox& window) { Click(window, "cmdOK"); });
  EXPECT_FALSE(splash.isVisible());
}

TEST_F(frmMainTest, TheAboutBoxTellsTheVersionAndOpensTheOverview) {
  Open();
  WithModal<frmAboutBox>([this] { Trigger("mnuAbout"); },
                         [](frmAboutBox& window) {
                           EXPECT_EQ(TextOf(window, "lblVersion"), "Version 5.50");
                           Click(window, "cmdOverview");
                           Click(window, "cmdOK");
                           EXPECT_FALSE(window.isVisible());
                         });
  EXPECT_EQ(help.contexts, std::vector{HelpContext::Overview});
}

TEST_F(frmMainTest, F1InTheAboutBoxOpensTheOverview) {
  Open();
  WithModal<frmAboutBox>([this] { Trigger("mnuAbout"); },
                         [](frmAboutBox& window) {
                           QTest::keyClick(&window, Qt::Key_F1);
                           Click(window, "cmdOK");
                         });
  EXPECT_EQ(help.contexts, std::vector{HelpContext::Overview});
}

TEST_F(frmMainTest, HelpItemsAskForTheirPages) {
  Open();
  for (const char* const item : {"mnuHlp_Index", "mnuMMHelp", "mnuUsing"}) Trigger(item);
  EXPECT_EQ(help.contexts,
            (std::vector{HelpContext::Index, HelpContext::MainMenu, HelpContext::UsingHelp}));
}

TEST_F(frmMainTest, EveryRibbonButtonHasAToolTipAndAnIcon) {
  frmMain& window = Open();
  for (const char* const name : {"ssrLoad", "ssrNew", "ssrEdit", "ssrPrint", "ssrUnLoad",
                                 "ssrAction(0)", "ssrAction(1)", "ssrAction(2)", "ssrAction(3)"}) {
    const auto& button = Find<QAbstractButton>(window, name);
    EXPECT_FALSE(button.toolTip().isEmpty()) << name;
    EXPECT_FALSE(button.icon().isNull()) << name;
  }
}

TEST_F(frmMainTest, DeleteOpensTheStackFileDialogInItsMode) {
  Open();
  WithModal<frmLoad>([this] { Trigger("mnuDel"); },
                     [](frmLoad& window) {
                       EXPECT_EQ(window.windowTitle(), "Delete Card Stack");
                       Click(window, "cmdCancel");
                     });
}

}  // namespace

// What the main window shows of the topics, and that it stays with the selected one.

#include "tests/window/WindowFixture.h"
#include "windows/authoring/frmEdit.h"
#include "windows/main/frmMain.h"
#include "windows/stacks/frmLoad.h"
#include "windows/topics/frmConfig.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>

namespace {

constexpr auto Settings =
    "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Latin\r\n2=Spanish\r\n"
    "[General]\r\nFRONTFONT=MS Sans Serif\r\nFRONTSIZE=8.25\r\n"
    "BACKFONT=MS Sans Serif\r\nBACKSIZE=8.25\r\n"
    "[Spanish]\r\nFRONTFONT=DejaVu Sans\r\nFRONTSIZE=10\r\n"
    "BACKFONT=DejaVu Serif\r\nBACKSIZE=12.5\r\n";

class frmMainTopicsTest : public WindowTest {
 protected:
  frmMainTopicsTest() {
    files.Put(SettingsPath, Settings);
    files.Put(u"/cards/plants.QBC", "General\r\nPlants\r\ntree  \r\narbol  \r\n");
    files.Put(u"/cards/animals.QBC", "Spanish\r\nAnimals\r\ndog  \r\nperro  \r\n");
  }

  void Open(const Text& stack = u"plants") {
    main = std::make_unique<frmMain>(shared, platform, stack, nullptr);
    main->show();
    WaitUntilActive(*main);
  }
  void Trigger(const char* item) { Find<QAction>(*main, item).trigger(); }
  void Edit(const std::function<void(frmEdit&)>& act) {
    prompts.Expect(Answer::No);  // the cards are not saved
    WithModal<frmEdit>([this] { Trigger("mnuEdit"); },
                       [&](frmEdit& window) {
                         act(window);
                         window.close();
                       });
  }
  void Delete(const std::function<void(frmConfig&)>& act) {
    WithModal<frmConfig>([this] { Trigger("mnuDeleteTopic"); },
                         [&](frmConfig& window) {
                           act(window);
                           Click(window, "cmdCancel");
                         });
  }
  static void Choose(frmConfig& window, int row) {
    auto& list = Find<QListWidget>(window, "lstTopic");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(row)).center());
    Click(window, "cmdAction");
  }
  QString Checked() {
    QStringList names;
    for (const QAction* const item : main->findChildren<QAction*>()) {
      if (item->objectName().startsWith("mnuTopicName(") && item->isChecked())
        names << item->text();
    }
    return names.join('|');
  }
  QString Notice() {
    const auto* const label = main->findChild<QLabel*>("lblSettings");
    return label == nullptr || label->isHidden() ? QString() : label->text();
  }

  std::unique_ptr<frmMain> main;
};

TEST_F(frmMainTopicsTest, FontsForTheRunSurviveWhateverSelectsNoTopic) {
  Open();
  shared.Topic.Fonts.FrontFont = u"for the run only";
  Edit([](frmEdit&) {});
  EXPECT_EQ(shared.Topic.Fonts.FrontFont, u"for the run only");
  Delete([](frmConfig&) {});
  EXPECT_EQ(shared.Topic.Fonts.FrontFont, u"for the run only");
  WithModal<frmConfig>([this] { Trigger("mnuAddTopic"); },
                       [](frmConfig& window) { Click(window, "cmdCancel"); });
  EXPECT_EQ(shared.Topic.Fonts.FrontFont, u"for the run only");
  prompts.Expect(Answer::Yes);
  Delete([](frmConfig& window) { Choose(window, 1); });
  EXPECT_EQ(shared.Topic.Fonts.FrontFont, u"for the run only") << "another topic was deleted";
  Trigger("mnuTopicName(0)");
  EXPECT_EQ(shared.Topic.Fonts.FrontFont, u"MS Sans Serif");
}

TEST_F(frmMainTopicsTest, ATopicThatIsChangedInTheEditorShowsAtOnce) {
  Open();
  Edit([this](frmEdit& window) {
    WithModal<frmConfig>([&] { Find<QAction>(window, "mnuTopic").trigger(); },
                         [](frmConfig& topics) { Choose(topics, 2); });
    EXPECT_EQ(Checked(), "Spanish");
    EXPECT_EQ(TextOf(*main, "lblStackInfo"), "1 card, topic Spanish");
    EXPECT_EQ(TextOf(*main, "sspFrontFont"), "DejaVu Sans, 10");
    EXPECT_EQ(TextOf(*main, "sspBackFont"), "DejaVu Serif, 12.5");
  });
}

TEST_F(frmMainTopicsTest, DeletingTheSelectedTopicSelectsGeneral) {
  Open(u"animals");
  prompts.Expect(Answer::Yes);
  Delete([](frmConfig& window) { Choose(window, 1); });
  EXPECT_EQ(Checked(), "General");
  EXPECT_EQ(TextOf(*main, "sspFrontFont"), "MS Sans Serif, 8.25");
  EXPECT_EQ(shared.Stacks.Current().TopicIndex, 0);
}

TEST_F(frmMainTopicsTest, TheSelectedTopicIsFollowedWhenAnotherProgramDeletesOne) {
  Open(u"animals");
  ProfileFile other(files, SettingsPath);
  TopicList others = shared.Topics;
  EXPECT_TRUE(DeleteTopic(others, other, 1).written);
  Delete([](frmConfig&) {});
  EXPECT_EQ(Checked(), "Spanish");
  EXPECT_EQ(shared.Topics.CurrentTopic, 1);
  EXPECT_EQ(shared.Stacks.Current().TopicIndex, 1);
  EXPECT_EQ(main->findChild<QAction*>("mnuTopicName(2)"), nullptr);
}

TEST_F(frmMainTopicsTest, UnreadableSettingsAreToldAndGeneralIsNoUnknownTopic) {
  files.Put(SettingsPath, std::string("\xFF\xFE[\0", 4));
  Open();
  EXPECT_EQ(Notice(), "The settings file is UTF-16 text, which is neither read nor changed.");
  EXPECT_EQ(TextOf(*main, "lblStackInfo"), "1 card, topic General");
  EXPECT_EQ(files.Content(SettingsPath), std::string("\xFF\xFE[\0", 4));
  files.Put(SettingsPath, Settings);
  WithModal<frmConfig>([this] { Trigger("mnuAddTopic"); },
                       [](frmConfig& window) { Click(window, "cmdCancel"); });
  EXPECT_EQ(Notice(), "");
  EXPECT_EQ(shared.Topics.TopicCount, 2);
}

TEST_F(frmMainTopicsTest, SettingsThatCannotBeMadeAreTold) {
  (void)files.Remove(SettingsPath);
  files.failReplace = FileStatus::PathAccess;
  Open();
  EXPECT_EQ(Notice(), "The settings cannot be saved.");
  EXPECT_EQ(TextOf(*main, "lblStackInfo"), "1 card, topic General");
}

}  // namespace

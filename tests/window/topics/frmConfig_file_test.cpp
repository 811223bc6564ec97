// The topic dialog where the settings file changes under it, or cannot be written.

#include "tests/window/WindowFixture.h"
#include "windows/keys/frmAddKey.h"
#include "windows/printing/frmPrint.h"
#include "windows/topics/frmConfig.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace {

constexpr auto Settings =
    "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Spanish\r\n2=French\r\n3=Latin\r\n"
    "[Spanish]\r\nFRONTFONT=Arial\r\n[French]\r\nFRONTFONT=Times\r\n";

class frmConfigFileTest : public WindowTest {
 protected:
  frmConfigFileTest() {
    files.Put(SettingsPath, Settings);
    LoadTopicList(shared.Topics, profile);
    others = shared.Topics;
  }

  void WithDelete(const std::function<void(frmConfig&)>& act) {
    WithDialog([&] { frmConfig::ShowToDelete(shared, platform, nullptr, [](const Text&) {}); },
               act);
  }
  void WithChange(const std::function<void(frmConfig&)>& act) {
    WithDialog([&] { frmConfig::ShowToChange(shared, platform, nullptr); }, act);
  }
  void WithAdd(const Text& proposed, const std::function<void(frmConfig&)>& act) {
    WithDialog([&] { frmConfig::ShowToAdd(shared, platform, nullptr, proposed); }, act);
  }
  static void WithDialog(const std::function<void()>& open,
                         const std::function<void(frmConfig&)>& act) {
    WithModal<frmConfig>(open, [&](frmConfig& window) {
      act(window);
      if (window.isVisible()) Click(window, "cmdCancel");
    });
  }

  void AnotherProgramDeletes(const Text& name) {
    ProfileFile other(files, SettingsPath);
    LoadTopicList(others, other);
    EXPECT_TRUE(DeleteTopic(others, other, FindTopic(others, name)).written);
  }

  static QStringList Listed(frmConfig& window) {
    const auto& list = Find<QListWidget>(window, "lstTopic");
    QStringList names;
    for (int i = 0; i < list.count(); ++i) names << list.item(i)->text();
    return names;
  }
  static QStringList Chosen(frmConfig& window) {
    QStringList names;
    for (const QListWidgetItem* const item : Find<QListWidget>(window, "lstTopic").selectedItems())
      names << item->text();
    return names;
  }
  static void Choose(frmConfig& window, int row) {
    auto& list = Find<QListWidget>(window, "lstTopic");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(row)).center());
  }
  /// As when the user comes back from another program.
  static void Return(frmConfig& window) {
    QEvent left(QEvent::ActivationChange);
    QCoreApplication::sendEvent(&window, &left);
  }
  static QString Notice(frmConfig& window) {
    const auto* const label = window.findChild<QLabel*>("lblSettings");
    return label == nullptr || label->isHidden() ? QString() : label->text();
  }

  TopicList others;
};

TEST_F(frmConfigFileTest, ADeletionThatCannotBeWrittenDidNotHappen) {
  shared.Topics.CurrentTopic = 2;
  LoadStack(u"Verbs", 1).TopicIndex = 2;
  files.failCommit = FileStatus::DiskFull;
  for (int i = 0; i < 2; ++i) prompts.Expect(Answer::Yes);
  WithDelete([&](frmConfig& window) {
    EXPECT_EQ(Notice(window), "");
    for (const int row : {0, 1}) {
      Choose(window, row);
      Click(window, "cmdAction");
      EXPECT_EQ(Listed(window), (QStringList{"Spanish", "French", "Latin"}));
      EXPECT_EQ(Notice(window), "The settings cannot be saved.");
      EXPECT_FALSE(IsEnabled(window, "cmdAction"));
    }
  });
  EXPECT_EQ(shared.Topics.Name(shared.Topics.CurrentTopic), u"French");
  EXPECT_EQ(shared.Stacks.Current().TopicIndex, 2);
  EXPECT_EQ(files.Content(SettingsPath), Settings);
}

TEST_F(frmConfigFileTest, TheListIsReadAnewWhenTheWindowIsEntered) {
  LoadStack(u"Verbs", 1).TopicIndex = 3;
  WithDelete([&](frmConfig& window) {
    Choose(window, 2);
    AnotherProgramDeletes(u"Spanish");
    Return(window);
    EXPECT_EQ(Listed(window), (QStringList{"French", "Latin"}));
    EXPECT_EQ(Chosen(window), QStringList{"Latin"});
    EXPECT_TRUE(IsEnabled(window, "cmdAction"));
    AnotherProgramDeletes(u"Latin");
    Return(window);
    EXPECT_EQ(Chosen(window), QStringList());
    EXPECT_FALSE(IsEnabled(window, "cmdAction"));
  });
  EXPECT_EQ(shared.Stacks.Current().TopicIndex, 0);
}

TEST_F(frmConfigFileTest, DeleteMeansTheTopicThatWasShown) {
  prompts.Expect(Answer::Yes);
  WithDelete([&](frmConfig& window) {
    Choose(window, 1);  // French
    AnotherProgramDeletes(u"Spanish");
    Click(window, "cmdAction");
    EXPECT_EQ(Listed(window), QStringList{"Latin"});
  });
  EXPECT_EQ(prompts.shown.at(0).text, u"Delete French and its keys?");
  EXPECT_EQ(files.Content(SettingsPath), "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Latin\r\n");
}

TEST_F(frmConfigFileTest, NothingIsAskedAboutATopicThatIsGone) {
  WithDelete([&](frmConfig& window) {
    Choose(window, 0);
    AnotherProgramDeletes(u"Spanish");
    Click(window, "cmdAction");
    EXPECT_EQ(Listed(window), (QStringList{"French", "Latin"}));
    EXPECT_FALSE(IsEnabled(window, "cmdAction"));
  });
}

TEST_F(frmConfigFileTest, ChangeMeansTheTopicThatWasShown) {
  WithChange([&](frmConfig& window) {
    Choose(window, 3);  // Latin
    AnotherProgramDeletes(u"Spanish");
    Click(window, "cmdAction");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shared.Topics.Name(shared.Topics.CurrentTopic), u"Latin");
}

TEST_F(frmConfigFileTest, ATopicThatAnotherProgramHasAddedIsTaken) {
  prompts.Expect(Answer::Ok);
  WithAdd(u"", [&](frmConfig& window) {
    ProfileFile other(files, SettingsPath);
    EXPECT_EQ(SaveTopicAndKeys(other, others, u"Greek", {}, {}), TopicSave::Saved);
    Find<QLineEdit>(window, "txtTopic").setText("Greek");
    Click(window, "cmdAction");
  });
  EXPECT_EQ(prompts.shown.at(0).text, u"Greek already exists.  Re-enter.");
}

TEST_F(frmConfigFileTest, ANameInAnotherLetterCaseIsWarnedAbout) {
  prompts.Expect(Answer::No);
  WithAdd(u"", [](frmConfig& window) {
    Find<QLineEdit>(window, "txtTopic").setText("spanish");
    Click(window, "cmdAction");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Find<QLineEdit>(window, "txtTopic").text(), "spanish");
  });
  ExpectPrompt(prompts.shown.at(0),
               u"spanish and Spanish would share their fonts and keys, and those of Spanish would "
               u"be replaced.\r\nAdd it?",
               PromptIcon::Exclamation, PromptButtons::YesNo);
  EXPECT_EQ(files.Content(SettingsPath), Settings);
}

TEST_F(frmConfigFileTest, ATopicThatCannotBeWrittenKeepsItsWindowOpen) {
  SelectTopic(shared.Topics, shared.Topic, profile, 1);
  const std::string before = files.Content(SettingsPath);
  const TopicFonts fonts = shared.Topic.Fonts;
  files.failReplace = FileStatus::PathAccess;
  prompts.Expect(Answer::Yes);
  prompts.Expect(Answer::No);
  WithAdd(u"Greek", [&](frmConfig& window) {
    WithModal<frmAddKey>(
        [&] {
          WithModal<frmPrint>(
              [&] { QTest::keyClick(&Find<QLineEdit>(window, "txtTopic"), Qt::Key_Return); },
              [](frmPrint& shown) {
                Find<QLineEdit>(shown, "txtFSize").setText("20");
                Click(shown, "cmdOK");
              });
        },
        [](frmAddKey& keys) {
          Click(keys, "cmdDone");
          EXPECT_TRUE(keys.isVisible());
          EXPECT_EQ(TextOf(keys, "lblSettings"), "The settings cannot be saved.");
          Click(keys, "cmdDone");
          EXPECT_FALSE(keys.isVisible());
        });
  });
  EXPECT_EQ(shared.Topics.TopicCount, 3);
  EXPECT_EQ(shared.Topics.CurrentTopic, 1);
  EXPECT_EQ(shared.Topic.Fonts, fonts) << "the fonts of the topic that was not added";
  EXPECT_EQ(files.Content(SettingsPath), before);
}

TEST_F(frmConfigFileTest, UnreadableSettingsAreTold) {
  WithDelete([&](frmConfig& window) {
    files.failRead = FileStatus::PathAccess;
    Return(window);
    EXPECT_EQ(Notice(window), "The settings file cannot be read; nothing is saved in it.");
    EXPECT_EQ(Listed(window), (QStringList{"Spanish", "French", "Latin"}));
    files.failRead = FileStatus::Ok;
    Return(window);
    EXPECT_EQ(Notice(window), "");
  });
}

}  // namespace

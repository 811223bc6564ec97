#include "windows/topics/frmConfig.h"

#include "tests/window/WindowFixture.h"
#include "windows/keys/frmAddKey.h"
#include "windows/printing/frmPrint.h"

#include <QInputMethodEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace {

constexpr auto Settings =
    "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Spanish\r\n2=French\r\n"
    "[General]\r\nFRONTFONT=MS Sans Serif\r\nFRONTSIZE=8.25\r\n"
    "BACKFONT=MS Sans Serif\r\nBACKSIZE=8.25\r\n"
    "[Spanish]\r\nFRONTFONT=Arial\r\n[French]\r\nFRONTFONT=Times\r\n";

class frmConfigTest : public WindowTest {
 protected:
  frmConfigTest() {
    files.Put(SettingsPath, Settings);
    LoadTopicList(shared.Topics, profile);
  }

  void WithAdd(const Text& proposed, const std::function<void(frmConfig&)>& act) {
    Run([&] { frmConfig::ShowToAdd(shared, platform, nullptr, proposed); }, act);
  }
  void WithChange(const std::function<void(frmConfig&)>& act) {
    Run([&] { frmConfig::ShowToChange(shared, platform, nullptr); }, act);
  }
  void WithDelete(const std::function<void(frmConfig&)>& act) {
    Run(
        [&] {
          frmConfig::ShowToDelete(shared, platform, nullptr,
                                  [&](const Text& topic) { closedFor.push_back(topic); });
        },
        act);
  }

  static void Run(const std::function<void()>& open, const std::function<void(frmConfig&)>& act) {
    WithModal<frmConfig>(open, [&](frmConfig& window) {
      act(window);
      if (window.isVisible()) Click(window, "cmdCancel");
    });
  }

  static QStringList Listed(frmConfig& window) {
    const auto& list = Find<QListWidget>(window, "lstTopic");
    QStringList names;
    for (int i = 0; i < list.count(); ++i) names << list.item(i)->text();
    return names;
  }

  static void Choose(frmConfig& window, int row) {
    auto& list = Find<QListWidget>(window, "lstTopic");
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(row)).center());
  }

  static QLineEdit& Name(frmConfig& window) { return Find<QLineEdit>(window, "txtTopic"); }
  static QString CaptionOf(frmConfig& window, const char* name) {
    return Find<QPushButton>(window, name).text();
  }

  std::vector<Text> closedFor;
};

TEST_F(frmConfigTest, AnArrowKeyChoosesTheFirstTopicFirst) {
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home}) {
    const auto press = [key](frmConfig& window) {
      auto& list = Find<QListWidget>(window, "lstTopic");
      EXPECT_TRUE(list.hasFocus());
      EXPECT_FALSE(IsEnabled(window, "cmdAction"));
      QTest::keyClick(&list, key);
      ASSERT_EQ(list.selectedItems().size(), 1);
      EXPECT_EQ(list.row(list.selectedItems().first()), 0);
      EXPECT_TRUE(IsEnabled(window, "cmdAction"));
    };
    WithDelete(press);
    WithChange(press);
  }
}

TEST_F(frmConfigTest, TheArrowKeysBeginAnewAfterADeletion) {
  WithDelete([this](frmConfig& window) {
    Choose(window, 1);
    prompts.Expect(Answer::Yes);
    Click(window, "cmdAction");
    EXPECT_FALSE(IsEnabled(window, "cmdAction"));
    auto& list = Find<QListWidget>(window, "lstTopic");
    list.setFocus();
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_TRUE(IsEnabled(window, "cmdAction"));
    ASSERT_EQ(list.selectedItems().size(), 1);
    EXPECT_EQ(list.selectedItems().first()->text(), "Spanish");
  });
}

TEST_F(frmConfigTest, AddModeAsksForAName) {
  WithAdd(u"", [](frmConfig& window) {
    EXPECT_EQ(window.windowTitle(), "Add Topic");
    EXPECT_EQ(CaptionOf(window, "cmdAction"), "&Continue");
    EXPECT_EQ(CaptionOf(window, "cmdCancel"), "Ca&ncel");
    EXPECT_TRUE(Name(window).isVisible());
    EXPECT_FALSE(Find<QListWidget>(window, "lstTopic").isVisible());
    EXPECT_FALSE(IsEnabled(window, "cmdAction"));
  });
}

TEST_F(frmConfigTest, AProposedNameIsShownWithoutWhatWouldBreakItsSection) {
  WithAdd(u" Ital[i]an ", [](frmConfig& window) { EXPECT_EQ(Name(window).text(), "Italian"); });
}

TEST_F(frmConfigTest, AProposedNameIsShownWholeAndContinuesAfterAChange) {
  WithAdd(u"A name that is much longer than a topic's", [](frmConfig& window) {
    EXPECT_EQ(Name(window).text(), "A name that is much longer than a topic's");
    EXPECT_FALSE(IsEnabled(window, "cmdAction"));
    QTest::keyClick(&Name(window), Qt::Key_Backspace);
    EXPECT_TRUE(IsEnabled(window, "cmdAction"));
  });
}

TEST_F(frmConfigTest, TypingStopsAt21Characters) {
  WithAdd(u"", [](frmConfig& window) {
    QTest::keyClicks(&Name(window), QString(23, u'x'));
    EXPECT_EQ(Name(window).text(), QString(21, u'x'));
    QTest::keyClick(&Name(window), Qt::Key_Backspace);
    EXPECT_EQ(Name(window).text(), QString(20, u'x'));
    QInputMethodEvent composed;
    composed.setCommitString("\u00E9\u00E8");
    QCoreApplication::sendEvent(&Name(window), &composed);
    EXPECT_EQ(Name(window).text(), QString(20, u'x') + u'\u00E9');
  });
}

TEST_F(frmConfigTest, BracketsCannotBeTyped) {
  WithAdd(u"", [](frmConfig& window) {
    QTest::keyClicks(&Name(window), "a[b]c");
    EXPECT_EQ(Name(window).text(), "abc");
  });
}

TEST_F(frmConfigTest, AnEmptyNameOnlyDisablesTheButton) {
  WithAdd(u"x", [](frmConfig& window) {
    Name(window).setText("   ");
    Click(window, "cmdAction");
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(IsEnabled(window, "cmdAction"));
  });
}

TEST_F(frmConfigTest, ATakenNameIsToldAndTheBoxCleared) {
  prompts.Expect(Answer::Ok);
  prompts.Expect(Answer::Ok);
  WithAdd(u"", [](frmConfig& window) {
    for (const char* const name : {"Spanish", "topics"}) {
      Name(window).setText(name);
      Click(window, "cmdAction");
      EXPECT_EQ(Name(window).text(), "");
    }
  });
  ExpectPrompt(prompts.shown.at(0), u"Spanish already exists.  Re-enter.", PromptIcon::Exclamation,
               PromptButtons::Ok);
}

TEST_F(frmConfigTest, ANewNameLeadsThroughFontsAndKeysIntoTheSettings) {
  prompts.Expect(Answer::Yes);
  WithAdd(u"", [&](frmConfig& window) {
    Name(window).setText("Italian  and much more to say");
    WithModal<frmAddKey>(
        [&] {
          WithModal<frmPrint>([&] { Click(window, "cmdAction"); },
                              [&](frmPrint& fonts) {
                                EXPECT_EQ(shared.Switches.NewTopicName, u"Italian  and much mo");
                                Click(fonts, "cmdOK");
                              });
        },
        [](frmAddKey& keys) { Click(keys, "cmdDone"); });
    EXPECT_FALSE(window.isVisible());
  });
  ExpectPrompt(prompts.shown.at(0), u"Add Italian  and much mo and keys to File?",
               PromptIcon::Question, PromptButtons::YesNo);
  EXPECT_EQ(shared.Topics.TopicCount, 3);
  EXPECT_EQ(shared.Topics.Name(3), u"Italian  and much mo");
  EXPECT_EQ(shared.Switches.NewTopicName, u"");
  EXPECT_FALSE(shared.Switches.NewTopicMode);
}

TEST_F(frmConfigTest, ChangeModeListsEveryTopicFromTheFirst) {
  WithChange([](frmConfig& window) {
    EXPECT_EQ(window.windowTitle(), "Change Topic");
    EXPECT_EQ(CaptionOf(window, "cmdAction"), "&Change");
    EXPECT_EQ(Listed(window), (QStringList{"General", "Spanish", "French"}));
  });
}

TEST_F(frmConfigTest, ChangeSelectsTheChosenTopicAndCloses) {
  WithChange([](frmConfig& window) {
    Choose(window, 2);
    Click(window, "cmdAction");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shared.Topics.CurrentTopic, 2);
  EXPECT_EQ(shared.Switches.NewTopicName, u"");
}

TEST_F(frmConfigTest, AGapKeepsItsPlaceAndCannotBeChosen) {
  profile.WriteString(u"TOPICS", u"1", u"");
  LoadTopicList(shared.Topics, profile);
  WithChange([](frmConfig& window) {
    EXPECT_EQ(Listed(window), (QStringList{"General", "", "French"}));
    Choose(window, 1);
    Click(window, "cmdAction");
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(IsEnabled(window, "cmdAction"));
  });
  EXPECT_EQ(shared.Topics.CurrentTopic, 0);
}

TEST_F(frmConfigTest, DeleteModeNeverListsTheFirstTopic) {
  WithDelete([](frmConfig& window) {
    EXPECT_EQ(window.windowTitle(), "Delete Topic");
    EXPECT_EQ(CaptionOf(window, "cmdAction"), "&Delete");
    EXPECT_EQ(CaptionOf(window, "cmdCancel"), "Do&ne");
    EXPECT_EQ(Listed(window), (QStringList{"Spanish", "French"}));
    EXPECT_FALSE(IsEnabled(window, "cmdAction"));
  });
}

TEST_F(frmConfigTest, YesDeletesTheTopicAndTheDialogStays) {
  prompts.Expect(Answer::Yes);
  shared.Topics.CurrentTopic = 1;
  LoadStack(u"Verbs", 1).TopicIndex = 1;
  WithDelete([](frmConfig& window) {
    Choose(window, 0);
    Click(window, "cmdAction");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Listed(window), QStringList{"French"});
  });
  ExpectPrompt(prompts.shown.at(0), u"Delete Spanish and its keys?", PromptIcon::Question,
               PromptButtons::YesNo);
  EXPECT_EQ(files.Content(SettingsPath),
            "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=French\r\n"
            "[General]\r\nFRONTFONT=MS Sans Serif\r\nFRONTSIZE=8.25\r\n"
            "BACKFONT=MS Sans Serif\r\nBACKSIZE=8.25\r\n"
            "[French]\r\nFRONTFONT=Times\r\n");
  EXPECT_EQ(closedFor, std::vector<Text>{u"Spanish"});
  EXPECT_EQ(shared.Topics.CurrentTopic, 0);
  EXPECT_EQ(shared.Stacks.Current().TopicIndex, 0);
}

TEST_F(frmConfigTest, SeveralTopicsCanBeDeletedInARow) {
  prompts.Expect(Answer::Yes);
  prompts.Expect(Answer::Yes);
  WithDelete([](frmConfig& window) {
    Choose(window, 0);
    Click(window, "cmdAction");
    Choose(window, 0);
    Click(window, "cmdAction");
    EXPECT_EQ(Listed(window), QStringList());
  });
  EXPECT_EQ(shared.Topics.TopicCount, 0);
  EXPECT_EQ(closedFor, (std::vector<Text>{u"Spanish", u"French"}));
}

TEST_F(frmConfigTest, NoDeletesNothing) {
  prompts.Expect(Answer::No);
  WithDelete([](frmConfig& window) {
    Choose(window, 1);
    Click(window, "cmdAction");
    EXPECT_EQ(Listed(window).size(), 2);
  });
  EXPECT_EQ(files.Content(SettingsPath), Settings);
}

TEST_F(frmConfigTest, EscapeCancelsAndNothingIsLeftBehind) {
  WithDelete([](frmConfig& window) {
    Choose(window, 0);
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shared.Switches.NewTopicName, u"");
}

TEST_F(frmConfigTest, HelpAsksForItsPage) {
  WithDelete([](frmConfig& window) { Find<QAction>(window, "mnuHelp").trigger(); });
  EXPECT_EQ(help.contexts, std::vector{HelpContext::Topics});
}

}  // namespace

#include "windows/stacks/frmLoad.h"

#include "tests/window/cards/LoadFixture.h"

#include <QDir>

namespace {

TEST_F(frmLoadTest, ShowsTheTextsOfItsMode) {
  struct Row {
    FileDialogMode mode;
    QString caption;
    QString label;
  };
  for (const Row& row : {Row{FileDialogMode::Load, "Load Stack of Cards", "Select &File:"},
                         Row{FileDialogMode::Delete, "Delete Card Stack", "Delete &File:"},
                         Row{FileDialogMode::SaveNew, "Save Stack of Cards", "Save &File:"},
                         Row{FileDialogMode::SaveEdited, "Save Stack of Cards", "Save &File:"}}) {
    WithDialog(row.mode, [&](frmLoad& window) {
      EXPECT_EQ(window.windowTitle(), row.caption);
      EXPECT_EQ(TextOf(window, "lblFile"), row.label);
    });
  }
}

TEST_F(frmLoadTest, ListsStackAndImportFilesToLoad) {
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    EXPECT_EQ(ItemsOf(window, "filStack"), (QStringList{"animals.QBC", "import.qbs"}));
    EXPECT_EQ(ItemsOf(window, "dirDirectory"), (QStringList{"..", "more"}));
  });
}

TEST_F(frmLoadTest, ListsStackFilesAloneToSave) {
  WithDialog(FileDialogMode::SaveNew, [](frmLoad& window) {
    EXPECT_EQ(ItemsOf(window, "filStack"), QStringList{"animals.QBC"});
  });
}

TEST_F(frmLoadTest, ProposesTheStacksNameForAnEditedStack) {
  LoadStack(u"my verbs", 1);
  WithDialog(FileDialogMode::SaveEdited, [](frmLoad& window) {
    EXPECT_EQ(Find<QLineEdit>(window, "txtActFile").text(), "my verbs.QBC");
  });
  WithDialog(FileDialogMode::SaveNew,
             [](frmLoad& window) { EXPECT_EQ(Find<QLineEdit>(window, "txtActFile").text(), ""); });
}

TEST_F(frmLoadTest, LoadsATypedFileAndNamesTheStackAfterIt) {
  prompts.Expect(Answer::Ok);
  files.Put(u"/cards/animals.QBC", std::string("\r\n") + (TwoCards + 9));  // names no topic
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    TypeName(window, "animals.QBC");
    Click(window, "cmdOK");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shared.Stacks.Current().StackName, u"animals");
  EXPECT_EQ(shared.Stacks.Current().CardCount, 2);
  ExpectPrompt(prompts.shown.at(0),
               u"No Topic for this file.\r\nAdd one with the Edit CardStack Function.",
               PromptIcon::Question, PromptButtons::Ok);
}

TEST_F(frmLoadTest, EnterInTheBoxIsOkOnce) {
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    TypeName(window, "animals.QBC");
    QTest::keyClick(&Find<QLineEdit>(window, "txtActFile"), Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shared.Stacks.StackCount, 0);
}

TEST_F(frmLoadTest, AClickNamesAFileAndADoubleClickConfirmsItOnce) {
  WithDialog(FileDialogMode::Load, [this](frmLoad& window) {
    ClickItem(window, "filStack", "animals.QBC");
    EXPECT_EQ(Find<QLineEdit>(window, "txtActFile").text(), "animals.QBC");
    EXPECT_EQ(shared.Stacks.StackCount, -1);
    ClickItem(window, "filStack", "animals.QBC", true);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shared.Stacks.StackCount, 0);
}

TEST_F(frmLoadTest, EnterInTheFileListConfirmsOnce) {
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    auto& list = Find<QListWidget>(window, "filStack");
    list.setFocus();
    list.setCurrentRow(0);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shared.Stacks.StackCount, 0);
}

TEST_F(frmLoadTest, AFolderOpensByDoubleClickAndBecomesTheDefaultFolder) {
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    ClickItem(window, "dirDirectory", "more", true);
    EXPECT_EQ(ItemsOf(window, "filStack"), QStringList{"plants.QBC"});
    ClickItem(window, "filStack", "plants.QBC", true);
  });
  EXPECT_EQ(shared.Switches.DefaultFolder, u"/cards/more");
  EXPECT_EQ(shared.Stacks.Current().StackName, u"plants");
}

TEST_F(frmLoadTest, EnterInTheFolderListOpensTheFolderOnly) {
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    TypeName(window, "animals.QBC");
    auto& list = Find<QListWidget>(window, "dirDirectory");
    list.setFocus();
    list.setCurrentRow(1);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(ItemsOf(window, "filStack"), QStringList{"plants.QBC"});
  });
  EXPECT_EQ(shared.Stacks.StackCount, -1);
}

TEST_F(frmLoadTest, ANameThatNamesNoFileReturnsTheFocusToTheBox) {
  for (const char* const name : {"", "*.QBC", "a?.QBC", ".x"}) {
    WithDialog(FileDialogMode::Load, [&](frmLoad& window) {
      const int before = files.reads;  // those for the window's size
      TypeName(window, name);
      Click(window, "cmdOK");
      EXPECT_TRUE(window.isVisible());
      EXPECT_TRUE(Find<QWidget>(window, "txtActFile").hasFocus());
      Click(window, "cmdDesc");
      EXPECT_TRUE(Find<QWidget>(window, "txtActFile").hasFocus());
      EXPECT_EQ(files.reads, before);
    });
  }
}

TEST_F(frmLoadTest, ATypedFolderIsIgnored) {
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    TypeName(window, "/elsewhere/animals.QBC");
    Click(window, "cmdOK");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shared.Stacks.Current().StackName, u"animals");
}

TEST_F(frmLoadTest, AFailureIsToldAndTheDialogStays) {
  prompts.Expect(Answer::Ok);
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    TypeName(window, "absent.QBC");
    Click(window, "cmdOK");
    EXPECT_TRUE(window.isVisible());
  });
  ExpectPrompt(prompts.shown.at(0), u"The file was not found.", PromptIcon::Exclamation,
               PromptButtons::Ok, u"Quib!Cards 5.50 Error");
  EXPECT_EQ(shared.Stacks.StackCount, -1);
}

TEST_F(frmLoadTest, AFileOfTwoLinesHasNoCards) {
  prompts.Expect(Answer::Ok);
  files.Put(u"/cards/empty.QBC", "General\r\nNothing\r\n");
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    TypeName(window, "empty.QBC");
    Click(window, "cmdOK");
  });
  EXPECT_EQ(prompts.shown.at(0).text, u"No Cards in file.");
}

TEST_F(frmLoadTest, DescriptionShowsThatOfTheFileAndKeepsTheLoadedOne) {
  shared.Stacks.StackDescription = u"Loaded";
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    TypeName(window, "animals.QBC");
    Click(window, "cmdDesc");
    EXPECT_EQ(TextOf(window, "lblDesc"), "Animals");
    TypeName(window, "other");
    EXPECT_EQ(TextOf(window, "lblDesc"), "");
  });
  EXPECT_EQ(shared.Stacks.StackDescription, u"Loaded");
  EXPECT_EQ(shared.Stacks.StackCount, -1);
}

TEST_F(frmLoadTest, YesDeletesTheFileAndClosesTheDialog) {
  prompts.Expect(Answer::Yes);
  WithDialog(FileDialogMode::Delete, [](frmLoad& window) {
    TypeName(window, "animals.QBC");
    Click(window, "cmdOK");
    EXPECT_FALSE(window.isVisible());
  });
  ExpectPrompt(prompts.shown.at(0), u"Delete /cards/animals.QBC\r\nAre you sure?",
               PromptIcon::Question, PromptButtons::YesNo);
  EXPECT_FALSE(files.Has(u"/cards/animals.QBC"));
}

TEST_F(frmLoadTest, NoDeletesNothingClearsTheNameAndKeepsTheDialog) {
  prompts.Expect(Answer::No);
  WithDialog(FileDialogMode::Delete, [](frmLoad& window) {
    TypeName(window, "animals.QBC");
    Click(window, "cmdOK");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Find<QLineEdit>(window, "txtActFile").text(), "");
  });
  EXPECT_TRUE(files.Has(u"/cards/animals.QBC"));
}

TEST_F(frmLoadTest, SavingANewStackAddsTheExtensionAndNamesTheStack) {
  shared.Stacks.StackDescription = u"Kept";
  LoadStack(u"", 1);
  WithDialog(FileDialogMode::SaveNew, [](frmLoad& window) {
    TypeName(window, "verbs");
    SaveNew(window, "All kinds");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(files.Content(u"/cards/verbs.QBC"),
            "General\r\nAll kinds" + std::string(55, ' ') + "\r\nfront 1  \r\nback 1  \r\n");
  EXPECT_EQ(shared.Stacks.Current().StackName, u"verbs");
}

TEST_F(frmLoadTest, CancellingTheDescriptionSavesWithTheOneKept) {
  shared.Stacks.StackDescription = u"Kept";
  LoadStack(u"", 1);
  WithDialog(FileDialogMode::SaveNew, [](frmLoad& window) {
    TypeName(window, "verbs");
    SaveNew(window, "dropped", "cmdCanc");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_TRUE(files.Content(u"/cards/verbs.QBC").starts_with("General\r\nKept  "));
}

TEST_F(frmLoadTest, CancelAtTheOverwriteQuestionLeavesFileAndDialog) {
  prompts.Expect(Answer::Cancel);
  LoadStack(u"old name", 1);
  WithDialog(FileDialogMode::SaveNew, [](frmLoad& window) {
    TypeName(window, "animals");
    SaveNew(window, "");
    EXPECT_TRUE(window.isVisible());
  });
  ExpectPrompt(prompts.shown.at(0),
               u"File Already Exists. Overwrite?\r\n(Choose OK if you are editing)",
               PromptIcon::Exclamation, PromptButtons::OkCancel);
  EXPECT_EQ(files.Content(u"/cards/animals.QBC"), TwoCards);
  EXPECT_EQ(shared.Stacks.Current().StackName, u"old name");
}

TEST_F(frmLoadTest, SavingAnEditedStackLeavesTheFileOpenForTheEditor) {
  LoadStack(u"old name", 1);
  WithDialog(FileDialogMode::SaveEdited, [](frmLoad& window) {
    TypeName(window, "edited");
    Click(window, "cmdOK");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_NE(shared.Stacks.StackFileNumber, nullptr);
  EXPECT_FALSE(files.Has(u"/cards/edited.QBC"));
  EXPECT_EQ(shared.Stacks.Current().StackName, u"edited");
}

TEST_F(frmLoadTest, EscapeCancels) {
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
  });
}

TEST_F(frmLoadTest, HelpAsksForItsPage) {
  WithDialog(FileDialogMode::Load,
             [](frmLoad& window) { Find<QAction>(window, "mnuHelp").trigger(); });
  EXPECT_EQ(help.contexts, std::vector{HelpContext::Load});
}

TEST_F(frmLoadTest, OpensElsewhereWhenTheDefaultFolderIsGone) {
  shared.Switches.DefaultFolder = u"/gone";
  files.Put(ToText(QDir::homePath()) + u"/found.QBC", TwoCards);
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    EXPECT_EQ(ItemsOf(window, "filStack"), QStringList{"found.QBC"});
  });
}

}  // namespace

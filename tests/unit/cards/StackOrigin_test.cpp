#include "cards/StackOrigin.h"

#include "cards/StackFileOperations.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

const std::string Mine = "Topic\r\nDescription\r\na  \r\nb  \r\n";
const std::string Theirs = "Topic\r\nDescription\r\nc  \r\nb  \r\n";  // as long as mine

constexpr TextView Overwrite = u"File Already Exists. Overwrite?\r\n(Choose OK if you are editing)";
constexpr TextView Changed =
    u"The file was changed elsewhere since you loaded or saved this stack.\r\n"
    u"Overwrite those changes?\r\n(Choose Cancel to keep the file)";
constexpr TextView SavedHere =
    u"You have saved another stack to this file since you loaded or saved this one.\r\n"
    u"Overwrite that stack?\r\n(Choose Cancel to keep the file)";

/// A file that is loaded, changed by somebody else or not, and saved.
class ChangedFileTest : public testing::Test {
 protected:
  ChangedFileTest() { files.Put(u"c/words.QBC", Mine); }

  FileStatus Load(TextView name = u"words.QBC") {
    return LoadStack(stacks, files, prompts, u"c", name, [](const Text&) { return 0; });
  }

  /// Answers the questions with these, and fails unless there are as many.
  FileStatus Save(std::vector<Answer> answers, TextView name = u"words.QBC",
                  FileDialogMode mode = FileDialogMode::SaveEdited) {
    prompts.shown.clear();
    for (const Answer answer : answers) prompts.Expect(answer);
    FileStatus status = SaveStack(stacks, files, prompts, u"c", name, mode, u"Topic");
    EXPECT_EQ(prompts.shown.size(), answers.size());
    if (stacks.StackFileNumber == nullptr) return status;
    status = stacks.StackFileNumber->Close(stacks.Current().Origin);
    stacks.StackFileNumber.reset();
    return status;
  }

  MemoryFiles files;
  StackStore stacks;
  ScriptedPrompts prompts;
};

TEST(StackOrigin, TellsContentsApart) {
  const StackOrigin origin(u"x", {}, "content");
  EXPECT_TRUE(origin.IsContent("content"));
  EXPECT_FALSE(origin.IsContent("contenu"));
  EXPECT_FALSE(origin.IsContent("content "));
  EXPECT_FALSE(origin.IsContent(""));
  EXPECT_TRUE(StackOrigin(u"x", {}, "").IsContent(""));
}

TEST_F(ChangedFileTest, AnUnchangedFileIsAskedForOnce) {
  ASSERT_EQ(Load(), FileStatus::Ok);
  EXPECT_EQ(Save({Answer::Ok}), FileStatus::Ok);
}

TEST_F(ChangedFileTest, AChangedOneIsAskedForTwiceAndProposedToBeKept) {
  ASSERT_EQ(Load(), FileStatus::Ok);
  files.Put(u"c/words.QBC", Theirs);
  EXPECT_EQ(Save({Answer::Ok, Answer::Cancel}), FileStatus::Declined);
  ExpectPrompt(prompts.shown[0], Overwrite, PromptIcon::Exclamation, PromptButtons::OkCancel);
  ExpectPrompt(prompts.shown[1], Changed, PromptIcon::Exclamation, PromptButtons::OkCancel);
  EXPECT_FALSE(prompts.shown[0].proposesRefusal);
  EXPECT_TRUE(prompts.shown[1].proposesRefusal);
  EXPECT_EQ(files.Content(u"c/words.QBC"), Theirs);
  EXPECT_EQ(files.openReplacements, 0);
}

TEST_F(ChangedFileTest, ItIsOverwrittenWhereTheUserInsists) {
  ASSERT_EQ(Load(), FileStatus::Ok);
  files.Put(u"c/words.QBC", Theirs);
  EXPECT_EQ(Save({Answer::Ok, Answer::Ok}), FileStatus::Ok);
  EXPECT_EQ(Save({Answer::Ok}), FileStatus::Ok) << "now it is ours again";
}

TEST_F(ChangedFileTest, ARefusedStatedQuestionIsTheOnlyOne) {
  ASSERT_EQ(Load(), FileStatus::Ok);
  files.Put(u"c/words.QBC", Theirs);
  EXPECT_EQ(Save({Answer::Cancel}), FileStatus::Declined);
}

TEST_F(ChangedFileTest, TheQuestionComesAgainUntilTheFileIsSavedOrLoaded) {
  ASSERT_EQ(Load(), FileStatus::Ok);
  files.Put(u"c/words.QBC", Theirs);
  EXPECT_EQ(Save({Answer::Ok, Answer::Cancel}), FileStatus::Declined);
  EXPECT_EQ(Save({Answer::Ok, Answer::Cancel}), FileStatus::Declined);
  ASSERT_EQ(Load(), FileStatus::Ok);
  EXPECT_EQ(Save({Answer::Ok}), FileStatus::Ok);
}

TEST_F(ChangedFileTest, AFileThatIsAsItWasAgainIsAskedForOnce) {
  ASSERT_EQ(Load(), FileStatus::Ok);
  files.Put(u"c/words.QBC", Theirs);
  files.Put(u"c/words.QBC", Mine);
  EXPECT_EQ(Save({Answer::Ok}), FileStatus::Ok);
}

TEST_F(ChangedFileTest, WhatTheStackItselfWroteIsNoChange) {
  ASSERT_EQ(Load(), FileStatus::Ok);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(Save({Answer::Ok}), FileStatus::Ok);
  files.Put(u"c/words.QBC", Theirs);
  EXPECT_EQ(Save({Answer::Ok, Answer::Cancel}), FileStatus::Declined);
}

TEST_F(ChangedFileTest, AFailedSaveIsNoSave) {
  ASSERT_EQ(Load(), FileStatus::Ok);
  files.failCommit = FileStatus::DiskFull;
  EXPECT_EQ(Save({Answer::Ok}), FileStatus::DiskFull);
  files.failCommit = FileStatus::Ok;
  EXPECT_EQ(Save({Answer::Ok}), FileStatus::Ok);
}

TEST_F(ChangedFileTest, AnotherFileIsAskedForOnce) {
  ASSERT_EQ(Load(), FileStatus::Ok);
  files.Put(u"c/other.QBC", Theirs);
  EXPECT_EQ(Save({Answer::Ok}, u"other.QBC"), FileStatus::Ok);
  files.Put(u"c/other.QBC", Mine);
  EXPECT_EQ(Save({Answer::Ok, Answer::Cancel}, u"other.QBC"), FileStatus::Declined)
      << "it is the stack's own by then";
}

TEST_F(ChangedFileTest, AFileThatHasGoneIsMadeWithoutAQuestion) {
  ASSERT_EQ(Load(), FileStatus::Ok);
  ASSERT_EQ(files.Remove(u"c/words.QBC"), FileStatus::Ok);
  EXPECT_EQ(Save({}), FileStatus::Ok);
}

TEST_F(ChangedFileTest, ANewStackOwnsItsFileOnceItIsSaved) {
  stacks.Append().CardCount = 1;
  EXPECT_EQ(Save({Answer::Ok}, u"words.QBC", FileDialogMode::SaveNew), FileStatus::Ok);
  EXPECT_EQ(Save({Answer::Ok}), FileStatus::Ok);
  files.Put(u"c/words.QBC", Theirs);
  EXPECT_EQ(Save({Answer::Ok, Answer::Cancel}), FileStatus::Declined);
}

TEST_F(ChangedFileTest, LetterCaseMakesNoOtherFile) {
  ASSERT_EQ(Load(u"WORDS.qbc"), FileStatus::Ok);
  EXPECT_EQ(Save({Answer::Ok}, u"Words.QBC"), FileStatus::Ok);
  files.Put(u"c/words.QBC", Theirs);
  EXPECT_EQ(Save({Answer::Ok, Answer::Cancel}, u"wOrDs.QBC"), FileStatus::Declined);
}

TEST_F(ChangedFileTest, OfTwoStacksOfOneFileEachSeesWhatTheOtherSaved) {
  ASSERT_EQ(Load(), FileStatus::Ok);
  ASSERT_EQ(Load(), FileStatus::Ok);
  stacks.Current().SetSideText(1, Front, u"second");
  EXPECT_EQ(Save({Answer::Ok}), FileStatus::Ok);
  stacks.CurrentStack = 0;
  EXPECT_EQ(Save({Answer::Ok, Answer::Cancel}), FileStatus::Declined);
  ExpectPrompt(prompts.shown[1], SavedHere, PromptIcon::Exclamation, PromptButtons::OkCancel);
  EXPECT_TRUE(prompts.shown[1].proposesRefusal);
  files.Put(u"c/words.QBC", Theirs);
  EXPECT_EQ(Save({Answer::Ok, Answer::Cancel}), FileStatus::Declined);
  EXPECT_EQ(prompts.shown[1].text, Changed);
}

TEST_F(ChangedFileTest, WhatThisRunSavedIsKnownThoughItsStackIsGone) {
  ASSERT_EQ(Load(), FileStatus::Ok);
  stacks.Append().CardCount = 1;
  EXPECT_EQ(Save({Answer::Ok}, u"words.QBC", FileDialogMode::SaveNew), FileStatus::Ok);
  stacks.RemoveCurrentStack();
  EXPECT_EQ(Save({Answer::Ok, Answer::Cancel}), FileStatus::Declined);
  EXPECT_EQ(prompts.shown[1].text, SavedHere);
}

TEST_F(ChangedFileTest, AStackTakesItsOriginAlongWhenAnotherIsRemoved) {
  files.Put(u"c/first.QBC", Mine);
  ASSERT_EQ(Load(u"first.QBC"), FileStatus::Ok);
  ASSERT_EQ(Load(), FileStatus::Ok);
  stacks.CurrentStack = 0;
  stacks.RemoveCurrentStack();
  EXPECT_EQ(Save({Answer::Ok}), FileStatus::Ok);
  files.Put(u"c/words.QBC", Theirs);
  EXPECT_EQ(Save({Answer::Ok, Answer::Cancel}), FileStatus::Declined);
}

TEST_F(ChangedFileTest, AnImportedFileIsRememberedToo) {
  files.Put(u"c/words.QBS", "[WinQuib]\r\nQ1=a\r\nA1=b\r\n");
  prompts.Expect(Answer::Ok);  // no topic
  ASSERT_EQ(LoadStack(stacks, files, prompts, u"c", u"words.QBS",
                      [&](const Text&) {
                        prompts.Show({.text = u"No Topic"});
                        return 0;
                      }),
            FileStatus::Ok);
  files.Put(u"c/words.QBS", "theirs");
  EXPECT_EQ(Save({Answer::Ok, Answer::Cancel}, u"words.QBS"), FileStatus::Declined);
}

TEST_F(ChangedFileTest, AFileThatCannotBeComparedIsNotOverwritten) {
  ASSERT_EQ(Load(), FileStatus::Ok);
  files.failRead = FileStatus::PathAccess;
  EXPECT_EQ(Save({Answer::Ok}), FileStatus::PathAccess);
  EXPECT_EQ(files.Content(u"c/words.QBC"), Mine);
}

TEST_F(ChangedFileTest, ShowingADescriptionIsNoLoading) {
  ASSERT_EQ(Load(), FileStatus::Ok);
  files.Put(u"c/words.QBC", Theirs);
  Text description;
  ASSERT_EQ(ReadDescription(stacks, files, prompts, u"c", u"words.QBC", description),
            FileStatus::Ok);
  EXPECT_EQ(Save({Answer::Ok, Answer::Cancel}), FileStatus::Declined);
}

/// A file that does not show at first: it comes, or the disk fails for a moment.
class LateFiles : public MemoryFiles {
 public:
  Text Find(const Text& path) override { return hidden ? Text() : MemoryFiles::Find(path); }
  bool hidden = false;
};

TEST(WriteStackFileOverALateFile, AsksAllTheSame) {
  LateFiles files;
  files.Put(u"c/words.QBC", Mine);
  ScriptedPrompts prompts({Answer::Cancel});
  StackStore stacks;
  stacks.Append().CardCount = 1;
  files.hidden = true;
  EXPECT_EQ(
      WriteStackFile(stacks, files, prompts, u"c", u"words.QBC", FileDialogMode::SaveNew, u"Topic"),
      FileStatus::Declined);
  EXPECT_EQ(files.Content(u"c/words.QBC"), Mine);
  EXPECT_EQ(files.openReplacements, 0);
}

}  // namespace

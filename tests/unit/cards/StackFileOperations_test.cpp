#include "cards/StackFileOperations.h"

#include "tests/support/MemoryFiles.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

constexpr const char* OneCard = "Topic\r\nDescription\r\na  \r\nb  \r\n";

class StackFileOperationsTest : public testing::Test {
 protected:
  FileStatus Load(TextView fileName) {
    return LoadStack(stacks, files, prompts, u"c", fileName, [](const Text&) { return 2; });
  }
  FileStatus Save(TextView fileName, FileDialogMode mode) {
    return SaveStack(stacks, files, prompts, u"c", fileName, mode, u"Topic");
  }

  MemoryFiles files;
  StackStore stacks;
  ScriptedPrompts prompts;
};

class LoadStackTest : public StackFileOperationsTest {};
class DeleteStackTest : public StackFileOperationsTest {};
class ReadDescriptionTest : public StackFileOperationsTest {};

class SaveStackTest : public StackFileOperationsTest {
 protected:
  SaveStackTest() {
    stacks.Append().StackName = u"before";
    stacks.Current().CardCount = 1;
    stacks.Current().SetSideText(1, Front, u"a");
  }
};

void ExpectTexts(FileDialogMode mode, TextView caption, TextView label, TextView pattern) {
  const FileDialogTexts texts = TextsOf(mode);
  EXPECT_EQ(texts.caption, caption);
  EXPECT_EQ(texts.label, label);
  EXPECT_EQ(texts.pattern, pattern);
}

}  // namespace

TEST(TextsOf, FollowTheMode) {
  ExpectTexts(FileDialogMode::Load, u"Load Stack of Cards", u"Select &File:", u"*.QB?");
  ExpectTexts(FileDialogMode::Delete, u"Delete Card Stack", u"Delete &File:", u"*.QB?");
  ExpectTexts(FileDialogMode::SaveNew, u"Save Stack of Cards", u"Save &File:", u"*.QBC");
  ExpectTexts(FileDialogMode::SaveEdited, u"Save Stack of Cards", u"Save &File:", u"*.QBC");
}

TEST(MatchesPattern, TheOpenPatternListsAnyLastLetterOrNone) {
  for (const TextView name :
       {u"x.QBC", u"x.QBS", u"x.qbc", u"X.qB1", u"x.QB", u".QBC", u"a.b.QBC"}) {
    EXPECT_TRUE(MatchesPattern(name, u"*.QB?")) << ToUtf8(name);
  }
  for (const TextView name : {u"x.QBCC", u"x.Q", u"xQBC", u"x.QBC.bak", u"QBC", u"", u"x.QCC"}) {
    EXPECT_FALSE(MatchesPattern(name, u"*.QB?")) << ToUtf8(name);
  }
}

TEST(MatchesPattern, TheSavePatternListsStackFilesOnly) {
  for (const TextView name : {u"x.QBC", u"x.qbc", u".QBC", u"a.b.QbC"}) {
    EXPECT_TRUE(MatchesPattern(name, u"*.QBC")) << ToUtf8(name);
  }
  for (const TextView name : {u"x.QBS", u"x.QB", u"x.QBCC", u"QBC", u""}) {
    EXPECT_FALSE(MatchesPattern(name, u"*.QBC")) << ToUtf8(name);
  }
}

TEST(IsRefusedFileName, RefusesNoNameWildcardsAndNamesThatBeginWithADot) {
  for (const TextView name : {u"", u"*", u"*.QBC", u"x?.QBC", u"?", u".QBC", u".x", u"."}) {
    EXPECT_TRUE(IsRefusedFileName(name)) << ToUtf8(name);
  }
  for (const TextView name : {u"x", u"x.QBC", u"my.cards.QBC", u" x", u"a b"}) {
    EXPECT_FALSE(IsRefusedFileName(name)) << ToUtf8(name);
  }
}

TEST(StackNameOf, EndsBeforeTheFirstDot) {
  EXPECT_EQ(StackNameOf(u"cards.QBC"), u"cards");
  EXPECT_EQ(StackNameOf(u"my.cards.QBC"), u"my");
  EXPECT_EQ(StackNameOf(u"cards"), u"cards");
  EXPECT_EQ(StackNameOf(u".QBC"), u"");
}

TEST(StackNameOf, IsCutTo256Characters) {
  EXPECT_EQ(StackNameOf(Text(300, u'x') + u".QBC"), Text(256, u'x'));
}

TEST(WithStackExtension, AddsItToANameWithoutADot) {
  EXPECT_EQ(WithStackExtension(u"cards"), u"cards.QBC");
  EXPECT_EQ(WithStackExtension(u"cards.QBC"), u"cards.QBC");
  EXPECT_EQ(WithStackExtension(u"cards.old"), u"cards.old");
  EXPECT_EQ(WithStackExtension(u"cards."), u"cards.");
}

TEST(FileErrorPrompt, HasWordsOfItsOwnForTheUsualFailures) {
  const std::pair<FileStatus, TextView> table[] = {
      {FileStatus::FileNotFound, u"The file was not found."},
      {FileStatus::PastEnd, u"No Cards in file."},
      {FileStatus::IllegalName,
       u"Your file specification was invalid.\r\nOnly 8 letters are allowed for the file name."},
      {FileStatus::DeviceUnavailable,
       u"Your file specification was invalid.\r\nOnly 8 letters are allowed for the file name."},
      {FileStatus::PathAccess, u"Your path specification was invalid."},
  };
  for (const auto& [status, text] : table) {
    ExpectPrompt(FileErrorPrompt(status), text, PromptIcon::Exclamation, PromptButtons::Ok,
                 u"Quib!Cards 5.50 Error");
  }
}

TEST(FileErrorPrompt, UsesTheSystemsWordsForAllOthers) {
  const std::pair<FileStatus, TextView> table[] = {
      {FileStatus::Overflow, u"Overflow"},
      {FileStatus::DiskFull, u"Disk full"},
      {FileStatus::PathNotFound, u"Path not found"},
      {FileStatus::DeviceError, u"Device I/O error"},
      {FileStatus::FileAlreadyOpen, u"File already open"},
      {FileStatus::TooManyFiles, u"Too many files"},
  };
  for (const auto& [status, text] : table) {
    ExpectPrompt(FileErrorPrompt(status), text, PromptIcon::Exclamation, PromptButtons::Ok,
                 u"Quib!Cards 5.50 Error");
  }
}

TEST(FileErrorPrompt, SaysWhereBothContentsOfADamagedFileAre) {
  const Text text = FileErrorPrompt(FileStatus::DiskFull, u"/home/a/rescue").text;
  EXPECT_TRUE(text.starts_with(u"Disk full\r\n\r\nThe file is damaged"));
  EXPECT_TRUE(text.ends_with(u"are in the folder\r\n/home/a/rescue"));
}

// --- Load

TEST_F(LoadStackTest, NamesTheStackAfterItsFile) {
  files.Put(u"c/cards.QBC", OneCard);
  ASSERT_EQ(Load(u"cards.QBC"), FileStatus::Ok);
  EXPECT_EQ(stacks.Current().StackName, u"cards");
  EXPECT_EQ(stacks.Current().CardCount, 1);
  EXPECT_EQ(stacks.Current().TopicIndex, 2);
}

TEST_F(LoadStackTest, NamesTheStackUpToTheFirstDot) {
  files.Put(u"c/my.cards.QBC", OneCard);
  ASSERT_EQ(Load(u"my.cards.QBC"), FileStatus::Ok);
  EXPECT_EQ(stacks.Current().StackName, u"my");
}

TEST_F(LoadStackTest, TheSameFileCanBeLoadedTwice) {
  files.Put(u"c/cards.QBC", OneCard);
  ASSERT_EQ(Load(u"cards.QBC"), FileStatus::Ok);
  ASSERT_EQ(Load(u"cards.QBC"), FileStatus::Ok);
  EXPECT_EQ(stacks.StackCount, 1);
}

TEST_F(LoadStackTest, AFailureNamesNoOtherStack) {
  files.Put(u"c/cards.QBC", OneCard);
  files.Put(u"c/empty.QBC", "Topic\r\nDescription\r\n");
  ASSERT_EQ(Load(u"cards.QBC"), FileStatus::Ok);
  EXPECT_EQ(Load(u"empty.QBC"), FileStatus::PastEnd);
  EXPECT_EQ(Load(u"missing.QBC"), FileStatus::FileNotFound);
  EXPECT_EQ(stacks.Current().StackName, u"cards");
}

TEST_F(LoadStackTest, AFailureLeavesThePlaceholderItsName) {
  files.Put(u"c/other.QBC", OneCard);
  EXPECT_EQ(Load(u"missing.QBC"), FileStatus::FileNotFound);
  EXPECT_EQ(stacks.Current().StackName, u"None");
}

// --- Delete

TEST_F(DeleteStackTest, AsksWithTheFullPath) {
  files.Put(u"c/x.QBC", "old");
  prompts.Expect(Answer::No);
  (void)DeleteStack(files, prompts, u"c", u"x.QBC");
  ASSERT_EQ(prompts.shown.size(), 1U);
  ExpectPrompt(prompts.shown[0], u"Delete c/x.QBC\r\nAre you sure?", PromptIcon::Question,
               PromptButtons::YesNo);
}

TEST_F(DeleteStackTest, NoKeepsTheFile) {
  files.Put(u"c/x.QBC", "old");
  prompts.Expect(Answer::No);
  EXPECT_EQ(DeleteStack(files, prompts, u"c/", u"x.QBC"), FileStatus::Declined);
  EXPECT_TRUE(files.Has(u"c/x.QBC"));
}

TEST_F(DeleteStackTest, YesRemovesTheFile) {
  files.Put(u"c/x.QBC", "old");
  files.Put(u"c/y.QBC", "other");
  prompts.Expect(Answer::Yes);
  EXPECT_EQ(DeleteStack(files, prompts, u"c", u"x.QBC"), FileStatus::Ok);
  EXPECT_FALSE(files.Has(u"c/x.QBC"));
  EXPECT_TRUE(files.Has(u"c/y.QBC"));
}

TEST_F(DeleteStackTest, ReportsAFailure) {
  prompts.Expect(Answer::Yes);
  EXPECT_EQ(DeleteStack(files, prompts, u"c", u"missing.QBC"), FileStatus::FileNotFound);
  files.Put(u"c/x.QBC", "old");
  files.failRemove = FileStatus::PathAccess;
  prompts.Expect(Answer::Yes);
  EXPECT_EQ(DeleteStack(files, prompts, u"c", u"x.QBC"), FileStatus::PathAccess);
}

// --- Save

TEST_F(SaveStackTest, AddsTheExtensionAndTakesTheName) {
  ASSERT_EQ(Save(u"animals", FileDialogMode::SaveNew), FileStatus::Ok);
  EXPECT_TRUE(files.Has(u"c/animals.QBC"));
  EXPECT_EQ(stacks.Current().StackName, u"animals");
}

TEST_F(SaveStackTest, KeepsAnyOtherExtension) {
  ASSERT_EQ(Save(u"animals.old", FileDialogMode::SaveNew), FileStatus::Ok);
  EXPECT_TRUE(files.Has(u"c/animals.old"));
  EXPECT_EQ(stacks.Current().StackName, u"animals");
}

TEST_F(SaveStackTest, WritesTheStackFormatUnderAnImportName) {
  ASSERT_EQ(Save(u"animals.QBS", FileDialogMode::SaveNew), FileStatus::Ok);
  EXPECT_TRUE(files.Content(u"c/animals.QBS").starts_with("Topic\r\n"));
}

TEST_F(SaveStackTest, AnEditedStackTakesTheNameAndKeepsItsFileOpen) {
  ASSERT_EQ(Save(u"animals", FileDialogMode::SaveEdited), FileStatus::Ok);
  EXPECT_EQ(stacks.Current().StackName, u"animals");
  EXPECT_NE(stacks.StackFileNumber, nullptr);
}

TEST_F(SaveStackTest, ADeclinedOverwriteKeepsTheName) {
  files.Put(u"c/animals.QBC", "old");
  for (const FileDialogMode mode : {FileDialogMode::SaveNew, FileDialogMode::SaveEdited}) {
    prompts.Expect(Answer::Cancel);
    EXPECT_EQ(Save(u"animals", mode), FileStatus::Declined);
    EXPECT_EQ(stacks.Current().StackName, u"before");
  }
  EXPECT_EQ(files.Content(u"c/animals.QBC"), "old");
}

TEST_F(SaveStackTest, AFailureKeepsTheName) {
  stacks.Current().SetSideText(1, Back, u"^");
  EXPECT_EQ(Save(u"animals", FileDialogMode::SaveNew), FileStatus::Overflow);
  EXPECT_EQ(stacks.Current().StackName, u"before");
}

// --- Description

TEST_F(ReadDescriptionTest, ShowsTheFilesAndKeepsTheProgramsOwn) {
  files.Put(u"c/x.QBC", "Topic\r\nAnimals   \r\n");
  stacks.StackDescription = u"own";
  Text description;
  ASSERT_EQ(ReadDescription(stacks, files, prompts, u"c", u"x.QBC", description), FileStatus::Ok);
  EXPECT_EQ(description, u"Animals");
  EXPECT_EQ(stacks.StackDescription, u"own");
  EXPECT_EQ(stacks.StackCount, -1);
}

TEST_F(ReadDescriptionTest, AFailureKeepsTheProgramsOwnAndShowsNone) {
  stacks.StackDescription = u"own";
  files.Put(u"c/x.QBC", "Topic\r\n");
  for (const TextView name : {u"x.QBC", u"missing.QBC"}) {
    Text description = u"old";
    EXPECT_NE(ReadDescription(stacks, files, prompts, u"c", name, description), FileStatus::Ok);
    EXPECT_EQ(description, u"");
    EXPECT_EQ(stacks.StackDescription, u"own");
  }
}

TEST_F(ReadDescriptionTest, OfAnImportFileIsItsFirstLine) {
  files.Put(u"c/x.qbs", "Title\r\n");
  Text description;
  ASSERT_EQ(ReadDescription(stacks, files, prompts, u"c", u"x.qbs", description), FileStatus::Ok);
  EXPECT_EQ(description, u"Title");
}

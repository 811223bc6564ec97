#include "cards/StackWriter.h"

#include "cards/StackReader.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

const std::string Header = "Spanish\r\nAnimals" + std::string(57, ' ') + "\r\n";

/// Two cards, with media and with a line break.
class WriteStackFileTest : public testing::Test {
 protected:
  WriteStackFileTest() {
    CardStack& stack = stacks.Append();
    stack.CardCount = 2;
    stack.SetSideText(1, Front, u"dog");
    stack.SetSideSound(1, Front, u"c/perro.wav");
    stack.SetSidePicture(1, Front, u"c/dog.bmp");
    stack.SetSideText(1, Back, u"perro");
    stack.SetSideSound(1, Back, u"c/perro.wav");
    stack.SetSideText(2, Front, u"the cat\r\nel gato");
    stack.SetSideText(2, Back, u"gato");
    stacks.StackDescription = u"Animals";
  }

  FileStatus Write(FileDialogMode mode = FileDialogMode::SaveNew) {
    return WriteStackFile(stacks, files, prompts, u"c", u"x.QBC", mode, u"Spanish");
  }

  MemoryFiles files;
  StackStore stacks;
  ScriptedPrompts prompts;
};

}  // namespace

TEST_F(WriteStackFileTest, WritesTheExampleByteForByte) {
  ASSERT_EQ(Write(), FileStatus::Ok);
  EXPECT_EQ(files.Content(u"c/x.QBC"), Header +
                                           "dog perro.wav dog.bmp\r\n"
                                           "perro perro.wav \r\n"
                                           "the cat^el gato  \r\n"
                                           "gato  \r\n");
}

TEST_F(WriteStackFileTest, WhatItWroteReadsBack) {
  ASSERT_EQ(Write(), FileStatus::Ok);
  ASSERT_EQ(ReadStackFile(stacks, files, prompts, u"c", u"x.QBC", ReadMode::Full,
                          [](const Text&) { return 0; }),
            FileStatus::Ok);
  const CardStack& stack = stacks.Current();
  EXPECT_EQ(stack.CardCount, 2);
  EXPECT_EQ(stack.SideText(1, Front), u"dog");
  EXPECT_EQ(stack.SideSound(1, Front), u"c/perro.wav");
  EXPECT_EQ(stack.SidePicture(1, Front), u"c/dog.bmp");
  EXPECT_EQ(stack.SideText(2, Front), u"the cat\r\nel gato  ");
}

TEST_F(WriteStackFileTest, LeavesTheEncodedFormsInMemory) {
  ASSERT_EQ(Write(), FileStatus::Ok);
  const CardStack& stack = stacks.Current();
  EXPECT_EQ(stack.SideText(1, Front), u"dog perro.wav");
  EXPECT_EQ(stack.SideText(1, Back), u"perro perro.wav");
  EXPECT_EQ(stack.SideText(2, Front), u"the cat^el gato ");
  EXPECT_EQ(stack.SideText(2, Back), u"gato ");
  EXPECT_EQ(stack.SideSound(1, Front), u"c/perro.wav");
}

TEST_F(WriteStackFileTest, WritesOnlyTheCardsThatCount) {
  stacks.Current().SetSideText(3, Front, u"beyond");
  ASSERT_EQ(Write(), FileStatus::Ok);
  EXPECT_EQ(files.Content(u"c/x.QBC").find("beyond"), std::string::npos);
  EXPECT_EQ(stacks.Current().SideText(3, Front), u"beyond");
}

TEST_F(WriteStackFileTest, WritesAStackWithoutCardsAsItsHeader) {
  stacks.Current().CardCount = 0;
  ASSERT_EQ(Write(), FileStatus::Ok);
  EXPECT_EQ(files.Content(u"c/x.QBC"), Header);
}

TEST_F(WriteStackFileTest, WritesTheSelectedStack) {
  stacks.Append().CardCount = 1;
  stacks.Current().SetSideText(1, Front, u"second");
  ASSERT_EQ(Write(), FileStatus::Ok);
  EXPECT_EQ(files.Content(u"c/x.QBC"), Header + "second  \r\n  \r\n");
}

TEST_F(WriteStackFileTest, Writes300Cards) {
  stacks.Current().CardCount = MaxCards;
  stacks.Current().SetSideText(300, Back, u"last");
  ASSERT_EQ(Write(), FileStatus::Ok);
  EXPECT_TRUE(files.Content(u"c/x.QBC").ends_with("\r\nlast  \r\n"));
}

TEST_F(WriteStackFileTest, WritesALongTextInFull) {
  stacks.Current().SetSideText(1, Front, Text(1000, u'x'));
  ASSERT_EQ(Write(), FileStatus::Ok);
  EXPECT_NE(files.Content(u"c/x.QBC").find(std::string(1000, 'x') + " perro.wav"),
            std::string::npos);
}

TEST_F(WriteStackFileTest, AddsASeparatorToTheFolderOnlyWhereItLacksOne) {
  ASSERT_EQ(WriteStackFile(stacks, files, prompts, u"c/", u"y.QBC", FileDialogMode::SaveNew, u"T"),
            FileStatus::Ok);
  EXPECT_TRUE(files.Has(u"c/y.QBC"));
}

TEST_F(WriteStackFileTest, BecomesUtf8WhereACharacterNeedsIt) {
  stacks.Current().SetSideText(2, Back, u"\u043A\u043E\u0442");
  ASSERT_EQ(Write(), FileStatus::Ok);
  EXPECT_TRUE(files.Content(u"c/x.QBC").starts_with("\xEF\xBB\xBFSpanish\r\n"));
  EXPECT_TRUE(files.Content(u"c/x.QBC").ends_with("\xD0\xBA\xD0\xBE\xD1\x82  \r\n"));
}

TEST_F(WriteStackFileTest, AsksBeforeItOverwrites) {
  files.Put(u"c/x.QBC", "old");
  prompts.Expect(Answer::Ok);
  ASSERT_EQ(Write(), FileStatus::Ok);
  ASSERT_EQ(prompts.shown.size(), 1U);
  ExpectPrompt(prompts.shown[0],
               u"File Already Exists. Overwrite?\r\n(Choose OK if you are editing)",
               PromptIcon::Exclamation, PromptButtons::OkCancel);
  EXPECT_TRUE(files.Content(u"c/x.QBC").starts_with(Header));
}

TEST_F(WriteStackFileTest, DeclinedOverwriteLeavesFileAndTextsAlone) {
  files.Put(u"c/x.QBC", "old");
  prompts.Expect(Answer::Cancel);
  EXPECT_EQ(Write(), FileStatus::Declined);
  EXPECT_EQ(files.Content(u"c/x.QBC"), "old");
  EXPECT_EQ(stacks.Current().SideText(1, Front), u"dog");
}

TEST_F(WriteStackFileTest, DeclinedOverwriteOpensNoFileForTheEditor) {
  files.Put(u"c/x.QBC", "old");
  prompts.Expect(Answer::Cancel);
  EXPECT_EQ(Write(FileDialogMode::SaveEdited), FileStatus::Declined);
  EXPECT_EQ(stacks.StackFileNumber, nullptr);
  EXPECT_EQ(files.openReplacements, 0);
}

TEST_F(WriteStackFileTest, AFileInAnotherLetterCaseIsAskedForAndOverwritten) {
  files.Put(u"c/X.qbc", "old");
  prompts.Expect(Answer::Ok);
  ASSERT_EQ(Write(), FileStatus::Ok);
  EXPECT_TRUE(files.Content(u"c/X.qbc").starts_with(Header));
  EXPECT_FALSE(files.Has(u"c/x.QBC"));
}

TEST_F(WriteStackFileTest, ACaretFailsAndLeavesAnOldFileAsItWas) {
  files.Put(u"c/x.QBC", "old");
  prompts.Expect(Answer::Ok);
  stacks.Current().SetSideText(2, Front, u"a^b");
  EXPECT_EQ(Write(), FileStatus::Overflow);
  EXPECT_EQ(files.Content(u"c/x.QBC"), "old");
  EXPECT_EQ(files.openReplacements, 0);
}

TEST_F(WriteStackFileTest, ACaretUnderANewNameLeavesTheLinesWrittenBeforeIt) {
  stacks.Current().SetSideText(2, Front, u"a^b");
  EXPECT_EQ(Write(), FileStatus::Overflow);
  EXPECT_EQ(files.Content(u"c/x.QBC"), Header + "dog perro.wav dog.bmp\r\nperro perro.wav \r\n");
}

TEST_F(WriteStackFileTest, ACaretLeavesTheTextsAsTheyWereForTheNextTry) {
  stacks.Current().SetSideText(2, Back, u"ga^to");
  EXPECT_EQ(Write(), FileStatus::Overflow);
  EXPECT_EQ(stacks.Current().SideText(1, Front), u"dog");
  EXPECT_EQ(stacks.Current().SideText(2, Front), u"the cat\r\nel gato");
  EXPECT_EQ(stacks.Current().SideText(2, Back), u"ga^to");
  stacks.Current().SetSideText(2, Back, u"gato");
  prompts.Expect(Answer::Ok);  // what was left of the first try is overwritten
  ASSERT_EQ(Write(), FileStatus::Ok);
  EXPECT_TRUE(files.Content(u"c/x.QBC").starts_with(Header + "dog perro.wav dog.bmp\r\n"));
}

TEST_F(WriteStackFileTest, ACaretOnABackLeavesWholeCardsThatLoad) {
  stacks.Current().SetSideText(2, Back, u"ga^to");
  EXPECT_EQ(Write(), FileStatus::Overflow);
  EXPECT_EQ(files.Content(u"c/x.QBC"), Header + "dog perro.wav dog.bmp\r\nperro perro.wav \r\n");
  StackStore loaded;
  EXPECT_EQ(ReadStackFile(loaded, files, prompts, u"c/", u"x.QBC", ReadMode::Full,
                          [](const Text&) { return 0; }),
            FileStatus::Ok);
  EXPECT_EQ(loaded.Current().CardCount, 1);
}

TEST_F(WriteStackFileTest, AFileThatCannotBeOpenedIsReportedAndChangesNothing) {
  files.failReplace = FileStatus::PathAccess;
  EXPECT_EQ(Write(), FileStatus::PathAccess);
  EXPECT_EQ(stacks.Current().SideText(1, Front), u"dog");
  EXPECT_EQ(Write(FileDialogMode::SaveEdited), FileStatus::PathAccess);
  EXPECT_EQ(stacks.StackFileNumber, nullptr);
}

TEST_F(WriteStackFileTest, AFullDiskIsReportedAndLeavesTheOldFile) {
  files.Put(u"c/x.QBC", "old");
  prompts.Expect(Answer::Ok);
  files.failCommit = FileStatus::DiskFull;
  EXPECT_EQ(Write(), FileStatus::DiskFull);
  EXPECT_EQ(files.Content(u"c/x.QBC"), "old");
  EXPECT_EQ(stacks.StackFileNumber, nullptr);
}

TEST_F(WriteStackFileTest, AFullDiskLeavesTheTextsAsTheyWereForTheNextTry) {
  files.failCommit = FileStatus::DiskFull;
  EXPECT_EQ(Write(), FileStatus::DiskFull);
  EXPECT_EQ(stacks.Current().SideText(1, Front), u"dog");
  EXPECT_EQ(stacks.Current().SideText(2, Front), u"the cat\r\nel gato");
  files.failCommit = FileStatus::Ok;
  ASSERT_EQ(Write(), FileStatus::Ok) << "a line break, encoded twice, would be a caret";
  EXPECT_TRUE(files.Content(u"c/x.QBC").starts_with(Header + "dog perro.wav dog.bmp\r\n"));
}

TEST_F(WriteStackFileTest, ForTheEditorTheHeaderIsWrittenAndTheFileStaysOpen) {
  ASSERT_EQ(Write(FileDialogMode::SaveEdited), FileStatus::Ok);
  ASSERT_NE(stacks.StackFileNumber, nullptr);
  EXPECT_FALSE(files.Has(u"c/x.QBC"));
  EXPECT_EQ(stacks.StackFileNumber->Close(stacks.Current().Origin), FileStatus::Ok);
  EXPECT_EQ(files.Content(u"c/x.QBC"), Header);
}

TEST_F(WriteStackFileTest, ForTheEditorTheTextsStayAsTheyAre) {
  ASSERT_EQ(Write(FileDialogMode::SaveEdited), FileStatus::Ok);
  EXPECT_EQ(stacks.Current().SideText(1, Front), u"dog");
  EXPECT_EQ(stacks.Current().SideText(2, Front), u"the cat\r\nel gato");
}

TEST_F(WriteStackFileTest, OnlyANewSaveWritesTheCards) {
  for (const FileDialogMode mode : {FileDialogMode::Load, FileDialogMode::Delete}) {
    ASSERT_EQ(Write(mode), FileStatus::Ok);
    EXPECT_NE(stacks.StackFileNumber, nullptr);
    stacks.StackFileNumber.reset();
  }
}

TEST_F(WriteStackFileTest, TheEditorsFileGoesWithoutATraceWhenItIsDropped) {
  files.Put(u"c/x.QBC", "old");
  prompts.Expect(Answer::Ok);
  ASSERT_EQ(Write(FileDialogMode::SaveEdited), FileStatus::Ok);
  stacks.StackFileNumber.reset();
  EXPECT_EQ(files.Content(u"c/x.QBC"), "old");
  EXPECT_EQ(files.openReplacements, 0);
}

TEST_F(WriteStackFileTest, ASecondSaveWritesTheChangedTexts) {
  ASSERT_EQ(Write(), FileStatus::Ok);
  prompts.Expect(Answer::Ok);
  stacks.Current().SetSideText(2, Front, u"one line");
  ASSERT_EQ(Write(), FileStatus::Ok);
  EXPECT_NE(files.Content(u"c/x.QBC").find("dog perro.wav perro.wav dog.bmp\r\n"),
            std::string::npos);
}

#include "authoring/CardEditor.h"

#include "cards/StackReader.h"
#include "cards/StackWriter.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/ScriptedPrompts.h"
#include "tests/support/TextPrinters.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <optional>
#include <random>

namespace {

class CardEditorTest : public testing::Test {
 protected:
  void Load(int cards) {
    CardStack& stack = stacks.Append();
    for (int card = 1; card <= cards; ++card) {
      stack.SetSideText(card, Front, u"f" + NumberText(card));
      stack.SetSideText(card, Back, u"b" + NumberText(card));
    }
    stack.CardCount = cards;
  }

  /// Opens the target as the save dialog does.
  void OpenTarget() {
    ASSERT_EQ(WriteStackFile(stacks, files, prompts, u"/", u"x.QBC", FileDialogMode::SaveEdited,
                             u"General"),
              FileStatus::Ok);
  }

  static std::string FileOf(const std::string& cardLines) {
    return "General\r\n" + std::string(64, ' ') + "\r\n" + cardLines;
  }

  ScriptedPrompts prompts;
  MemoryFiles files;
  StackStore stacks;
  std::optional<CardEditor> editor{std::in_place, stacks};
};

TEST_F(CardEditorTest, StartsWithNoCardSelected) {
  Load(20);
  EXPECT_EQ(editor->SelRow(), -1);
  EXPECT_EQ(editor->PositionText(), u"0/20");
  EXPECT_EQ(editor->ShownFields(), CardFields());
}

TEST_F(CardEditorTest, FiveCardsNeedNoScrolling) {
  Load(5);
  EXPECT_FALSE(editor->CanScroll());
  EXPECT_EQ(editor->ScrollMaximum(), 1);
}

TEST_F(CardEditorTest, ScrollsUntilTheLastCardIsInTheBottomRow) {
  Load(8);
  EXPECT_TRUE(editor->CanScroll());
  EXPECT_EQ(editor->ScrollMaximum(), 4);
  editor->ScrollTo(4);
  EXPECT_EQ(editor->RowText(0, Front), u"f4");
  EXPECT_EQ(editor->RowText(4, Back), u"b8");
}

TEST_F(CardEditorTest, RowsBeyondTheLastCardAreEmpty) {
  Load(3);
  EXPECT_EQ(editor->RowText(3, Front), u"");
  EXPECT_FALSE(editor->SelectRow(3, Front));
  EXPECT_EQ(editor->SelRow(), -1);
}

TEST_F(CardEditorTest, SelectingARowShowsItsCard) {
  Load(8);
  editor->ScrollTo(3);
  EXPECT_TRUE(editor->SelectRow(2, Back));
  EXPECT_EQ(editor->CurCard(), 5);
  EXPECT_EQ(editor->PositionText(), u"5/8");
  EXPECT_EQ(editor->ShownFields().sides[0].text, u"f5");
}

TEST_F(CardEditorTest, AnEmptyLabelCannotBeClicked) {
  Load(2);
  stacks.Current().SetSideText(1, Back, u"");
  EXPECT_FALSE(editor->SelectRow(0, Back));
  EXPECT_TRUE(editor->SelectRow(0, Front));
}

TEST_F(CardEditorTest, TheSelectionKeepsItsRowWhileScrolling) {
  Load(8);
  editor->SelectRow(1, Front);
  editor->ScrollTo(3);
  EXPECT_EQ(editor->SelRow(), 1);
  EXPECT_EQ(editor->CurCard(), 4);
}

TEST_F(CardEditorTest, ScrollingOntoAnEmptyFrontDeselects) {
  Load(8);
  stacks.Current().SetSideText(4, Front, u"");
  editor->SelectRow(1, Front);
  editor->ScrollTo(3);
  EXPECT_EQ(editor->SelRow(), -1);
}

TEST_F(CardEditorTest, AFoundCardStandsInTheBottomRowWherePossible) {
  Load(30);
  editor->GoTo(20);
  EXPECT_EQ(editor->TopCard(), 16);
  EXPECT_EQ(editor->SelRow(), 4);
  editor->GoTo(3);
  EXPECT_EQ(editor->TopCard(), 1);
  EXPECT_EQ(editor->SelRow(), 2);
  EXPECT_EQ(editor->CurCard(), 3);
}

TEST_F(CardEditorTest, KeysMoveTheSelectionAndScrollAtTheEndsOfThePage) {
  Load(8);
  editor->MoveSelection(1);
  EXPECT_EQ(editor->CurCard(), 1);
  editor->MoveSelection(RowsPerPage);
  EXPECT_EQ(editor->CurCard(), 6);
  EXPECT_EQ(editor->TopCard(), 2);
  editor->MoveSelection(MaxCards);
  EXPECT_EQ(editor->CurCard(), 8);
  EXPECT_EQ(editor->TopCard(), 4);
  editor->MoveSelection(-MaxCards);
  EXPECT_EQ(editor->CurCard(), 1);
  EXPECT_EQ(editor->TopCard(), 1);
}

TEST_F(CardEditorTest, ACardOfMediaAloneIsReachedByKeysAndClicks) {
  Load(4);
  for (const int card : {2, 4}) {
    for (const int side : {Front, Back}) stacks.Current().SetSideText(card, side, u"");
  }
  editor->SelectRow(0, Front);
  editor->MoveSelection(1);
  EXPECT_EQ(editor->CurCard(), 2);
  editor->MoveSelection(MaxCards);
  EXPECT_EQ(editor->CurCard(), 4);
  editor->MoveSelection(-1);
  EXPECT_EQ(editor->CurCard(), 3);
  for (const int side : {Front, Back}) {
    editor->SelectRow(0, Front);
    EXPECT_TRUE(editor->SelectRow(1, side));
    EXPECT_EQ(editor->CurCard(), 2);
  }
  EXPECT_FALSE(editor->SelectRow(4, Front));
}

TEST_F(CardEditorTest, KeysInAnEmptyStackSelectNothing) {
  Load(0);
  editor->MoveSelection(1);
  EXPECT_EQ(editor->SelRow(), -1);
}

TEST_F(CardEditorTest, TheProbeTellsAnOpenFileFromACancelledDialog) {
  Load(1);
  EXPECT_NE(ProbeStackFile(stacks, files), FileStatus::FileAlreadyOpen);
  files.Put(u"b7c891aq.6nq", "a file of that name changes nothing");
  EXPECT_NE(ProbeStackFile(stacks, files), FileStatus::FileAlreadyOpen);
  OpenTarget();
  EXPECT_EQ(ProbeStackFile(stacks, files), FileStatus::FileAlreadyOpen);
  EXPECT_EQ(files.Content(u"b7c891aq.6nq"), "a file of that name changes nothing");
}

TEST_F(CardEditorTest, ACommittedTextIsStoredAsItStands) {
  Load(2);
  editor->SelectRow(1, Front);
  EXPECT_TRUE(editor->CommitText(Back, u"a^b\r\nc"));
  EXPECT_EQ(stacks.Current().SideText(2, Back), u"a^b\r\nc");
  EXPECT_EQ(editor->RowText(1, Back), u"a^b\r\nc");
}

TEST_F(CardEditorTest, AnUnchangedTextIsNotStored) {
  Load(2);
  editor->SelectRow(0, Front);
  EXPECT_FALSE(editor->CommitText(Front, u"f1"));
}

TEST_F(CardEditorTest, WithoutASelectionNothingIsStored) {
  Load(2);
  EXPECT_FALSE(editor->CommitText(Front, u"x"));
  editor->CommitMedia(Front, MediaKind::Sound, u"x.wav");
  editor->ToggleDeleted();
  EXPECT_EQ(stacks.Current().SideText(1, Front), u"f1");
  EXPECT_EQ(stacks.Current().SideSound(1, Front), u"");
  EXPECT_FALSE(editor->IsRowStruckOut(0));
}

TEST_F(CardEditorTest, MediaNamesAreStoredUnchecked) {
  Load(1);
  editor->SelectRow(0, Front);
  editor->CommitMedia(Front, MediaKind::Sound, u"no such.thing");
  editor->CommitMedia(Back, MediaKind::Picture, u"p.gif");
  EXPECT_EQ(stacks.Current().SideSound(1, Front), u"no such.thing");
  EXPECT_EQ(stacks.Current().SidePicture(1, Back), u"p.gif");
}

TEST_F(CardEditorTest, MarkingTwiceTakesTheMarkBack) {
  Load(2);
  editor->SelectRow(1, Front);
  editor->ToggleDeleted();
  EXPECT_TRUE(editor->IsRowStruckOut(1));
  editor->ToggleDeleted();
  EXPECT_FALSE(editor->IsRowStruckOut(1));
}

TEST_F(CardEditorTest, SavingWritesTheUnmarkedCardsAndDropsTheOthers) {
  Load(3);
  editor->SelectRow(1, Front);
  editor->ToggleDeleted();
  OpenTarget();
  EXPECT_EQ(editor->Save(), FileStatus::Ok);
  EXPECT_EQ(files.Content(u"/x.QBC"), FileOf("f1  \r\nb1  \r\nf3  \r\nb3  \r\n"));
  EXPECT_EQ(stacks.Current().CardCount, 2);
  EXPECT_EQ(stacks.Current().SideText(2, Front), u"f3");
  EXPECT_EQ(stacks.Current().SideText(3, Front), u"");
  EXPECT_EQ(stacks.StackFileNumber, nullptr);
}

TEST_F(CardEditorTest, SavingLeavesTheTextsInMemoryAsTheyAre) {
  Load(1);
  stacks.Current().SetSideText(1, Front, u"a\r\nb");
  stacks.Current().SetSideSound(1, Front, u"/cards/a.wav");
  OpenTarget();
  EXPECT_EQ(editor->Save(), FileStatus::Ok);
  EXPECT_EQ(files.Content(u"/x.QBC"), FileOf("a^b a.wav \r\nb1  \r\n"));
  EXPECT_EQ(stacks.Current().SideText(1, Front), u"a\r\nb");
}

TEST_F(CardEditorTest, SavingWithEveryCardMarkedWritesNoCards) {
  Load(1);
  editor->SelectRow(0, Front);
  editor->ToggleDeleted();
  OpenTarget();
  EXPECT_EQ(editor->Save(), FileStatus::Ok);
  EXPECT_EQ(files.Content(u"/x.QBC"), FileOf(""));
  EXPECT_EQ(stacks.Current().CardCount, 0);
}

TEST_F(CardEditorTest, ACaretFailsTheSaveAndLosesNothing) {
  Load(3);
  files.Put(u"/x.QBC", "old");
  prompts.Expect(Answer::Ok);
  stacks.Current().SetSideText(3, Back, u"a^b");
  editor->SelectRow(0, Front);
  editor->ToggleDeleted();
  OpenTarget();
  EXPECT_EQ(editor->Save(), FileStatus::Overflow);
  EXPECT_EQ(files.Content(u"/x.QBC"), "old");
  EXPECT_EQ(stacks.Current().CardCount, 3);
  EXPECT_EQ(stacks.Current().SideText(3, Back), u"a^b");
  EXPECT_TRUE(editor->IsRowStruckOut(0));
  EXPECT_EQ(stacks.StackFileNumber, nullptr);
  EXPECT_EQ(files.openReplacements, 0);
}

TEST_F(CardEditorTest, AFullDiskAtTheCloseLosesNothing) {
  Load(2);
  files.Put(u"/x.QBC", "old");
  prompts.Expect(Answer::Ok);
  OpenTarget();
  files.failCommit = FileStatus::DiskFull;
  EXPECT_EQ(editor->Save(), FileStatus::DiskFull);
  EXPECT_EQ(files.Content(u"/x.QBC"), "old");
  EXPECT_EQ(stacks.Current().CardCount, 2);
}

TEST_F(CardEditorTest, AfterAppendingTheFirstPageIsShown) {
  Load(8);
  editor->ScrollTo(4);
  editor->SelectRow(2, Front);
  editor->CardsAppended();
  EXPECT_EQ(editor->TopCard(), 1);
  EXPECT_EQ(editor->CurCard(), 3);
}

/// The simplest thing that could hold a stack being edited.
struct Model {
  struct Card {
    Text front;
    Text back;
    bool deleted = false;
  };
  std::vector<Card> cards;
};

class RandomEditing : public CardEditorTest {
 protected:
  int Below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
  Text AnyText() { return Below(8) == 0 ? Text() : u"t" + NumberText(Below(1000)); }

  void Append() {
    CardFields fields;
    fields.sides[0].text = AnyText();
    fields.sides[1].text = AnyText();
    const bool added = AddCard(stacks.Current(), fields);
    ASSERT_EQ(added, model.cards.size() < MaxCards);
    if (added) model.cards.push_back({fields.sides[0].text, fields.sides[1].text});
    editor->CardsAppended();
  }

  void Commit() {
    const Text text = AnyText();
    const int side = Below(2);
    editor->CommitText(side, text);
    if (editor->SelRow() < 0) return;
    Model::Card& card = model.cards.at(static_cast<std::size_t>(editor->CurCard()) - 1);
    (side == Front ? card.front : card.back) = text;
  }

  void Toggle() {
    editor->ToggleDeleted();
    if (editor->SelRow() < 0) return;
    Model::Card& card = model.cards.at(static_cast<std::size_t>(editor->CurCard()) - 1);
    card.deleted = !card.deleted;
  }

  void SaveAndReopen() {
    (void)files.Remove(u"/x.QBC");
    OpenTarget();
    ASSERT_EQ(editor->Save(), FileStatus::Ok);
    std::erase_if(model.cards, [](const Model::Card& card) { return card.deleted; });
    editor.emplace(stacks);
  }

  void OneStep() {
    switch (Below(12)) {
      case 0:
      case 1:
        Append();
        break;
      case 2:
      case 3:
        editor->ScrollTo(1 + Below(editor->ScrollMaximum()));
        break;
      case 4:
      case 5:
      case 6:
        editor->SelectRow(Below(RowsPerPage), Below(2));
        break;
      case 7:
      case 8:
      case 9:
        Commit();
        break;
      case 10:
        Toggle();
        break;
      default:
        if (Below(20) == 0) {
          SaveAndReopen();
        } else if (!model.cards.empty()) {
          editor->GoTo(1 + Below(static_cast<int>(model.cards.size())));
        }
    }
  }

  void ExpectAgreement() {
    ASSERT_EQ(stacks.Current().CardCount, static_cast<int>(model.cards.size()));
    for (int i = 0; i < stacks.Current().CardCount; ++i) {
      const Model::Card& card = model.cards[static_cast<std::size_t>(i)];
      ASSERT_EQ(stacks.Current().SideText(i + 1, Front), card.front);
      ASSERT_EQ(stacks.Current().SideText(i + 1, Back), card.back);
      ASSERT_EQ(editor->IsMarked(i + 1), card.deleted);
    }
    ASSERT_GE(editor->TopCard(), 1);
    ASSERT_LE(editor->TopCard(), editor->ScrollMaximum());
    ASSERT_TRUE(editor->SelRow() == -1 ||
                editor->CurCard() == editor->TopCard() + editor->SelRow());
    ASSERT_LE(editor->CurCard(), std::max<int>(MaxCards, stacks.Current().CardCount));
  }

  std::mt19937 random;
  Model model;
};

TEST_F(RandomEditing, AgreesWithASimpleModelOverThousandsOfOperations) {
  Load(0);
  for (unsigned seed = 1; seed <= 5; ++seed) {
    random.seed(seed);
    for (int step = 0; step < 4000; ++step) {
      OneStep();
      ExpectAgreement();
      if (HasFatalFailure()) FAIL() << "seed " << seed << ", step " << step;
    }
  }
}

}  // namespace

#include "cards/StackStore.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

/// A store with `count` stacks called "s0", "s1", ..., each with one card of its own.
class StackStoreTest : public testing::Test {
 protected:
  void Load(int count) {
    for (int i = 0; i < count; ++i) {
      CardStack& stack = stacks.Append();
      stack.StackName = u"s" + NumberText(i);
      stack.TopicIndex = i;
      stack.CardCount = 1;
      stack.SetSideText(1, Front, u"front of " + stack.StackName);
    }
  }

  void ExpectStacks(const std::vector<Text>& names) const {
    ASSERT_EQ(stacks.StackList.size(), names.size());
    EXPECT_EQ(stacks.StackCount, static_cast<int>(names.size()) - 1);
    for (std::size_t i = 0; i < names.size(); ++i) {
      const CardStack& stack = stacks.At(static_cast<int>(i));
      EXPECT_EQ(stack.StackName, names[i]);
      EXPECT_EQ(stack.SideText(1, Front), u"front of " + names[i]);
      EXPECT_EQ(stack.CardCount, 1);
      EXPECT_EQ(u"s" + NumberText(static_cast<int>(stack.TopicIndex)), names[i]);
    }
  }

  void ExpectOnlyThePlaceholder() const {
    EXPECT_EQ(stacks.StackCount, -1);
    EXPECT_EQ(stacks.CurrentStack, 0);
    ASSERT_EQ(stacks.StackList.size(), 1U);
    EXPECT_EQ(stacks.Current().StackName, u"None");
    EXPECT_EQ(stacks.Current().CardCount, 0);
  }

  StackStore stacks;
};

}  // namespace

TEST_F(StackStoreTest, BeginsWithThePlaceholderAlone) { ExpectOnlyThePlaceholder(); }

TEST_F(StackStoreTest, BeginsWithoutDescriptionTopicNameAndOpenFile) {
  EXPECT_EQ(stacks.StackDescription, u"");
  EXPECT_EQ(stacks.FileTopicName, u"");
  EXPECT_EQ(stacks.StackFileNumber, nullptr);
}

TEST_F(StackStoreTest, TheFirstStackTakesThePlaceOfThePlaceholder) {
  Load(1);
  ExpectStacks({u"s0"});
  EXPECT_EQ(stacks.CurrentStack, 0);
}

TEST_F(StackStoreTest, AnAppendedStackIsEmptyAndSelected) {
  Load(2);
  const CardStack& added = stacks.Append();
  EXPECT_EQ(added.StackName, u"");
  EXPECT_EQ(added.CardCount, 0);
  EXPECT_EQ(stacks.CurrentStack, 2);
  EXPECT_EQ(&stacks.Current(), &added);
}

TEST_F(StackStoreTest, AppendingKeepsTheOthersInOrder) {
  Load(5);
  ExpectStacks({u"s0", u"s1", u"s2", u"s3", u"s4"});
}

TEST_F(StackStoreTest, RemovingTheOnlyStackLeavesThePlaceholder) {
  Load(1);
  stacks.RemoveCurrentStack();
  ExpectOnlyThePlaceholder();
}

TEST_F(StackStoreTest, RemovingTheFirstMovesTheOthersDown) {
  Load(3);
  stacks.CurrentStack = 0;
  stacks.RemoveCurrentStack();
  ExpectStacks({u"s1", u"s2"});
  EXPECT_EQ(stacks.CurrentStack, 0);
}

TEST_F(StackStoreTest, RemovingTheMiddleOneMovesTheLastDown) {
  Load(3);
  stacks.CurrentStack = 1;
  stacks.RemoveCurrentStack();
  ExpectStacks({u"s0", u"s2"});
  EXPECT_EQ(stacks.CurrentStack, 1);
}

TEST_F(StackStoreTest, RemovingTheLastSelectsTheOneBeforeIt) {
  Load(3);
  stacks.RemoveCurrentStack();
  ExpectStacks({u"s0", u"s1"});
  EXPECT_EQ(stacks.CurrentStack, 1);
}

TEST_F(StackStoreTest, RemovingWithNothingLoadedLeavesThePlaceholder) {
  stacks.RemoveCurrentStack();
  stacks.RemoveCurrentStack();
  ExpectOnlyThePlaceholder();
}

TEST_F(StackStoreTest, RemovingRestoresThePlaceholderThatABlankRecordReplaced) {
  stacks.StackList[0] = CardStack();
  stacks.RemoveCurrentStack();
  ExpectOnlyThePlaceholder();
}

TEST_F(StackStoreTest, AppendingAfterTheLastRemovalBeginsAtZeroAgain) {
  Load(2);
  stacks.RemoveCurrentStack();
  stacks.RemoveCurrentStack();
  stacks.RemoveCurrentStack();
  Load(1);
  ExpectStacks({u"s0"});
  EXPECT_EQ(stacks.CurrentStack, 0);
}

TEST_F(StackStoreTest, AnIndexOutsideTheListIsAFault) {
  Load(2);
  EXPECT_THROW((void)stacks.At(2), Fault);
  EXPECT_THROW((void)stacks.At(-1), Fault);
}

TEST_F(StackStoreTest, ASelectionOutsideTheListIsAFault) {
  Load(2);
  stacks.CurrentStack = 2;
  EXPECT_THROW((void)stacks.Current(), Fault);
  EXPECT_THROW(stacks.RemoveCurrentStack(), Fault);
}

TEST_F(StackStoreTest, AStackOf300CardsIsLegal) {
  CardStack& stack = stacks.Append();
  stack.CardCount = MaxCards;
  stack.SetSideText(MaxCards, Back, u"last");
  EXPECT_EQ(stacks.Current().SideText(300, Back), u"last");
}

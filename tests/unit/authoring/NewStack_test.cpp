#include "authoring/NewStack.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

TEST(BeginNewStack, SelectsAnEmptyNamelessStackOfTheTopic) {
  StackStore stacks;
  const CardStack& stack = BeginNewStack(stacks, 3);
  EXPECT_EQ(stacks.StackCount, 0);
  EXPECT_EQ(stacks.CurrentStack, 0);
  EXPECT_EQ(stack.StackName, u"");
  EXPECT_EQ(stack.CardCount, 0);
  EXPECT_EQ(stack.TopicIndex, 3);
}

TEST(DropNewStack, SelectsTheStackBeforeIt) {
  StackStore stacks;
  stacks.Append().StackName = u"a";
  stacks.Append().StackName = u"b";
  BeginNewStack(stacks, 0);
  DropNewStack(stacks);
  EXPECT_EQ(stacks.StackCount, 1);
  EXPECT_EQ(stacks.Current().StackName, u"b");
}

TEST(DropNewStack, LeavesABlankRecordOfTheOnlyOne) {
  StackStore stacks;
  BeginNewStack(stacks, 0).CardCount = 2;
  DropNewStack(stacks);
  EXPECT_EQ(stacks.StackCount, -1);
  EXPECT_EQ(stacks.CurrentStack, 0);
  EXPECT_EQ(stacks.Current().StackName, u"");
  EXPECT_EQ(stacks.Current().CardCount, 0);
}

TEST(DropNewStack, ABlankRecordGivesWayToTheNextStack) {
  StackStore stacks;
  BeginNewStack(stacks, 0);
  DropNewStack(stacks);
  stacks.Append().StackName = u"next";
  EXPECT_EQ(stacks.StackList.size(), 1U);
  EXPECT_EQ(stacks.Current().StackName, u"next");
}

TEST(DropNewStack, WithoutAnyStackDoesNothing) {
  StackStore stacks;
  DropNewStack(stacks);
  EXPECT_EQ(stacks.StackCount, -1);
  EXPECT_EQ(stacks.Current().StackName, NoStackName);
}

}  // namespace

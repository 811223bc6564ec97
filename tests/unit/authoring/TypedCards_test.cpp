#include "authoring/TypedCards.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

CardFields Fields(TextView front, TextView back) {
  CardFields fields;
  fields.sides[0].text = front;
  fields.sides[1].text = back;
  return fields;
}

class TypedCardsTest : public testing::Test {
 protected:
  void Type(TextView front, TextView back) { EXPECT_TRUE(AddCard(stack, Fields(front, back))); }

  StackStore stacks;
  CardStack& stack = stacks.Current();
};

TEST_F(TypedCardsTest, WithoutACardThereIsNoWayBack) {
  TypedCards cards(stacks);
  EXPECT_FALSE(cards.HasPrevious());
  EXPECT_EQ(cards.Corrected(), 0);
  Type(u"dog", u"perro");
  EXPECT_TRUE(cards.HasPrevious());
}

TEST_F(TypedCardsTest, CardsThatWereThereBeforeAreOutOfReach) {
  Type(u"old", u"viejo");
  TypedCards cards(stacks);
  EXPECT_FALSE(cards.HasPrevious());
  Type(u"new", u"nuevo");
  EXPECT_EQ(cards.GoBack({}).sides[0].text, u"new");
  EXPECT_FALSE(cards.HasPrevious());
  EXPECT_FALSE(cards.IsTyped(1));
  EXPECT_TRUE(cards.IsTyped(2));
}

TEST_F(TypedCardsTest, BackAndOnAgainToTheEntryAsItWas) {
  TypedCards cards(stacks);
  Type(u"one", u"uno");
  Type(u"two", u"dos");
  const CardFields entry = Fields(u"three^", u"");
  EXPECT_EQ(cards.GoBack(entry), Fields(u"two", u"dos"));
  EXPECT_EQ(cards.Corrected(), 2);
  EXPECT_EQ(cards.GoBack(Fields(u"two", u"dos")), Fields(u"one", u"uno"));
  EXPECT_EQ(cards.GoOn(Fields(u"ONE", u"uno")), Fields(u"two", u"dos"));
  EXPECT_EQ(cards.GoOn(Fields(u"two", u"dos")), entry);
  EXPECT_EQ(cards.Corrected(), 0);
  EXPECT_EQ(stack.SideText(1, Front), u"ONE");
  EXPECT_EQ(stack.SideText(2, Front), u"two");
  EXPECT_EQ(stack.CardCount, 2);
}

TEST_F(TypedCardsTest, ACaretIsShownAsItIsTypedAndStoredAsItWasMeant) {
  TypedCards cards(stacks);
  Type(u"a^^b^c", u"x");
  ASSERT_EQ(stack.SideText(1, Front), u"a^b\r\nc");
  CardFields shown = cards.GoBack({});
  EXPECT_EQ(shown.sides[0].text, u"a^^b\r\nc");
  shown.sides[0].text = u"a^^b^d";
  (void)cards.GoTo(1, shown);
  EXPECT_EQ(stack.SideText(1, Front), u"a^b\r\nd");
}

TEST_F(TypedCardsTest, ASideThatNobodyTouchedKeepsItsTextToTheLetter) {
  TypedCards cards(stacks);
  stack.CardCount = 1;
  stack.SetSideText(1, Front, u"100%% ^\rx  ");
  const CardFields shown = cards.GoBack({});
  (void)cards.GoOn(shown);
  EXPECT_EQ(stack.SideText(1, Front), u"100%% ^\rx  ");
}

TEST_F(TypedCardsTest, MediaNamesAreCorrectedToo) {
  TypedCards cards(stacks);
  CardFields typed = Fields(u"a", u"b");
  typed.sides[1].sound = u"b.wav";
  typed.sides[0].picture = u"a.bmp";
  ASSERT_TRUE(AddCard(stack, typed));
  CardFields shown = cards.GoBack({});
  EXPECT_EQ(shown, typed);
  shown.sides[1].sound = u"c.wav";
  shown.sides[0].picture.clear();
  (void)cards.GoOn(shown);
  EXPECT_EQ(stack.SideSound(1, Back), u"c.wav");
  EXPECT_EQ(stack.SidePicture(1, Front), u"");
}

TEST_F(TypedCardsTest, ADroppedCorrectionChangesNothing) {
  TypedCards cards(stacks);
  Type(u"dog", u"perro");
  const CardFields entry = Fields(u"e", u"f");
  (void)cards.GoBack(entry);
  EXPECT_EQ(cards.Drop(), entry);
  EXPECT_EQ(cards.Corrected(), 0);
  EXPECT_EQ(stack.SideText(1, Front), u"dog");
}

}  // namespace

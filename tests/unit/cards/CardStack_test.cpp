#include "cards/CardStack.h"

#include "tests/support/TextPrinters.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

void ExpectSubscriptFault(const std::function<void()>& access) {
  try {
    access();
    ADD_FAILURE() << "no fault";
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.Number(), FileStatus::SubscriptOutOfRange);
  }
}

Text TextOf(int card, int side) {
  return u"card " + NumberText(card) + u" side " + NumberText(side);
}

}  // namespace

TEST(CardStack, BeginsWithoutCardsNameAndTopic) {
  const CardStack stack;
  EXPECT_EQ(stack.CardCount, 0);
  EXPECT_EQ(stack.TopicIndex, 0);
  EXPECT_EQ(stack.StackName, u"");
}

TEST(CardStack, EverySideOfAFreshStackIsEmpty) {
  const CardStack stack;
  for (int card = 0; card <= MaxCards; ++card) {
    for (const int side : {Front, Back}) {
      EXPECT_EQ(stack.SideText(card, side), u"");
      EXPECT_EQ(stack.SideSound(card, side), u"");
      EXPECT_EQ(stack.SidePicture(card, side), u"");
    }
  }
}

TEST(CardStack, KeepsTextSoundAndPictureOfEverySideApart) {
  CardStack stack;
  for (int card = 1; card <= MaxCards; ++card) {
    for (const int side : {Front, Back}) {
      stack.SetSideText(card, side, TextOf(card, side));
      stack.SetSideSound(card, side, TextOf(card, side) + u".wav");
      stack.SetSidePicture(card, side, TextOf(card, side) + u".bmp");
    }
  }
  for (int card = 1; card <= MaxCards; ++card) {
    for (const int side : {Front, Back}) {
      EXPECT_EQ(stack.SideText(card, side), TextOf(card, side));
      EXPECT_EQ(stack.SideSound(card, side), TextOf(card, side) + u".wav");
      EXPECT_EQ(stack.SidePicture(card, side), TextOf(card, side) + u".bmp");
    }
  }
}

TEST(CardStack, ACardAbove300IsAFault) {
  CardStack stack;
  ExpectSubscriptFault([&] { (void)stack.SideText(301, Front); });
  ExpectSubscriptFault([&] { (void)stack.SideSound(301, Front); });
  ExpectSubscriptFault([&] { (void)stack.SidePicture(301, Back); });
  ExpectSubscriptFault([&] { stack.SetSideText(301, Front, u"x"); });
  ExpectSubscriptFault([&] { stack.SetSideSound(301, Front, u""); });
  ExpectSubscriptFault([&] { stack.SetSidePicture(301, Front, u"x"); });
}

TEST(CardStack, ANegativeCardIsAFault) {
  CardStack stack;
  ExpectSubscriptFault([&] { (void)stack.SideText(-1, Back); });
  ExpectSubscriptFault([&] { stack.SetSideText(-1, Back, u"x"); });
}

TEST(CardStack, AThirdSideIsAFault) {
  CardStack stack;
  ExpectSubscriptFault([&] { (void)stack.SideText(1, 2); });
  ExpectSubscriptFault([&] { (void)stack.SideText(1, -1); });
  ExpectSubscriptFault([&] { stack.SetSideText(1, 2, u"x"); });
}

TEST(CardStack, OverwritesWithAShorterText) {
  CardStack stack;
  stack.SetSideText(1, Front, u"a longer text");
  stack.SetSideText(1, Back, u"neighbour");
  stack.SetSideText(1, Front, u"short");
  EXPECT_EQ(stack.SideText(1, Front), u"short");
  EXPECT_EQ(stack.SideText(1, Back), u"neighbour");
}

TEST(CardStack, OverwritesWithALongerText) {
  CardStack stack;
  stack.SetSideText(1, Front, u"short");
  stack.SetSideText(1, Back, u"neighbour");
  stack.SetSideText(1, Front, u"a longer text");
  EXPECT_EQ(stack.SideText(1, Front), u"a longer text");
  EXPECT_EQ(stack.SideText(1, Back), u"neighbour");
}

TEST(CardStack, GrowsAgainAfterShrinkingWithoutTouchingTheNeighbour) {
  CardStack stack;
  stack.SetSideText(1, Front, u"abcdef");
  stack.SetSideText(1, Back, u"neighbour");
  stack.SetSideText(1, Front, u"a");
  stack.SetSideText(1, Front, u"abcdefgh");
  EXPECT_EQ(stack.SideText(1, Front), u"abcdefgh");
  EXPECT_EQ(stack.SideText(1, Back), u"neighbour");
}

TEST(CardStack, ATextCanBeEmptied) {
  CardStack stack;
  stack.SetSideText(1, Front, u"text");
  stack.SetSideText(1, Front, u"");
  EXPECT_EQ(stack.SideText(1, Front), u"");
}

TEST(CardStack, TakesTheTextOfAnotherOfItsCards) {
  CardStack stack;
  stack.SetSideText(1, Front, Text(3000, u'x'));
  stack.SetSideText(2, Front, stack.SideText(1, Front));
  EXPECT_EQ(stack.SideText(1, Front), Text(3000, u'x'));
  EXPECT_EQ(stack.SideText(2, Front), Text(3000, u'x'));
}

TEST(CardStack, TakesAPartOfTheTextThatItReplaces) {
  CardStack stack;
  stack.SetSideText(1, Front, u"0123456789");
  stack.SetSideText(1, Front, stack.SideText(1, Front).substr(2));
  EXPECT_EQ(stack.SideText(1, Front), u"23456789");
}

TEST(CardStack, SurvivesThousandsOfChangesThatLeaveGarbageBehind) {
  CardStack stack;
  for (int round = 1; round <= 40; ++round) {
    for (int card = 1; card <= 50; ++card) {
      stack.SetSideText(card, Front,
                        Text(static_cast<std::size_t>(round * 7 % 41), u'f') + TextOf(card, Front));
      stack.SetSideSound(card, Back, Text(static_cast<std::size_t>(round * 5 % 31), u's'));
    }
  }
  for (int card = 1; card <= 50; ++card) {
    EXPECT_EQ(stack.SideText(card, Front), Text(40 * 7 % 41, u'f') + TextOf(card, Front));
    EXPECT_EQ(stack.SideSound(card, Back), Text(40 * 5 % 31, u's'));
  }
}

TEST(CardStack, FillingAReservedStackMovesNothing) {
  CardStack stack;
  stack.Reserve(10'000);
  stack.SetSideText(1, Front, u"first");
  const char16_t* const place = stack.SideText(1, Front).data();
  for (int card = 2; card <= 200; ++card) stack.SetSideText(card, Front, u"another text");
  EXPECT_EQ(stack.SideText(1, Front).data(), place);
}

TEST(CardStack, ShrinkKeepsEveryText) {
  CardStack stack;
  stack.SetMediaFolder(u"cards/");
  stack.Reserve(10'000);
  stack.SetSideText(1, Front, u"a longer text");
  stack.SetSideText(1, Front, u"short");
  stack.SetSideSound(2, Back, u"cards/a.wav");
  stack.Shrink();
  EXPECT_EQ(stack.SideText(1, Front), u"short");
  EXPECT_EQ(stack.SideSound(2, Back), u"cards/a.wav");
}

TEST(CardStack, ACopyIsIndependent) {
  CardStack stack;
  stack.SetSideText(1, Front, u"text");
  const CardStack copy = stack;
  stack.SetSideText(1, Front, u"else");
  EXPECT_EQ(copy.SideText(1, Front), u"text");
}

TEST(CardStack, KeepsTextsLongerThanALoadWould) {
  CardStack stack;
  stack.SetSideText(300, Back, Text(40'000, u'x'));
  EXPECT_EQ(stack.SideText(300, Back).size(), 40'000U);
}

TEST(CardStack, ReturnsMediaPathsInAndOutsideTheMediaFolder) {
  CardStack stack;
  stack.SetMediaFolder(u"cards/");
  stack.SetSideSound(1, Front, u"cards/dog.wav");
  stack.SetSideSound(1, Back, u"other/dog.wav");
  stack.SetSidePicture(1, Front, u"cards/deeper/dog.bmp");
  stack.SetSidePicture(1, Back, u"typed.bmp");
  EXPECT_EQ(stack.SideSound(1, Front), u"cards/dog.wav");
  EXPECT_EQ(stack.SideSound(1, Back), u"other/dog.wav");
  EXPECT_EQ(stack.SidePicture(1, Front), u"cards/deeper/dog.bmp");
  EXPECT_EQ(stack.SidePicture(1, Back), u"typed.bmp");
}

TEST(CardStack, APathMayMoveOutOfTheMediaFolderAndBack) {
  CardStack stack;
  stack.SetMediaFolder(u"cards/");
  stack.SetSideSound(1, Front, u"cards/dog.wav");
  stack.SetSideSound(1, Front, u"dog.wav");
  EXPECT_EQ(stack.SideSound(1, Front), u"dog.wav");
  stack.SetSideSound(1, Front, u"cards/cat.wav");
  EXPECT_EQ(stack.SideSound(1, Front), u"cards/cat.wav");
}

TEST(CardStack, AMediaPathThatIsTheFolderItselfStays) {
  CardStack stack;
  stack.SetMediaFolder(u"cards/");
  stack.SetSideSound(1, Front, u"cards/");
  EXPECT_EQ(stack.SideSound(1, Front), u"cards/");
}

TEST(CardStack, ALaterMediaFolderChangesNoPath) {
  CardStack stack;
  stack.SetMediaFolder(u"cards/");
  stack.SetSideSound(1, Front, u"cards/dog.wav");
  stack.SetMediaFolder(u"other/");
  EXPECT_EQ(stack.SideSound(1, Front), u"cards/dog.wav");
}

TEST(CardStack, ATextThatBeginsLikeTheMediaFolderIsATextAsAnyOther) {
  CardStack stack;
  stack.SetMediaFolder(u"cards/");
  stack.SetSideText(1, Front, u"cards/ and more");
  EXPECT_EQ(stack.SideText(1, Front), u"cards/ and more");
}

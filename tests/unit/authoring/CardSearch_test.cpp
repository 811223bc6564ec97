#include "authoring/CardSearch.h"

#include "tests/support/ScriptedPrompts.h"

#include <gtest/gtest.h>

namespace {

class FindNextTest : public testing::Test {
 protected:
  FindNextTest() {
    Put(1, u"dog", u"perro");
    Put(2, u"hot dog", u"DOG");
    Put(3, u"cat", u"gato\r\nde casa");
    stack.CardCount = 3;
  }

  void Put(int card, TextView front, TextView back) {
    stack.SetSideText(card, Front, front);
    stack.SetSideText(card, Back, back);
  }

  CardStack stack;
  SearchSettings settings{.text = u"dog"};
};

TEST_F(FindNextTest, FindsTheFirstCardBehindTheStart) {
  EXPECT_EQ(FindNext(stack, settings, 0), 1);
  EXPECT_EQ(FindNext(stack, settings, 1), 2);
}

TEST_F(FindNextTest, DoesNotWrapAround) { EXPECT_EQ(FindNext(stack, settings, 2), 0); }

TEST_F(FindNextTest, AHitOnBothSidesIsOneHit) {
  Put(1, u"dog", u"dog");
  EXPECT_EQ(FindNext(stack, settings, 0), 1);
  EXPECT_EQ(FindNext(stack, settings, 1), 2);
}

TEST_F(FindNextTest, SearchesTheTickedSidesOnly) {
  settings = {.text = u"perro", .front = true, .back = false};
  EXPECT_EQ(FindNext(stack, settings, 0), 0);
  settings = {.text = u"perro", .front = false, .back = true};
  EXPECT_EQ(FindNext(stack, settings, 0), 1);
  settings = {.text = u"perro", .front = false, .back = false};
  EXPECT_EQ(FindNext(stack, settings, 0), 0);
}

TEST_F(FindNextTest, AnEmptyCaseBoxMindsLetterCase) {
  settings.text = u"DOG";
  EXPECT_EQ(FindNext(stack, settings, 0), 2);
}

TEST_F(FindNextTest, ATickedCaseBoxIgnoresIt) {
  settings = {.text = u"DOG", .caseBox = true};
  EXPECT_EQ(FindNext(stack, settings, 0), 1);
}

TEST_F(FindNextTest, ALineBreakIsTwoCharacters) {
  settings.text = u"gato\r\nde";
  EXPECT_EQ(FindNext(stack, settings, 0), 3);
  settings.text = u"gato de";
  EXPECT_EQ(FindNext(stack, settings, 0), 0);
}

TEST_F(FindNextTest, DoesNotSearchMediaNames) {
  stack.SetSideSound(3, Front, u"dog.wav");
  EXPECT_EQ(FindNext(stack, settings, 2), 0);
}

TEST_F(FindNextTest, DoesNotSearchBeyondTheLastCard) {
  Put(4, u"dog", u"");
  EXPECT_EQ(FindNext(stack, settings, 2), 0);
}

TEST(TextNotFoundPrompt, IsAWarning) {
  ExpectPrompt(TextNotFoundPrompt(), u"Text Not Found", PromptIcon::Exclamation, PromptButtons::Ok);
}

}  // namespace

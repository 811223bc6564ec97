#include "study/Chooser.h"

#include "study/StudySession.h"
#include "tests/support/ScriptedRandom.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>

namespace {

constexpr double Place(int place) { return (place + 0.5) / ChoiceCount; }

Choices Built(int current, int count, std::initializer_list<double> numbers) {
  ScriptedRandom random(numbers);
  const Choices choices = BuildChoices(current, count, random);
  EXPECT_EQ(random.Left(), 0U);
  return choices;
}

TEST(BuildChoices, PutsTheCardAtADrawnPlaceAndFillsTheOthersInOrder) {
  EXPECT_EQ(Built(5, 9, {Place(2), Draw(1, 9), Draw(7, 9), Draw(3, 9)}), (Choices{1, 7, 5, 3, 0}));
}

TEST(BuildChoices, DrawsAgainWhatStandsInAnotherPlace) {
  EXPECT_EQ(
      Built(5, 9,
            {Place(2), Draw(5, 9), Draw(1, 9), Draw(5, 9), Draw(2, 9), Draw(2, 9), Draw(3, 9)}),
      (Choices{1, 2, 5, 3, 0}));
}

TEST(BuildChoices, MayOfferTheCardOfPlaceZeroAgain) {
  EXPECT_EQ(Built(5, 9, {Place(0), Draw(5, 9), Draw(2, 9), Draw(3, 9)}), (Choices{5, 5, 2, 3, 0}));
  EXPECT_EQ(Built(5, 9, {Place(3), Draw(1, 9), Draw(1, 9), Draw(2, 9)}), (Choices{1, 1, 2, 5, 0}));
}

TEST(BuildChoices, MayOfferTheCardOfPlaceZeroFourTimes) {
  EXPECT_EQ(Built(5, 9, {Place(0), Draw(5, 9), Draw(5, 9), Draw(5, 9)}), (Choices{5, 5, 5, 5, 0}));
}

TEST(BuildChoices, OffersAllFourCardsOfAStackOfFour) {
  EXPECT_EQ(Built(4, 4, {Place(1), Draw(2, 4), Draw(1, 4), Draw(3, 4)}), (Choices{2, 4, 1, 3, 0}));
}

TEST(BuildChoices, RepeatsTheCardWhenThereIsNoOther) {
  EXPECT_EQ(Built(1, 1, {}), (Choices{1, 1, 1, 1, 0}));
  EXPECT_EQ(Built(1, 0, {}), (Choices{1, 1, 1, 1, 0}));
}

TEST(BuildChoices, EndsForStacksThatShrankBelowFour) {
  SeededRandom random(3);
  for (int count = 2; count < 4; ++count) {
    for (int i = 0; i < 1000; ++i) {
      const Choices choices = BuildChoices(1, count, random);
      EXPECT_NE(std::find(choices.begin(), choices.begin() + ChoiceCount, 1),
                choices.begin() + ChoiceCount);
    }
  }
}

TEST(BuildChoices, KeepsItsPromisesOverManyDraws) {
  constexpr int Rounds = 40'000;
  constexpr int Count = 10;
  SeededRandom random(7);
  std::map<int, int> places;
  std::map<int, int> others;
  int repeated = 0;
  for (int i = 0; i < Rounds; ++i) {
    const Choices choices = BuildChoices(1, Count, random);
    ASSERT_EQ(choices[4], 0);
    for (std::size_t slot = 1; slot < ChoiceCount; ++slot) {
      const bool again = choices[slot] == choices[0];
      repeated += again ? 1 : 0;
      for (std::size_t other = slot + 1; other < ChoiceCount && !again; ++other) {
        ASSERT_NE(choices[slot], choices[other]);  // only the card in place 0 comes twice
      }
      if (choices[slot] != 1) ++others[choices[slot]];
    }
    const auto* const place = std::find(choices.begin(), choices.end(), 1);
    ++places[static_cast<int>(place - choices.begin())];
  }
  EXPECT_GT(repeated, 0);
  for (int place = 0; place < ChoiceCount; ++place) {
    EXPECT_GT(places[place], Rounds / ChoiceCount * 9 / 10) << place;
  }
  for (int card = 2; card <= Count; ++card) {
    EXPECT_GT(others[card], 2 * Rounds / (Count - 1)) << card;
  }
}

CardStack StackOf(int cards) {
  CardStack stack;
  stack.CardCount = cards;
  return stack;
}

class ChooserSession : public testing::Test {
 protected:
  ChooserSession() { Start(session, StudyMode::Chooser, settings); }
  TimerSettings settings;
  StudySession session;
  CardStack stack = StackOf(4);
};

TEST_F(ChooserSession, AsksAgainAfterEveryChoiceWithoutASecondStep) {
  ScriptedRandom random({Draw(2, 4), Place(1), Draw(1, 4), Draw(3, 4), Draw(4, 4), Draw(3, 4),
                         Place(0), Draw(1, 4), Draw(2, 4), Draw(4, 4)});
  EXPECT_EQ(Step(session, stack, random), StepPhase::Question);
  EXPECT_TRUE(session.answerShown);
  EXPECT_TRUE(session.awaitingChoice);
  EXPECT_EQ(session.choices, (Choices{1, 2, 3, 4, 0}));
  EXPECT_EQ(Choose(session, 1), true);
  EXPECT_EQ(Step(session, stack, random), StepPhase::Question);
  EXPECT_EQ(session.currentCard, 3);
}

TEST_F(ChooserSession, CountsTheFirstChoiceAlone) {
  ScriptedRandom random({Draw(2, 4), Place(1), Draw(1, 4), Draw(3, 4), Draw(4, 4)});
  (void)Step(session, stack, random);
  EXPECT_EQ(Choose(session, 0), false);
  EXPECT_EQ(Choose(session, 1), std::nullopt);
  EXPECT_EQ(session.right, 0);
  EXPECT_EQ(session.wrong, 1);
}

TEST_F(ChooserSession, ARepeatedRightAnswerIsRightInEveryPlace) {
  ScriptedRandom random({Draw(2, 4), Place(0), Draw(1, 4), Draw(2, 4), Draw(4, 4)});
  (void)Step(session, stack, random);
  EXPECT_EQ(Choose(session, 2), true);
}

TEST_F(ChooserSession, RestartSetsTheCountersToZeroAndAwaitsNoChoice) {
  session.right = 3;
  session.wrong = 2;
  Restart(session);
  EXPECT_EQ(session.right, 0);
  EXPECT_EQ(session.wrong, 0);
  EXPECT_EQ(Choose(session, 0), std::nullopt);
}

TEST_F(ChooserSession, RedoKeepsTheCountedResult) {
  ScriptedRandom random({Draw(2, 4), Place(1), Draw(1, 4), Draw(3, 4), Draw(4, 4), Draw(2, 4),
                         Place(1), Draw(1, 4), Draw(3, 4), Draw(4, 4)});
  (void)Step(session, stack, random);
  (void)Choose(session, 0);
  Redo(session);
  EXPECT_EQ(Step(session, stack, random), StepPhase::Question);
  EXPECT_EQ(session.currentCard, 2);
  EXPECT_EQ(session.cardsDone, 1);
  EXPECT_EQ(Choose(session, 1), true);
  EXPECT_EQ(session.right, 1);
  EXPECT_EQ(session.wrong, 1);
}

TEST(Restart, LeavesTheCountersOfAStepperAlone) {
  StudySession session;
  session.right = 1;
  Restart(session);
  EXPECT_EQ(session.right, 1);
}

TEST(Restart, ForgetsARedoThatWasStillPending) {
  StudySession session;
  TimerSettings settings;
  Start(session, StudyMode::Stepper, settings);
  ScriptedRandom random({Draw(1, 1), Draw(1, 1)});
  const CardStack stack = StackOf(1);
  (void)Step(session, stack, random);
  (void)Step(session, stack, random);
  (void)Step(session, stack, random);  // the end
  Redo(session);
  Restart(session);
  EXPECT_EQ(Step(session, stack, random), StepPhase::Question);
  EXPECT_EQ(session.cardsDone, 1);
}

}  // namespace

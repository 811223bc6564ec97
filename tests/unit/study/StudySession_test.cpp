#include "study/StudySession.h"

#include "tests/support/ScriptedRandom.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>
#include <set>

namespace {

CardStack StackOf(int count) {
  CardStack stack;
  stack.CardCount = count;
  return stack;
}

class StudySessionTest : public testing::Test {
 protected:
  StudySessionTest() { Start(session, StudyMode::Stepper, settings); }

  StepPhase StepWith(const CardStack& stack, std::initializer_list<double> numbers) {
    ScriptedRandom random(numbers);
    const StepPhase phase = Step(session, stack, random);
    EXPECT_EQ(random.Left(), 0U);
    return phase;
  }
  void ExpectQuestion(const CardStack& stack, std::initializer_list<double> numbers, int card) {
    EXPECT_EQ(StepWith(stack, numbers), StepPhase::Question);
    EXPECT_EQ(session.currentCard, card);
    EXPECT_FALSE(session.answerShown);
  }
  void ExpectAnswer(const CardStack& stack) {
    const int card = session.currentCard;
    EXPECT_EQ(StepWith(stack, {}), StepPhase::Answer);
    EXPECT_EQ(session.currentCard, card);
    EXPECT_TRUE(session.answerShown);
  }
  void ExpectEnd(const CardStack& stack) { EXPECT_EQ(StepWith(stack, {}), StepPhase::EndOfStack); }

  /// Question and answer of one card.
  void Study(const CardStack& stack, std::initializer_list<double> numbers, int card) {
    ExpectQuestion(stack, numbers, card);
    ExpectAnswer(stack);
  }

  TimerSettings settings;
  StudySession session;
};

/// The cards of one pass, in the order in which they came up.
std::vector<int> DrawPass(StudySession& session, const CardStack& stack, RandomSource& random) {
  std::vector<int> cards;
  for (;;) {
    const StepPhase phase = Step(session, stack, random);
    if (phase == StepPhase::EndOfStack) return cards;
    if (phase == StepPhase::Question) cards.push_back(session.currentCard);
  }
}

}  // namespace

// --- Start

TEST_F(StudySessionTest, StartsWithoutACardAskingFrontFirst) {
  EXPECT_EQ(session.mode, StudyMode::Stepper);
  EXPECT_EQ(session.firstSide, Front);
  EXPECT_EQ(session.AnswerSide(), Back);
  EXPECT_EQ(session.cardsDone, 0);
  EXPECT_EQ(session.currentCard, 0);
  EXPECT_TRUE(session.answerShown);
  EXPECT_FALSE(session.redoPending);
}

TEST_F(StudySessionTest, StartForgetsAnEarlierPass) {
  const CardStack stack = StackOf(2);
  Study(stack, {Draw(1, 2)}, 1);
  Redo(session);
  SetFirstSide(session, Back);
  Start(session, StudyMode::Speller, settings);
  EXPECT_EQ(session.cardsDone, 0);
  EXPECT_FALSE(session.redoPending);
  EXPECT_EQ(session.firstSide, Front);
  ExpectQuestion(stack, {Draw(1, 2)}, 1);
}

TEST_F(StudySessionTest, StartKeepsWindowAndStack) {
  session.instanceNumber = 3;
  session.stackIndex = 5;
  Start(session, StudyMode::Speller, settings);
  EXPECT_EQ(session.instanceNumber, 3);
  EXPECT_EQ(session.stackIndex, 5);
}

TEST_F(StudySessionTest, QuibberRunsAsStepper) {
  Start(session, StudyMode::Quibber, settings);
  EXPECT_EQ(session.mode, StudyMode::Stepper);
  Start(session, StudyMode::Speller, settings);
  EXPECT_EQ(session.mode, StudyMode::Speller);
  Start(session, StudyMode::Chooser, settings);
  EXPECT_EQ(session.mode, StudyMode::Chooser);
}

TEST_F(StudySessionTest, StepperAndSpellerAlwaysShowTheWord) {
  for (const StudyMode mode : {StudyMode::Stepper, StudyMode::Speller}) {
    settings.HideWord = true;
    Start(session, mode, settings);
    EXPECT_FALSE(settings.HideWord);
  }
}

TEST_F(StudySessionTest, QuibberAndChooserMayHideTheWord) {
  for (const StudyMode mode : {StudyMode::Quibber, StudyMode::Chooser}) {
    for (const bool hide : {true, false}) {
      settings.HideWord = hide;
      Start(session, mode, settings);
      EXPECT_EQ(settings.HideWord, hide);
    }
  }
}

TEST_F(StudySessionTest, StartTouchesNoOtherSetting) {
  settings = {.TimerInterval = 750,
              .HideWord = true,
              .NoSound = true,
              .NoPicture = true,
              .TimerSettingsConfirmed = true};
  Start(session, StudyMode::Stepper, settings);
  EXPECT_EQ(settings.TimerInterval, 750);
  EXPECT_TRUE(settings.NoSound);
  EXPECT_TRUE(settings.NoPicture);
  EXPECT_TRUE(settings.TimerSettingsConfirmed);
}

// --- Step

TEST_F(StudySessionTest, AStackOfOneCardIsQuestionAnswerEnd) {
  const CardStack stack = StackOf(1);
  ExpectQuestion(stack, {0.0}, 1);
  ExpectAnswer(stack);
  ExpectEnd(stack);
}

TEST_F(StudySessionTest, AnEmptyStackEndsAtOnce) { ExpectEnd(StackOf(0)); }

TEST_F(StudySessionTest, DrawsTheCardThatTheNumberFallsOn) {
  const CardStack stack = StackOf(4);
  const std::pair<double, int> table[] = {{0.0, 1}, {0.2499, 1}, {0.25, 2}, {0.4999, 2},
                                          {0.5, 3}, {0.7499, 3}, {0.75, 4}, {0.9999999, 4}};
  for (const auto& [number, card] : table) {
    Start(session, StudyMode::Stepper, settings);
    ExpectQuestion(stack, {number}, card);
  }
}

TEST_F(StudySessionTest, DrawsTheLastOf300) {
  ExpectQuestion(StackOf(300), {1.0 - 1.0 / (1 << 24)}, 300);
}

TEST_F(StudySessionTest, DrawsAgainWhileTheCardWasDrawnBefore) {
  const CardStack stack = StackOf(3);
  Study(stack, {Draw(2, 3)}, 2);
  Study(stack, {Draw(2, 3), Draw(2, 3), Draw(1, 3)}, 1);
  Study(stack, {Draw(1, 3), Draw(2, 3), Draw(1, 3), Draw(3, 3)}, 3);
  ExpectEnd(stack);
}

TEST_F(StudySessionTest, CountsACardWhenItIsDrawn) {
  const CardStack stack = StackOf(20);
  EXPECT_EQ(CardCountText(session, stack), u"0/20");
  ExpectQuestion(stack, {Draw(7, 20)}, 7);
  EXPECT_EQ(CardCountText(session, stack), u"1/20");
  ExpectAnswer(stack);
  EXPECT_EQ(CardCountText(session, stack), u"1/20");
}

TEST_F(StudySessionTest, TheChooserDrawsAgainWithoutAnAnswerStep) {
  const CardStack stack = StackOf(2);
  ExpectQuestion(stack, {Draw(1, 2)}, 1);
  session.answerShown = true;  // as the window does once it has built the choices
  ExpectQuestion(stack, {Draw(2, 2)}, 2);
  session.answerShown = true;
  ExpectEnd(stack);
}

TEST_F(StudySessionTest, AnyPassDrawsEveryCardExactlyOnce) {
  for (const int count : {1, 2, 3, 10, 299, 300}) {
    for (unsigned seed = 1; seed <= 10; ++seed) {
      SeededRandom random(seed);
      Start(session, StudyMode::Stepper, settings);
      const std::vector<int> cards = DrawPass(session, StackOf(count), random);
      EXPECT_EQ(cards.size(), static_cast<std::size_t>(count));
      const std::set<int> different(cards.begin(), cards.end());
      EXPECT_EQ(different.size(), static_cast<std::size_t>(count));
      EXPECT_EQ(*different.begin(), 1);
      EXPECT_EQ(*different.rbegin(), count);
    }
  }
}

TEST_F(StudySessionTest, EveryCardIsAboutAsLikelyToComeFirstOrLast) {
  constexpr int Cards = 5;
  constexpr int Passes = 5000;
  std::array<int, Cards + 1> first{};
  std::array<int, Cards + 1> last{};
  for (unsigned seed = 1; seed <= Passes; ++seed) {
    SeededRandom random(seed);
    Start(session, StudyMode::Stepper, settings);
    const std::vector<int> cards = DrawPass(session, StackOf(Cards), random);
    ++first.at(static_cast<std::size_t>(cards.front()));
    ++last.at(static_cast<std::size_t>(cards.back()));
  }
  for (std::size_t card = 1; card <= Cards; ++card) {
    EXPECT_NEAR(first.at(card), Passes / Cards, 150);  // more than five standard deviations
    EXPECT_NEAR(last.at(card), Passes / Cards, 150);
  }
}

// --- Redo

TEST_F(StudySessionTest, RedoAsksTheCardAgainInThisPass) {
  const CardStack stack = StackOf(2);
  Study(stack, {Draw(1, 2)}, 1);
  Redo(session);
  Study(stack, {Draw(2, 2)}, 2);
  Study(stack, {Draw(2, 2), Draw(1, 2)}, 1);
  ExpectEnd(stack);
}

TEST_F(StudySessionTest, ARedoneCardMayComeUpAtOnce) {
  const CardStack stack = StackOf(2);
  Study(stack, {Draw(1, 2)}, 1);
  Redo(session);
  ExpectQuestion(stack, {Draw(1, 2)}, 1);
}

TEST_F(StudySessionTest, ARedoneCardStaysCountedUntilTheNextDraw) {
  const CardStack stack = StackOf(2);
  Study(stack, {Draw(1, 2)}, 1);
  Redo(session);
  EXPECT_EQ(session.cardsDone, 1);
  EXPECT_TRUE(session.redoPending);
  ExpectQuestion(stack, {Draw(2, 2)}, 2);
  EXPECT_EQ(session.cardsDone, 1);
  EXPECT_FALSE(session.redoPending);
}

TEST_F(StudySessionTest, RedoOfTheLastCardKeepsThePassGoing) {
  const CardStack stack = StackOf(2);
  Study(stack, {Draw(1, 2)}, 1);
  Study(stack, {Draw(2, 2)}, 2);
  Redo(session);
  Study(stack, {Draw(1, 2), Draw(2, 2)}, 2);
  ExpectEnd(stack);
}

TEST_F(StudySessionTest, RedoTwiceIsOnce) {
  const CardStack stack = StackOf(2);
  Study(stack, {Draw(1, 2)}, 1);
  Redo(session);
  Redo(session);
  Study(stack, {Draw(1, 2)}, 1);
  EXPECT_EQ(session.cardsDone, 1);
  Study(stack, {Draw(2, 2)}, 2);
  ExpectEnd(stack);
}

TEST_F(StudySessionTest, RedoWhileTheQuestionShowsWaitsForTheAnswer) {
  const CardStack stack = StackOf(1);
  ExpectQuestion(stack, {0.0}, 1);
  Redo(session);
  ExpectAnswer(stack);
  ExpectQuestion(stack, {0.0}, 1);
}

TEST_F(StudySessionTest, RedoBeforeTheFirstCardDoesNothing) {
  Redo(session);
  EXPECT_FALSE(session.redoPending);
  const CardStack stack = StackOf(1);
  Study(stack, {0.0}, 1);
  EXPECT_EQ(session.cardsDone, 1);
  ExpectEnd(stack);
}

TEST_F(StudySessionTest, RedoAfterARestartDoesNothing) {
  const CardStack stack = StackOf(2);
  Study(stack, {Draw(1, 2)}, 1);
  Study(stack, {Draw(2, 2)}, 2);
  ExpectEnd(stack);
  Restart(session);
  Redo(session);
  Study(stack, {Draw(2, 2)}, 2);
  Study(stack, {Draw(1, 2)}, 1);
  EXPECT_EQ(session.cardsDone, 2);
  ExpectEnd(stack);
}

// --- End and restart

TEST_F(StudySessionTest, TheEndDrawsNothingAndKeepsTheCount) {
  const CardStack stack = StackOf(1);
  Study(stack, {0.0}, 1);
  ExpectEnd(stack);
  EXPECT_EQ(session.cardsDone, 1);
  EXPECT_EQ(session.currentCard, 1);
}

TEST_F(StudySessionTest, RestartBeginsANewPassWithFrontFirst) {
  const CardStack stack = StackOf(2);
  SetFirstSide(session, Back);
  Study(stack, {Draw(1, 2)}, 1);
  Study(stack, {Draw(2, 2)}, 2);
  ExpectEnd(stack);
  Restart(session);
  EXPECT_EQ(CardCountText(session, stack), u"0/2");
  EXPECT_EQ(session.firstSide, Front);
  EXPECT_TRUE(session.answerShown);
  Study(stack, {Draw(1, 2)}, 1);
  Study(stack, {Draw(2, 2)}, 2);
  ExpectEnd(stack);
}

TEST_F(StudySessionTest, RestartOfAnEmptyStackEndsAgain) {
  const CardStack stack = StackOf(0);
  ExpectEnd(stack);
  Restart(session);
  ExpectEnd(stack);
}

// --- A stack that changes while it is studied

TEST_F(StudySessionTest, AStackThatShrankBelowTheCardsDoneIsOver) {
  Study(StackOf(5), {Draw(5, 5)}, 5);
  Study(StackOf(5), {Draw(4, 5)}, 4);
  ExpectEnd(StackOf(2));
}

TEST_F(StudySessionTest, AStackWithoutAFreeCardIsOverWhateverTheCount) {
  Study(StackOf(5), {Draw(1, 5)}, 1);
  Study(StackOf(5), {Draw(2, 5)}, 2);
  session.cardsDone = 1;  // a count that the changed stack can never meet
  ExpectEnd(StackOf(2));
}

TEST_F(StudySessionTest, AStackThatShrankGoesOnWithTheFreeCards) {
  Study(StackOf(5), {Draw(5, 5)}, 5);
  Study(StackOf(3), {Draw(3, 3)}, 3);
  Study(StackOf(3), {Draw(3, 3), Draw(1, 3)}, 1);
  ExpectEnd(StackOf(3));
}

TEST_F(StudySessionTest, AStackThatGrewShowsItsNewCards) {
  Study(StackOf(1), {0.0}, 1);
  Study(StackOf(2), {Draw(1, 2), Draw(2, 2)}, 2);
  ExpectEnd(StackOf(2));
}

TEST_F(StudySessionTest, AStackThatWasEmptiedIsOver) {
  ExpectQuestion(StackOf(2), {Draw(1, 2)}, 1);
  ExpectAnswer(StackOf(0));
  ExpectEnd(StackOf(0));
}

TEST_F(StudySessionTest, RedoOfACardThatIsGoneDoesNotBreakThePass) {
  Study(StackOf(3), {Draw(3, 3)}, 3);
  Redo(session);
  Study(StackOf(2), {Draw(1, 2)}, 1);
  Study(StackOf(2), {Draw(2, 2)}, 2);
  ExpectEnd(StackOf(2));
}

// --- First side

TEST_F(StudySessionTest, TheFirstSideDecidesTheAnswerSide) {
  SetFirstSide(session, Back);
  EXPECT_EQ(session.firstSide, Back);
  EXPECT_EQ(session.AnswerSide(), Front);
  SetFirstSide(session, Front);
  EXPECT_EQ(session.AnswerSide(), Back);
}

TEST_F(StudySessionTest, ChangingTheFirstSideKeepsThePass) {
  const CardStack stack = StackOf(2);
  Study(stack, {Draw(2, 2)}, 2);
  SetFirstSide(session, Back);
  EXPECT_EQ(CardCountText(session, stack), u"1/2");
  EXPECT_TRUE(session.answerShown);
  Study(stack, {Draw(2, 2), Draw(1, 2)}, 1);
  ExpectEnd(stack);
}

// --- Words

TEST(StudyCaption, NamesTheFourModes) {
  EXPECT_EQ(StudyCaption(StudyMode::Stepper), u"Stepper");
  EXPECT_EQ(StudyCaption(StudyMode::Quibber), u"Quibber");
  EXPECT_EQ(StudyCaption(StudyMode::Speller), u"Speller");
  EXPECT_EQ(StudyCaption(StudyMode::Chooser), u"Chooser");
}

TEST(StudyMode, IsNumberedAsTheCommandsAre) {
  EXPECT_EQ(static_cast<int>(StudyMode::Stepper), 0);
  EXPECT_EQ(static_cast<int>(StudyMode::Quibber), 1);
  EXPECT_EQ(static_cast<int>(StudyMode::Speller), 2);
  EXPECT_EQ(static_cast<int>(StudyMode::Chooser), 3);
}

TEST(StudyTitle, NamesModeStackAndTopic) {
  EXPECT_EQ(StudyTitle(StudyMode::Stepper, u"Verbs", u"Spanish"), u"Stepper - Verbs (Spanish)");
  EXPECT_EQ(StudyTitle(StudyMode::Quibber, u"Verbs", u"Spanish"), u"Quibber - Verbs (Spanish)");
}

TEST(StudyTitle, CutsThePaddingOfTheStackName) {
  EXPECT_EQ(StudyTitle(StudyMode::Chooser, u"My verbs   ", u"General"),
            u"Chooser - My verbs (General)");
}

TEST(CardCountText, HoldsTwoPlainNumbers) {
  StudySession session;
  session.cardsDone = 300;
  EXPECT_EQ(CardCountText(session, StackOf(300)), u"300/300");
}

TEST(WrapForDisplay, LeavesATextOf40CharactersAlone) {
  EXPECT_EQ(WrapForDisplay(u""), u"");
  EXPECT_EQ(WrapForDisplay(Text(20, u'a') + u" " + Text(19, u'b')),
            Text(20, u'a') + u" " + Text(19, u'b'));
}

TEST(WrapForDisplay, BreaksBehindTheLastBlankAmongTheFirst40) {
  const std::pair<std::size_t, std::size_t> table[] = {{1, 1}, {20, 20}, {39, 39}, {40, 40}};
  for (const auto& [blankAt, lineLength] : table) {
    Text text(60, u'a');
    text[blankAt - 1] = u' ';
    const Text wrapped = text.substr(0, lineLength) + u"\r\n" + text.substr(lineLength);
    EXPECT_EQ(WrapForDisplay(text), wrapped) << blankAt;
  }
}

TEST(WrapForDisplay, TakesTheLastOfSeveralBlanks) {
  EXPECT_EQ(WrapForDisplay(u"one two three four five six seven eight nine ten eleven"),
            u"one two three four five six seven eight \r\nnine ten eleven");
}

TEST(WrapForDisplay, BreaksBehindCharacter40WithoutABlankThere) {
  EXPECT_EQ(WrapForDisplay(Text(41, u'a')), Text(40, u'a') + u"\r\na");
  EXPECT_EQ(WrapForDisplay(Text(40, u'a') + u" "), Text(40, u'a') + u"\r\n ");
}

TEST(WrapForDisplay, BreaksOnlyOnce) {
  EXPECT_EQ(WrapForDisplay(Text(120, u'a')), Text(40, u'a') + u"\r\n" + Text(80, u'a'));
}

TEST(WrapForDisplay, KeepsTheBlanksOfASideWithoutMedia) {
  EXPECT_EQ(WrapForDisplay(Text(38, u'a') + u"  "), Text(38, u'a') + u"  ");
  EXPECT_EQ(WrapForDisplay(Text(39, u'a') + u"  "), Text(39, u'a') + u" \r\n ");
}

TEST(WrapForDisplay, NeverPartsTheTwoUnitsOfACharacter) {
  EXPECT_EQ(WrapForDisplay(Text(39, u'a') + u"\U0001F600" + u"b"),
            Text(39, u'a') + u"\r\n\U0001F600" + u"b");
}

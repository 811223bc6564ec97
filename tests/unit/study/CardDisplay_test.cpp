#include "study/CardDisplay.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>
#include <set>

namespace {

/// Card 1 with everything, card 2 with texts alone.
class CardDisplayTest : public testing::Test {
 protected:
  CardDisplayTest() {
    stack.CardCount = 2;
    stack.SetSideText(1, Front, u"dog");
    stack.SetSidePicture(1, Front, u"c/dog.bmp");
    stack.SetSideSound(1, Front, u"c/dog.wav");
    stack.SetSideText(1, Back, u"perro");
    stack.SetSidePicture(1, Back, u"c/perro.bmp");
    stack.SetSideSound(1, Back, u"c/perro.wav");
    stack.SetSideText(2, Front, u"cat");
    stack.SetSideText(2, Back, u"gato");
    session.currentCard = 1;
  }

  void Question() { ShowQuestion(display, session, stack, settings, find); }
  void Answer() { ShowAnswer(display, session, stack); }

  std::set<Text> there = {u"c/dog.bmp", u"c/perro.bmp"};
  MediaLookup find = [this](const Text& name) { return there.contains(name) ? name : Text(); };
  CardStack stack;
  StudySession session;
  TimerSettings settings;
  CardDisplay display;
};

class ShowQuestionTest : public CardDisplayTest {};
class ShowAnswerTest : public CardDisplayTest {};
class TurnOverTest : public CardDisplayTest {};

const Text LongText = Text(30, u'a') + u" " + Text(30, u'b');
const Text LongTextWrapped = Text(30, u'a') + u" \r\n" + Text(30, u'b');

class VerdictTest : public CardDisplayTest {};

TEST_F(VerdictTest, ASpellingShowsTheAnswerAsTheCardHasItWithoutBlanksAtItsEnd) {
  stack.SetSideText(1, Back, u"El Perro  ");
  Question();
  ShowSpelling(display, session, stack, false);
  EXPECT_EQ(display.correctAnswer, u"El Perro");
  EXPECT_EQ(display.answerLine, u"El Perro");
  EXPECT_EQ(display.mark, Mark::Wrong);
  ShowSpelling(display, session, stack, true);
  EXPECT_EQ(display.mark, Mark::Right);
}

TEST_F(VerdictTest, ASpellingIsNotWrapped) {
  stack.SetSideText(1, Back, LongText);
  ShowSpelling(display, session, stack, true);
  EXPECT_EQ(display.answerLine, LongText);
}

TEST_F(VerdictTest, ASpellingOffersNeitherPictureNorSoundOfTheAnswer) {
  Question();
  ShowSpelling(display, session, stack, true);
  EXPECT_EQ(display.picture, u"c/dog.bmp");
  EXPECT_FALSE(display.answerSoundEnabled);
}

TEST_F(VerdictTest, ChoicesAreTheAnswerSidesUnwrappedAndEnabled) {
  stack.SetSideText(2, Back, LongText);
  session.choices = {1, 2, 1, 3, 0};
  ShowChoices(display, session, stack);
  EXPECT_EQ(display.choiceTexts,
            (std::array<Text, ChoiceCount>{u"perro", LongText, u"perro", u""}));
  EXPECT_EQ(display.choiceEnabled, (std::array<bool, ChoiceCount>{true, true, true, true}));
}

TEST_F(VerdictTest, AfterAChoiceEveryPlaceOfTheRightAnswerStaysEnabled) {
  session.choices = {1, 2, 1, 2, 0};
  ShowChoices(display, session, stack);
  ShowChoiceMade(display, session, false);
  EXPECT_EQ(display.choiceEnabled, (std::array<bool, ChoiceCount>{true, false, true, false}));
  EXPECT_EQ(display.mark, Mark::Wrong);
}

TEST_F(VerdictTest, AQuestionShownAgainHasItsWordEvenWhenWordsAreHidden) {
  settings.HideWord = true;
  Question();
  EXPECT_EQ(display.questionLine, u"");
  BlankQuestion(display);
  display.mark = Mark::Right;
  ShowQuestionAgain(display, session, stack, settings, find);
  EXPECT_EQ(display.questionLine, u"dog");
  EXPECT_EQ(display.picture, u"c/dog.bmp");
  EXPECT_EQ(display.mark, Mark::None);
}

TEST_F(VerdictTest, AQuestionShownAgainKeepsItsChoicesAndThePictureSwitch) {
  settings.NoPicture = true;
  session.choices = {1, 2, 1, 2, 0};
  ShowChoices(display, session, stack);
  ShowQuestionAgain(display, session, stack, settings, find);
  EXPECT_EQ(display.choiceTexts[1], u"gato");
  EXPECT_EQ(display.picture, u"");
}

}  // namespace

// --- Question

TEST_F(ShowQuestionTest, ShowsTextPictureAndSoundOfTheFirstSide) {
  Question();
  EXPECT_EQ(display.questionLine, u"dog");
  EXPECT_EQ(display.questionPicture, u"c/dog.bmp");
  EXPECT_EQ(display.picture, u"c/dog.bmp");
  EXPECT_EQ(display.questionSound, u"c/dog.wav");
  EXPECT_TRUE(display.questionSoundEnabled);
}

TEST_F(ShowQuestionTest, ShowsNothingOfTheAnswer) {
  Question();
  EXPECT_EQ(display.answerLine, u"");
  EXPECT_EQ(display.answerPicture, u"");
  EXPECT_EQ(display.answerSound, u"");
  EXPECT_FALSE(display.answerSoundEnabled);
}

TEST_F(ShowQuestionTest, ShowsTheBackWhereThatIsAskedFirst) {
  SetFirstSide(session, Back);
  Question();
  EXPECT_EQ(display.questionLine, u"perro");
  EXPECT_EQ(display.picture, u"c/perro.bmp");
  EXPECT_EQ(display.questionSound, u"c/perro.wav");
}

TEST_F(ShowQuestionTest, WrapsTheText) {
  stack.SetSideText(1, Front, LongText);
  Question();
  EXPECT_EQ(display.questionLine, LongTextWrapped);
}

TEST_F(ShowQuestionTest, KeepsTheTextBackWhenWordsAreHidden) {
  settings.HideWord = true;
  Question();
  EXPECT_EQ(display.questionLine, u"");
  EXPECT_EQ(display.picture, u"c/dog.bmp");
  EXPECT_TRUE(display.questionSoundEnabled);
}

TEST_F(ShowQuestionTest, LoadsNoPictureWhenNoneAreWantedButKeepsItsName) {
  settings.NoPicture = true;
  Question();
  EXPECT_EQ(display.picture, u"");
  EXPECT_EQ(display.questionPicture, u"c/dog.bmp");
}

TEST_F(ShowQuestionTest, LeavesTheBoxAsItIsWhenThePictureIsNotThere) {
  there.clear();
  display.picture = u"before";
  Question();
  EXPECT_EQ(display.picture, u"before");
  EXPECT_EQ(display.questionPicture, u"c/dog.bmp");
}

TEST_F(ShowQuestionTest, LoadsThePictureWhereTheLookupFoundIt) {
  find = [](const Text& name) { return u"found/" + name; };
  Question();
  EXPECT_EQ(display.picture, u"found/c/dog.bmp");
}

TEST_F(ShowQuestionTest, EnablesTheSoundEvenWhenNoneIsPlayed) {
  settings.NoSound = true;
  Question();
  EXPECT_TRUE(display.questionSoundEnabled);
}

TEST_F(ShowQuestionTest, DisablesTheSoundOfASideWithoutOne) {
  Question();
  session.currentCard = 2;
  Question();
  EXPECT_EQ(display.questionSound, u"");
  EXPECT_FALSE(display.questionSoundEnabled);
  EXPECT_EQ(display.questionPicture, u"");
}

TEST_F(ShowQuestionTest, IsBlankForACardThatIsGone) {
  stack.CardCount = 0;
  Question();
  EXPECT_EQ(display.questionLine, u"");
  EXPECT_EQ(display.questionPicture, u"");
  EXPECT_EQ(display.questionSound, u"");
  EXPECT_FALSE(display.questionSoundEnabled);
}

// --- Answer

TEST_F(ShowAnswerTest, ShowsBothTextsAndOffersTheAnswersSound) {
  Question();
  Answer();
  EXPECT_EQ(display.questionLine, u"dog");
  EXPECT_EQ(display.answerLine, u"perro");
  EXPECT_EQ(display.answerPicture, u"c/perro.bmp");
  EXPECT_EQ(display.answerSound, u"c/perro.wav");
  EXPECT_TRUE(display.answerSoundEnabled);
}

TEST_F(ShowAnswerTest, KeepsTheQuestionsPictureAndSound) {
  Question();
  Answer();
  EXPECT_EQ(display.picture, u"c/dog.bmp");
  EXPECT_EQ(display.questionSound, u"c/dog.wav");
  EXPECT_TRUE(display.questionSoundEnabled);
}

TEST_F(ShowAnswerTest, ShowsAHiddenOrBlankedQuestionAgain) {
  settings.HideWord = true;
  Question();
  BlankQuestion(display);
  Answer();
  EXPECT_EQ(display.questionLine, u"dog");
  EXPECT_EQ(display.picture, u"");
}

TEST_F(ShowAnswerTest, WrapsBothTexts) {
  stack.SetSideText(1, Front, LongText);
  stack.SetSideText(1, Back, LongText);
  Answer();
  EXPECT_EQ(display.questionLine, LongTextWrapped);
  EXPECT_EQ(display.answerLine, LongTextWrapped);
}

TEST_F(ShowAnswerTest, DisablesTheSoundOfASideWithoutOne) {
  Answer();
  session.currentCard = 2;
  Answer();
  EXPECT_FALSE(display.answerSoundEnabled);
  EXPECT_EQ(display.answerSound, u"");
  EXPECT_EQ(display.answerPicture, u"");
}

TEST_F(ShowAnswerTest, IsTheFrontWhereTheBackIsAskedFirst) {
  SetFirstSide(session, Back);
  Answer();
  EXPECT_EQ(display.questionLine, u"perro");
  EXPECT_EQ(display.answerLine, u"dog");
  EXPECT_EQ(display.answerSound, u"c/dog.wav");
}

TEST_F(ShowAnswerTest, IsBlankForACardThatIsGone) {
  Question();
  stack.CardCount = 0;
  Answer();
  EXPECT_EQ(display.questionLine, u"");
  EXPECT_EQ(display.answerLine, u"");
  EXPECT_FALSE(display.answerSoundEnabled);
}

// --- Turning over

TEST_F(TurnOverTest, SwapsTextsSoundsAndPictures) {
  Question();
  Answer();
  TurnOver(display, settings, find);
  EXPECT_EQ(display.questionLine, u"perro");
  EXPECT_EQ(display.answerLine, u"dog");
  EXPECT_EQ(display.questionSound, u"c/perro.wav");
  EXPECT_EQ(display.answerSound, u"c/dog.wav");
  EXPECT_EQ(display.questionPicture, u"c/perro.bmp");
  EXPECT_EQ(display.answerPicture, u"c/dog.bmp");
  EXPECT_EQ(display.picture, u"c/perro.bmp");
}

TEST_F(TurnOverTest, SwapsTheSoundButtons) {
  stack.SetSideSound(1, Back, u"");
  Question();
  Answer();
  TurnOver(display, settings, find);
  EXPECT_FALSE(display.questionSoundEnabled);
  EXPECT_TRUE(display.answerSoundEnabled);
}

TEST_F(TurnOverTest, TwiceIsAsBefore) {
  Question();
  Answer();
  TurnOver(display, settings, find);
  TurnOver(display, settings, find);
  EXPECT_EQ(display.questionLine, u"dog");
  EXPECT_EQ(display.answerLine, u"perro");
  EXPECT_EQ(display.picture, u"c/dog.bmp");
}

TEST_F(TurnOverTest, LeavesTheBoxAsItIsWhenThePictureIsNotThere) {
  there.erase(u"c/perro.bmp");
  Question();
  Answer();
  TurnOver(display, settings, find);
  EXPECT_EQ(display.questionPicture, u"c/perro.bmp");
  EXPECT_EQ(display.picture, u"c/dog.bmp");
}

TEST_F(TurnOverTest, SwapsThePictureNamesEvenWhenNoPicturesAreWanted) {
  settings.NoPicture = true;
  Question();
  Answer();
  TurnOver(display, settings, find);
  EXPECT_EQ(display.questionPicture, u"c/perro.bmp");
  EXPECT_EQ(display.picture, u"");
}

TEST_F(TurnOverTest, BeforeTheFirstCardShowsNothing) {
  TurnOver(display, settings, find);
  EXPECT_EQ(display.questionLine, u"");
  EXPECT_EQ(display.picture, u"");
  EXPECT_FALSE(display.questionSoundEnabled);
}

// --- Blanking and clearing

TEST_F(CardDisplayTest, TheTimerTakesTheQuestionsTextAndPicture) {
  Question();
  BlankQuestion(display);
  EXPECT_EQ(display.questionLine, u"");
  EXPECT_EQ(display.picture, u"");
}

TEST_F(CardDisplayTest, TheTimerLeavesTheSounds) {
  Question();
  BlankQuestion(display);
  EXPECT_EQ(display.questionSound, u"c/dog.wav");
  EXPECT_TRUE(display.questionSoundEnabled);
  EXPECT_EQ(display.questionPicture, u"c/dog.bmp");
}

TEST_F(CardDisplayTest, ClearingTakesEverything) {
  Question();
  Answer();
  ClearCard(display);
  EXPECT_EQ(display.questionLine, u"");
  EXPECT_EQ(display.answerLine, u"");
  EXPECT_EQ(display.picture, u"");
  EXPECT_EQ(display.answerPicture, u"");
  EXPECT_EQ(display.answerSound, u"");
  EXPECT_FALSE(display.questionSoundEnabled);
  EXPECT_FALSE(display.answerSoundEnabled);
}

TEST_F(CardDisplayTest, ShownTextEndsBeforeTheBlanksThatAStackFilePadsWith) {
  stack.SetSideText(1, Front, u" dog  ");
  stack.SetSideText(2, Front, u"   ");
  EXPECT_EQ(ShownSideText(stack, 1, Front), u" dog");
  EXPECT_EQ(ShownSideText(stack, 2, Front), u"");
}

TEST_F(CardDisplayTest, PaddingDoesNotCountWhereALineIsBroken) {
  stack.SetSideText(1, Front, Text(20, u'a') + u" " + Text(19, u'b') + u"  ");
  stack.SetSideText(1, Back, LongText + u"  ");
  Question();
  Answer();
  EXPECT_EQ(display.questionLine, Text(20, u'a') + u" " + Text(19, u'b'));
  EXPECT_EQ(display.answerLine, LongTextWrapped);
}

TEST_F(CardDisplayTest, ChoicesHaveNoPadding) {
  stack.SetSideText(2, Back, u"gato  ");
  session.choices = {2, 1, 2, 1, 0};
  ShowChoices(display, session, stack);
  EXPECT_EQ(display.choiceTexts[0], u"gato");
}

TEST_F(CardDisplayTest, TheMostLinesAreThoseOfTheLongestSideThatCounts) {
  EXPECT_EQ(MostLines(stack), 1);
  stack.SetSideText(2, Back, u"a\r\nb\r\nc");
  EXPECT_EQ(MostLines(stack), 3);
  stack.CardCount = 1;
  EXPECT_EQ(MostLines(stack), 1);
  stack.CardCount = 0;
  EXPECT_EQ(MostLines(stack), 1);
}

TEST_F(CardDisplayTest, ShownTextIsEmptyOutsideTheCardsThatCount) {
  stack.SetSideText(3, Front, u"beyond");
  EXPECT_EQ(ShownSideText(stack, 2, Front), u"cat");
  EXPECT_EQ(ShownSideText(stack, 3, Front), u"");
  EXPECT_EQ(ShownSideText(stack, 0, Front), u"");
}

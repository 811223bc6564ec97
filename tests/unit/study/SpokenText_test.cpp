#include "study/SpokenText.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

class SpokenTextTest : public testing::Test {
 protected:
  SpokenTextTest() {
    stack.CardCount = 20;
    session.cardsDone = 3;
    display.questionLine = u"dog";
  }

  CardDisplay display;
  StudySession session;
  CardStack stack;
};

}  // namespace

TEST_F(SpokenTextTest, QuestionComesWithItsNumber) {
  EXPECT_EQ(SpokenQuestion(display, session, stack), u"Card 3 of 20. Question: dog.");
}

TEST_F(SpokenTextTest, QuestionDoesNotGiveTheAnswerAway) {
  display.answerPicture = u"c/perro.bmp";
  display.answerSound = u"c/perro.wav";
  display.picture = u"c/perro-grande.bmp";
  EXPECT_EQ(SpokenQuestion(display, session, stack),
            u"Card 3 of 20. Question: dog. With a picture.");
}

TEST_F(SpokenTextTest, HiddenQuestionStaysUntold) {
  display.questionLine.clear();
  EXPECT_EQ(SpokenQuestion(display, session, stack), u"Card 3 of 20.");
}

TEST_F(SpokenTextTest, QuestionEndsAsTheCardDoes) {
  display.questionLine = u"What is it?  ";
  display.picture = u"c/dog.bmp";
  EXPECT_EQ(SpokenQuestion(display, session, stack),
            u"Card 3 of 20. Question: What is it? With a picture.");
}

TEST_F(SpokenTextTest, CardsLinesBecomeOne) {
  display.questionLine = u"\r\n one \r\ntwo\r\n\r\nthree \r\n";
  EXPECT_EQ(SpokenCard(display), u"Question: one two three.");
}

TEST_F(SpokenTextTest, ChoicesAreNumberedAsTheirKeys) {
  display.choiceTexts = {u"perro", u"gato", u"", u"pez"};
  EXPECT_EQ(SpokenQuestion(display, session, stack),
            u"Card 3 of 20. Question: dog. 1: perro. 2: gato. 4: pez.");
}

TEST_F(SpokenTextTest, AnswerAndCard) {
  display.answerLine = u"perro";
  EXPECT_EQ(SpokenAnswer(display), u"Answer: perro.");
  EXPECT_EQ(SpokenCard(display), u"Question: dog. Answer: perro.");
}

TEST_F(SpokenTextTest, NothingIsSaidOfAnEmptyCard) {
  display.questionLine.clear();
  EXPECT_EQ(SpokenAnswer(display), u"");
  EXPECT_EQ(SpokenCard(display), u"");
}

TEST_F(SpokenTextTest, SpellersVerdictNamesTheAnswer) {
  display.correctAnswer = u"perro";
  session.right = 2;
  session.wrong = 1;
  display.mark = Mark::Right;
  EXPECT_EQ(SpokenVerdict(display, session), u"Right. Correct answer: perro. 2 right, 1 wrong.");
  display.mark = Mark::Wrong;
  EXPECT_EQ(SpokenVerdict(display, session), u"Wrong. Correct answer: perro. 2 right, 1 wrong.");
}

TEST_F(SpokenTextTest, ChoosersVerdictNamesTheAnswerThatWasMissed) {
  display.choiceTexts = {u"gato", u"perro", u"casa", u"pez"};
  display.choiceEnabled = {false, true, false, false};
  session.wrong = 1;
  display.mark = Mark::Wrong;
  EXPECT_EQ(SpokenVerdict(display, session), u"Wrong. Correct answer: perro. 0 right, 1 wrong.");
  display.mark = Mark::Right;
  EXPECT_EQ(SpokenVerdict(display, session), u"Right. 0 right, 1 wrong.");
}

TEST_F(SpokenTextTest, CountBeforeTheFirstCard) {
  session.cardsDone = 0;
  EXPECT_EQ(SpokenCount(session, stack), u"Card 0 of 20.");
}

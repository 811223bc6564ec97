#include "study/CardDisplay.h"

#include "study/Speller.h"

#include <algorithm>
#include <utility>

namespace {

bool IsThere(const CardStack& stack, int card) { return card >= 1 && card <= stack.CardCount; }

void LoadPicture(CardDisplay& display, const TimerSettings& settings, const MediaLookup& find) {
  if (settings.NoPicture) return;
  if (Text file = find(display.questionPicture); !file.empty()) display.picture = std::move(file);
}

void ShowQuestionSide(CardDisplay& display, const StudySession& session, const CardStack& stack,
                      const TimerSettings& settings, const MediaLookup& find, bool withWord) {
  const int card = session.currentCard;
  const int side = session.firstSide;
  const bool there = IsThere(stack, card);
  display.mark = Mark::None;
  display.questionPicture = there ? stack.SidePicture(card, side) : Text();
  LoadPicture(display, settings, find);
  if (withWord) display.questionLine = WrapForDisplay(ShownSideText(stack, card, side));
  display.questionSound = there ? stack.SideSound(card, side) : Text();
  display.questionSoundEnabled = !display.questionSound.empty();
}

}  // namespace

Text ShownSideText(const CardStack& stack, int card, int side) {
  return IsThere(stack, card) ? Text(TrimRight(stack.SideText(card, side))) : Text();
}

int MostLines(const CardStack& stack) {
  std::ptrdiff_t most = 0;
  for (int card = 1; card <= stack.CardCount; ++card) {
    for (const int side : {Front, Back}) {
      const Text text = ShownSideText(stack, card, side);
      most = std::max(most, std::count(text.begin(), text.end(), u'\n'));
    }
  }
  return static_cast<int>(most) + 1;
}

void ClearCard(CardDisplay& display) { display = CardDisplay(); }

void ShowQuestion(CardDisplay& display, const StudySession& session, const CardStack& stack,
                  const TimerSettings& settings, const MediaLookup& find) {
  ShowQuestionSide(display, session, stack, settings, find, !settings.HideWord);
}

void ShowQuestionAgain(CardDisplay& display, const StudySession& session, const CardStack& stack,
                       const TimerSettings& settings, const MediaLookup& find) {
  ShowQuestionSide(display, session, stack, settings, find, true);
}

void ShowSpelling(CardDisplay& display, const StudySession& session, const CardStack& stack,
                  bool right) {
  display.correctAnswer =
      CorrectAnswer(ShownSideText(stack, session.currentCard, session.AnswerSide()));
  display.answerLine = display.correctAnswer;
  display.mark = right ? Mark::Right : Mark::Wrong;
}

void ShowChoices(CardDisplay& display, const StudySession& session, const CardStack& stack) {
  for (std::size_t i = 0; i < ChoiceCount; ++i) {
    display.choiceTexts[i] = ShownSideText(stack, session.choices[i], session.AnswerSide());
  }
  display.choiceEnabled.fill(true);
}

void ShowChoiceMade(CardDisplay& display, const StudySession& session, bool right) {
  for (std::size_t i = 0; i < ChoiceCount; ++i) {
    display.choiceEnabled[i] = session.choices[i] == session.currentCard;
  }
  display.mark = right ? Mark::Right : Mark::Wrong;
}

void ShowAnswer(CardDisplay& display, const StudySession& session, const CardStack& stack) {
  const int card = session.currentCard;
  const int side = session.AnswerSide();
  const bool there = IsThere(stack, card);
  display.answerPicture = there ? stack.SidePicture(card, side) : Text();
  display.questionLine = WrapForDisplay(ShownSideText(stack, card, session.firstSide));
  display.answerLine = WrapForDisplay(ShownSideText(stack, card, side));
  display.answerSound = there ? stack.SideSound(card, side) : Text();
  display.answerSoundEnabled = !display.answerSound.empty();
}

void TurnOver(CardDisplay& display, const TimerSettings& settings, const MediaLookup& find) {
  std::swap(display.questionLine, display.answerLine);
  std::swap(display.questionSound, display.answerSound);
  std::swap(display.questionSoundEnabled, display.answerSoundEnabled);
  std::swap(display.questionPicture, display.answerPicture);
  LoadPicture(display, settings, find);
}

void BlankQuestion(CardDisplay& display) {
  display.questionLine.clear();
  display.picture.clear();
}

#include "study/StudySession.h"

#include <algorithm>
#include <cmath>

namespace {

/// A stack can change while it is studied: then the count may never be met, and what matters is
/// whether any card is left to draw.
bool PassIsOver(const StudySession& session, int count) {
  if (session.cardsDone >= count) return true;
  const auto first = session.used.begin() + 1;
  return std::all_of(first, first + count, [](bool used) { return used; });
}

void TakeBackRedoneCard(StudySession& session) {
  if (!session.redoPending) return;
  session.used.at(static_cast<std::size_t>(session.currentCard)) = false;
  session.redoPending = false;
  --session.cardsDone;
}

}  // namespace

TextView StudyCaption(StudyMode mode) {
  switch (mode) {
    case StudyMode::Stepper:
      return u"Stepper";
    case StudyMode::Quibber:
      return u"Quibber";
    case StudyMode::Speller:
      return u"Speller";
    case StudyMode::Chooser:
      break;
  }
  return u"Chooser";
}

Text StudyTitle(StudyMode mode, TextView stackName, TextView topicName) {
  return Text(StudyCaption(mode)) + u" - " + Text(TrimRight(stackName)) + u" (" + Text(topicName) +
         u")";
}

void Start(StudySession& session, StudyMode mode, TimerSettings& settings) {
  if (mode == StudyMode::Stepper || mode == StudyMode::Speller) settings.HideWord = false;
  session.mode = mode == StudyMode::Quibber ? StudyMode::Stepper : mode;
  session.cardsDone = 0;
  session.used.fill(false);
  session.currentCard = 0;
  session.firstSide = Front;
  session.redoPending = false;
  session.answerShown = true;
  session.choices.fill(0);
  session.awaitingChoice = mode == StudyMode::Chooser;
  session.right = 0;
  session.wrong = 0;
}

StepPhase Step(StudySession& session, const CardStack& stack, RandomSource& random) {
  session.answerShown = !session.answerShown;
  if (session.answerShown) return StepPhase::Answer;

  TakeBackRedoneCard(session);
  const int count = stack.CardCount;
  if (PassIsOver(session, count)) return StepPhase::EndOfStack;
  // No shuffled list is kept: a card that was drawn already is simply drawn again until a free one
  // comes up, so the last cards of a large stack may take many draws. Meant so.
  do {
    session.currentCard = static_cast<int>(std::floor(random.Next() * count)) + 1;
  } while (session.used.at(static_cast<std::size_t>(session.currentCard)));
  session.used.at(static_cast<std::size_t>(session.currentCard)) = true;
  ++session.cardsDone;
  if (session.mode == StudyMode::Chooser) {
    session.awaitingChoice = true;
    session.choices = BuildChoices(session.currentCard, count, random);
    session.answerShown = true;
  }
  return StepPhase::Question;
}

void Redo(StudySession& session) {
  // Restart enables the button before any card is drawn; taking back a card then would make
  // the count negative.
  if (session.cardsDone > 0) session.redoPending = true;
}

void CountAnswer(StudySession& session, bool right) { ++(right ? session.right : session.wrong); }

std::optional<bool> Choose(StudySession& session, int index) {
  if (!session.awaitingChoice) return std::nullopt;
  session.awaitingChoice = false;
  const bool right = session.choices.at(static_cast<std::size_t>(index)) == session.currentCard;
  CountAnswer(session, right);
  return right;
}

void Restart(StudySession& session) {
  session.cardsDone = 0;
  session.used.fill(false);
  session.firstSide = Front;
  session.redoPending = false;  // the card it was meant for belongs to the pass that is over
  session.answerShown = true;
  session.awaitingChoice = false;
  if (session.mode == StudyMode::Stepper) return;
  session.right = 0;
  session.wrong = 0;
}

void SetFirstSide(StudySession& session, int side) { session.firstSide = side; }

Text CardCountText(const StudySession& session, const CardStack& stack) {
  return NumberText(session.cardsDone) + u"/" + NumberText(stack.CardCount);
}

Text WrapForDisplay(TextView text) {
  constexpr std::size_t LineLength = 40;
  if (text.size() <= LineLength) return Text(text);
  const std::size_t blank = text.substr(0, LineLength).rfind(u' ');
  const std::size_t cut = blank == TextView::npos ? CutText(text, LineLength).size() : blank + 1;
  return Text(text.substr(0, cut)) + Text(LineBreak) + Text(text.substr(cut));
}

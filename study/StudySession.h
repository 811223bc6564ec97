#pragma once

#include "base/Int16.h"
#include "base/Text.h"
#include "cards/CardStack.h"
#include "study/Chooser.h"
#include "study/RandomSource.h"
#include "study/TimerSettings.h"

#include <array>
#include <optional>

enum class StudyMode : std::int16_t { Stepper = 0, Quibber = 1, Speller = 2, Chooser = 3 };

/// "Stepper", "Quibber", "Speller", "Chooser".
TextView StudyCaption(StudyMode mode);

/// "Stepper - Verbs (Spanish)"
Text StudyTitle(StudyMode mode, TextView stackName, TextView topicName);

/// One study window's way through a stack. A pass draws every card once, at random; each card takes
/// two steps, question and answer.
struct StudySession {
  Int16 instanceNumber = 0;  ///< the window's slot in the list of open study windows
  Int16 stackIndex = 0;      ///< index into the loaded stacks
  StudyMode mode = StudyMode::Stepper;
  Int16 firstSide = Front;   ///< side asked first
  bool redoPending = false;  ///< the current card goes back into the pool at the next draw
  Int16 cardsDone = 0;       ///< cards drawn so far in this pass
  bool answerShown = true;   ///< false while only the question is showing
  std::array<bool, MaxCards + 1> used{};  ///< cards drawn in this pass; index 0 is never used
  Int16 currentCard = 0;                  ///< 1..count; 0 before the first draw

  Choices choices{};            ///< Chooser: the card numbers offered
  bool awaitingChoice = false;  ///< Chooser: from the question until a choice is made

  Int16 right = 0;  ///< answers judged right in this pass, a redone card's every time
  Int16 wrong = 0;

  int AnswerSide() const { return 1 - firstSide; }
};

/// Which phase a step entered.
enum class StepPhase {
  Question,    ///< a new card was drawn
  Answer,      ///< the current card's answer is to be shown
  EndOfStack,  ///< every card was drawn; nothing else happened
};

/// Begins a session: no card is drawn yet, Front is asked first. Quibber runs as Stepper: what
/// makes it timed is the timer interval alone. Stepper and Speller always show the word, so they
/// clear `settings.HideWord` for the whole program.
void Start(StudySession& session, StudyMode mode, TimerSettings& settings);

/// The action behind Next. Cards are drawn by trying numbers until a free one comes up. The Chooser
/// builds its choices and needs no second step: the one after a question draws again.
StepPhase Step(StudySession& session, const CardStack& stack, RandomSource& random);

/// Asks the current card again in this pass. Without effect before the first card of a pass.
void Redo(StudySession& session);

/// Counts a judged answer.
void CountAnswer(StudySession& session, bool right);

/// A choice of the Chooser.
/// @param index  0..3
/// @return whether it is the right one; nothing when no choice is awaited, and then nothing is
/// counted
std::optional<bool> Choose(StudySession& session, int index);

/// A new pass over the same stack; Front is asked first again. Speller and Chooser count from 0.
void Restart(StudySession& session);

void SetFirstSide(StudySession& session, int side);

/// "3/20": cards drawn and cards in the stack.
Text CardCountText(const StudySession& session, const CardStack& stack);

/// Breaks a text of more than 40 characters once: behind the last blank among the first 40, else
/// behind the 40th character. The second line is never broken again, however long it is.
Text WrapForDisplay(TextView text);

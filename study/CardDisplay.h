#pragma once

#include "base/Text.h"
#include "study/StudySession.h"

#include <array>
#include <functional>

/// The verdict that is showing.
enum class Mark { None, Right, Wrong };

/// What a study window shows of the current card. The window renders it and never reads it back.
struct CardDisplay {
  Text questionLine;  ///< wrapped; line breaks are CR LF
  Text answerLine;
  Text questionPicture;  ///< file names as the card has them; empty when the side has none
  Text answerPicture;
  Text questionSound;
  Text answerSound;
  Text picture;  ///< the file in the picture box; empty when it is clear
  bool questionSoundEnabled = false;
  bool answerSoundEnabled = false;

  Mark mark = Mark::None;
  Text correctAnswer;                         ///< Speller: shown after the check, unwrapped
  std::array<Text, ChoiceCount> choiceTexts;  ///< Chooser, unwrapped
  std::array<bool, ChoiceCount> choiceEnabled{};
};

/// Looks a card's media name up: the path of a file that is there, or an empty text.
using MediaLookup = std::function<Text(const Text& name)>;

/// A card's side as it is shown: without the blanks behind it, which a stack file pads with; blank
/// for a card that the stack no longer has.
Text ShownSideText(const CardStack& stack, int card, int side);

/// The number of lines of the longest side of a stack as it is shown, at least 1.
int MostLines(const CardStack& stack);

/// Clears both lines, the picture and both sound buttons.
void ClearCard(CardDisplay& display);

/// Shows the question side of the current card: its text unless words are hidden, its picture where
/// the file is there and pictures are wanted; its sound is to be played when it has one.
void ShowQuestion(CardDisplay& display, const StudySession& session, const CardStack& stack,
                  const TimerSettings& settings, const MediaLookup& find);

/// Shows the question again after a choice, when it was blanked or hidden: its text always, picture
/// and sound by their own switches. The choices stay.
void ShowQuestionAgain(CardDisplay& display, const StudySession& session, const CardStack& stack,
                       const TimerSettings& settings, const MediaLookup& find);

/// Speller: shows the correct answer, as it is written on the card, and the verdict.
void ShowSpelling(CardDisplay& display, const StudySession& session, const CardStack& stack,
                  bool right);

/// Chooser: offers the answer sides of the session's choices.
void ShowChoices(CardDisplay& display, const StudySession& session, const CardStack& stack);

/// Chooser: greys out every choice but the right one, wherever it stands, and shows the verdict.
void ShowChoiceMade(CardDisplay& display, const StudySession& session, bool right);

/// Shows both texts; the picture box keeps the question's picture. The answer's sound is to be
/// played when it has one.
void ShowAnswer(CardDisplay& display, const StudySession& session, const CardStack& stack);

/// Turns the card on show over in place, after the first side was changed: texts, sounds and
/// pictures swap. A picture that is not there leaves the box as it is.
void TurnOver(CardDisplay& display, const TimerSettings& settings, const MediaLookup& find);

/// The timer's tick: question text and picture go; the sounds stay.
void BlankQuestion(CardDisplay& display);

#include "study/Speller.h"

#include "base/LetterCase.h"

TextView CorrectAnswer(TextView answerSideText) { return TrimRight(answerSideText); }

bool IsSpelledRight(TextView typed, TextView answerSideText) {
  return EqualIgnoringCase(TrimRight(typed), CorrectAnswer(answerSideText));
}

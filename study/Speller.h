#pragma once

#include "base/Text.h"

/// The answer to be spelled: an answer side's text without the blanks at its right end.
TextView CorrectAnswer(TextView answerSideText);

/// True when `typed` is the answer: letter case and blanks at the right end do not matter; blanks
/// in front and inside, punctuation and accents do. Capitals are compared character by character,
/// so a sharp s never matches two letters.
bool IsSpelledRight(TextView typed, TextView answerSideText);

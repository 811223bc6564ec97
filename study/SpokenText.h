#pragma once

#include "study/CardDisplay.h"

/// What a study window says of itself as it changes, for those who cannot see it. It says no more
/// than is shown. The texts of cards stand on one line.

/// "Card 3 of 20."
Text SpokenCount(const StudySession& session, const CardStack& stack);

/// A new question: "Card 3 of 20. Question: dog. With a picture. 1: perro. 2: gato. ..." A question
/// that is hidden stays untold.
Text SpokenQuestion(const CardDisplay& display, const StudySession& session,
                    const CardStack& stack);

/// "Answer: perro."
Text SpokenAnswer(const CardDisplay& display);

/// Both sides, where they are shown: "Question: dog. Answer: perro."
Text SpokenCard(const CardDisplay& display);

/// Speller and Chooser, once the mark is shown: "Wrong. Correct answer: perro. 2 right, 1 wrong." A
/// right choice needs no answer.
Text SpokenVerdict(const CardDisplay& display, const StudySession& session);

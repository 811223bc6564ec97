#pragma once

#include "base/Int16.h"
#include "study/RandomSource.h"

#include <array>

inline constexpr int ChoiceCount = 4;         ///< answers offered for a question
inline constexpr int FewestChooserCards = 4;  ///< cards that a stack needs for the Chooser

/// Card numbers offered, at 0..3; entry 4 stays 0.
using Choices = std::array<Int16, ChoiceCount + 1>;

/// Draws the choices for a card: the card itself at a random place, the others from the whole
/// stack. A card that stands in place 0 may come up again in another, so the same answer may be
/// offered twice and more. With fewer than two cards every place holds the card itself.
Choices BuildChoices(int currentCard, int cardCount, RandomSource& random);

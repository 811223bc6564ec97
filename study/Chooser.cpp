#include "study/Chooser.h"

#include <algorithm>
#include <cmath>

namespace {

int DrawBelow(int count, RandomSource& random) {
  return static_cast<int>(std::floor(random.Next() * count));
}

/// Index of the first entry equal to `value`, or 0 when there is none. A match in place 0 gives 0
/// as well, so that entry counts as absent and is offered again. Meant so.
std::ptrdiff_t IndexInArray(const Choices& choices, int value) {
  const auto* const found = std::find(choices.begin(), choices.end(), value);
  return found == choices.end() ? 0 : found - choices.begin();
}

}  // namespace

Choices BuildChoices(int currentCard, int cardCount, RandomSource& random) {
  Choices choices{};
  if (cardCount < 2) {  // a stack that shrank while it was studied: nothing else to draw
    std::fill_n(choices.begin(), ChoiceCount, currentCard);
    return choices;
  }
  choices.at(static_cast<std::size_t>(DrawBelow(ChoiceCount, random))) = currentCard;
  for (std::size_t i = 0; i < ChoiceCount; ++i) {
    if (choices.at(i) != 0) continue;
    int candidate = 0;
    do {
      candidate = DrawBelow(cardCount, random) + 1;
    } while (IndexInArray(choices, candidate) != 0);
    choices.at(i) = candidate;
  }
  return choices;
}

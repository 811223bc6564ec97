#include "authoring/CardSearch.h"

#include "base/LetterCase.h"

int FindNext(const CardStack& stack, const SearchSettings& settings, int start) {
  const int firstSide = settings.front ? Front : Back;
  const int lastSide = settings.back ? Back : Front;
  for (int card = start + 1; card <= stack.CardCount; ++card) {
    for (int side = firstSide; side <= lastSide; ++side) {
      const TextView text = stack.SideText(card, side);
      // The box works against its wording: ticked, letter case is ignored. Meant so.
      const bool found = settings.caseBox ? ContainsIgnoringCase(text, settings.text)
                                          : text.find(settings.text) != TextView::npos;
      if (found) return card;
    }
  }
  return 0;
}

Prompt TextNotFoundPrompt() { return {.text = u"Text Not Found", .icon = PromptIcon::Exclamation}; }

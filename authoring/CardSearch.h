#pragma once

#include "base/Prompts.h"
#include "cards/CardStack.h"

/// What to search for, as the find window has it.
struct SearchSettings {
  Text text;
  bool front = true;
  bool back = true;
  bool caseBox = false;  ///< the box "Case Sensitive"
};

/// The first card behind `start` whose searched sides hold the text; 0 when there is none. A line
/// break in a card is CR LF. The search does not wrap around, and media names are not searched.
int FindNext(const CardStack& stack, const SearchSettings& settings, int start);

/// "Text Not Found"
Prompt TextNotFoundPrompt();

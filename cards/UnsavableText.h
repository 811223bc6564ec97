#pragma once

#include "base/FileStatus.h"
#include "base/Prompts.h"
#include "cards/StackStore.h"

#include <functional>
#include <optional>

/// One side of a card of a stack.
struct CardSide {
  int card = 0;
  int side = Front;

  friend bool operator==(const CardSide&, const CardSide&) = default;
};

/// Tells of a card number that it is not saved.
using IsLeftOut = std::function<bool(int card)>;

/// The first side with a caret, which no save can carry (EncodeSideLine), in the order in which a
/// save comes to them; nothing when there is none.
std::optional<CardSide> FirstUnsavableText(const CardStack& stack,
                                           const IsLeftOut& isLeftOut = nullptr);

/// Which text it is and why it cannot be saved. A long text is cut to what stands around the caret.
Text UnsavableTextWords(const CardStack& stack, const CardSide& where);

/// FileErrorPrompt for a save of the selected stack; where a text was the reason,
/// UnsavableTextWords follow the message and an empty line.
Prompt SaveErrorPrompt(FileStatus status, const StackStore& stacks,
                       const IsLeftOut& isLeftOut = nullptr);

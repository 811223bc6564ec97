#pragma once

#include "base/Prompts.h"
#include "cards/CardStack.h"

#include <array>

/// One side of a card as its three fields show it. Line breaks in the text are CR LF.
struct SideFields {
  Text text;
  Text sound;
  Text picture;

  friend bool operator==(const SideFields&, const SideFields&) = default;
};

/// A card's six fields; index 0 is the front, 1 the back.
struct CardFields {
  std::array<SideFields, 2> sides;

  friend bool operator==(const CardFields&, const CardFields&) = default;
};

CardFields FieldsOf(const CardStack& stack, int card);

/// Stores all six fields as they are.
void StoreFields(CardStack& stack, int card, const CardFields& fields);

/// Appends a card as it was typed: "^" in a text becomes a line break, "^^" a caret; media names
/// are stored exactly as typed.
/// @return false when the stack holds MaxCards already; nothing is stored then
bool AddCard(CardStack& stack, const CardFields& typed);

/// "Maximum of 300 Cards per Stack"
Prompt StackFullPrompt();

#pragma once

#include "decks/Deck.h"
#include "decks/DelimitedText.h"
#include "decks/Finding.h"
#include "decks/TableColumns.h"

// The text files that Anki imports and exports: "#key:value" lines, then rows of fields.

/// True when a text begins as such a file does.
bool LooksLikeAnkiText(TextView text);

/// Reads the notes as cards. The topic and the description come from the lines "#topic:" and
/// "#description:", which are ours and which Anki skips, else from "#deck:".
/// @return false when it is no such file; then the last finding is an error
bool ReadAnkiText(std::string_view utf8, TextColumns wanted, Deck& deck, Findings& findings);

/// Tab-separated, with HTML.
void WriteAnkiText(const Deck& deck, const RowWriter& write);

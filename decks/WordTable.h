#pragma once

#include "decks/Deck.h"
#include "decks/DelimitedText.h"
#include "decks/Finding.h"
#include "decks/TableColumns.h"

// Lists of words as spreadsheets keep them: a row for each card.

enum class Heading { Guess, Yes, No };

struct WordTableOptions {
  char separator = ',';         ///< used, or preferred where guessSeparator is set
  bool guessSeparator = false;  ///< "," may turn out to be ";" or a tab
  Heading heading = Heading::Guess;
  TextColumns columns;
};

/// Reads a table: front and back, and media where a heading names them. A line "sep=;" at the start
/// says the separator.
/// @return false when it is no such table; then the last finding is an error
bool ReadWordTable(std::string_view utf8, WordTableOptions options, Deck& deck, Findings& findings);

/// Two columns, or six where a card has media. With a heading where it is asked for, or needed to
/// read the file again.
void WriteWordTable(const Deck& deck, char separator, Heading heading, const RowWriter& write);

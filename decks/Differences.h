#pragma once

#include "decks/Deck.h"
#include "decks/Finding.h"

// What a file cannot hold is found in the plainest way: it is written, read again and compared.

/// Lists what of `wanted` is missing or different in `got`, which was read back from a file of
/// format `formatName` (as it stands in a sentence). Nothing that differs is left out.
void ListDifferences(const Deck& wanted, const Deck& got, std::string_view formatName,
                     Findings& findings);

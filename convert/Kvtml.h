#pragma once

#include "convert/Deck.h"
#include "convert/Finding.h"
#include "convert/TableColumns.h"

#include <string>
#include <string_view>

// Vocabulary files of version 2: entries with a translation for each language ("identifier").

/// Reads the entries as cards: the first two languages are front and back, unless `wanted` says
/// which ones, counted from 1. The title is the description, the category the topic. Whatever else
/// the file holds is listed.
/// @return false when it is no such file; then the last finding is an error
bool ReadKvtml(std::string_view bytes, TextColumns wanted, Deck& deck, Findings& findings);

/// The bytes of a whole file, UTF-8. Characters that XML has no place for are left out.
std::string WriteKvtml(const Deck& deck);

#pragma once

#include "decks/Deck.h"
#include "decks/Finding.h"
#include "decks/TableColumns.h"

#include <string>
#include <string_view>

// Vocabulary files of version 2: entries with a translation for each language ("identifier").

/// Reads the entries as cards: the first two languages are front and back, unless `wanted` says
/// which ones, counted from 1. The title is the description, the category the topic. Whatever else
/// the file holds is listed, by kind: a text, or an attribute, that has no place here.
/// @param encoding      empty: what the file says (convert/XmlEncoding.h), else found out
/// @param usedEncoding  receives the name of the encoding
/// @return false when it is no such file, or one of so many empty entries that they would take many
///         times its length; then the last finding is an error
bool ReadKvtml(std::string_view bytes, const std::string& encoding, TextColumns wanted, Deck& deck,
               std::string& usedEncoding, Findings& findings);

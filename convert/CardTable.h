#pragma once

#include "convert/Deck.h"

#include <string>

/// How many columns of a terminal a character takes: 0, 1 or 2.
using CharacterWidth = int (*)(char32_t);

/// The cards as a table: number, front, back. Line breaks show as "⏎", pictures and sounds behind
/// the text in brackets.
/// @param width  columns of the terminal, in which every row finds room; 0: as wide as it gets
std::string CardTable(const Deck& deck, int width, CharacterWidth characterWidth);

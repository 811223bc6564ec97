#pragma once

#include "decks/Deck.h"

#include <functional>
#include <string_view>

/// How many columns of a terminal a character takes: 0, 1 or 2.
using CharacterWidth = int (*)(char32_t);

/// Takes pieces of an output.
using TextOutput = std::function<void(std::string_view)>;

/// Shows the cards as a table: number, front, back. Line breaks show as "⏎", pictures and sounds
/// behind the text in brackets.
/// @param width  columns of the terminal, in which every row finds room; 0: as wide as it gets, but
///               for fronts beyond WidestFront, which take their backs out of the column
void ShowCardTable(const Deck& deck, int width, CharacterWidth characterWidth,
                   const TextOutput& out);

/// The widest column of fronts: as many characters as a stack keeps of a text.
inline constexpr int WidestFront = 256;

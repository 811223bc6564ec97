#pragma once

#include "decks/Deck.h"

#include <array>
#include <string>

/// The bytes of a whole vocabulary file of version 2, UTF-8. Characters that XML has no place for
/// are left out.
std::string WriteKvtml(const Deck& deck);

// What such a file says of its own accord; reading it back, it is no loss.

/// How the name of the program that made it begins.
inline constexpr TextView OurProgram = u"quibconv ";
/// The names of its languages.
inline constexpr std::array<TextView, 2> OurLanguages = {u"Front", u"Back"};
/// The name of its only lesson, which holds all cards.
Text OurLesson(const Deck& deck);

#pragma once

#include "base/Text.h"
#include "decks/CardList.h"

/// The topic of cards that come without one; the program always has it, unless its settings file
/// was changed by hand.
inline constexpr TextView TopicWithout = u"General";

/// The cards of a file on their way into another one: as many as there are, unlike in a stack.
struct Deck {
  Text topic;
  Text description;
  CardList cards;
};

/// Any of CR LF, LF and CR becomes CR LF.
Text WithCrLf(TextView text);

/// Fronts become backs.
void SwapSides(Deck& deck);

/// The number of parts of at most `most` cards; 1 for a deck without cards.
std::size_t CountParts(const Deck& deck, std::size_t most);

/// Takes part number `part` of them, from 0, out of the deck, whose cards become empty there; the
/// part gets the topic. Where there is more than one, the
/// description of each ends in its number, and is cut before it to `descriptionWidth` characters in
/// all.
Deck TakePart(Deck& deck, std::size_t most, std::size_t part, std::size_t descriptionWidth);

/// The name of a picture or sound file without its folder.
TextView BareMediaName(TextView name);

/// How many different pictures and sounds the cards name.
struct MediaCount {
  std::size_t sounds = 0;
  std::size_t pictures = 0;
};
MediaCount CountMedia(const Deck& deck);

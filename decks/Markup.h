#pragma once

#include "base/Text.h"
#include "decks/Deck.h"
#include "decks/LossList.h"

#include <vector>

// The fields of Anki's notes: text with the marks of HTML, sounds as [sound:name.wav], pictures as
// <img src="name.jpg">.

/// What reading a field took away.
struct MarkupLosses {
  bool formatting = false;    ///< bold, colours and the like
  std::vector<Text> media;    ///< names of further sounds and pictures; a side has one of each
  std::size_t moreMedia = 0;  ///< how many there are beyond MostMedia
  LossList others;            ///< words of pictures, addresses of links, numbers of no character
  static constexpr std::size_t MostMedia = 1000;
};

/// The side that a field stands for. Line breaks come from br and from block elements; other
/// elements vanish, their content stays. Blanks and breaks at the ends go where media were taken.
/// @param html  false: only [sound:...] is more than text
DeckSide DecodeMarkup(TextView field, bool html, MarkupLosses& losses);

/// A field for a side, as DecodeMarkup reads it with `html`.
Text EncodeMarkup(const DeckSide& side);

/// True when a text looks as if it were marked up.
bool LooksMarkedUp(TextView text);

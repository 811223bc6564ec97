#pragma once

#include "base/Text.h"

#include <array>
#include <vector>

/// The topic of cards that come without one; the program always has it, unless its settings file
/// was changed by hand.
inline constexpr TextView TopicWithout = u"General";

/// What a side of a card holds, whatever file it comes from. Line breaks are CR LF.
struct DeckSide {
  Text text;
  Text sound;    ///< as the file names it; empty when there is none
  Text picture;  ///< the same

  bool operator==(const DeckSide&) const = default;
  bool IsEmpty() const { return text.empty() && sound.empty() && picture.empty(); }
};

struct DeckCard {
  std::array<DeckSide, 2> sides;  ///< by Front and Back
  int line = 0;                   ///< where the card begins in its file, from 1; 0 when unknown
};

/// The cards of a file on their way into another one: as many as there are, unlike in a stack.
struct Deck {
  Text topic;
  Text description;
  std::vector<DeckCard> cards;
};

/// Any of CR LF, LF and CR becomes CR LF.
Text WithCrLf(TextView text);

/// Fronts become backs.
void SwapSides(Deck& deck);

/// Parts of at most `most` cards, all with the topic. Where there is more than one, the description
/// of each ends in its number, and is cut before it to `descriptionWidth` characters in all.
std::vector<Deck> SplitDeck(const Deck& deck, std::size_t most, std::size_t descriptionWidth);

/// The name of a picture or sound file without its folder.
TextView BareMediaName(TextView name);

/// How many different pictures and sounds the cards name.
struct MediaCount {
  std::size_t sounds = 0;
  std::size_t pictures = 0;
};
MediaCount CountMedia(const Deck& deck);

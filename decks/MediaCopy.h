#pragma once

#include "base/Files.h"
#include "decks/Deck.h"
#include "decks/Finding.h"

#include <string>
#include <vector>

// Pictures and sounds that go along with their cards. A deck comes from anywhere, and so do the
// names in it: what is copied lies in the deck's own folder or below, links followed, and is a
// regular file with the ending of a picture or sound.

/// A picture or sound to be copied.
struct MediaCopy {
  Text source;  ///< the file's real path
  Text target;
};

/// Where media go.
struct MediaWay {
  Text inPath;           ///< the deck's; empty for the standard input
  Text outPath;          ///< media go to its folder
  bool toStack = false;  ///< a stack names media that lie beside it
  bool copy = false;
  bool force = false;  ///< other files of the names may be replaced
};

/// At most so many different names of media are copied or renamed.
inline constexpr std::size_t MostMediaNames = 100'000;

/// Gives the cards the names under which they find their media, where these have to lie beside
/// them, and works out what is to be copied. What is not copied is listed, with the reason.
/// @return false when there are too many names; then the last finding is an error
bool PlanMedia(Files& files, Deck& deck, const MediaWay& way, std::vector<MediaCopy>& copies,
               Findings& findings);

/// Copies the media. None takes the place of the deck, of a file that was written, or of a link;
/// of another file only with `force`. What is not copied is listed.
/// @param written  the paths of the files that were written
/// @return how many were copied
std::size_t CopyMedia(Files& files, const MediaWay& way, const std::vector<Text>& written,
                      const std::vector<MediaCopy>& copies, Findings& findings);

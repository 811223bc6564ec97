#pragma once

#include "cards/StackReader.h"
#include "decks/Deck.h"
#include "decks/Finding.h"

#include <string>
#include <string_view>

// Stack and import files, through the program's own reader and writer.

/// What the program makes of a stack file.
struct NativeContent {
  Deck deck;  ///< without the blanks behind the texts, which are padding; each text cut to
              ///< MaxHeardText, which is more than any other format takes
  std::size_t topicLength = 0;  ///< of all of the topic
  Text description;             ///< as the program shows it
  FileStatus status = FileStatus::Ok;
  int endLine = 0;             ///< the last line that gave a side of a card; 0 when none did
  std::vector<Text> messages;  ///< what the program would say while it reads
};

/// Reads a file of ours as the program would under `fileName`.
/// @param listener  hears each side; may be empty
NativeContent ReadNative(std::string_view bytes, TextView fileName, const SideListener& listener);

/// Reads a file of ours for conversion; lists what the program would not read of it.
/// @return false when the program refuses the file; then the last finding is an error
bool ReadNativeDeck(std::string_view bytes, TextView fileName, Deck& deck, Findings& findings);

/// The bytes of a stack file with the cards of `deck`, of which there must be 1 to MaxCards.
/// Whatever the program would read back differently is listed. A caret is written so that it is
/// read back as one.
std::string WriteNativeStack(const Deck& deck, Findings& findings);

/// True for a name that a stack file can hold as that of a sound or of a picture.
bool IsSoundName(TextView name);
bool IsPictureName(TextView name);

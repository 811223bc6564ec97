#pragma once

#include "decks/Deck.h"
#include "decks/Finding.h"
#include "decks/WordTable.h"

#include <optional>
#include <string>
#include <string_view>

enum class DeckFormat { Stack, Import, Tsv, Csv, Kvtml, Anki };

/// The word for a format on the command line and in reports: "qbc", "qbs", "tsv", "csv", "kvtml",
/// "anki".
std::string_view FormatName(DeckFormat format);
std::optional<DeckFormat> FormatOfName(std::string_view name);

/// The format that a file is read in, by its name; of a ".txt", by what stands in it. Nothing for
/// a name that says nothing.
std::optional<DeckFormat> FormatForReading(TextView fileName, std::string_view bytes);

/// The format that a file is written in, by its name: a ".txt" is for Anki.
std::optional<DeckFormat> FormatForWriting(TextView fileName);

/// The encoding as which the program reads a stack file, under the name that --encoding knows.
std::string StackEncodingName(std::string_view bytes);

struct ReadOptions {
  std::string encoding;  ///< empty: found out
  char separator = 0;    ///< of tables; 0: by the format, or found out
  Heading heading = Heading::Guess;
  TextColumns columns;
};

struct WriteOptions {
  std::string encoding;  ///< of text files; empty: UTF-8 without a mark
  char separator = 0;    ///< of tables; 0: by the format
  Heading heading = Heading::Guess;
};

/// Reads the cards of a file's content.
/// @param fileName      as the program would see it
/// @param usedEncoding  receives the name of the encoding
/// @return false when there is nothing to be had; then the last finding is an error
bool ReadDeck(DeckFormat format, std::string_view bytes, TextView fileName,
              const ReadOptions& options, Deck& deck, std::string& usedEncoding,
              Findings& findings);

/// The bytes of a file, and in `findings` all that it does not hold of `deck`. A stack has 1 to
/// MaxCards cards; an import file is never written.
std::string WriteDeck(DeckFormat format, const Deck& deck, const WriteOptions& options,
                      Findings& findings);

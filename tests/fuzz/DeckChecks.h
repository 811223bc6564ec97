#pragma once

#include "base/Paths.h"
#include "cards/CardStack.h"
#include "decks/Formats.h"
#include "quibconv/Check.h"
#include "tests/fuzz/Require.h"
#include "tests/support/MemoryFiles.h"

#include <algorithm>
#include <cstdint>
#include <string>

// What holds for every file of another program, whatever its bytes are.

inline void RequireTellable(const Findings& findings, bool usable) {
  for (const Finding& finding : findings) {
    REQUIRE(finding.line >= 0 && finding.card >= 0 && finding.side >= -1 && finding.side <= Back);
    REQUIRE(!finding.message.empty());
    REQUIRE(std::none_of(finding.message.begin(), finding.message.end(),
                         [](char byte) { return static_cast<unsigned char>(byte) < 0x20; }));
  }
  REQUIRE((WorstOf(findings) == Severity::Error) == !usable);
}

inline bool IsListed(const Findings& findings, int card, int side) {
  return std::any_of(findings.begin(), findings.end(), [&](const Finding& finding) {
    return finding.card == card && finding.side == side;
  });
}

/// Writes the cards and reads them again: what differs has been listed.
inline void RequireLossesListed(const Deck& deck, DeckFormat format) {
  Findings findings;
  const std::string bytes = WriteDeck(format, deck, {}, findings);
  RequireTellable(findings, true);
  Deck back;
  std::string encoding;
  Findings ignored;
  REQUIRE(ReadDeck(format, bytes, u"x.QBC", {}, back, encoding, ignored));
  REQUIRE(back.cards.size() == deck.cards.size());
  for (std::size_t i = 0; i < deck.cards.size(); ++i) {
    for (const int side : {Front, Back}) {
      const auto at = static_cast<std::size_t>(side);
      if (deck.cards[i].sides[at] == back.cards[i].sides[at]) continue;
      REQUIRE(IsListed(findings, static_cast<int>(i) + 1, side));
    }
  }
}

/// Reads `data` as a file called `fileName`, checks it, and takes its cards to every format.
inline void CheckDeckBytes(const std::uint8_t* data, std::size_t size, DeckFormat format,
                           const Text& fileName) {
  MemoryFiles files;
  files.Put(fileName, std::string(reinterpret_cast<const char*>(data), size));
  MediaFolders folders(files);
  CheckOptions options;
  options.format = format;
  const FileReport report = CheckFile(files, folders, fileName, options);
  const bool usable = WorstOf(report.findings) != Severity::Error;
  RequireTellable(report.findings, usable);

  Deck deck;
  const FileReport described = DescribeFile(files, fileName, options, deck);
  RequireTellable(described.findings, WorstOf(described.findings) != Severity::Error);
  if (WorstOf(described.findings) == Severity::Error || deck.cards.empty()) {
    REQUIRE(!usable);
    return;
  }
  REQUIRE(usable);
  REQUIRE(report.cards == deck.cards.size());
  deck.cards.resize(std::min<std::size_t>(deck.cards.size(), MaxCards));
  for (const DeckFormat target :
       {DeckFormat::Stack, DeckFormat::Tsv, DeckFormat::Csv, DeckFormat::Kvtml, DeckFormat::Anki}) {
    RequireLossesListed(deck, target);
  }
}

#include "base/CodePage.h"
#include "decks/Formats.h"
#include "tests/unit/decks/RandomDeck.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

// Random decks go into each format and come back.

namespace {

constexpr unsigned Seed = 20241;
constexpr std::array<DeckFormat, 5> Writable = {DeckFormat::Stack, DeckFormat::Tsv, DeckFormat::Csv,
                                                DeckFormat::Kvtml, DeckFormat::Anki};

Deck ReadBack(DeckFormat format, const std::string& bytes) {
  Deck deck;
  std::string encoding;
  Findings findings;
  EXPECT_TRUE(ReadDeck(format, bytes, u"x.QBC", {}, deck, encoding, findings))
      << (findings.empty() ? "" : findings.back().message);
  return deck;
}

std::string Words(const DeckSide& side) {
  return Printable(side.text) + " [" + Printable(side.sound) + "] [" + Printable(side.picture) +
         "]";
}

bool IsListed(const Findings& findings, int card, int side) {
  return std::any_of(findings.begin(), findings.end(), [&](const Finding& finding) {
    return finding.card == card && finding.side == side;
  });
}

bool IsListed(const Findings& findings, FindingKind kind) {
  return std::any_of(findings.begin(), findings.end(),
                     [&](const Finding& finding) { return finding.kind == kind; });
}

/// No card, side, name, topic or description differs without being listed.
void ExpectDifferencesListed(DeckFormat format, const Deck& deck, const Deck& back,
                             const Findings& findings) {
  ASSERT_EQ(back.cards.size(), deck.cards.size());
  for (std::size_t i = 0; i < deck.cards.size(); ++i) {
    for (const int side : {0, 1}) {
      const DeckSide& wanted = deck.cards[i].sides[static_cast<std::size_t>(side)];
      const DeckSide& got = back.cards[i].sides[static_cast<std::size_t>(side)];
      if (wanted == got) continue;
      EXPECT_TRUE(IsListed(findings, static_cast<int>(i) + 1, side))
          << FormatName(format) << ": " << Words(wanted) << " became " << Words(got);
    }
  }
  if (TrimRight(back.topic) != TrimRight(deck.topic) && deck.topic != TopicWithout) {
    EXPECT_TRUE(IsListed(findings, FindingKind::Topic)) << Printable(deck.topic);
  }
  if (TrimRight(back.description) != TrimRight(deck.description)) {
    EXPECT_TRUE(IsListed(findings, FindingKind::Description)) << Printable(deck.description);
  }
}

class RoundTrip : public testing::TestWithParam<DeckFormat> {};

TEST_P(RoundTrip, PlainCardsComeBackAsTheyWere) {
  RandomDeck random(Seed);
  const bool holdsHeader = GetParam() != DeckFormat::Tsv && GetParam() != DeckFormat::Csv;
  for (int i = 0; i < 3000; ++i) {
    const Deck deck = random.Plain(6);
    Findings findings;
    const Deck back = ReadBack(GetParam(), WriteDeck(GetParam(), deck, {}, findings));
    ASSERT_EQ(back.cards.size(), deck.cards.size());
    for (std::size_t j = 0; j < deck.cards.size(); ++j) {
      for (const std::size_t side : {0U, 1U}) {
        ASSERT_EQ(Words(back.cards[j].sides[side]), Words(deck.cards[j].sides[side]))
            << "deck " << i << ", card " << j;
      }
    }
    if (holdsHeader) {
      ASSERT_EQ(findings.size(), 0U) << findings.front().message;
      ASSERT_EQ(back.topic, deck.topic);
      ASSERT_EQ(back.description, deck.description);
    } else {
      ASSERT_EQ(findings.size(), 2U);  // the topic and the description
    }
  }
}

TEST_P(RoundTrip, WhateverOfOddCardsIsLostIsListed) {
  RandomDeck random(Seed + 1);
  for (int i = 0; i < 3000 && !HasFailure(); ++i) {
    const Deck deck = random.Odd(5);
    Findings findings;
    const std::string bytes = WriteDeck(GetParam(), deck, {}, findings);
    ExpectDifferencesListed(GetParam(), deck, ReadBack(GetParam(), bytes), findings);
  }
}

// A file of another program, once it is a stack, goes through every format and stays the same.
TEST_P(RoundTrip, AStackComesBackByteForByte) {
  RandomDeck random(Seed + 2);
  for (int i = 0; i < 1000 && !HasFailure(); ++i) {
    Findings ignored;
    const std::string stack = WriteDeck(DeckFormat::Stack, random.Plain(6), {}, ignored);
    const Deck loaded = ReadBack(DeckFormat::Stack, stack);
    Deck back = ReadBack(GetParam(), WriteDeck(GetParam(), loaded, {}, ignored));
    back.topic = loaded.topic;
    back.description = loaded.description;
    ASSERT_EQ(WriteDeck(DeckFormat::Stack, back, {}, ignored), stack) << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, RoundTrip, testing::ValuesIn(Writable),
                         [](const auto& format) { return std::string(FormatName(format.param)); });

class EncodedRoundTrip : public testing::TestWithParam<const char*> {};

TEST_P(EncodedRoundTrip, WhateverAnEncodingLacksIsListed) {
  RandomDeck random(Seed + 3);
  for (int i = 0; i < 500 && !HasFailure(); ++i) {
    const Deck deck = i % 2 == 0 ? random.Plain(4) : random.Odd(4);
    for (const DeckFormat format : {DeckFormat::Tsv, DeckFormat::Csv, DeckFormat::Anki}) {
      Findings findings;
      WriteOptions options;
      options.encoding = GetParam();
      const std::string bytes = WriteDeck(format, deck, options, findings);
      Deck back;
      std::string encoding;
      Findings ignored;
      ReadOptions asWritten;
      asWritten.encoding = GetParam();
      asWritten.separator = format == DeckFormat::Csv ? ',' : '\t';
      ASSERT_TRUE(ReadDeck(format, bytes, u"", asWritten, back, encoding, ignored));
      ExpectDifferencesListed(format, deck, back, findings);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Encodings, EncodedRoundTrip,
                         testing::Values("utf-8", "utf-8-bom", "windows-1252", "iso-8859-15",
                                         "utf-16", "koi8-r", "shift_jis"));

}  // namespace

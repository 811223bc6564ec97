#include "decks/WordTable.h"

#include "base/CodePage.h"

#include <gtest/gtest.h>

namespace {

struct Result {
  Deck deck;
  Findings findings;
  bool read = false;
};

Result Read(TextView text, const WordTableOptions& options = {}) {
  Result result;
  result.read = ReadWordTable(ToUtf8(text), options, result.deck, result.findings);
  return result;
}

Text Written(const Deck& deck, char separator, Heading heading) {
  std::string utf8;
  WriteWordTable(deck, separator, heading, [&](std::string_view row) { utf8 += row; });
  return FromUtf8(utf8);
}

WordTableOptions Guessing() {
  WordTableOptions options;
  options.guessSeparator = true;
  return options;
}

TEST(ReadWordTable, TwoColumnsAreFrontAndBack) {
  const Result result = Read(u"house,Haus\r\n\"a\nb\",c\r\n");
  ASSERT_EQ(result.deck.cards.size(), 2U);
  EXPECT_EQ(result.deck.cards[0].sides[0].text, u"house");
  EXPECT_EQ(result.deck.cards[0].sides[1].text, u"Haus");
  EXPECT_EQ(result.deck.cards[1].sides[0].text, u"a\r\nb");
  EXPECT_EQ(result.deck.cards[1].line, 2);
  EXPECT_TRUE(result.findings.empty());
}

TEST(ReadWordTable, AHeadingIsKnownByItsNames) {
  const Result result = Read(u"answer, Question ,Back picture\nHaus,house,house.bmp\n");
  ASSERT_EQ(result.deck.cards.size(), 1U);
  EXPECT_EQ(result.deck.cards[0].sides[0].text, u"house");
  EXPECT_EQ(result.deck.cards[0].sides[1], (DeckSide{u"Haus", u"", u"house.bmp"}));
  EXPECT_EQ(WorstOf(result.findings), Severity::Remark);
}

TEST(ReadWordTable, AHeadingCanBeSaidOrDenied) {
  WordTableOptions options;
  options.heading = Heading::Yes;
  const Result named = Read(u"Wort,Bedeutung\nHaus,house\n", options);
  ASSERT_EQ(named.deck.cards.size(), 1U);
  EXPECT_EQ(named.deck.cards[0].sides[0].text, u"Haus");
  options.heading = Heading::No;
  EXPECT_EQ(Read(u"Front,Back\na,b\n", options).deck.cards.size(), 2U);
}

TEST(ReadWordTable, SeparatorsAreFoundOut) {
  EXPECT_EQ(Read(u"a;b\nc;d", Guessing()).deck.cards[0].sides[1].text, u"b");
  EXPECT_EQ(Read(u"sep=|\r\na|b", Guessing()).deck.cards[0].sides[1].text, u"b");
  EXPECT_EQ(Read(u"sep=|\r\na|b", Guessing()).deck.cards[0].line, 2);
}

TEST(ReadWordTable, WhatHasNoPlaceIsCountedByColumn) {
  const Result result = Read(u"Front,Back,Notes\na,b,\nc,d,note\ne,f,note,more\n");
  ASSERT_EQ(result.findings.size(), 3U);
  EXPECT_EQ(result.findings[1].message,
            "column 3 (“Notes”) has no place on a card; 2 fields in it are left out");
  EXPECT_EQ(result.findings[1].line, 3);
  EXPECT_EQ(result.findings[2].message,
            "column 4 has no place on a card; one field in it is left out");
}

TEST(ReadWordTable, RowsWithOneFieldAreListed) {
  const Result result = Read(u"a,b\nlonely\n");
  ASSERT_EQ(result.deck.cards.size(), 2U);
  ASSERT_EQ(result.findings.size(), 1U);
  EXPECT_EQ(result.findings[0].line, 2);
  EXPECT_EQ(result.findings[0].kind, FindingKind::IgnoredLine);
}

TEST(ReadWordTable, ChosenColumns) {
  WordTableOptions options;
  options.columns = {3, 1};
  const Result result = Read(u"a,b,c\n", options);
  EXPECT_EQ(result.deck.cards[0].sides[0].text, u"c");
  EXPECT_EQ(result.deck.cards[0].sides[1].text, u"a");
  EXPECT_EQ(result.findings.size(), 1U);
}

TEST(ReadWordTable, BrokenQuotesAreToldAndReadAsWellAsPossible) {
  const Result comma = Read(u"a,b\nsay \"hi\",c\n");
  ASSERT_TRUE(comma.read);
  EXPECT_EQ(comma.findings[0].line, 2);
  EXPECT_EQ(comma.deck.cards[1].sides[0].text, u"say \"hi\"");
  WordTableOptions tab;
  tab.separator = '\t';
  const Result tabs = Read(u"\"hi\" he said\tb\n", tab);
  EXPECT_EQ(tabs.deck.cards[0].sides[0].text, u"\"hi\" he said");
  const Result open = Read(u"a,b\n\"never closed,c\n");
  EXPECT_FALSE(open.read);
  EXPECT_EQ(open.findings.back().severity, Severity::Error);
  EXPECT_EQ(open.findings.back().line, 2);
}

Text Rows(const Result& result) {
  Text rows;
  for (const DeckCard& card : result.deck.cards) {
    rows.append(card.sides[0].text).append(u"|").append(card.sides[1].text).append(u"/");
  }
  return rows;
}

TEST(ReadWordTable, TextBehindQuotesBelongsToTheField) {
  const Result result = Read(u"a,b\n\"x\"y,z\n\"q\",w\n");
  ASSERT_TRUE(result.read);
  EXPECT_EQ(Rows(result), u"a|b/xy|z/q|w/");
  ASSERT_EQ(result.findings.size(), 1U);
  EXPECT_EQ(result.findings[0].line, 2);
  EXPECT_EQ(result.findings[0].severity, Severity::Finding);
  EXPECT_EQ(Rows(Read(u"\"x\"y,\"z\"")), u"xy|z/");
  EXPECT_EQ(Rows(Read(u"\"x\"y\"z,\"a\"\"b\"c\r\nd \"e\",f")), u"xy\"z|a\"bc/d \"e\"|f/");
  EXPECT_EQ(Rows(Read(u"\"say \"hi\" now\",b\n")), u"say \"hi\" now|b/");
  EXPECT_EQ(Rows(Read(u"\"a\nb\"c,d\n")), u"a\r\nbc|d/");
}

TEST(ReadWordTable, AQuoteThatNeverClosesIsToldWhereItOpens) {
  const Result open = Read(u"\"a\nb\",\"c\n\nd,e");
  EXPECT_FALSE(open.read);
  EXPECT_EQ(open.findings.back().line, 2);
}

TEST(WriteWordTable, TwoColumnsWithoutMedia) {
  Deck deck;
  deck.cards.resize(2);
  deck.cards[0].sides[0].text = u"a,b";
  deck.cards[0].sides[1].text = u"c";
  EXPECT_EQ(Written(deck, ',', Heading::Guess), u"\"a,b\",c\r\n\"\",\r\n");
  EXPECT_EQ(Written(deck, '\t', Heading::Yes), u"Front\tBack\r\na,b\tc\r\n\"\"\t\r\n");
}

TEST(WriteWordTable, MediaGetColumnsUnderAHeading) {
  Deck deck;
  deck.cards.resize(1);
  deck.cards[0].sides[0] = {u"dog", u"", u"dog.bmp"};
  deck.cards[0].sides[1] = {u"perro", u"perro.wav", u""};
  EXPECT_EQ(Written(deck, ',', Heading::Guess),
            u"Front,Back,Front sound,Front picture,Back sound,Back picture\r\n"
            u"dog,perro,,dog.bmp,perro.wav,\r\n");
}

TEST(WriteWordTable, AFirstCardThatLooksLikeAHeadingGetsOneBeforeIt) {
  Deck deck;
  deck.cards.resize(1);
  deck.cards[0].sides[0].text = u"Question";
  deck.cards[0].sides[1].text = u"Answer";
  EXPECT_EQ(Written(deck, ',', Heading::Guess), u"Front,Back\r\nQuestion,Answer\r\n");
}

TEST(WriteWordTable, ACardThatLooksLikeASeparatorLineStaysACard) {
  Deck deck;
  deck.cards.resize(1);
  deck.cards[0].sides[0].text = u"sep=";
  EXPECT_EQ(Read(Written(deck, ',', Heading::Guess), Guessing()).deck.cards.size(), 1U);
}

}  // namespace

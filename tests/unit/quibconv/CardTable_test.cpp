#include "quibconv/CardTable.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <sstream>

namespace {

int Width(char32_t character) { return character >= 0x2E80 && character < 0xFF00 ? 2 : 1; }

Deck MakeDeck(std::initializer_list<std::pair<Text, Text>> cards) {
  Deck deck;
  for (const auto& [front, back] : cards) {
    DeckCard& card = deck.cards.emplace_back();
    card.sides[0].text = front;
    card.sides[1].text = back;
  }
  return deck;
}

std::string CardTable(const Deck& deck, int width, CharacterWidth characterWidth) {
  std::string table;
  ShowCardTable(deck, width, characterWidth, [&](std::string_view row) { table += row; });
  return table;
}

TEST(CardTable, ColumnsStandBelowEachOther) {
  EXPECT_EQ(CardTable(MakeDeck({{u"犬", u"dog"}, {u"a cat", u"two\r\nlines"}}), 0, Width),
            "#  Front  Back\n1  犬     dog\n2  a cat  two⏎lines\n");
}

TEST(CardTable, MediaStandInBrackets) {
  Deck deck = MakeDeck({{u"dog", u""}});
  deck.cards[0].sides[0].picture = u"dog.bmp";
  deck.cards[0].sides[1].sound = u"perro.wav";
  EXPECT_EQ(CardTable(deck, 0, Width), "#  Front          Back\n1  dog [dog.bmp]  [perro.wav]\n");
}

TEST(CardTable, EveryRowFindsRoomOnTheTerminal) {
  const Deck deck =
      MakeDeck({{Text(50, u'a'), Text(50, u'b')}, {Text(30, u'犬'), u"short"}, {u"", u"x"}});
  for (const int width : {20, 40, 80}) {
    std::istringstream lines(CardTable(deck, width, Width));
    for (std::string line; std::getline(lines, line);) {
      int columns = 0;
      for (std::size_t i = 0; i < line.size(); ++i) {
        const auto byte = static_cast<unsigned char>(line[i]);
        if ((byte & 0xC0) != 0x80) columns += byte >= 0xE3 ? 2 : 1;
      }
      EXPECT_LE(columns, std::max(width, 21)) << line;
    }
  }
}

TEST(CardTable, AShortColumnKeepsItsWidth) {
  EXPECT_EQ(CardTable(MakeDeck({{u"hello", Text(40, u'b')}}), 30, Width),
            "#  Front  Back\n1  hello  bbbbbbbbbbbbbbbbbbb…\n");
}

TEST(CardTable, AnEndlessFrontDoesNotPadAllRows) {
  const std::string table =
      CardTable(MakeDeck({{Text(100'000, u'a'), u"b"}, {u"c", u"d"}}), 0, Width);
  EXPECT_LT(table.size(), 101'000U);
  EXPECT_NE(table.find("a  b\n2  c  "), std::string::npos);
}

TEST(CardTable, NoCards) { EXPECT_EQ(CardTable({}, 80, Width), "#  Front  Back\n"); }

}  // namespace

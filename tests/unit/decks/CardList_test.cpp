#include "decks/CardList.h"

#include "base/Fault.h"

#include <gtest/gtest.h>
#include <random>

namespace {

Text RandomText(std::mt19937& random) {
  Text text(random() % 5 == 0 ? random() % 200 : random() % 4, u' ');
  const char16_t most = random() % 2 == 0 ? 0xFF : 0xFFFF;  // halves of characters as well
  for (char16_t& unit : text) unit = static_cast<char16_t>(random() % (most + 1U));
  return text;
}

DeckCard RandomCard(std::mt19937& random) {
  DeckCard card;
  card.line = static_cast<int>(random() % 3 == 0 ? random() % 0x7FFFFFFF : random() % 100);
  for (DeckSide& side : card.sides) {
    side = {RandomText(random), RandomText(random), RandomText(random)};
  }
  return card;
}

bool Same(const DeckCard& a, const DeckCard& b) { return a.line == b.line && a.sides == b.sides; }

TEST(CardList, HoldsWhatAVectorHolds) {
  std::mt19937 random(7);
  CardList list;
  std::vector<DeckCard> expected;
  for (int step = 0; step < 3'000; ++step) {
    const auto action = random() % 10;
    if (action < 7 || expected.empty()) {
      expected.push_back(RandomCard(random));
      list.push_back(expected.back());
    } else if (action < 9) {
      const std::size_t at = random() % expected.size();
      expected[at] = RandomCard(random);
      list[at] = expected[at];
    } else {
      const std::size_t size =
          expected.size() - random() % std::min<std::size_t>(5, expected.size());
      expected.resize(size);
      list.resize(size);
    }
    ASSERT_EQ(list.size(), expected.size());
  }
  ASSERT_GT(list.size(), 4 * CardList::PageSize);
  const CardList copy = list;
  std::size_t at = 0;
  for (const DeckCard& card : copy) ASSERT_TRUE(Same(card, expected[at++]));
  EXPECT_EQ(at, expected.size());
  for (std::size_t i = expected.size(); i-- > 0;) ASSERT_TRUE(Same(list[i], expected[i]));
}

TEST(CardList, ChangesOnTheWayStay) {
  CardList list;
  list.resize(1'000);
  for (DeckCard& card : list) card.sides[0].text = u"changed";
  for (const DeckCard& card : list) ASSERT_EQ(card.sides[0].text, u"changed");
}

TEST(CardList, CardsOfAnotherPageLeaveAReferenceAlone) {
  CardList list;
  list.resize(2 * CardList::PageSize);
  const DeckCard& first = list.front();
  list.back().sides[0].text = u"last";
  list.front().sides[0].text = u"first";
  EXPECT_EQ(first.sides[0].text, u"first");
  EXPECT_EQ(list.back().sides[0].text, u"last");
}

TEST(CardList, EmptiedCardsStayInTheirPlaces) {
  std::mt19937 random(3);
  CardList list;
  for (std::size_t i = 0; i < 3 * CardList::PageSize; ++i) list.push_back(RandomCard(random));
  for (DeckCard& card : list) card = {};
  EXPECT_EQ(list.size(), 3 * CardList::PageSize);
  list[CardList::PageSize + 1].line = 5;
  list.push_back({});
  list.back().sides[1].text = u"x";
  for (std::size_t i = 0; i < list.size(); ++i) {
    EXPECT_EQ(list[i].line, i == CardList::PageSize + 1 ? 5 : 0);
    EXPECT_EQ(list[i].sides[1].text, i + 1 == list.size() ? u"x" : u"");
  }
}

TEST(CardList, CardsThatAreNotThereAreAFault) {
  CardList list;
  EXPECT_THROW((void)list[0], Fault);
  list.resize(1);
  EXPECT_THROW((void)list.at(1), Fault);
  list.clear();
  EXPECT_TRUE(list.empty());
}

}  // namespace

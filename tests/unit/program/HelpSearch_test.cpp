#include "program/HelpSearch.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

using Found = std::vector<std::size_t>;

const std::vector<HelpPageText> Pages = {
    {u"Limits", u"A stack holds 300 cards."},
    {u"Creating cards", u"Type the front of a card. A card has two sides."},
    {u"Studying", u"A card, a card, and one more card: the stack is asked card by card."},
};

TEST(FindHelpPages, FindsThePagesThatHoldTheWord) {
  EXPECT_EQ(FindHelpPages(Pages, u"stack"), (Found{0, 2}));
}

TEST(FindHelpPages, PutsAWordInTheTitleBeforeManyInTheText) {
  EXPECT_EQ(FindHelpPages(Pages, u"card"), (Found{1, 2, 0}));
}

TEST(FindHelpPages, WantsEveryWord) {
  EXPECT_EQ(FindHelpPages(Pages, u"stack 300"), Found{0});
  EXPECT_EQ(FindHelpPages(Pages, u"stack printer"), Found{});
}

TEST(FindHelpPages, IgnoresLetterCaseAndFurtherBlanks) {
  EXPECT_EQ(FindHelpPages(Pages, u"  LIMITS  holds "), Found{0});
}

TEST(FindHelpPages, FindsAWordInsideALongerOne) {
  EXPECT_EQ(FindHelpPages(Pages, u"study"), Found{2});
}

TEST(FindHelpPages, FindsNothingWithoutAWord) {
  EXPECT_EQ(FindHelpPages(Pages, u""), Found{});
  EXPECT_EQ(FindHelpPages(Pages, u"   "), Found{});
}

}  // namespace

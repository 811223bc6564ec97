#include "study/Speller.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

TEST(IsSpelledRight, IgnoresLetterCase) { EXPECT_TRUE(IsSpelledRight(u"cASA", u"Casa")); }

TEST(IsSpelledRight, IgnoresBlanksAtTheRightEndOfBoth) {
  EXPECT_TRUE(IsSpelledRight(u"casa  ", u"Casa"));
  EXPECT_TRUE(IsSpelledRight(u"casa", u"Casa   "));
}

TEST(IsSpelledRight, MindsBlanksInFrontAndInside) {
  EXPECT_FALSE(IsSpelledRight(u" casa", u"Casa"));
  EXPECT_FALSE(IsSpelledRight(u"la  casa", u"la casa"));
}

TEST(IsSpelledRight, MindsOtherSpaceCharactersAtTheEnd) {
  EXPECT_FALSE(IsSpelledRight(u"casa\t", u"casa"));
  EXPECT_FALSE(IsSpelledRight(u"casa\u00A0", u"casa"));
}

TEST(IsSpelledRight, MindsPunctuation) { EXPECT_FALSE(IsSpelledRight(u"casa", u"casa.")); }

TEST(IsSpelledRight, AnAccentedLetterMatchesItsOwnCapitalOnly) {
  EXPECT_TRUE(IsSpelledRight(u"NI\u00D1O", u"ni\u00F1o"));
  EXPECT_FALSE(IsSpelledRight(u"nino", u"ni\u00F1o"));
}

TEST(IsSpelledRight, ASharpSIsNotTwoLetters) {
  EXPECT_TRUE(IsSpelledRight(u"stra\u00DFe", u"Stra\u00DFe"));
  EXPECT_FALSE(IsSpelledRight(u"STRASSE", u"Stra\u00DFe"));
}

TEST(IsSpelledRight, ComparesOtherAlphabetsToo) {
  EXPECT_TRUE(IsSpelledRight(u"\u043A\u043E\u0442", u"\u041A\u043E\u0442"));
}

TEST(IsSpelledRight, NothingTypedIsRightForAnEmptyOrBlankAnswer) {
  EXPECT_TRUE(IsSpelledRight(u"", u""));
  EXPECT_TRUE(IsSpelledRight(u"", u"   "));
  EXPECT_FALSE(IsSpelledRight(u"", u"x"));
}

TEST(IsSpelledRight, ALineBreakOfTheAnswerCounts) {
  EXPECT_FALSE(IsSpelledRight(u"a b", u"a\r\nb"));
  EXPECT_TRUE(IsSpelledRight(u"a\r\nb", u"a\r\nb"));
}

TEST(CorrectAnswer, KeepsItsLetterCase) { EXPECT_EQ(CorrectAnswer(u"La Casa  "), u"La Casa"); }

}  // namespace

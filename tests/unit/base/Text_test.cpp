#include "base/Text.h"

#include "tests/support/TextPrinters.h"

#include <clocale>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

constexpr TextView Smile = u"\U0001F600";  // one character of two units

TEST(TrimRight, CutsBlanksAtTheRightEndOnly) { EXPECT_EQ(TrimRight(u"  a b  "), u"  a b"); }

TEST(TrimRight, KeepsEveryOtherWhiteCharacter) {
  for (const char16_t unit : {u'\t', u'\r', u'\n', u'\0', u'\u00A0', u'\u3000'}) {
    const Text text{u'a', unit};
    EXPECT_EQ(TrimRight(text), text);
  }
}

TEST(TrimRight, LeavesNothingOfBlanks) {
  EXPECT_EQ(TrimRight(u"   "), u"");
  EXPECT_EQ(TrimRight(u""), u"");
}

TEST(TrimBlanks, CutsBlanksAtBothEnds) { EXPECT_EQ(TrimBlanks(u"  a b  "), u"a b"); }

TEST(TrimBlanks, KeepsTabs) { EXPECT_EQ(TrimBlanks(u" \ta\t "), u"\ta\t"); }

TEST(TrimBlanks, LeavesNothingOfBlanks) { EXPECT_EQ(TrimBlanks(u"   "), u""); }

TEST(CutText, KeepsAShortText) {
  EXPECT_EQ(CutText(u"abc", 3), u"abc");
  EXPECT_EQ(CutText(u"abc", 4), u"abc");
}

TEST(CutText, CutsALongOne) {
  EXPECT_EQ(CutText(u"abcd", 3), u"abc");
  EXPECT_EQ(CutText(u"abcd", 0), u"");
}

TEST(CutText, NeverPartsTheTwoUnitsOfACharacter) {
  const Text text = u"ab" + Text(Smile) + u"c";
  EXPECT_EQ(CutText(text, 3), u"ab");
  EXPECT_EQ(CutText(text, 4), u"ab" + Text(Smile));
}

TEST(CutText, CutsBehindAHalfCharacterThatStandsAlone) {
  const Text text{u'a', 0xD83D, u'b'};
  EXPECT_EQ(CutText(text, 2), text.substr(0, 2));
}

TEST(FixedWidth, PadsWithBlanks) { EXPECT_EQ(FixedWidth(u"ab", 4), u"ab  "); }

TEST(FixedWidth, CutsOnTheRight) { EXPECT_EQ(FixedWidth(u"abcde", 4), u"abcd"); }

TEST(FixedWidth, PadsTheUnitThatAPartedCharacterLeavesFree) {
  EXPECT_EQ(FixedWidth(u"abc" + Text(Smile), 4), u"abc ");
}

TEST(FixedWidth, MakesBlanksOfNothing) {
  EXPECT_EQ(FixedWidth(u"", 3), u"   ");
  EXPECT_EQ(FixedWidth(u"abc", 0), u"");
}

TEST(ReplaceAll, ReplacesEveryOccurrence) {
  EXPECT_EQ(ReplaceAll(u"^a^^b^", u"^", u"\r\n"), u"\r\na\r\n\r\nb\r\n");
}

TEST(ReplaceAll, DoesNotSearchWhatItPutIn) { EXPECT_EQ(ReplaceAll(u"&a&", u"&", u"&&"), u"&&a&&"); }

TEST(ReplaceAll, GoesLeftToRightWithoutOverlap) {
  EXPECT_EQ(ReplaceAll(u"aaa", u"aa", u"b"), u"ba");
}

TEST(ReplaceAll, CanRemove) { EXPECT_EQ(ReplaceAll(u"a-b-", u"-", u""), u"ab"); }

TEST(ReplaceAll, LeavesATextWithoutThePattern) {
  EXPECT_EQ(ReplaceAll(u"abc", u"x", u"y"), u"abc");
}

TEST(FirstLine, EndsAtAnyLineBreak) {
  EXPECT_EQ(FirstLine(u"one\r\ntwo"), u"one");
  EXPECT_EQ(FirstLine(u"one\ntwo"), u"one");
  EXPECT_EQ(FirstLine(u"one\rtwo"), u"one");
}

TEST(FirstLine, IsAllOfATextWithoutABreak) { EXPECT_EQ(FirstLine(u"one two"), u"one two"); }

TEST(FirstLine, IsEmptyBeforeALeadingBreak) { EXPECT_EQ(FirstLine(u"\r\none"), u""); }

TEST(NumberText, WritesIntegersWithoutALeadingBlank) {
  EXPECT_EQ(NumberText(0), u"0");
  EXPECT_EQ(NumberText(12), u"12");
  EXPECT_EQ(NumberText(-3), u"-3");
  EXPECT_EQ(NumberText(std::numeric_limits<int>::min()), u"-2147483648");
}

TEST(SignedNumberText, KeepsThePlaceOfTheSign) {
  EXPECT_EQ(SignedNumberText(12), u" 12");
  EXPECT_EQ(SignedNumberText(0), u" 0");
  EXPECT_EQ(SignedNumberText(-3), u"-3");
}

struct FloatText {
  float number;
  TextView text;
};

TEST(NumberText, WritesTheShortestFormOfAFloat) {
  constexpr FloatText Table[] = {
      {8.25F, u"8.25"},
      {10.0F, u"10"},
      {0.5F, u"0.5"},
      {-0.5F, u"-0.5"},
      {0.0F, u"0"},
      {8.3F, u"8.3"},
      {9.75F, u"9.75"},
      {32.0F, u"32"},
      {0.1F, u"0.1"},
      {123456.7F, u"123456.7"},
      {1234567.0F, u"1234567"},
      {9999999.0F, u"9999999"},
      {1e7F, u"1E+07"},
      {1.5e10F, u"1.5E+10"},
      {1e-5F, u"1E-05"},
      {0.0001F, u"0.0001"},
      {-1e20F, u"-1E+20"},
  };
  for (const auto& [number, text] : Table) EXPECT_EQ(NumberText(number), text);
}

struct LeadingNumberCase {
  TextView text;
  double number;
};

TEST(LeadingNumber, ReadsTheNumberAtTheStart) {
  constexpr LeadingNumberCase Table[] = {
      {u"8.25", 8.25},   {u"12", 12},       {u"+7", 7},          {u"-3", -3},
      {u"-.5", -0.5},    {u".5", 0.5},      {u"5.", 5},          {u" 1 2.5x", 12.5},
      {u"1\t2\n3", 123}, {u"12.3.4", 12.3}, {u"1e3", 1000},      {u"1E3", 1000},
      {u"1d2", 100},     {u"1D+2", 100},    {u"1d-2", 0.01},     {u"1e", 1},
      {u"1e+", 1},       {u"1ex", 1},       {u"1 e 3", 1000},    {u"2.5e1.9", 25},
      {u"1,5", 1},       {u"10pt", 10},     {u"- 4", -4},        {u"1.5e-3", 0.0015},
      {u"007", 7},       {u"1\r2", 1},      {u"32.767", 32.767}, {u"5%", 5},
  };
  for (const auto& [text, number] : Table) {
    EXPECT_DOUBLE_EQ(LeadingNumber(text), number) << testing::PrintToString(text);
  }
}

TEST(LeadingNumber, IsZeroWithoutANumber) {
  for (const TextView text : {u"", u" ", u"abc", u"x1", u"-", u"+", u".", u"-.", u".e5", u"e5",
                              u"--1", u"+-1", u",5", u"inf", u"nan", u"\u0661", u"\uFF11"}) {
    EXPECT_EQ(LeadingNumber(text), 0.0) << testing::PrintToString(text);
  }
}

TEST(LeadingNumber, GivesAnInfinityForAnExponentTooLarge) {
  EXPECT_EQ(LeadingNumber(u"1e999"), HUGE_VAL);
  EXPECT_EQ(LeadingNumber(u"-1e999"), -HUGE_VAL);
  EXPECT_EQ(LeadingNumber(u"1e99999999999999999999"), HUGE_VAL);
}

TEST(LeadingNumber, GivesAnInfinityForTooManyDigits) {
  EXPECT_EQ(LeadingNumber(Text(400, u'9')), HUGE_VAL);
  EXPECT_EQ(LeadingNumber(Text(400, u'9') + u"e-5"), HUGE_VAL);
}

TEST(LeadingNumber, GivesZeroForANumberTooSmall) {
  EXPECT_EQ(LeadingNumber(u"1e-999"), 0.0);
  EXPECT_EQ(LeadingNumber(u"-1e-99999999999999999999"), 0.0);
  EXPECT_EQ(LeadingNumber(u"." + Text(400, u'0') + u"1"), 0.0);
  EXPECT_EQ(LeadingNumber(u"." + Text(400, u'0') + u"1e5"), 0.0);
}

TEST(LeadingNumber, IsZeroForZeroWithAnyExponent) {
  EXPECT_EQ(LeadingNumber(u"0e999"), 0.0);
  EXPECT_EQ(LeadingNumber(u"0e99999999999999999999"), 0.0);
}

TEST(LeadingNumber, ReadsDigitsThatAnExponentBringsBackIntoRange) {
  EXPECT_DOUBLE_EQ(LeadingNumber(u"1" + Text(400, u'0') + u"e-400"), 1.0);
}

/// Under a locale with a decimal comma for as long as it lives; does nothing where none is
/// installed.
class CommaLocale {
 public:
  CommaLocale() : m_old(std::setlocale(LC_ALL, nullptr)) {
    for (const char* const name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8"}) {
      m_installed = m_installed || std::setlocale(LC_ALL, name) != nullptr;
    }
  }
  ~CommaLocale() { std::setlocale(LC_ALL, m_old.c_str()); }

  bool IsInstalled() const { return m_installed; }

 private:
  std::string m_old;
  bool m_installed = false;
};

TEST(NumberText, UsesThePointWhateverTheLocale) {
  const CommaLocale comma;
  if (!comma.IsInstalled()) GTEST_SKIP() << "no locale with a decimal comma";
  EXPECT_EQ(NumberText(8.25F), u"8.25");
}

TEST(LeadingNumber, TakesThePointWhateverTheLocale) {
  const CommaLocale comma;
  if (!comma.IsInstalled()) GTEST_SKIP() << "no locale with a decimal comma";
  EXPECT_EQ(LeadingNumber(u"8.25"), 8.25);
  EXPECT_EQ(LeadingNumber(u"8,25"), 8);
}

}  // namespace

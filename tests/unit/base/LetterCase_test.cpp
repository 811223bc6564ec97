#include "base/LetterCase.h"

#include "base/CodePage.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>
#include <locale.h>  // NOLINT: newlocale is no part of <clocale>
#include <wctype.h>  // NOLINT: towupper_l is no part of <cwctype>

namespace {

/// How Windows-1252 pairs its letters, by code.
int UpperCode(int code) {
  if (code >= 0x61 && code <= 0x7A) return code - 0x20;
  if (code >= 0xE0 && code <= 0xFE && code != 0xF7) return code - 0x20;
  switch (code) {
    case 0xFF:
      return 0x9F;
    case 0x9A:
      return 0x8A;
    case 0x9C:
      return 0x8C;
    case 0x9E:
      return 0x8E;
    default:
      return code;
  }
}

TEST(ToUpper, PairsAll256CodesAsWindows1252Does) {
  for (int code = 0; code < 256; ++code) {
    EXPECT_EQ(CodeOfChar(ToUpper(CharOfCode(static_cast<CharCode>(code)))),
              static_cast<CharCode>(UpperCode(code)))
        << code;
  }
}

TEST(ToUpper, LeavesTheLettersWithoutACapitalInTheCodePage) {
  EXPECT_EQ(UpperCase(u"\u00DF\u00B5\u0192\u00AA\u00BA\u00F7"),
            u"\u00DF\u00B5\u0192\u00AA\u00BA\u00F7");
}

struct CasePair {
  TextView small;
  TextView capital;
};

TEST(UpperCase, KnowsTheOtherAlphabets) {
  constexpr CasePair Table[] = {
      {u"żółćąęśźń", u"ŻÓŁĆĄĘŚŹŃ"},
      {u"čěšřžýáíéůúďťň", u"ČĚŠŘŽÝÁÍÉŮÚĎŤŇ"},
      {u"őűğşĳ", u"ŐŰĞŞĲ"},
      {u"αβγδεζηθικλμνξοπρσςτυφχψω", u"ΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΣΤΥΦΧΨΩ"},
      {u"άέήίόύώϊϋ", u"ΆΈΉΊΌΎΏΪΫ"},
      {u"абвгдеёжзийклмнопрстуфхцчшщъыьэюя", u"АБВГДЕЁЖЗИЙКЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯ"},
      {u"ђѓєѕіїјљњћќўџґ", u"ЂЃЄЅІЇЈЉЊЋЌЎЏҐ"},
      {u"աբգև", u"ԱԲԳև"},
      {u"ạảấốệữơư", u"ẠẢẤỐỆỮƠƯ"},
      {u"ａｚ", u"ＡＺ"},
      {u"əɓɗƙƴɔɛŋʉ", u"ƏƁƊƘƳƆƐŊɄ"},
      {u"ǆǉǌ", u"ǄǇǊ"},
      {u"ἀἐἠἰὀὑὠᾳῥὰ", u"ἈἘἨἸὈὙὨᾼῬᾺ"},
      {u"ſϑ", u"SΘ"},
  };
  for (const auto& [small, capital] : Table) EXPECT_EQ(UpperCase(small), capital);
}

struct Block {
  int first;
  int last;
};

TEST(ToUpper, AgreesWithTheSystemsTableInEveryCoveredBlock) {
  constexpr Block Blocks[] = {{0x0100, 0x02AF}, {0x0370, 0x03FF}, {0x0400, 0x052F},
                              {0x0531, 0x0587}, {0x1E00, 0x1FFF}, {0xFF21, 0xFF5A}};
  constexpr TextView Exceptions = u"\u0131\u0192";  // dotless i and florin: their own capitals
  const locale_t unicode = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  ASSERT_NE(unicode, nullptr);
  for (const auto& [first, last] : Blocks) {
    for (int unit = first; unit <= last; ++unit) {
      const auto letter = static_cast<char16_t>(unit);
      if (Exceptions.find(letter) != TextView::npos) continue;
      EXPECT_EQ(ToUpper(letter), ::towupper_l(static_cast<wint_t>(unit), unicode)) << unit;
    }
  }
  ::freelocale(unicode);
}

TEST(ToUpper, DoesNotTakeADotlessIForAnOrdinaryOne) {
  EXPECT_FALSE(EqualIgnoringCase(u"s\u0131r", u"sir"));
}

TEST(UpperCase, LeavesCapitalsAlone) {
  constexpr TextView Capitals = u"ABCÀÉÖÞŸŠŒŽŻÓŁČŘŐĞΑΒΣΩΆΏАБЯЁЂҐԱẠＡ";
  EXPECT_EQ(UpperCase(Capitals), Capitals);
}

TEST(UpperCase, LeavesWritingWithoutLetterCaseAlone) {
  constexpr TextView Others = u"日本語 עברית العربية 123 \U0001F600";
  EXPECT_EQ(UpperCase(Others), Others);
}

TEST(UpperCase, KeepsTheLengthAndIsStableForEveryUnit) {
  for (int unit = 0; unit <= 0xFFFF; ++unit) {
    const Text text(1, static_cast<char16_t>(unit));
    const Text upper = UpperCase(text);
    ASSERT_EQ(upper.size(), 1U) << unit;
    ASSERT_EQ(UpperCase(upper), upper) << unit;
  }
}

TEST(UpperCase, NeverTouchesHalvesOfCharacters) {
  for (int unit = 0xD800; unit <= 0xDFFF; ++unit) {
    ASSERT_EQ(ToUpper(static_cast<char16_t>(unit)), unit);
  }
}

TEST(EqualIgnoringCase, ComparesLetterByLetter) {
  EXPECT_TRUE(EqualIgnoringCase(u"Straße É ж", u"STRAßE é Ж"));
  EXPECT_FALSE(EqualIgnoringCase(u"Straße", u"STRASSE"));
  EXPECT_FALSE(EqualIgnoringCase(u"a", u"á"));
}

TEST(EqualIgnoringCase, NeedsTheSameLength) {
  EXPECT_FALSE(EqualIgnoringCase(u"ab", u"abc"));
  EXPECT_FALSE(EqualIgnoringCase(u"abc", u"ab"));
  EXPECT_TRUE(EqualIgnoringCase(u"", u""));
}

TEST(FindIgnoringCase, FindsTheFirstAtOrAfterThePosition) {
  EXPECT_EQ(FindIgnoringCase(u"xABab", u"ab"), 1U);
  EXPECT_EQ(FindIgnoringCase(u"xABab", u"aB", 1), 1U);
  EXPECT_EQ(FindIgnoringCase(u"xABab", u"AB", 2), 3U);
}

TEST(FindIgnoringCase, FindsNothingWhereNothingIs) {
  EXPECT_EQ(FindIgnoringCase(u"abc", u"d"), TextView::npos);
  EXPECT_EQ(FindIgnoringCase(u"abc", u"abcd"), TextView::npos);
  EXPECT_EQ(FindIgnoringCase(u"abc", u"A", 1), TextView::npos);
  EXPECT_EQ(FindIgnoringCase(u"", u"a"), TextView::npos);
}

TEST(FindIgnoringCase, FindsAnEmptyPatternAtThePosition) {
  EXPECT_EQ(FindIgnoringCase(u"abc", u"", 2), 2U);
  EXPECT_EQ(FindIgnoringCase(u"abc", u"", 3), 3U);
  EXPECT_EQ(FindIgnoringCase(u"", u""), 0U);
}

TEST(FindIgnoringCase, FindsNothingBehindTheEnd) {
  EXPECT_EQ(FindIgnoringCase(u"abc", u"", 4), TextView::npos);
  EXPECT_EQ(FindIgnoringCase(u"abc", u"c", 4), TextView::npos);
}

TEST(ContainsIgnoringCase, SaysWhetherThePatternIsThere) {
  EXPECT_TRUE(ContainsIgnoringCase(u"picture.BMP", u".bmp"));
  EXPECT_FALSE(ContainsIgnoringCase(u"picture.BM", u".bmp"));
}

}  // namespace

#include "base/CodePage.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>
#include <set>

namespace {

constexpr CharCode Code(int number) { return static_cast<CharCode>(number); }

std::string AllBytes() {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  return bytes;
}

TEST(CharOfCode, GivesEveryCodeACharacterOfItsOwn) {
  std::set<char16_t> characters;
  for (int code = 0; code < 256; ++code) characters.insert(CharOfCode(Code(code)));
  EXPECT_EQ(characters.size(), 256U);
}

TEST(CharOfCode, AgreesWithUnicodeOutside128To159) {
  for (int code = 0; code < 256; ++code) {
    if (code < 128 || code > 159) {
      EXPECT_EQ(CharOfCode(Code(code)), code);
    }
  }
}

TEST(CharOfCode, HasTheCodePagesSignsFrom128To159) {
  constexpr TextView Signs =
      u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D"
      u"\u008F\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D"
      u"\u017E\u0178";
  ASSERT_EQ(Signs.size(), 32U);
  for (int i = 0; i < 32; ++i) {
    EXPECT_EQ(CharOfCode(Code(128 + i)), Signs[static_cast<std::size_t>(i)]) << 128 + i;
  }
}

TEST(CodeOfChar, IsTheInverseForAll256Codes) {
  for (int code = 0; code < 256; ++code) {
    EXPECT_EQ(CodeOfChar(CharOfCode(Code(code))), Code(code));
  }
}

TEST(CodeOfChar, KnowsExactly256Characters) {
  int known = 0;
  for (int unit = 0; unit <= 0xFFFF; ++unit)
    known += CodeOfChar(static_cast<char16_t>(unit)) ? 1 : 0;
  EXPECT_EQ(known, 256);
}

TEST(CodeOfChar, HasNoCodeForTheControlsThatSignsReplaced) {
  EXPECT_EQ(CodeOfChar(0x0080), std::nullopt);
  EXPECT_EQ(CodeOfChar(0x009F), std::nullopt);
}

TEST(DecodeFileText, RoundTripsAll256Bytes) {
  EXPECT_EQ(EncodeFileText(DecodeFileText(AllBytes())), AllBytes());
}

TEST(EncodeFileText, WritesPlainWindows1252WhereItCan) {
  EXPECT_EQ(EncodeFileText(u"\u00E9\u20AC\u0178"), "\xE9\x80\x9F");
}

TEST(EncodeFileText, WritesMarkedUtf8ForAnyOtherCharacter) {
  EXPECT_EQ(EncodeFileText(u"a\u0436\u00E9"),
            "\xEF\xBB\xBF"
            "a\xD0\xB6\xC3\xA9");
}

TEST(EncodeFileText, WritesCharactersOfTwoUnitsAsOne) {
  EXPECT_EQ(EncodeFileText(u"\U0001F600"), "\xEF\xBB\xBF\xF0\x9F\x98\x80");
}

TEST(EncodeFileText, TurnsHalfCharactersIntoTheReplacementCharacter) {
  const Text text{u'a', 0xD83D, u'b', 0xDE00, 0xD83D};
  EXPECT_EQ(EncodeFileText(text),
            "\xEF\xBB\xBF"
            "a\xEF\xBF\xBD"
            "b\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(EncodeFileText, OfNothingIsNothing) { EXPECT_EQ(EncodeFileText(u""), ""); }

TEST(DecodeFileText, ReadsMarkedUtf8) {
  EXPECT_EQ(DecodeFileText("\xEF\xBB\xBF\xD0\xB6\xE2\x82\xAC\xF0\x9F\x98\x80"),
            u"\u0436\u20AC\U0001F600");
}

TEST(DecodeFileText, ReadsUnmarkedUtf8AsWindows1252) {
  EXPECT_EQ(DecodeFileText("\xC3\xA9"), u"\u00C3\u00A9");
}

TEST(DecodeFileText, OfAMarkAloneIsEmpty) { EXPECT_EQ(DecodeFileText("\xEF\xBB\xBF"), u""); }

struct BrokenUtf8 {
  const char* name;
  std::string_view bytes;
};

TEST(DecodeFileText, ReadsABrokenMarkedFileAsWindows1252) {
  constexpr BrokenUtf8 Table[] = {
      {"continuation alone", "\x80"},
      {"sequence cut off", "\xD0"},
      {"three bytes cut off", "\xE2\x82"},
      {"four bytes cut off", "\xF0\x9F\x98"},
      {"letter in a sequence", "\xD0z"},
      {"over-long slash", "\xC0\xAF"},
      {"over-long three", "\xE0\x80\xAF"},
      {"over-long four", "\xF0\x80\x80\xAF"},
      {"a half character", "\xED\xA0\x80"},
      {"above the last", "\xF4\x90\x80\x80"},
      {"never a byte", "\xFF"},
      {"five bytes", "\xF8\x88\x80\x80\x80"},
  };
  for (const auto& [name, broken] : Table) {
    const std::string bytes = std::string("\xEF\xBB\xBF\xD0\xB6") + std::string(broken);
    const Text text = DecodeFileText(bytes);
    EXPECT_EQ(text.size(), bytes.size()) << name;
    EXPECT_TRUE(text.starts_with(u"\u00EF\u00BB\u00BF\u00D0\u00B6")) << name;
    EXPECT_EQ(EncodeFileText(text), bytes) << name;
  }
}

TEST(EncodingOf, TellsMarkedUtf8FromEverythingElse) {
  EXPECT_EQ(EncodingOf("\xEF\xBB\xBF"
                       "abc"),
            FileEncoding::MarkedUtf8);
  EXPECT_EQ(EncodingOf("abc"), FileEncoding::Windows1252);
  EXPECT_EQ(EncodingOf(""), FileEncoding::Windows1252);
  EXPECT_EQ(EncodingOf("\xEF\xBB"), FileEncoding::Windows1252);
  EXPECT_EQ(EncodingOf("\xEF\xBB\xBF\xE9"), FileEncoding::Windows1252);
}

TEST(EncodeFileText, SurvivesATextThatLooksLikeAMark) {
  for (const TextView text :
       {u"\u00EF\u00BB\u00BF", u"\u00EF\u00BB\u00BFabc", u"\u00EF\u00BB\u00BF\u00C3\u00A9",
        u"\u00EF\u00BB\u00BF\u00E9", u"\uFEFF", u"\uFEFFabc"}) {
    EXPECT_EQ(DecodeFileText(EncodeFileText(text)), text);
  }
}

TEST(EncodeFileText, RoundTripsEveryUnitThatIsACharacter) {
  for (int unit = 0; unit <= 0xFFFF; ++unit) {
    if (unit >= 0xD800 && unit <= 0xDFFF) continue;
    const Text text(1, static_cast<char16_t>(unit));
    ASSERT_EQ(DecodeFileText(EncodeFileText(text)), text) << unit;
  }
}

TEST(EncodeFileText, RoundTripsTheFirstAndLastCharactersOfTwoUnits) {
  for (const TextView text : {u"\U00010000", u"\U0001F480", u"\U0010FFFF"}) {
    EXPECT_EQ(DecodeFileText(EncodeFileText(text)), text);
  }
}

TEST(AppendDecoded, AddsToTheText) {
  Text text = u"a";
  AppendDecoded(text, "\x80", FileEncoding::Windows1252);
  AppendDecoded(text, "\xD0\xB6", FileEncoding::MarkedUtf8);
  EXPECT_EQ(text, u"a\u20AC\u0436");
}

TEST(ValidUtf8Length, EndsBeforeTheFirstBrokenSequence) {
  EXPECT_EQ(ValidUtf8Length("ab\xD0\xB6"), 4U);
  EXPECT_EQ(ValidUtf8Length("ab\xD0"), 2U);
  EXPECT_EQ(ValidUtf8Length("\xFF"
                            "ab"),
            0U);
  EXPECT_EQ(ValidUtf8Length(""), 0U);
}

TEST(ToUtf8, HasNoMark) { EXPECT_EQ(ToUtf8(u"\u00E9"), "\xC3\xA9"); }

TEST(FromUtf8, TakesAStrayByteAsWindows1252) {
  EXPECT_EQ(FromUtf8("\xC3\xA9\x80z"), u"\u00E9\u20ACz");
}

}  // namespace

#include "base/Paths.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

TEST(BaseName, IsThePartBehindTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(BaseName(u"/home/a/verbs.QBC"), u"verbs.QBC");
  EXPECT_EQ(BaseName(u"c:\\cards\\verbs.QBC"), u"verbs.QBC");
  EXPECT_EQ(BaseName(u"cards/old\\verbs.QBC"), u"verbs.QBC");
  EXPECT_EQ(BaseName(u"old\\cards/verbs.QBC"), u"verbs.QBC");
}

TEST(BaseName, IsAllOfANameWithoutSeparator) { EXPECT_EQ(BaseName(u"verbs.QBC"), u"verbs.QBC"); }

TEST(BaseName, IsEmptyBehindATrailingSeparator) {
  EXPECT_EQ(BaseName(u"cards/"), u"");
  EXPECT_EQ(BaseName(u""), u"");
}

TEST(FolderPart, KeepsItsSeparator) {
  EXPECT_EQ(FolderPart(u"/home/a/verbs.QBC"), u"/home/a/");
  EXPECT_EQ(FolderPart(u"c:\\verbs.QBC"), u"c:\\");
  EXPECT_EQ(FolderPart(u"/verbs.QBC"), u"/");
}

TEST(FolderPart, IsEmptyForABareName) { EXPECT_EQ(FolderPart(u"verbs.QBC"), u""); }

TEST(WithSeparator, AddsASlash) { EXPECT_EQ(WithSeparator(u"/home/a"), u"/home/a/"); }

TEST(WithSeparator, AddsNoSecondOne) {
  EXPECT_EQ(WithSeparator(u"/home/"), u"/home/");
  EXPECT_EQ(WithSeparator(u"cards\\"), u"cards\\");
  EXPECT_EQ(WithSeparator(u"/"), u"/");
}

TEST(WithSeparator, LeavesTheCurrentFolderEmpty) { EXPECT_EQ(WithSeparator(u""), u""); }

TEST(DecodePath, ReadsUtf8) {
  EXPECT_EQ(DecodePath("\xC3\xA9\xF0\x9F\x92\x80"), u"\u00E9\U0001F480");
}

TEST(EncodePath, IsTheInverseForAnyBytes) {
  for (const std::string_view bytes :
       {"verbs.QBC", "\xC3\xA9.QBC", "caf\xE9.QBC", "\xFF\xFE", "\xC3", "a\xC3/b", "\xED\xA0\x80",
        "\xF0\x9F\x92\x80\x80", "\xF0\x9F\x98\x80", "\xED\xB2\x80", ""}) {
    EXPECT_EQ(EncodePath(DecodePath(bytes)), bytes);
  }
}

TEST(EncodePath, IsTheInverseForEveryPairOfBytes) {
  for (int pair = 0; pair <= 0xFFFF; ++pair) {
    const std::string bytes{static_cast<char>(pair >> 8), static_cast<char>(pair & 0xFF)};
    ASSERT_EQ(EncodePath(DecodePath(bytes)), bytes) << pair;
  }
}

TEST(DecodePath, GivesStrayBytesUnitsThatNoCharacterHas) {
  EXPECT_EQ(DecodePath("a\xE9"), (Text{u'a', 0xDCE9}));
}

TEST(EncodePath, KeepsCharactersWhoseSecondUnitLooksLikeAStrayByte) {
  EXPECT_EQ(EncodePath(u"\U0001F480"), "\xF0\x9F\x92\x80");
}

TEST(LiesIn, TakesWholeNamesOnly) {
  EXPECT_TRUE(LiesIn(u"/home/a", u"/home/a"));
  EXPECT_TRUE(LiesIn(u"/home/a/b/c", u"/home/a"));
  EXPECT_TRUE(LiesIn(u"/home/a", u"/"));
  EXPECT_TRUE(LiesIn(u"/", u"/"));
  EXPECT_FALSE(LiesIn(u"/home/ab", u"/home/a"));
  EXPECT_FALSE(LiesIn(u"/home", u"/home/a"));
}

TEST(ShownName, IsOneLineThatCanBeSeen) {
  EXPECT_EQ(ShownName(u"R&D <b>x</b> \u00E4.QBC"), u"R&D <b>x</b> \u00E4.QBC");
  EXPECT_EQ(ShownName(u"a\r\nb\tc\x7F"), u"a\u240D\u240Ab\u2409c\u2421");
  EXPECT_EQ(ShownName(u"\u0085\u2028\u202Egpj.exe\u2067"), u"\uFFFD\uFFFD\uFFFDgpj.exe\uFFFD");
}

}  // namespace

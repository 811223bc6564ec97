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

}  // namespace

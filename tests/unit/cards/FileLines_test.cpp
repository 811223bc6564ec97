#include "cards/FileLines.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

std::vector<Text> LinesOf(std::string_view content) {
  FileLines lines(content);
  std::vector<Text> all;
  Text line;
  while (!lines.AtEnd()) {
    EXPECT_EQ(lines.Read(line), FileStatus::Ok);
    all.push_back(line);
  }
  EXPECT_EQ(lines.Read(line), FileStatus::PastEnd);
  return all;
}

using Lines = std::vector<Text>;

}  // namespace

TEST(FileLines, AnEmptyFileHasNone) { EXPECT_EQ(LinesOf(""), Lines()); }

TEST(FileLines, EndInCrLf) { EXPECT_EQ(LinesOf("a\r\nb\r\n"), (Lines{u"a", u"b"})); }

TEST(FileLines, EndInLfWhereNoCrLfIs) { EXPECT_EQ(LinesOf("a\nb\n"), (Lines{u"a", u"b"})); }

TEST(FileLines, TheLastNeedsNoEnd) {
  EXPECT_EQ(LinesOf("a\r\nb"), (Lines{u"a", u"b"}));
  EXPECT_EQ(LinesOf("a\nb"), (Lines{u"a", u"b"}));
}

TEST(FileLines, AnEmptyLineAtTheEndIsALine) {
  EXPECT_EQ(LinesOf("a\r\n\r\n"), (Lines{u"a", u""}));
  EXPECT_EQ(LinesOf("\n"), (Lines{u""}));
}

TEST(FileLines, ALoneLfIsDataBesideCrLf) {
  EXPECT_EQ(LinesOf("a\nb\r\nc"), (Lines{u"a\nb", u"c"}));
}

TEST(FileLines, ALoneCrIsAlwaysData) {
  EXPECT_EQ(LinesOf("a\rb\r"), (Lines{u"a\rb\r"}));
  EXPECT_EQ(LinesOf("a\rb\r\nc\r"), (Lines{u"a\rb", u"c\r"}));
}

TEST(FileLines, OneByte26AtTheVeryEndIsDropped) {
  EXPECT_EQ(LinesOf("a\r\nb\r\n\x1A"), (Lines{u"a", u"b"}));
  EXPECT_EQ(LinesOf("a\r\nb\x1A"), (Lines{u"a", u"b"}));
  EXPECT_EQ(LinesOf("\x1A"), Lines());
}

TEST(FileLines, AnyOtherByte26IsData) {
  EXPECT_EQ(LinesOf("a\x1A"
                    "b\r\nc\x1A\x1A"),
            (Lines{u"a\x1A"
                   u"b",
                   u"c\x1A"}));
  EXPECT_EQ(LinesOf("a\x1A\r\n"), (Lines{u"a\x1A"}));
}

TEST(FileLines, KeepNulCharacters) {
  EXPECT_EQ(LinesOf(std::string_view("a\0b\r\n", 5)), (Lines{Text(u"a\0b", 3)}));
}

TEST(FileLines, KeepBlanks) { EXPECT_EQ(LinesOf("  a  \r\n"), (Lines{u"  a  "})); }

TEST(FileLines, AreWindows1252WithoutAMark) {
  EXPECT_EQ(LinesOf("\xE9\x80\x81\r\n"), (Lines{u"\u00E9\u20AC\u0081"}));
  EXPECT_EQ(LinesOf("\xC3\xA9\r\n"), (Lines{u"\u00C3\u00A9"}));
}

TEST(FileLines, AreUtf8BehindAMarkThatIsNoData) {
  EXPECT_EQ(LinesOf("\xEF\xBB\xBF\xC3\xA9\r\n\xD0\xB4\xF0\x9F\x98\x80"),
            (Lines{u"\u00E9", u"\u0434\U0001F600"}));
  EXPECT_EQ(LinesOf("\xEF\xBB\xBF"), Lines());
}

TEST(FileLines, AreWindows1252BehindAMarkWithABrokenSequenceAnywhere) {
  EXPECT_EQ(LinesOf("\xEF\xBB\xBF"
                    "a\r\n\xC3\xA9\r\n\xFF"),
            (Lines{u"\u00EF\u00BB\u00BF"
                   u"a",
                   u"\u00C3\u00A9", u"\u00FF"}));
}

TEST(FileLines, ReadingPastTheEndLeavesTheLineAlone) {
  FileLines lines("");
  Text line = u"kept";
  EXPECT_EQ(lines.Read(line), FileStatus::PastEnd);
  EXPECT_EQ(line, u"kept");
}

TEST(FileLines, EveryByteOfWindows1252IsOneCharacter) {
  std::string bytes = "x\r\n";
  for (int byte = 0; byte <= 255; ++byte) bytes += static_cast<char>(byte);
  const Lines lines = LinesOf(bytes + "\r\n");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[1].size(), 256U);
  EXPECT_EQ(EncodeFileText(lines[1]), bytes.substr(3));
}

#include "convert/Kvtml.h"

#include "base/CodePage.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

struct Result {
  Deck deck;
  Findings findings;
  bool read = false;

  bool Mentions(std::string_view words) const {
    return std::any_of(findings.begin(), findings.end(), [&](const Finding& finding) {
      return finding.message.find(words) != std::string::npos;
    });
  }
};

Result Read(std::string_view bytes, TextColumns columns = {}) {
  Result result;
  result.read = ReadKvtml(bytes, columns, result.deck, result.findings);
  return result;
}

std::string Document(std::string_view inside) {
  return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<kvtml version=\"2.0\">\n" +
         std::string(inside) + "\n</kvtml>\n";
}

constexpr std::string_view ThreeLanguages =
    "<identifiers><identifier id=\"0\"><name>English</name></identifier>"
    "<identifier id=\"1\"><name>Spanish</name></identifier>"
    "<identifier id=\"5\"><name>Russian</name></identifier></identifiers>\n"
    "<entries>\n<entry id=\"0\"><translation id=\"0\"><text>dog</text></translation>\n"
    "<translation "
    "id=\"5\"><text>\xD1\x81\xD0\xBE\xD0\xB1\xD0\xB0\xD0\xBA\xD0\xB0</text></translation>"
    "<translation id=\"1\"><text>perro</text><sound>x/perro.wav</sound><comment>m.</comment>"
    "</translation></entry></entries>";

TEST(ReadKvtml, TheFirstTwoLanguagesAreFrontAndBack) {
  const Result result = Read(Document(ThreeLanguages));
  ASSERT_TRUE(result.read);
  ASSERT_EQ(result.deck.cards.size(), 1U);
  EXPECT_EQ(result.deck.cards[0].line, 5);
  EXPECT_EQ(result.deck.cards[0].sides[0].text, u"dog");
  EXPECT_EQ(result.deck.cards[0].sides[1], (DeckSide{u"perro", u"x/perro.wav", u""}));
  EXPECT_TRUE(result.Mentions("the language “Russian”"));
  EXPECT_TRUE(result.Mentions("<comment>"));
}

TEST(ReadKvtml, OtherLanguagesCanBeChosen) {
  const Result result = Read(Document(ThreeLanguages), {3, 1});
  EXPECT_EQ(result.deck.cards[0].sides[0].text, u"собака");
  EXPECT_EQ(result.deck.cards[0].sides[1].text, u"dog");
  EXPECT_TRUE(result.Mentions("the language “Spanish”"));
}

TEST(ReadKvtml, AColumnThatIsNotThereLeavesItsSideEmpty) {
  const Result result = Read(Document(ThreeLanguages), {1, 9});
  EXPECT_EQ(result.deck.cards[0].sides[0].text, u"dog");
  EXPECT_EQ(result.deck.cards[0].sides[1].text, u"");
}

TEST(ReadKvtml, TitleAndCategoryAreDescriptionAndTopic) {
  const Result result = Read(
      Document("<information><title>Animals</title><category>Spanish</category><author>me</author>"
               "<generator>x</generator></information>"));
  EXPECT_EQ(result.deck.description, u"Animals");
  EXPECT_EQ(result.deck.topic, u"Spanish");
  EXPECT_TRUE(result.Mentions("the author"));
  EXPECT_TRUE(result.Mentions("which program made the file"));
  EXPECT_EQ(result.findings.size(), 2U);
}

TEST(ReadKvtml, LessonsAreListed) {
  const Result result =
      Read(Document("<lessons><container><name>One</name></container><container><name>Two</name></"
                    "container></lessons>"));
  EXPECT_TRUE(result.Mentions("the lessons become one list: “One”, “Two”"));
}

TEST(ReadKvtml, TextsKeepBreaksBlanksAndEntities) {
  const Result result =
      Read(Document("<entries><entry><translation id=\"0\"><text> a\r\nb &amp; <![CDATA[<c>]]> "
                    "</text></translation>"
                    "<translation id=\"1\"><text> </text></translation></entry></entries>"));
  EXPECT_EQ(result.deck.cards[0].sides[0].text, u" a\r\nb & <c> ");
  EXPECT_EQ(result.deck.cards[0].sides[1].text, u" ");
}

TEST(ReadKvtml, OtherFilesAreRefusedWithTheirLine) {
  const Result broken =
      Read("<?xml version=\"1.0\"?>\n<kvtml version=\"2.0\">\n<entries>\n</kvtml>");
  EXPECT_FALSE(broken.read);
  EXPECT_EQ(broken.findings.back().severity, Severity::Error);
  EXPECT_GE(broken.findings.back().line, 3);
  const Result old = Read("<kvtml lines=\"3\"><e><o>a</o></e></kvtml>");
  EXPECT_FALSE(old.read);
  EXPECT_TRUE(old.Mentions("version 1"));
  EXPECT_FALSE(Read("<html></html>").read);
  EXPECT_FALSE(Read("").read);
  EXPECT_FALSE(Read("words, not markup").read);
}

TEST(ReadKvtml, DeepNestsDoNoHarm) {
  std::string deep;
  for (int i = 0; i < 200'000; ++i) deep += "<a>";
  EXPECT_FALSE(Read(Document(deep)).read);
  std::string closed = deep;
  for (int i = 0; i < 200'000; ++i) closed += "</a>";
  EXPECT_TRUE(Read(Document(closed)).read);
}

TEST(WriteKvtml, LeavesOutWhatXmlCannotHold) {
  Deck deck;
  deck.cards.resize(1);
  deck.cards[0].sides[0].text =
      u"a\x01"
      u"b\r\n\tc\uFFFE<";
  const std::string bytes = WriteKvtml(deck);
  EXPECT_NE(bytes.find("<text>ab\n\tc&lt;</text>"), std::string::npos) << bytes;
}

TEST(WriteKvtml, BeginsAsOtherProgramsExpect) {
  Deck deck;
  deck.description = u"Animals";
  deck.cards.resize(1);
  const std::string bytes = WriteKvtml(deck);
  EXPECT_TRUE(bytes.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE kvtml "));
  EXPECT_NE(bytes.find("<title>Animals</title>"), std::string::npos);
  EXPECT_NE(bytes.find("<lessons>"), std::string::npos);
}

}  // namespace

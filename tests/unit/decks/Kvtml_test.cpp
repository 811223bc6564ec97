#include "decks/Kvtml.h"

#include "base/CodePage.h"
#include "decks/KvtmlWriter.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

namespace {

struct Result {
  Deck deck;
  Findings findings;
  std::string encoding;
  bool read = false;

  bool Mentions(std::string_view words) const {
    return std::any_of(findings.begin(), findings.end(), [&](const Finding& finding) {
      return finding.message.find(words) != std::string::npos;
    });
  }
};

Result Read(std::string_view bytes, TextColumns columns = {}, const std::string& encoding = {}) {
  Result result;
  result.read = ReadKvtml(bytes, encoding, columns, result.deck, result.encoding, result.findings);
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

std::string Entry(std::string_view parts) {
  return Document("<entries><entry><translation id=\"0\">" + std::string(parts) +
                  "</translation></entry></entries>");
}

TEST(ReadKvtml, TheTextInMarksStaysAndTheMarksAreListed) {
  const Result result = Read(Entry("<text>a <b>bold <i>word</i></b> <br/>c</text>"));
  EXPECT_EQ(result.deck.cards.at(0).sides[0].text, u"a bold word c");
  EXPECT_TRUE(result.Mentions("of the mark <b> in <text> only the text stays"));
  EXPECT_TRUE(result.Mentions("<i>"));
  EXPECT_TRUE(result.Mentions("<br>"));
  EXPECT_EQ(result.findings.size(), 3U);
}

TEST(ReadKvtml, OfRepeatedElementsTheFirstWithATextCounts) {
  const Result result = Read(Entry(
      "<text></text><text>a</text><text>b</text><text> </text><sound>1.wav</sound>"
      "<sound>2.wav</sound></translation><translation id=\"0\"><text>c</text><image>d</image>"));
  EXPECT_EQ(result.deck.cards.at(0).sides[0], (DeckSide{u"a", u"1.wav", u"d"}));
  EXPECT_TRUE(result.Mentions("a further <text> has no place on a card; left out 2 times"));
  EXPECT_TRUE(result.Mentions("a further <sound>"));
  EXPECT_EQ(result.findings.size(), 2U);
}

TEST(ReadKvtml, EveryEntriesElementGivesCards) {
  const std::string entries =
      "<entries><entry><translation id=\"0\"><text>a</text></translation></entry></entries>";
  EXPECT_EQ(Read(Document(entries + entries)).deck.cards.size(), 2U);
}

TEST(ReadKvtml, LanguagesMayStandBehindTheEntries) {
  const Result result =
      Read(Document("<entries><entry><translation id=\"fr\"><text>oui</text></translation>"
                    "<translation id=\"en\"><text>yes</text></translation></entry></entries>"
                    "<identifiers><identifier id=\"en\"/><identifier id=\"fr\"/></identifiers>"));
  EXPECT_EQ(result.deck.cards.at(0).sides[0].text, u"yes");
  EXPECT_EQ(result.deck.cards.at(0).sides[1].text, u"oui");
}

TEST(ReadKvtml, WhatStandsInOddPlacesIsListed) {
  const Result result = Read(
      Document("one<entries>two<entry note=\"three\"><translation id=\"0\">four</translation>"
               "<translation id=\"0\" lang=\"five\"/><translation><text>six</text></translation>"
               "</entry></entries><tenses><tense>seven</tense></tenses><usages/>"));
  for (const char* what : {"beside the elements of <kvtml>", "beside the elements of <entries>",
                           "“note” of <entry>", "beside the elements of <translation>",
                           "“lang” of <translation>", "the language “”", "<tenses>"}) {
    EXPECT_TRUE(result.Mentions(what)) << what;
  }
  EXPECT_EQ(result.findings.size(), 7U);
}

TEST(ReadKvtml, CommentsPartNoTexts) {
  const Result result = Read(Entry("<text>wo<!-- a <text> -->r<?x y?>d</text>"));
  EXPECT_EQ(result.deck.cards.at(0).sides[0].text, u"word");
  EXPECT_TRUE(result.findings.empty());
}

TEST(ReadKvtml, UnknownReferencesStayAndAreListed) {
  const Result result = Read(Entry("<text>a&nbsp;b &#x0000e9; AT&T &#xD800;</text>"));
  EXPECT_EQ(result.deck.cards.at(0).sides[0].text, u"a&nbsp;b é AT&T &#xD800;");
  EXPECT_TRUE(
      result.Mentions("“&nbsp;” stands for no character that XML knows; it stays as it is, "
                      "and 2 more like it"));
}

TEST(ReadKvtml, NamesOfNamespacesAreListed) {
  EXPECT_TRUE(Read(Entry("<text xmlns:x=\"urn:x\">a</text>")).Mentions("“xmlns:x” of <text>"));
}

TEST(ReadKvtml, ADeclarationThatTheMarkContradictsIsListed) {
  const auto document = [](const std::string& declared) {
    return "<?xml version=\"1.0\" encoding=\"" + declared +
           "\"?><kvtml version=\"2.0\"><entries><entry/></entries></kvtml>";
  };
  const auto wide = [](const std::string& bytes, bool big) {
    std::string units;
    for (const char byte : bytes) units += big ? std::string{'\0', byte} : std::string{byte, '\0'};
    return units;
  };
  const std::string little = "\xFF\xFE";
  const std::string big = "\xFE\xFF";
  for (const std::string& contradicted :
       {"\xEF\xBB\xBF" + document("windows-1252"), little + wide(document("UTF-8"), false),
        big + wide(document("utf-16le"), true), wide(document("utf-8"), true)}) {
    const Result result = Read(contradicted);
    EXPECT_TRUE(result.read);
    EXPECT_TRUE(result.Mentions("the file says that it is “"));
  }
  for (const std::string& right :
       {"\xEF\xBB\xBF" + document("utf-8"), little + wide(document("UTF-16"), false),
        little + wide(document("utf-16le"), false), big + wide(document("utf-16"), true),
        wide(document("utf-16"), true)}) {
    EXPECT_TRUE(Read(right).findings.empty());
  }
}

TEST(ReadKvtml, ALessonWithoutAllCardsIsListed) {
  const std::string cards =
      "<information><title>T</title></information><entries><entry/><entry/>"
      "</entries><lessons><container><name>T</name><entry id=\"0\"/>";
  EXPECT_TRUE(Read(Document(cards + "</container></lessons>")).Mentions("become one list: “T”"));
  EXPECT_TRUE(Read(Document(cards + "<entry id=\"1\"/></container></lessons>")).findings.empty());
  EXPECT_TRUE(Read(Document(cards + "<entry id=\"1\"/><inpractice>false</inpractice>"
                                    "</container></lessons>"))
                  .Mentions("become one list"));
}

TEST(ReadKvtml, LanguagesThatAreCalledSomethingAreRemarked) {
  const Result result = Read(Document(ThreeLanguages));
  EXPECT_TRUE(result.Mentions("stays behind: “English”, “Spanish”, “Russian”"));
  Deck ours;
  ours.cards.resize(1);
  EXPECT_TRUE(Read(WriteKvtml(ours)).findings.empty());
}

TEST(ReadKvtml, MoreEmptyEntriesThanAFileIsWorthAreRefused) {
  std::string entries;
  for (int i = 0; i < 200'000; ++i) entries += "<entry/>";
  const Result result = Read(Document("<entries>" + entries + "</entries>"));
  EXPECT_FALSE(result.read);
  EXPECT_TRUE(result.Mentions("Out of memory"));
  EXPECT_TRUE(result.deck.cards.empty());
}

TEST(ReadKvtml, ATextThatIsOfNoCardIsRefusedWithItsLine) {
  const std::string most(std::size_t{1} << 20, 'x');
  EXPECT_TRUE(Read(Entry("<text>" + most + "</text>")).read);
  const Result result = Read(Entry("\n<text>" + most + "<b>y</b></text>"));
  EXPECT_FALSE(result.read);
  EXPECT_EQ(result.findings.back().severity, Severity::Error);
  EXPECT_EQ(result.findings.back().line, 4);
  EXPECT_FALSE(Read(Entry("<text>" + most + most + most + most + most + "</text>")).read);
}

TEST(ReadKvtml, KindsBeyondCountingAreCountedTogether) {
  std::string parts;
  for (int i = 0; i < 2000; ++i)
    parts += "<k" + std::to_string(i) + ">x</k" + std::to_string(i) + ">";
  const Result result = Read(Entry(parts));
  EXPECT_LT(result.findings.size(), 600U);
  EXPECT_TRUE(result.Mentions("left out 1500 times"));
}

// The word "да" in encodings that the file declares, or stores its characters in.
TEST(ReadKvtml, TheEncodingIsTheOneThatTheFileSays) {
  const auto document = [](const std::string& encoding, std::string_view word) {
    return "<?xml version='1.0' encoding = '" + encoding + "' ?>" +
           Entry("<text>" + std::string(word) + "</text>").substr(39);
  };
  const std::array<std::array<std::string, 2>, 4> files = {{{"windows-1251", "\xE4\xE0"},
                                                            {"KOI8-R", "\xC4\xC1"},
                                                            {"ISO-8859-5", "\xD4\xD0"},
                                                            {"UTF-8", "\xD0\xB4\xD0\xB0"}}};
  for (const auto& [encoding, word] : files) {
    const Result result = Read(document(encoding, word));
    ASSERT_EQ(result.deck.cards.size(), 1U) << encoding;
    EXPECT_EQ(result.deck.cards[0].sides[0].text, u"да") << encoding;
    EXPECT_EQ(result.encoding, encoding);
    EXPECT_TRUE(result.findings.empty());
  }
  const Result asked = Read(document("ISO-8859-1", "\xE4\xE0"), {}, "windows-1251");
  EXPECT_EQ(asked.deck.cards.at(0).sides[0].text, u"да");
  const Result unknown = Read(document("klingon", "x"));
  EXPECT_FALSE(unknown.read);
  EXPECT_TRUE(unknown.Mentions("no encoding is called “klingon”"));
  const Result wrong = Read(document("utf-16", "\xD0\xB4\xD0\xB0"));
  EXPECT_EQ(wrong.deck.cards.at(0).sides[0].text, u"да");
  EXPECT_TRUE(wrong.Mentions("says that it is “utf-16”, and it is not"));
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

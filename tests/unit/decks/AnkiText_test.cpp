#include "decks/AnkiText.h"

#include "base/CodePage.h"

#include <gtest/gtest.h>

namespace {

struct Result {
  Deck deck;
  Findings findings;
  bool read = false;

  Text Front(std::size_t card) const { return deck.cards.at(card).sides[0].text; }
  Text Back(std::size_t card) const { return deck.cards.at(card).sides[1].text; }
};

Result Read(TextView text, TextColumns columns = {}) {
  Result result;
  result.read = ReadAnkiText(ToUtf8(text), columns, result.deck, result.findings);
  return result;
}

TEST(ReadAnkiText, TakesTheHeaderLines) {
  const Result result =
      Read(u"#separator:Semicolon\r\n#html:true\r\n#deck:French::Verbs::1\r\na;b<br>c\r\n");
  ASSERT_TRUE(result.read);
  EXPECT_EQ(result.deck.topic, u"French");
  EXPECT_EQ(result.deck.description, u"Verbs::1");
  EXPECT_EQ(result.Back(0), u"b\r\nc");
  EXPECT_EQ(result.deck.cards[0].line, 4);
  EXPECT_TRUE(result.findings.empty());
}

TEST(ReadAnkiText, QuotesOfMarksAreNoLoss) {
  const TextView start = u"#separator:tab\n#html:true\n";
  const Result marks = Read(Text(start).append(u"<img src=\"x.jpg\">\tb\n"));
  EXPECT_EQ(marks.deck.cards.at(0).sides[0].picture, u"x.jpg");
  EXPECT_TRUE(marks.findings.empty());
  const Result text = Read(Text(start).append(u"a \"b\"\tc\n"));
  ASSERT_EQ(text.findings.size(), 1U);
  EXPECT_EQ(text.findings[0].line, 3);
}

TEST(ReadAnkiText, OurOwnLinesSayTopicAndDescription) {
  const Result result = Read(u"#separator:tab\n#deck:a::b::c\n#topic:a::b\n#description:c\nx\ty\n");
  EXPECT_EQ(result.deck.topic, u"a::b");
  EXPECT_EQ(result.deck.description, u"c");
}

TEST(ReadAnkiText, ADeckWithoutFurtherNameIsTheDescription) {
  EXPECT_EQ(Read(u"#deck:My words\nx\ty").deck.description, u"My words");
  EXPECT_EQ(Read(u"#deck:My words\nx\ty").deck.topic, u"");
}

TEST(ReadAnkiText, ColumnsThatAreNoFieldsAreSkipped) {
  const Result result = Read(
      u"#separator:tab\n#html:false\n#guid column:1\n#notetype column:2\n#deck column:3\n#tags "
      u"column:6\n"
      u"g1\tBasic\tA::B\tfront\tback\tone two\ng2\tBasic\tC\t<b>\t\t\n");
  ASSERT_EQ(result.deck.cards.size(), 2U);
  EXPECT_EQ(result.Front(0), u"front");
  EXPECT_EQ(result.Back(0), u"back");
  EXPECT_EQ(result.Front(1), u"<b>");
  EXPECT_EQ(result.deck.topic, u"A");
  EXPECT_EQ(result.deck.description, u"B");
  ASSERT_EQ(result.findings.size(), 3U);  // a second deck, Anki's own, and tags
  EXPECT_EQ(result.findings[0].line, 8);
  EXPECT_EQ(result.findings[1].severity, Severity::Remark);
  EXPECT_EQ(result.findings[2].kind, FindingKind::LostField);
}

TEST(ReadAnkiText, NamedColumnsFindTheirPlace) {
  const Result result = Read(u"#separator:tab\n#columns:Back\tExtra\tFront\nb\te\tf\n");
  EXPECT_EQ(result.Front(0), u"f");
  EXPECT_EQ(result.Back(0), u"b");
  ASSERT_EQ(result.findings.size(), 1U);
  EXPECT_NE(result.findings[0].message.find("Extra"), std::string::npos);
}

TEST(ReadAnkiText, WantedColumnsWin) {
  const Result result = Read(u"#separator:tab\n#columns:Front\tBack\tThird\na\tb\tc\n", {3, 1});
  EXPECT_EQ(result.Front(0), u"c");
  EXPECT_EQ(result.Back(0), u"a");
}

TEST(ReadAnkiText, MarksAreFoundOutWhereNothingIsSaid) {
  EXPECT_EQ(Read(u"#separator:tab\na<br>b\tc").Front(0), u"a\r\nb");
  EXPECT_EQ(Read(u"#separator:tab\n1 < 2\tc").Front(0), u"1 < 2");
}

TEST(ReadAnkiText, FormattingAndFurtherMediaAreListed) {
  const Result result = Read(u"#html:true\n<b>a</b>[sound:1.wav][sound:2.wav]\tb");
  ASSERT_EQ(result.findings.size(), 2U);
}

TEST(ReadAnkiText, ThatANoteTypeStaysBehindIsRemarked) {
  const Result result = Read(u"#notetype:Basic\na\tb");
  ASSERT_EQ(result.findings.size(), 1U);
  EXPECT_EQ(result.findings[0].severity, Severity::Remark);
}

TEST(ReadAnkiText, OfFurtherMediaThousandAreNamedAndTheOthersCounted) {
  Text sounds;
  for (int i = 0; i < 1500; ++i) sounds += u"[sound:a.wav]";
  const Result result = Read(u"#html:true\na\tb" + sounds);
  ASSERT_EQ(result.findings.size(), 1001U);
  EXPECT_EQ(result.findings.back().message, "499 more pictures and sounds are left out");
}

TEST(ReadAnkiText, OddHeadersDoNoHarm) {
  EXPECT_TRUE(Read(u"#").read);
  EXPECT_TRUE(Read(u"#separator:").read);
  EXPECT_TRUE(Read(u"#tags column:999999999\n#guid column:-3\na\tb").read);
  EXPECT_EQ(Read(u"#separator:\"\n\"a\tb\"").deck.cards.size(), 1U);
}

TEST(LooksLikeAnkiText, AtTheKnownLines) {
  EXPECT_TRUE(LooksLikeAnkiText(u"#separator:tab\n"));
  EXPECT_TRUE(LooksLikeAnkiText(u"#HTML:true\n"));
  EXPECT_FALSE(LooksLikeAnkiText(u"# my words\n"));
  EXPECT_FALSE(LooksLikeAnkiText(u""));
}

TEST(WriteAnkiText, Layout) {
  Deck deck;
  deck.topic = u"Spanish";
  deck.description = u"Animals";
  deck.cards.resize(1);
  deck.cards[0].sides[0] = {u"dog\r\nhound", u"", u"dog.bmp"};
  deck.cards[0].sides[1] = {u"perro", u"perro.wav", u""};
  std::string utf8;
  WriteAnkiText(deck, [&](std::string_view row) { utf8 += row; });
  EXPECT_EQ(utf8,
            "#separator:tab\r\n#html:true\r\n#deck:Spanish::Animals\r\n#topic:Spanish\r\n"
            "#description:Animals\r\n#columns:Front\tBack\r\n"
            "\"dog<br>hound<img src=\"\"dog.bmp\"\">\"\tperro[sound:perro.wav]\r\n");
}

}  // namespace

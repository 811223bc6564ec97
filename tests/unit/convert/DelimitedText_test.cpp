#include "convert/DelimitedText.h"

#include <gtest/gtest.h>

namespace {

using Fields = std::vector<Text>;

std::vector<DelimitedRow> Parsed(TextView text, char separator,
                                 QuoteRule rule = QuoteRule::Strict) {
  std::vector<DelimitedRow> rows;
  EXPECT_EQ(ParseDelimited(text, separator, rule, 1, rows), 0);
  return rows;
}

TEST(ParseDelimited, TakesEveryLineEnd) {
  for (const TextView end : {u"\n", u"\r\n", u"\r"}) {
    const Text text = Text(u"a,b").append(end).append(u"c,d");
    const auto rows = Parsed(text, ',');
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].fields, (Fields{u"a", u"b"}));
    EXPECT_EQ(rows[1].fields, (Fields{u"c", u"d"}));
    EXPECT_EQ(rows[1].line, 2);
  }
}

TEST(ParseDelimited, EmptyLinesGiveNoRow) {
  const auto rows = Parsed(u"\n\na\n\n\r\nb\n\n", ',');
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].line, 3);
  EXPECT_EQ(rows[1].line, 6);
  EXPECT_TRUE(Parsed(u"", ',').empty());
}

TEST(ParseDelimited, QuotedFieldsHoldEverything) {
  const auto rows = Parsed(u"\"a,\"\"b\"\"\r\nc\",\"\"\r\nnext,", ',');
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].fields, (Fields{u"a,\"b\"\r\nc", u""}));
  EXPECT_EQ(rows[0].line, 1);
  EXPECT_EQ(rows[1].fields, (Fields{u"next", u""}));
  EXPECT_EQ(rows[1].line, 3);
}

TEST(ParseDelimited, BlanksBelongToTheField) {
  EXPECT_EQ(Parsed(u" a , b\t", ',').front().fields, (Fields{u" a ", u" b\t"}));
}

TEST(ParseDelimited, SaysWhereTheRulesAreBroken) {
  std::vector<DelimitedRow> rows;
  EXPECT_EQ(ParseDelimited(u"a,b\nsay \"hi\",c\n", ',', QuoteRule::Strict, 1, rows), 2);
  rows.clear();
  EXPECT_EQ(ParseDelimited(u"a\n\"open\nb\nc", ',', QuoteRule::Strict, 10, rows), 11);
}

TEST(ParseDelimited, LenientKeepsAQuoteInsideAField) {
  EXPECT_EQ(Parsed(u"say \"hi\",c", ',', QuoteRule::Lenient).front().fields,
            (Fields{u"say \"hi\"", u"c"}));
}

TEST(ParseDelimited, WithoutQuotesTheyAreCharacters) {
  EXPECT_EQ(Parsed(u"\"hi\" he said\t\"x", '\t', QuoteRule::None).front().fields,
            (Fields{u"\"hi\" he said", u"\"x"}));
  EXPECT_EQ(Parsed(Text(u"a\0b", 3), '\t', QuoteRule::None).front().fields, (Fields{u"a\uFFFDb"}));
}

TEST(ParseDelimitedAsItFits, FallsBackAndSaysWhere) {
  std::vector<DelimitedRow> rows;
  int broken = -1;
  EXPECT_TRUE(ParseDelimitedAsItFits(u"a\tb\n\"hi\" x\ty", '\t', QuoteRule::None, 1, rows, broken));
  EXPECT_EQ(broken, 2);
  EXPECT_EQ(rows.size(), 2U);
  EXPECT_FALSE(ParseDelimitedAsItFits(u"a,b\n\"open,y", ',', QuoteRule::Lenient, 1, rows, broken));
  EXPECT_EQ(broken, 2);
}

TEST(GuessSeparator, CountsOutsideQuotesInTheFirstLine) {
  EXPECT_EQ(GuessSeparator(u"a;b\nc,d,e,f", ','), ';');
  EXPECT_EQ(GuessSeparator(u"\"a;;;\",b", ';'), ',');
  EXPECT_EQ(GuessSeparator(u"a\tb", ','), '\t');
  EXPECT_EQ(GuessSeparator(u"a,b;c", ','), ',');  // as many of both
  EXPECT_EQ(GuessSeparator(u"word", '|'), '|');
  EXPECT_EQ(GuessSeparator(u"", ','), ',');
}

TEST(AppendRow, QuotesWhatNeedsIt) {
  Text text;
  AppendRow(text,
            {u"plain", u"a,b", u"say \"x\"", u"two\r\nlines", u" blank", u"#no remark", u"a;b"},
            ',');
  EXPECT_EQ(
      text,
      u"plain,\"a,b\",\"say \"\"x\"\"\",\"two\r\nlines\",\" blank\",\"#no remark\",\"a;b\"\r\n");
}

TEST(AppendRow, TabsNeedNoQuotesAroundCommas) {
  Text text;
  AppendRow(text, {u"street, road", u"a;b"}, '\t');
  EXPECT_EQ(text, u"street, road\ta;b\r\n");
}

TEST(AppendRow, ARowOfNothingIsNoEmptyLine) {
  Text text;
  AppendRow(text, {u""}, ',');
  EXPECT_EQ(text, u"\"\"\r\n");
  EXPECT_EQ(Parsed(text, ',').size(), 1U);
}

}  // namespace

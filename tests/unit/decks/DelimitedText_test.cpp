#include "decks/DelimitedText.h"

#include "base/CodePage.h"

#include <gtest/gtest.h>

namespace {

using Fields = std::vector<Text>;

int Parse(TextView text, char separator, QuoteRule rule, int firstLine,
          std::vector<DelimitedRow>& rows) {
  const TableEnd end = ReadDelimited(ToUtf8(text), separator, rule, firstLine,
                                     [&](DelimitedRow& row) { rows.push_back(std::move(row)); });
  EXPECT_EQ(end.tooLargeLine, 0);
  return end.brokenLine;
}

std::vector<DelimitedRow> Parsed(TextView text, char separator,
                                 QuoteRule rule = QuoteRule::Strict) {
  std::vector<DelimitedRow> rows;
  EXPECT_EQ(Parse(text, separator, rule, 1, rows), 0);
  return rows;
}

TEST(ReadDelimited, TakesEveryLineEnd) {
  for (const TextView end : {u"\n", u"\r\n", u"\r"}) {
    const Text text = Text(u"a,b").append(end).append(u"c,d");
    const auto rows = Parsed(text, ',');
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].fields, (Fields{u"a", u"b"}));
    EXPECT_EQ(rows[1].fields, (Fields{u"c", u"d"}));
    EXPECT_EQ(rows[1].line, 2);
  }
}

TEST(ReadDelimited, EmptyLinesGiveNoRow) {
  const auto rows = Parsed(u"\n\na\n\n\r\nb\n\n", ',');
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].line, 3);
  EXPECT_EQ(rows[1].line, 6);
  EXPECT_TRUE(Parsed(u"", ',').empty());
}

TEST(ReadDelimited, QuotedFieldsHoldEverything) {
  const auto rows = Parsed(u"\"a,\"\"b\"\"\r\nc\",\"\"\r\nnext,", ',');
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].fields, (Fields{u"a,\"b\"\r\nc", u""}));
  EXPECT_EQ(rows[0].line, 1);
  EXPECT_EQ(rows[1].fields, (Fields{u"next", u""}));
  EXPECT_EQ(rows[1].line, 3);
}

TEST(ReadDelimited, BlanksBelongToTheField) {
  EXPECT_EQ(Parsed(u" a , b\t", ',').front().fields, (Fields{u" a ", u" b\t"}));
}

TEST(ReadDelimited, SaysWhereTheRulesAreBroken) {
  std::vector<DelimitedRow> rows;
  EXPECT_EQ(Parse(u"a,b\nsay \"hi\",c\n", ',', QuoteRule::Strict, 1, rows), 2);
  rows.clear();
  EXPECT_EQ(Parse(u"a\n\"open\nb\nc", ',', QuoteRule::Strict, 10, rows), 11);
}

TEST(ReadDelimited, LenientKeepsAQuoteInsideAField) {
  EXPECT_EQ(Parsed(u"say \"hi\",c", ',', QuoteRule::Lenient).front().fields,
            (Fields{u"say \"hi\"", u"c"}));
}

TEST(ReadDelimited, WithoutQuotesTheyAreCharacters) {
  EXPECT_EQ(Parsed(u"\"hi\" he said\t\"x", '\t', QuoteRule::None).front().fields,
            (Fields{u"\"hi\" he said", u"\"x"}));
  EXPECT_EQ(Parsed(Text(u"a\0b", 3), '\t', QuoteRule::None).front().fields, (Fields{u"a\uFFFDb"}));
}

TEST(ReadDelimited, PartsNoCharacterOfALongLine) {
  // Pieces of 65,536 units reach the parser: one would end inside the dog.
  const Text field = Text(65'535, u'x') + u"\U0001F415\"\U0001F415";
  const auto rows = Parsed(u"a," + field + u"\r\nb,c", ',', QuoteRule::Lenient);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0].fields, (Fields{u"a", field}));
  EXPECT_EQ(rows[1].line, 2);
  EXPECT_EQ(Parsed(Text(65'535, u'x') + u"\r\ny", ',')[1].line, 2);
}

TEST(ReadDelimited, WhatIsNoTableIsTooLarge) {
  const auto tooLargeLine = [](const Text& text) {
    return ReadDelimited(ToUtf8(text), ',', QuoteRule::Lenient, 1, {}).tooLargeLine;
  };
  EXPECT_EQ(tooLargeLine(u"a\n" + Text(MostFields - 1, u',')), 0);
  EXPECT_EQ(tooLargeLine(u"a\n" + Text(MostFields, u',')), 2);
  EXPECT_EQ(tooLargeLine(u"a\n" + Text(LongestField, u'x')), 0);
  EXPECT_EQ(tooLargeLine(u"a\nb," + Text(LongestField + 1, u'x')), 2);
}

TEST(FindFittingRule, FallsBackAndSaysWhere) {
  const FittingRule none = FindFittingRule("a\tb\n\"hi\" x\ty", '\t', QuoteRule::None, 1);
  EXPECT_EQ(none.rule, QuoteRule::None);
  EXPECT_EQ(none.strictBrokenLine, 2);
  EXPECT_TRUE(none.end.IsWell());
  EXPECT_EQ(FindFittingRule("a,b\n\"open,y", ',', QuoteRule::Lenient, 1).end.brokenLine, 2);
  EXPECT_EQ(FindFittingRule("a,\"b\"", ',', QuoteRule::Lenient, 1).strictBrokenLine, 0);
}

TEST(GuessSeparator, CountsOutsideQuotesInTheFirstLine) {
  EXPECT_EQ(GuessSeparator("a;b\nc,d,e,f", ','), ';');
  EXPECT_EQ(GuessSeparator("\"a;;;\",b", ';'), ',');
  EXPECT_EQ(GuessSeparator("a\tb", ','), '\t');
  EXPECT_EQ(GuessSeparator("a,b;c", ','), ',');  // as many of both
  EXPECT_EQ(GuessSeparator("word", '|'), '|');
  EXPECT_EQ(GuessSeparator("", ','), ',');
}

TEST(WriteRow, QuotesWhatNeedsIt) {
  EXPECT_EQ(
      WriteRow({u"plain", u"a,b", u"say \"x\"", u"two\r\nlines", u" blank", u"#no remark", u"a;b"},
               ','),
      "plain,\"a,b\",\"say \"\"x\"\"\",\"two\r\nlines\",\" blank\",\"#no remark\",\"a;b\"\r\n");
}

TEST(WriteRow, TabsNeedNoQuotesAroundCommas) {
  EXPECT_EQ(WriteRow({u"street, road", u"a;b"}, '\t'), "street, road\ta;b\r\n");
}

TEST(WriteRow, ARowOfNothingIsNoEmptyLine) {
  const std::string row = WriteRow({u""}, ',');
  EXPECT_EQ(row, "\"\"\r\n");
  EXPECT_EQ(Parsed(FromUtf8(row), ',').size(), 1U);
}

}  // namespace

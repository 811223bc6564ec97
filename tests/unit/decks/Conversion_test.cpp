#include "decks/Conversion.h"

#include "tests/support/MemoryFiles.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

/// Converts files in memory.
class ConversionTest : public testing::Test {
 protected:
  bool Convert(const Text& in, const Text& out) {
    conversion = {};
    std::string bytes;
    EXPECT_EQ(files.Read(in, bytes), FileStatus::Ok);
    if (!PlanConversion(files, bytes, in, out, options, conversion)) return false;
    return WriteConversion(files, conversion);
  }
  bool Found(FindingKind kind) const {
    return std::any_of(conversion.findings.begin(), conversion.findings.end(),
                       [&](const Finding& finding) { return finding.kind == kind; });
  }
  static std::string Rows(int count) {
    std::string rows;
    for (int i = 1; i <= count; ++i) rows += "f" + std::to_string(i) + "\tb\n";
    return rows;
  }

  MemoryFiles files;
  ConvertOptions options;
  Conversion conversion;
};

TEST_F(ConversionTest, ATableBecomesAStack) {
  files.Put(u"a/words.tsv", "house\tHaus\n");
  options.topic = u"German";
  options.description = u"Unit 1";
  ASSERT_TRUE(Convert(u"a/words.tsv", u"b/words.QBC"));
  EXPECT_EQ(files.Content(u"b/words.QBC"),
            "German\r\nUnit 1" + std::string(58, ' ') + "\r\nhouse  \r\nHaus  \r\n");
  EXPECT_EQ(conversion.outputs.at(0).cards, 1U);
}

TEST_F(ConversionTest, CardsWithoutATopicGetTheUsualOne) {
  files.Put(u"words.tsv", "house\tHaus\n");
  ASSERT_TRUE(Convert(u"words.tsv", u"words.QBC"));
  EXPECT_TRUE(files.Content(u"words.QBC").starts_with("General\r\n"));
  EXPECT_EQ(WorstOf(conversion.findings), Severity::Remark);
}

TEST_F(ConversionTest, SidesAreSwapped) {
  files.Put(u"words.csv", "a,b\n");
  options.swap = true;
  ASSERT_TRUE(Convert(u"words.csv", u"swapped.tsv"));
  EXPECT_EQ(files.Content(u"swapped.tsv"), "b\ta\r\n");
}

TEST_F(ConversionTest, TooManyCardsNeedSplit) {
  files.Put(u"words.tsv", Rows(601));
  EXPECT_FALSE(Convert(u"words.tsv", u"out/words.QBC"));
  EXPECT_EQ(conversion.findings.back().severity, Severity::Error);
  EXPECT_FALSE(files.Has(u"out/words.QBC"));

  options.split = true;
  options.description = u"All words";
  ASSERT_TRUE(Convert(u"words.tsv", u"out/words.QBC"));
  ASSERT_EQ(conversion.outputs.size(), 3U);
  EXPECT_FALSE(files.Has(u"out/words.QBC"));
  EXPECT_NE(files.Content(u"out/words-1.QBC").find("All words (1 of 3)"), std::string::npos);
  EXPECT_NE(files.Content(u"out/words-3.QBC").find("f601  \r\n"), std::string::npos);
  EXPECT_EQ(conversion.outputs[2].cards, 1U);
}

TEST_F(ConversionTest, NumbersOfStacksSortAsTheyCount) {
  files.Put(u"words.tsv", Rows(3001));
  options.split = true;
  ASSERT_TRUE(Convert(u"words.tsv", u"w.x.QBC"));
  EXPECT_TRUE(files.Has(u"w.x-01.QBC"));
  EXPECT_TRUE(files.Has(u"w.x-11.QBC"));
}

TEST_F(ConversionTest, SplitLeavesAStackOf300Alone) {
  files.Put(u"words.tsv", Rows(300));
  options.split = true;
  ASSERT_TRUE(Convert(u"words.tsv", u"words.QBC"));
  EXPECT_TRUE(files.Has(u"words.QBC"));
}

TEST_F(ConversionTest, LossesOfLaterPartsKnowTheirCard) {
  files.Put(u"words.tsv", Rows(350) + "x^\ty\n");
  options.split = true;
  ASSERT_TRUE(Convert(u"words.tsv", u"words.QBC"));
  ASSERT_TRUE(Found(FindingKind::Caret));
  EXPECT_EQ(conversion.findings.back().card, 351);
  EXPECT_EQ(conversion.findings.back().line, 351);
}

TEST_F(ConversionTest, ExistingFilesStayWithoutForce) {
  files.Put(u"words.csv", "a,b\n");
  files.Put(u"words.tsv", "old");
  EXPECT_FALSE(Convert(u"words.csv", u"words.tsv"));
  EXPECT_EQ(files.Content(u"words.tsv"), "old");
  options.force = true;
  EXPECT_TRUE(Convert(u"words.csv", u"words.tsv"));
  EXPECT_EQ(files.Content(u"words.tsv"), "a\tb\r\n");
}

TEST_F(ConversionTest, OneExistingPartKeepsAllPartsFromBeingWritten) {
  files.Put(u"words.tsv", Rows(301));
  files.Put(u"w-2.QBC", "old");
  options.split = true;
  EXPECT_FALSE(Convert(u"words.tsv", u"w.QBC"));
  EXPECT_FALSE(files.Has(u"w-1.QBC"));
  EXPECT_EQ(files.openReplacements, 0);
}

TEST_F(ConversionTest, FailuresAreTold) {
  files.Put(u"words.csv", "a,b\n");
  files.failReplace = FileStatus::PathNotFound;
  EXPECT_FALSE(Convert(u"words.csv", u"none/words.tsv"));
  files.failReplace = FileStatus::Ok;
  files.failCommit = FileStatus::DiskFull;
  EXPECT_FALSE(Convert(u"words.csv", u"words.tsv"));
  EXPECT_NE(conversion.findings.back().message.find("Disk full"), std::string::npos);
}

TEST_F(ConversionTest, StrictWritesNothingWhereSomethingIsLost) {
  files.Put(u"words.csv", "a,b,c\n");
  options.strict = true;
  EXPECT_FALSE(Convert(u"words.csv", u"words.QBC"));
  EXPECT_EQ(WorstOf(conversion.findings), Severity::Finding);
  EXPECT_FALSE(files.Has(u"words.QBC"));
  files.Put(u"words.csv", "a,b\n");
  EXPECT_TRUE(Convert(u"words.csv", u"words.QBC"));
}

TEST_F(ConversionTest, UnknownNamesAndImportFilesAreRefused) {
  files.Put(u"words.csv", "a,b\n");
  EXPECT_FALSE(Convert(u"words.csv", u"words.doc"));
  EXPECT_FALSE(Convert(u"words.csv", u"words"));
  files.Put(u"words", "a,b\n");
  EXPECT_FALSE(Convert(u"words", u"words.QBC"));
  options.to = DeckFormat::Import;
  EXPECT_FALSE(Convert(u"words.csv", u"words.QBS"));
  options.to = DeckFormat::Stack;
  options.from = DeckFormat::Csv;
  EXPECT_TRUE(Convert(u"words", u"out"));
}

TEST_F(ConversionTest, NamesThatAreNoneAreRefused) {
  files.Put(u"words.tsv", Rows(301));
  options.to = DeckFormat::Stack;
  options.split = true;
  for (const Text& out : {Text(u"."), Text(u"dir/.."), Text(u"dir/"), Text()}) {
    EXPECT_FALSE(Convert(u"words.tsv", out));
    EXPECT_NE(conversion.findings.back().message.find("is no name of a file"), std::string::npos);
  }
}

TEST_F(ConversionTest, WhatCannotBeReadAgainIsSaidOfTheNewFile) {
  files.Put(u"words.tsv", "a\tb\n" + std::string((std::size_t{1} << 20) - 1, '<') + "\tc\n");
  EXPECT_FALSE(Convert(u"words.tsv", u"words.txt"));
  const Finding& last = conversion.findings.back();
  EXPECT_EQ(last.line, 0);
  EXPECT_NE(last.message.find("“words.txt” cannot be made so"), std::string::npos) << last.message;
}

TEST_F(ConversionTest, NoCardsNoFile) {
  files.Put(u"words.csv", "\n\n");
  EXPECT_FALSE(Convert(u"words.csv", u"words.QBC"));
  EXPECT_FALSE(files.Has(u"words.QBC"));
}

TEST_F(ConversionTest, StacksInUnmarkedUtf8CanBeRepaired) {
  files.Put(u"bad.QBC", "T\r\nd\r\ncaf\xC3\xA9  \r\nb  \r\n");
  options.read.encoding = "utf-8";
  ASSERT_TRUE(Convert(u"bad.QBC", u"good.QBC"));
  EXPECT_NE(files.Content(u"good.QBC").find("caf\xE9  \r\n"), std::string::npos);
}

TEST_F(ConversionTest, MediaAreCopied) {
  files.Put(u"a/animals.QBC", "T\r\nd\r\ndog  dog.bmp\r\nperro perro.wav \r\n");
  files.Put(u"a/DOG.BMP", "picture");
  files.Put(u"a/perro.wav", "sound");
  options.copyMedia = true;
  ASSERT_TRUE(Convert(u"a/animals.QBC", u"b/animals.kvtml"));
  EXPECT_EQ(files.Content(u"b/dog.bmp"), "picture");
  EXPECT_EQ(files.Content(u"b/perro.wav"), "sound");
  EXPECT_TRUE(conversion.findings.empty());
}

TEST_F(ConversionTest, MediaInFoldersComeToLieBesideTheStack) {
  files.Put(u"a/words.kvtml",
            "<kvtml version=\"2.0\"><entries><entry><translation id=\"0\"><text>dog</text>"
            "<image>words_files/dog.jpg</image></translation></entry></entries></kvtml>");
  files.Put(u"a/words_files/dog.jpg", "picture");
  ASSERT_TRUE(Convert(u"a/words.kvtml", u"b/1.QBC"));
  EXPECT_TRUE(Found(FindingKind::MediaName));
  EXPECT_NE(files.Content(u"b/1.QBC").find("dog  dog.jpg\r\n"), std::string::npos);
  EXPECT_FALSE(files.Has(u"b/dog.jpg"));
  options.copyMedia = true;
  ASSERT_TRUE(Convert(u"a/words.kvtml", u"b/2.QBC"));
  EXPECT_FALSE(Found(FindingKind::MediaName));
  EXPECT_EQ(files.Content(u"b/dog.jpg"), "picture");
}

TEST_F(ConversionTest, AnotherFileOfTheNameIsNotReplacedByMedia) {
  files.Put(u"a/animals.QBC", "T\r\nd\r\ndog  dog.bmp\r\nperro  \r\n");
  files.Put(u"a/dog.bmp", "picture");
  files.Put(u"b/dog.bmp", "another");
  options.copyMedia = true;
  ASSERT_TRUE(Convert(u"a/animals.QBC", u"b/animals.tsv"));
  EXPECT_EQ(files.Content(u"b/dog.bmp"), "another");
  EXPECT_TRUE(Found(FindingKind::MediaName));
}

TEST_F(ConversionTest, MissingMediaAreListed) {
  files.Put(u"a/animals.QBC", "T\r\nd\r\ndog  dog.bmp\r\nperro  \r\n");
  options.copyMedia = true;
  ASSERT_TRUE(Convert(u"a/animals.QBC", u"b/animals.QBC"));
  EXPECT_TRUE(Found(FindingKind::MissingMedia));
}

TEST_F(ConversionTest, AFileCanBeConvertedOntoItself) {
  files.Put(u"words.QBC", "T\r\nd\r\na  \r\nb  \r\n");
  options.swap = true;
  options.force = true;
  ASSERT_TRUE(Convert(u"words.QBC", u"words.QBC"));
  EXPECT_NE(files.Content(u"words.QBC").find("\r\nb  \r\na  \r\n"), std::string::npos);
}

}  // namespace

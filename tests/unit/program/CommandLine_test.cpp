#include "program/CommandLine.h"

#include "tests/support/MemoryFiles.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

class CommandLineTest : public testing::Test {
 protected:
  void Expect(TextView line, TextView folder, TextView fileName) {
    const CommandLineStack stack = ParseCommandLine(line, files, u"/default", u"/here");
    EXPECT_EQ(stack.folder, folder) << ToUtf8(line);
    EXPECT_EQ(stack.fileName, fileName) << ToUtf8(line);
  }

  MemoryFiles files;
};

}  // namespace

TEST(JoinArguments, PutsOneBlankBetween) {
  EXPECT_EQ(JoinArguments({}), u"");
  EXPECT_EQ(JoinArguments({u"a.QBC"}), u"a.QBC");
  EXPECT_EQ(JoinArguments({u"my", u"cards.QBC"}), u"my cards.QBC");
}

TEST_F(CommandLineTest, NamesNothingWhenItIsEmpty) {
  Expect(u"", u"/default", u"");
  Expect(u"   ", u"/default", u"");
  Expect(u"\"\"", u"/default", u"");
  Expect(u"file:", u"/default", u"");
  Expect(u"file://", u"/default", u"");
  Expect(u"file://host", u"/default", u"");
}

TEST_F(CommandLineTest, ABareNameIsInTheDefaultFolder) {
  Expect(u"cards.QBC", u"/default", u"cards.QBC");
}

TEST_F(CommandLineTest, ANameWithoutADotGetsTheExtension) {
  Expect(u"cards", u"/default", u"cards.QBC");
  Expect(u"/a/cards", u"/a", u"cards.QBC");
}

TEST_F(CommandLineTest, AnyOtherExtensionStays) {
  Expect(u"cards.qbs", u"/default", u"cards.qbs");
  Expect(u"cards.", u"/default", u"cards.");
}

TEST_F(CommandLineTest, ADotInTheFolderIsNoExtension) {
  Expect(u"/my.folder/cards", u"/my.folder", u"cards.QBC");
}

TEST_F(CommandLineTest, ABareNameThatOnlyTheCurrentFolderHasIsTakenFromThere) {
  files.Put(u"/here/cards.QBC", "");
  Expect(u"cards", u"/here", u"cards.QBC");
}

TEST_F(CommandLineTest, ABareNameThatBothFoldersHaveIsTakenFromTheDefaultOne) {
  files.Put(u"/here/cards.QBC", "");
  files.Put(u"/default/cards.QBC", "");
  Expect(u"cards", u"/default", u"cards.QBC");
}

TEST_F(CommandLineTest, AnAbsolutePathNamesFolderAndFile) {
  Expect(u"/a/b/cards.QBC", u"/a/b", u"cards.QBC");
}

TEST_F(CommandLineTest, ARelativePathBeginsAtTheCurrentFolder) {
  Expect(u"a/cards.QBC", u"/here/a", u"cards.QBC");
  Expect(u"./cards.QBC", u"/here/.", u"cards.QBC");
  Expect(u"../cards.QBC", u"/here/..", u"cards.QBC");
}

TEST_F(CommandLineTest, AFileInTheRootFolderKeepsItsSlash) {
  Expect(u"/cards.QBC", u"/", u"cards.QBC");
}

TEST_F(CommandLineTest, APathThatEndsInASeparatorNamesAFolderAndNoFile) {
  Expect(u"/a/b/", u"/a/b", u"");
  Expect(u"a/", u"/here/a", u"");
  Expect(u"a\\", u"/here/a", u"");
  Expect(u"/", u"/", u"");
  Expect(u"\"/my cards/\"", u"/my cards", u"");
  Expect(u"file:///a/b/", u"/a/b", u"");
}

TEST_F(CommandLineTest, UnderstandsBackslashes) {
  Expect(u"a\\b\\cards", u"/here/a\\b", u"cards.QBC");
  Expect(u"\\a\\cards.QBC", u"\\a", u"cards.QBC");
  Expect(u"/a\\cards.QBC", u"/a", u"cards.QBC");
}

TEST_F(CommandLineTest, RemovesOnePairOfQuotes) {
  Expect(u"\"my cards.QBC\"", u"/default", u"my cards.QBC");
  Expect(u"  \"/a/my cards\"  ", u"/a", u"my cards.QBC");
  Expect(u"\"\"x\"\"", u"/default", u"\"x\".QBC");
}

TEST_F(CommandLineTest, LeavesALoneQuote) {
  Expect(u"\"cards", u"/default", u"\"cards.QBC");
  Expect(u"\"", u"/default", u"\".QBC");
}

TEST_F(CommandLineTest, KeepsBlanksInsideAName) {
  Expect(u"my cards", u"/default", u"my cards.QBC");
}

TEST_F(CommandLineTest, AcceptsTheThreeFormsOfAFileAddress) {
  Expect(u"file:///a/cards.QBC", u"/a", u"cards.QBC");
  Expect(u"file://localhost/a/cards.QBC", u"/a", u"cards.QBC");
  Expect(u"file:/a/cards.QBC", u"/a", u"cards.QBC");
  Expect(u"FILE:///a/cards", u"/a", u"cards.QBC");
}

TEST_F(CommandLineTest, DecodesPercentSignsOfAnAddress) {
  Expect(u"file:///a/my%20cards%2eQBC", u"/a", u"my cards.QBC");
  Expect(u"file:///a/50%25", u"/a", u"50%.QBC");
  Expect(u"file:///a%2Fb", u"/a", u"b.QBC");
}

TEST_F(CommandLineTest, LeavesIncompletePercentSigns) {
  Expect(u"file:///a/x%", u"/a", u"x%.QBC");
  Expect(u"file:///a/x%4", u"/a", u"x%4.QBC");
  Expect(u"file:///a/x%zz%0x", u"/a", u"x%zz%0x.QBC");
}

TEST_F(CommandLineTest, DecodesUtf8OfAnAddress) {
  Expect(u"file:///a/%C3%A9t%c3%a9.QBC", u"/a", u"\u00E9t\u00E9.QBC");
  Expect(u"file:///a/%F0%9F%98%80", u"/a", u"\U0001F600.QBC");
  Expect(u"file:///a/\u0434%20\u0434", u"/a", u"\u0434 \u0434.QBC");
}

TEST_F(CommandLineTest, KeepsBytesOfAnAddressThatAreNoUtf8) {
  Expect(u"file:///a/x%E9.QBC", u"/a", u"x\xDCE9.QBC");
}

TEST_F(CommandLineTest, DecodesNothingOutsideAnAddress) {
  Expect(u"/a/my%20cards", u"/a", u"my%20cards.QBC");
}

TEST_F(CommandLineTest, AQuotedAddressIsAnAddress) {
  Expect(u"\"file:///a/my%20cards\"", u"/a", u"my cards.QBC");
}

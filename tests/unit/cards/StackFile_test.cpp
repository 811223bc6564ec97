#include "cards/StackFile.h"

#include "tests/support/MemoryFiles.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

const std::string BlankDescription(64, ' ');

class StackFileTest : public testing::Test {
 protected:
  StackFile Open() {
    std::unique_ptr<FileReplacement> replacement;
    EXPECT_EQ(files.Replace(u"x.QBC", replacement), FileStatus::Ok);
    return StackFile(std::move(replacement), u"x.QBC");
  }

  MemoryFiles files;
  StackOrigin origin;
};

}  // namespace

TEST_F(StackFileTest, WritesTopicAndPaddedDescription) {
  StackFile file = Open();
  file.WriteHeader(u"Spanish", u"Animals");
  EXPECT_EQ(file.Close(origin), FileStatus::Ok);
  EXPECT_EQ(files.Content(u"x.QBC"), "Spanish\r\nAnimals" + std::string(57, ' ') + "\r\n");
}

TEST_F(StackFileTest, CutsTheDescriptionTo64Characters) {
  StackFile file = Open();
  file.WriteHeader(u"T", Text(70, u'd'));
  EXPECT_EQ(file.Close(origin), FileStatus::Ok);
  EXPECT_EQ(files.Content(u"x.QBC"), "T\r\n" + std::string(64, 'd') + "\r\n");
}

TEST_F(StackFileTest, WritesBlanksForLineBreaksInTheHeader) {
  StackFile file = Open();
  file.WriteHeader(u"To\r\npic", u"a\nb\rc");
  EXPECT_EQ(file.Close(origin), FileStatus::Ok);
  EXPECT_EQ(files.Content(u"x.QBC"), "To  pic\r\na b c" + std::string(59, ' ') + "\r\n");
}

TEST_F(StackFileTest, WritesBlanksForLineBreaksInMediaNames) {
  StackFile file = Open();
  Text text = u"dog";
  EXPECT_EQ(file.WriteSide(text, u"c/a\r\nb.wav", u"c\n/d\re.bmp"), FileStatus::Ok);
  EXPECT_EQ(file.Close(origin), FileStatus::Ok);
  EXPECT_EQ(files.Content(u"x.QBC"), "dog a  b.wav d e.bmp\r\n");
}

TEST_F(StackFileTest, ASideThatFailsWritesNoLine) {
  StackFile file = Open();
  Text text = u"a^b";
  EXPECT_EQ(file.WriteSide(text, u"", u""), FileStatus::Overflow);
  EXPECT_EQ(file.Close(origin), FileStatus::Ok);
  EXPECT_EQ(files.Content(u"x.QBC"), "");
}

TEST_F(StackFileTest, WritesNothingBeforeItIsClosed) {
  StackFile file = Open();
  file.WriteHeader(u"T", u"D");
  EXPECT_FALSE(files.Has(u"x.QBC"));
}

TEST_F(StackFileTest, GoesWithoutATraceWhenItIsNotClosed) {
  files.Put(u"x.QBC", "old");
  { Open().WriteHeader(u"T", u"D"); }
  EXPECT_EQ(files.Content(u"x.QBC"), "old");
  EXPECT_EQ(files.openReplacements, 0);
}

TEST_F(StackFileTest, AbandonedKeepsAnOldFile) {
  files.Put(u"x.QBC", "old");
  StackFile file = Open();
  file.WriteHeader(u"T", u"D");
  file.Abandon();
  EXPECT_EQ(files.Content(u"x.QBC"), "old");
}

TEST_F(StackFileTest, AbandonedLeavesTheLinesWrittenSoFarUnderANewName) {
  StackFile file = Open();
  file.WriteHeader(u"T", u"");
  file.WriteLine(u"a  ");
  file.Abandon();
  EXPECT_EQ(files.Content(u"x.QBC"), "T\r\n" + BlankDescription + "\r\na  \r\n");
}

TEST_F(StackFileTest, ReportsAFailureToClose) {
  files.failCommit = FileStatus::DiskFull;
  EXPECT_EQ(Open().Close(origin), FileStatus::DiskFull);
}

TEST_F(StackFileTest, IsWindows1252WhereThatHasACodeForEveryCharacter) {
  StackFile file = Open();
  file.WriteLine(u"\u20AC \u00E9 \u0081 \u0153");
  EXPECT_EQ(file.Close(origin), FileStatus::Ok);
  EXPECT_EQ(files.Content(u"x.QBC"), "\x80 \xE9 \x81 \x9C\r\n");
}

TEST_F(StackFileTest, IsMarkedUtf8WhereACharacterHasNoCode) {
  StackFile file = Open();
  file.WriteLine(u"\u00E9");
  file.WriteLine(u"\u0434\U0001F600");
  EXPECT_EQ(file.Close(origin), FileStatus::Ok);
  EXPECT_EQ(files.Content(u"x.QBC"), "\xEF\xBB\xBF\xC3\xA9\r\n\xD0\xB4\xF0\x9F\x98\x80\r\n");
}

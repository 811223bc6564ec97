#include "settings/ProfileFile.h"

#include "tests/support/MemoryFiles.h"
#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

class ProfileFileTest : public testing::Test {
 protected:
  void Put(std::string content) { files.Put(u"QUIBCRDS.INI", std::move(content)); }
  std::string Content() const { return files.Content(u"QUIBCRDS.INI"); }
  Text Get(TextView key, TextView fallback = u"", std::size_t longest = 100) const {
    return profile.GetString(u"S", key, fallback, longest);
  }
  int GetInt(const std::string& value) {
    Put("[S]\r\nk=" + value + "\r\n");
    return profile.GetInt(u"S", u"k", 77);
  }

  MemoryFiles files;
  ProfileFile profile{files, u"QUIBCRDS.INI"};
};

// Reading

TEST_F(ProfileFileTest, ReadsTheFileAsItIsNow) {
  Put("[S]\r\nk=1\r\n");
  EXPECT_EQ(Get(u"k"), u"1");
  Put("[S]\r\nk=2\r\n");
  EXPECT_EQ(Get(u"k"), u"2");
}

TEST_F(ProfileFileTest, AMissingFileReadsAsEmpty) {
  EXPECT_EQ(Get(u"k", u"fallback"), u"fallback");
  EXPECT_FALSE(files.Has(u"QUIBCRDS.INI"));
}

TEST_F(ProfileFileTest, AnUnreadableFileReadsAsEmpty) {
  Put("[S]\r\nk=1\r\n");
  files.failRead = FileStatus::PathAccess;
  EXPECT_EQ(Get(u"k", u"fallback"), u"fallback");
  EXPECT_EQ(profile.GetInt(u"S", u"k", -1), -1);
}

TEST_F(ProfileFileTest, FindsTheFileInAnotherLetterCase) {
  files.Put(u"quibcrds.ini", "[S]\r\nk=1\r\n");
  EXPECT_EQ(Get(u"k"), u"1");
  EXPECT_TRUE(profile.WriteString(u"S", u"k", u"2"));
  EXPECT_EQ(files.Content(u"quibcrds.ini"), "[S]\r\nk=2\r\n");
  EXPECT_FALSE(files.Has(u"QUIBCRDS.INI"));
}

TEST_F(ProfileFileTest, GivesTheFallbackForAMissingKeyOrSection) {
  Put("[S]\r\nk=1\r\n");
  EXPECT_EQ(Get(u"x", u"fallback"), u"fallback");
  EXPECT_EQ(profile.GetString(u"T", u"k", u"fallback", 100), u"fallback");
}

TEST_F(ProfileFileTest, CutsTrailingBlanksOfTheFallbackOnly) {
  EXPECT_EQ(Get(u"k", u" d\t "), u" d\t");
}

TEST_F(ProfileFileTest, APresentKeyWithoutValueIsEmpty) {
  Put("[S]\r\nk=\r\n");
  EXPECT_EQ(Get(u"k", u"fallback"), u"");
}

TEST_F(ProfileFileTest, CutsAValueAtTheLongestLength) {
  Put("[S]\r\nk=\"value\"\r\n");
  EXPECT_EQ(Get(u"k", u"", 5), u"value");
  EXPECT_EQ(Get(u"k", u"", 3), u"val");
  EXPECT_EQ(Get(u"k", u"", 0), u"");
}

TEST_F(ProfileFileTest, CutsTheFallbackToo) { EXPECT_EQ(Get(u"k", u"fallback", 4), u"fall"); }

TEST_F(ProfileFileTest, DoesNotReturnTrailingBlanksThatAreInTheFile) {
  Put("[S]\r\nk=v" + std::string(116, ' ') + "\r\n");
  EXPECT_EQ(Get(u"k"), u"v");
}

TEST_F(ProfileFileTest, ReadsWindows1252) {
  Put("[S]\r\nk=\xE9\x80\x81\r\n");
  EXPECT_EQ(Get(u"k"), u"\u00E9\u20AC\u0081");
}

TEST_F(ProfileFileTest, ReadsMarkedUtf8) {
  Put("\xEF\xBB\xBF[S]\r\nk=\xD0\xB6\r\n");
  EXPECT_EQ(Get(u"k"), u"\u0436");
}

struct IntegerCase {
  const char* text;
  int number;
};

TEST_F(ProfileFileTest, ReadsIntegers) {
  constexpr IntegerCase Table[] = {
      {"0", 0},
      {"7", 7},
      {"-1", -1},
      {"+1", 1},
      {"42A9", 42},
      {"\" 7 \"", 7},
      {"\"\t7\"", 7},
      {"B42", 0},
      {"abc", 0},
      {"-", 0},
      {"4294967297", 1},
      {"2147483648", -2147483647 - 1},
      {"-2147483648", -2147483647 - 1},
      {"010", 10},
      {"0x1F", 31},
      {"0X1f", 31},
      {"0o17", 15},
      {"0b101", 5},
      {"0b12", 1},
      {"-0x10", -16},
      {"0x", 0},
      {"1.9", 1},
      {"- 1", 0},
      {"+-1", 0},
      {"--1", 0},
      {"\"0\"", 0},
  };
  for (const auto& [text, number] : Table) EXPECT_EQ(GetInt(text), number) << text;
}

TEST_F(ProfileFileTest, GivesTheFallbackForAnEmptyInteger) {
  EXPECT_EQ(GetInt(""), 77);
  EXPECT_EQ(GetInt("\"\""), 77);
}

TEST_F(ProfileFileTest, LooksAtTwentyNineCharactersOfAnInteger) {
  EXPECT_EQ(GetInt(std::string(28, '0') + "12"), 1);
}

TEST_F(ProfileFileTest, GivesTheFallbackForAMissingInteger) {
  EXPECT_EQ(profile.GetInt(u"S", u"k", -1), -1);
}

// Writing

TEST_F(ProfileFileTest, MakesAMissingFile) {
  EXPECT_TRUE(profile.WriteString(u"S", u"k", u"v"));
  EXPECT_EQ(Content(), "[S]\r\nk=v\r\n");
}

TEST_F(ProfileFileTest, KeepsEverythingElse) {
  Put("; mine\r\n\r\n[ Other ] x\r\n a = \"1\" ; y\r\n[s]\r\nK=1\r\n\r\n; end");
  EXPECT_TRUE(profile.WriteString(u"S", u"k", u"2"));
  EXPECT_EQ(Content(),
            "; mine\r\n\r\n[ Other ] x\r\n a = \"1\" ; y\r\n[s]\r\nK=2\r\n\r\n; end\r\n");
}

TEST_F(ProfileFileTest, WritesNothingForTheSameValue) {
  Put("[S]\nk=v");
  EXPECT_TRUE(profile.WriteString(u"S", u"k", u"v"));
  EXPECT_EQ(files.commits, 0);
  EXPECT_EQ(Content(), "[S]\nk=v");
}

TEST_F(ProfileFileTest, WritesNothingWhereThereIsNothingToDelete) {
  Put("[S]\nk=v");
  EXPECT_TRUE(profile.DeleteKey(u"S", u"x"));
  EXPECT_TRUE(profile.DeleteSection(u"T"));
  EXPECT_EQ(files.commits, 0);
}

TEST_F(ProfileFileTest, MakesAnLfFileCrLfThroughoutWhenItChanges) {
  Put("; a\n[S]\nk=v\n\nl=w");
  EXPECT_TRUE(profile.WriteString(u"S", u"k", u"x"));
  EXPECT_EQ(Content(), "; a\r\n[S]\r\nk=x\r\n\r\nl=w\r\n");
}

TEST_F(ProfileFileTest, KeepsLoneCrAndLfInKeyAssignments) {
  Put("[S]\r\nKEYS=1\n2\r3\r\nk=v\r\n");
  EXPECT_TRUE(profile.WriteString(u"S", u"k", u"x"));
  EXPECT_EQ(Content(), "[S]\r\nKEYS=1\n2\r3\r\nk=x\r\n");
  EXPECT_EQ(Get(u"KEYS"), u"1\n2\r3");
}

TEST_F(ProfileFileTest, NeverOverwritesAFileThatItCannotRead) {
  Put("[S]\r\nk=v\r\n");
  for (const FileStatus failure :
       {FileStatus::PathAccess, FileStatus::PermissionDenied, FileStatus::DeviceError,
        FileStatus::TooManyFiles, FileStatus::PathNotFound, FileStatus::OutOfMemory}) {
    files.failRead = failure;
    EXPECT_FALSE(profile.WriteString(u"S", u"k", u"x"));
    EXPECT_FALSE(profile.DeleteKey(u"S", u"k"));
    EXPECT_FALSE(profile.DeleteSection(u"S"));
  }
  EXPECT_EQ(files.commits, 0);
  EXPECT_EQ(Content(), "[S]\r\nk=v\r\n");
}

TEST_F(ProfileFileTest, NeverReplacesByOneLineWhatWasThereAMomentAgo) {
  Put("[S]\r\nk=v\r\n[T]\r\na=1\r\n");
  EXPECT_EQ(Get(u"k"), u"v");
  (void)files.Remove(u"QUIBCRDS.INI");
  EXPECT_FALSE(profile.WriteString(u"S", u"k", u"x"));
  EXPECT_FALSE(files.Has(u"QUIBCRDS.INI"));
  EXPECT_FALSE(profile.Read());
  Put("");  // another program is about to write it
  EXPECT_FALSE(profile.WriteString(u"S", u"k", u"x"));
  EXPECT_FALSE(profile.Read());
  EXPECT_EQ(profile.Trouble(), ProfileTrouble::Unreadable);
  Put("[S]\r\nk=w\r\n[T]\r\na=1\r\n");
  EXPECT_TRUE(profile.WriteString(u"S", u"k", u"x"));
  EXPECT_EQ(Content(), "[S]\r\nk=x\r\n[T]\r\na=1\r\n");
  EXPECT_EQ(profile.Trouble(), ProfileTrouble::None);
}

TEST_F(ProfileFileTest, WhatItHasWrittenItselfWasThereToo) {
  EXPECT_TRUE(profile.WriteString(u"S", u"k", u"x"));
  (void)files.Remove(u"QUIBCRDS.INI");
  EXPECT_FALSE(profile.WriteString(u"S", u"l", u"x"));
}

TEST_F(ProfileFileTest, LeavesUtf16Alone) {
  for (const std::string& content :
       {std::string("\xFF\xFE[\0S\0]\0", 8), std::string("\xFE\xFF\0[\0S\0]", 8),
        std::string("\xFF\xFE"), std::string("\xFE\xFF")}) {
    Put(content);
    EXPECT_FALSE(profile.Read());
    EXPECT_EQ(profile.Trouble(), ProfileTrouble::Utf16);
    EXPECT_FALSE(profile.WriteString(u"S", u"k", u"x"));
    EXPECT_EQ(Content(), content);
  }
}

TEST_F(ProfileFileTest, TwoLettersThatLookLikeAMarkAreLetters) {
  Put("\xFF\xFE\r\n[S]\r\nk=v\r\n");
  EXPECT_EQ(Get(u"k"), u"v");
}

TEST_F(ProfileFileTest, RemembersWhatStandsInTheWay) {
  EXPECT_EQ(profile.Trouble(), ProfileTrouble::None);
  Put("[S]\r\nk=v\r\n");
  files.failRead = FileStatus::PathAccess;
  EXPECT_FALSE(profile.Read());
  EXPECT_EQ(profile.Trouble(), ProfileTrouble::Unreadable);
  files.failRead = FileStatus::Ok;
  EXPECT_TRUE(profile.Read());
  EXPECT_EQ(profile.Trouble(), ProfileTrouble::None);
  files.failCommit = FileStatus::DiskFull;
  EXPECT_FALSE(profile.WriteString(u"S", u"k", u"x"));
  EXPECT_TRUE(profile.Read());
  EXPECT_EQ(profile.Trouble(), ProfileTrouble::NotWritten) << "reading does not make it good";
  files.failCommit = FileStatus::Ok;
  EXPECT_TRUE(profile.WriteString(u"S", u"k", u"x"));
  EXPECT_EQ(profile.Trouble(), ProfileTrouble::None);
}

/// Says once that the file is missing, as in the moment in which another program replaces it.
class BlinkingFiles : public MemoryFiles {
 public:
  FileStatus Read(const Text& path, std::string& content) override {
    if (std::exchange(blink, false)) return FileStatus::FileNotFound;
    return MemoryFiles::Read(path, content);
  }
  bool blink = false;
};

TEST(ProfileFile, LooksAgainForAFileThatSeemsToBeMissing) {
  BlinkingFiles files;
  files.Put(u"QUIBCRDS.INI", "[S]\r\nk=v\r\n[T]\r\na=1\r\n");
  ProfileFile profile(files, u"QUIBCRDS.INI");
  files.blink = true;
  EXPECT_TRUE(profile.WriteString(u"S", u"k", u"x")) << "the first thing that this run does";
  EXPECT_EQ(files.Content(u"QUIBCRDS.INI"), "[S]\r\nk=x\r\n[T]\r\na=1\r\n");
  files.blink = true;
  EXPECT_EQ(profile.GetString(u"T", u"a", u"", 9), u"1");
}

TEST_F(ProfileFileTest, SaysWhenTheFileCannotBeReplaced) {
  Put("[S]\r\nk=v\r\n");
  files.failReplace = FileStatus::PathAccess;
  EXPECT_FALSE(profile.WriteString(u"S", u"k", u"x"));
  EXPECT_EQ(Content(), "[S]\r\nk=v\r\n");
}

TEST_F(ProfileFileTest, SaysWhenTheDiskIsFull) {
  Put("[S]\r\nk=v\r\n");
  files.failCommit = FileStatus::DiskFull;
  EXPECT_FALSE(profile.WriteString(u"S", u"k", u"x"));
  EXPECT_EQ(Content(), "[S]\r\nk=v\r\n");
  EXPECT_EQ(files.openReplacements, 0);
}

TEST_F(ProfileFileTest, MakesNoFolder) {
  ProfileFile elsewhere(files, u"none/QUIBCRDS.INI");
  EXPECT_FALSE(elsewhere.WriteString(u"S", u"k", u"v"));
  EXPECT_FALSE(files.Has(u"none/QUIBCRDS.INI"));
}

TEST_F(ProfileFileTest, DeletingFromAMissingFileMakesAnEmptyOne) {
  EXPECT_TRUE(profile.DeleteKey(u"S", u"k"));
  EXPECT_EQ(Content(), "");
}

TEST_F(ProfileFileTest, DeletesKeysAndSections) {
  Put("[R]\r\na=1\r\n[S]\r\nk=v\r\nl=w\r\n");
  EXPECT_TRUE(profile.DeleteKey(u"s", u"K"));
  EXPECT_EQ(Content(), "[R]\r\na=1\r\n[S]\r\nl=w\r\n");
  EXPECT_TRUE(profile.DeleteSection(u"s"));
  EXPECT_EQ(Content(), "[R]\r\na=1\r\n");
}

TEST_F(ProfileFileTest, BecomesMarkedUtf8WithACharacterOutsideTheCodePage) {
  Put("[S]\r\na=\xE9\r\n");
  EXPECT_TRUE(profile.WriteString(u"S", u"k", u"\u0436"));
  EXPECT_EQ(Content(), "\xEF\xBB\xBF[S]\r\na=\xC3\xA9\r\nk=\xD0\xB6\r\n");
  EXPECT_EQ(Get(u"a"), u"\u00E9");
}

TEST_F(ProfileFileTest, BecomesWindows1252AgainWithoutOne) {
  Put("\xEF\xBB\xBF[S]\r\na=\xC3\xA9\r\nk=\xD0\xB6\r\n");
  EXPECT_TRUE(profile.DeleteKey(u"S", u"k"));
  EXPECT_EQ(Content(), "[S]\r\na=\xE9\r\n");
}

/// Tells when the lock was taken and given back.
class LockedFiles : public MemoryFiles {
 public:
  std::unique_ptr<FileLock> Lock(const Text& path) override {
    EXPECT_EQ(path, u"QUIBCRDS.INI");
    ++locks;
    return std::make_unique<Counted>(*this);
  }
  FileStatus Read(const Text& path, std::string& content) override {
    readsUnderLock += held;
    return MemoryFiles::Read(path, content);
  }
  FileStatus Replace(const Text& path, std::unique_ptr<FileReplacement>& replacement) override {
    EXPECT_EQ(held, 1) << "replaced without the lock";
    return MemoryFiles::Replace(path, replacement);
  }

  int locks = 0;
  int held = 0;
  int readsUnderLock = 0;

 private:
  class Counted : public FileLock {
   public:
    explicit Counted(LockedFiles& files) : m_files(files) { ++m_files.held; }
    ~Counted() override { --m_files.held; }

   private:
    LockedFiles& m_files;
  };
};

TEST(ProfileFile, HoldsTheLockFromReadingToWriting) {
  LockedFiles files;
  ProfileFile profile(files, u"QUIBCRDS.INI");
  EXPECT_TRUE(profile.WriteString(u"S", u"k", u"v"));
  EXPECT_EQ(files.locks, 1);
  EXPECT_EQ(files.readsUnderLock, 1);
  EXPECT_EQ(files.held, 0);
}

}  // namespace

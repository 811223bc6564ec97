#include "base/DiskFiles.h"

#include "tests/support/TextPrinters.h"
#include "tests/unit/base/DiskFilesFixture.h"

#include <fcntl.h>
#include <future>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class Umask {
 public:
  explicit Umask(mode_t mask) : m_old(::umask(mask)) {}
  ~Umask() { ::umask(m_old); }

 private:
  mode_t m_old;
};

using Name = std::set<std::string>;

// Finding and reading

TEST_F(DiskFilesTest, ReadsAllBytes) {
  std::string bytes;
  for (int i = 0; i < 70000; ++i) bytes += static_cast<char>(i);
  Put("verbs.QBC", bytes);
  EXPECT_EQ(Content("verbs.QBC"), bytes);
}

TEST_F(DiskFilesTest, ReadsAnEmptyFile) {
  Put("verbs.QBC", "");
  EXPECT_EQ(Content("verbs.QBC"), "");
}

TEST_F(DiskFilesTest, ReplacesWhatTheCallersStringHeld) {
  Put("verbs.QBC", "new");
  std::string content = "something longer";
  EXPECT_EQ(files.Read(At("verbs.QBC"), content), FileStatus::Ok);
  EXPECT_EQ(content, "new");
}

TEST_F(DiskFilesTest, FindsANameInAnotherLetterCase) {
  Put("DOG\xC3\x89.BMP", "picture");
  EXPECT_TRUE(files.Exists(At("dog\xC3\xA9.bmp")));
  EXPECT_EQ(Content("dog\xC3\xA9.bmp"), "picture");
}

TEST_F(DiskFilesTest, PrefersTheExactName) {
  Put("verbs.QBC", "exact");
  Put("VERBS.QBC", "other");
  EXPECT_EQ(Content("verbs.QBC"), "exact");
  EXPECT_EQ(Content("VERBS.QBC"), "other");
}

TEST_F(DiskFilesTest, FindsNothingBetweenTwoNamesThatDifferInLetterCaseOnly) {
  Put("Verbs.QBC", "one");
  Put("VERBS.QBC", "two");
  EXPECT_FALSE(files.Exists(At("verbs.qbc")));
  EXPECT_EQ(ReadStatus("verbs.qbc"), FileStatus::FileNotFound);
}

TEST_F(DiskFilesTest, FindsFoldersInAnotherLetterCase) {
  fs::create_directories(Cards() / "Spanish" / "Unit1");
  Put("Spanish/Unit1/verbs.QBC", "found");
  EXPECT_EQ(Content("SPANISH/unit1/VERBS.qbc"), "found");
  FolderContent content;
  EXPECT_EQ(files.List(At("spanish/UNIT1/"), content), FileStatus::Ok);
  EXPECT_EQ(content.files, std::vector<Text>{u"verbs.QBC"});
}

TEST_F(DiskFilesTest, UnderstandsBackslashes) {
  fs::create_directory(Cards() / "Spanish");
  Put("Spanish/verbs.QBC", "found");
  EXPECT_EQ(Content("Spanish\\verbs.QBC"), "found");
}

TEST_F(DiskFilesTest, FindsANameThatHoldsABackslash) {
  Put("odd\\name", "found");
  EXPECT_EQ(Content("odd\\name"), "found");
}

TEST_F(DiskFilesTest, FindsANameThatIsNoValidUtf8) {
  Put("caf\xE9.QBC", "found");
  EXPECT_EQ(Content("caf\xE9.QBC"), "found");
  EXPECT_EQ(Content("CAF\xE9.qbc"), "found");
}

TEST_F(DiskFilesTest, AFolderIsNoFile) {
  fs::create_directory(Cards() / "verbs.QBC");
  EXPECT_FALSE(files.Exists(At("verbs.QBC")));
  EXPECT_EQ(ReadStatus("verbs.QBC"), FileStatus::PathAccess);
  EXPECT_EQ(Write("verbs.QBC", "x"), FileStatus::PathAccess);
  EXPECT_EQ(files.Remove(At("verbs.QBC")), FileStatus::PathAccess);
  EXPECT_TRUE(fs::is_directory(Cards() / "verbs.QBC"));
}

TEST_F(DiskFilesTest, AFileIsNoFolder) {
  Put("verbs.QBC", "x");
  EXPECT_EQ(ReadStatus("verbs.QBC/more"), FileStatus::PathNotFound);
  EXPECT_EQ(Write("verbs.QBC/more", "x"), FileStatus::PathNotFound);
}

TEST_F(DiskFilesTest, TellsAMissingFileFromAMissingFolder) {
  EXPECT_EQ(ReadStatus("none.QBC"), FileStatus::FileNotFound);
  EXPECT_EQ(ReadStatus("none/none.QBC"), FileStatus::PathNotFound);
  EXPECT_EQ(files.Remove(At("none.QBC")), FileStatus::FileNotFound);
  EXPECT_EQ(files.Remove(At("none/none.QBC")), FileStatus::PathNotFound);
  EXPECT_EQ(Write("none/none.QBC", "x"), FileStatus::PathNotFound);
}

TEST_F(DiskFilesTest, RefusesANameThatIsTooLong) {
  const std::string name(300, 'x');
  EXPECT_FALSE(files.Exists(At(name)));
  EXPECT_EQ(ReadStatus(name), FileStatus::IllegalName);
  EXPECT_EQ(Write(name, "x"), FileStatus::IllegalName);
  EXPECT_EQ(files.Remove(At(name)), FileStatus::IllegalName);
  EXPECT_EQ(Names(Cards()), Name{});
}

TEST_F(DiskFilesTest, CountsTheLengthOfANameInBytes) {
  std::string name;
  for (int i = 0; i < 150; ++i) name += "\xC3\xA9";
  EXPECT_EQ(Write(name, "x"), FileStatus::IllegalName);
}

TEST_F(DiskFilesTest, WritesTheLongestNameThatThereCanBe) {
  const std::string name(255, 'x');
  EXPECT_EQ(Write(name, "content"), FileStatus::Ok);
  EXPECT_EQ(OnDisk(name), "content");
}

TEST_F(DiskFilesTest, DoesNotFindAFolderWhoseNameIsTooLong) {
  const std::string name = std::string(300, 'x') + "/verbs.QBC";
  EXPECT_EQ(ReadStatus(name), FileStatus::PathNotFound);
  EXPECT_EQ(Write(name, "x"), FileStatus::PathNotFound);
}

TEST_F(DiskFilesTest, RefusesANameWithANullCharacter) {
  Put("verbs", "old");
  const Text name = At("verbs") + Text(1, u'\0') + u".QBC";
  std::string content;
  std::unique_ptr<FileReplacement> replacement;
  EXPECT_EQ(files.Read(name, content), FileStatus::IllegalName);
  EXPECT_EQ(files.Replace(name, replacement), FileStatus::IllegalName);
  EXPECT_EQ(files.Remove(name), FileStatus::IllegalName);
  FolderContent listed;
  EXPECT_EQ(files.List(name, listed), FileStatus::IllegalName);
  EXPECT_EQ(files.MakeFolder(name), FileStatus::IllegalName);
  EXPECT_FALSE(files.Exists(name));
  EXPECT_EQ(OnDisk("verbs"), "old");
}

TEST_F(DiskFilesTest, NoNameIsNoFileButTheCurrentFolder) {
  std::string content;
  FolderContent listed;
  EXPECT_FALSE(files.Exists(u""));
  EXPECT_EQ(files.Read(u"", content), FileStatus::FileNotFound);
  EXPECT_EQ(files.List(u"", listed), FileStatus::Ok);
}

TEST_F(DiskFilesTest, DoesNotWaitForAPipe) {
  ASSERT_EQ(::mkfifo((Cards() / "verbs.QBC").c_str(), 0666), 0);
  EXPECT_EQ(ReadStatus("verbs.QBC"), FileStatus::DeviceUnavailable);
  EXPECT_EQ(Write("verbs.QBC", "x"), FileStatus::DeviceUnavailable);
  EXPECT_EQ(Names(Cards()), Name{"verbs.QBC"});
}

TEST_F(DiskFilesTest, RefusesToReadWhatNoStackCanBe) {
  Put("huge.QBC", "");
  fs::resize_file(Cards() / "huge.QBC", (std::uintmax_t{256} << 20) + 1);
  EXPECT_EQ(ReadStatus("huge.QBC"), FileStatus::OutOfMemory);
}

TEST_F(DiskFilesTest, MayNotReadAProtectedFile) {
  const WithoutRights nobody;
  Put("verbs.QBC", "secret");
  SetMode("verbs.QBC", 0);
  EXPECT_EQ(ReadStatus("verbs.QBC"), FileStatus::PathAccess);
  EXPECT_TRUE(files.Exists(At("verbs.QBC")));
}

TEST_F(DiskFilesTest, GivesUpOnALinkToItself) {
  fs::create_symlink("loop.QBC", Cards() / "loop.QBC");
  EXPECT_EQ(ReadStatus("loop.QBC"), FileStatus::PathNotFound);
  EXPECT_FALSE(files.Exists(At("loop.QBC")));
}

// Replacing

TEST_F(DiskFilesTest, MakesANewFile) {
  EXPECT_EQ(Write("verbs.QBC", "new"), FileStatus::Ok);
  EXPECT_EQ(OnDisk("verbs.QBC"), "new");
  EXPECT_EQ(Names(Cards()), Name{"verbs.QBC"});
}

TEST_F(DiskFilesTest, ReplacesTheWholeContent) {
  Put("verbs.QBC", "a long old content");
  EXPECT_EQ(Write("verbs.QBC", "new"), FileStatus::Ok);
  EXPECT_EQ(OnDisk("verbs.QBC"), "new");
  EXPECT_EQ(Names(Cards()), Name{"verbs.QBC"});
}

TEST_F(DiskFilesTest, CanLeaveAnEmptyFile) {
  Put("verbs.QBC", "old");
  EXPECT_EQ(Write("verbs.QBC", ""), FileStatus::Ok);
  EXPECT_EQ(OnDisk("verbs.QBC"), "");
}

TEST_F(DiskFilesTest, KeepsTheOldContentUntilCommit) {
  Put("verbs.QBC", "old");
  std::unique_ptr<FileReplacement> replacement;
  ASSERT_EQ(files.Replace(At("verbs.QBC"), replacement), FileStatus::Ok);
  EXPECT_EQ(OnDisk("verbs.QBC"), "old");
  EXPECT_EQ(replacement->Commit("new"), FileStatus::Ok);
  EXPECT_EQ(OnDisk("verbs.QBC"), "new");
}

TEST_F(DiskFilesTest, SaysWhetherThereWasAFile) {
  Put("old.QBC", "old");
  std::unique_ptr<FileReplacement> replacement;
  ASSERT_EQ(files.Replace(At("old.QBC"), replacement), FileStatus::Ok);
  EXPECT_TRUE(replacement->ReplacesExisting());
  ASSERT_EQ(files.Replace(At("new.QBC"), replacement), FileStatus::Ok);
  EXPECT_FALSE(replacement->ReplacesExisting());
}

TEST_F(DiskFilesTest, AnUnfinishedReplacementLeavesNoTrace) {
  Put("old.QBC", "old");
  std::unique_ptr<FileReplacement> existing;
  std::unique_ptr<FileReplacement> added;
  ASSERT_EQ(files.Replace(At("old.QBC"), existing), FileStatus::Ok);
  ASSERT_EQ(files.Replace(At("new.QBC"), added), FileStatus::Ok);
  existing.reset();
  added.reset();
  EXPECT_EQ(OnDisk("old.QBC"), "old");
  EXPECT_EQ(Names(Cards()), Name{"old.QBC"});
}

TEST_F(DiskFilesTest, OverwritesTheFileInAnotherLetterCase) {
  Put("VERBS.QBC", "old");
  EXPECT_EQ(Write("verbs.qbc", "new"), FileStatus::Ok);
  EXPECT_EQ(Names(Cards()), Name{"VERBS.QBC"});
  EXPECT_EQ(OnDisk("VERBS.QBC"), "new");
}

TEST_F(DiskFilesTest, KeepsTheMode) {
  Put("verbs.QBC", "old");
  for (const mode_t mode : {0600, 0640, 0664, 0755}) {
    SetMode("verbs.QBC", mode);
    EXPECT_EQ(Write("verbs.QBC", "new"), FileStatus::Ok);
    EXPECT_EQ(Mode("verbs.QBC"), mode);
  }
}

TEST_F(DiskFilesTest, ANewFileFollowsTheUmask) {
  {
    const Umask umask(027);
    EXPECT_EQ(Write("private.QBC", "x"), FileStatus::Ok);
  }
  const Umask umask(0);
  EXPECT_EQ(Write("public.QBC", "x"), FileStatus::Ok);
  EXPECT_EQ(Mode("private.QBC"), 0640U);
  EXPECT_EQ(Mode("public.QBC"), 0666U);
}

TEST_F(DiskFilesTest, FollowsASymbolicLink) {
  fs::create_directory(Cards() / "real");
  Put("real/verbs.QBC", "old");
  fs::create_symlink("real/verbs.QBC", Cards() / "link.QBC");
  EXPECT_EQ(Write("link.QBC", "new"), FileStatus::Ok);
  EXPECT_TRUE(fs::is_symlink(Cards() / "link.QBC"));
  EXPECT_EQ(OnDisk("real/verbs.QBC"), "new");
  EXPECT_EQ(Names(Cards() / "real"), Name{"verbs.QBC"});
}

TEST_F(DiskFilesTest, FollowsASymbolicLinkToAFileThatIsNotThereYet) {
  fs::create_directory(Cards() / "real");
  fs::create_symlink("real/verbs.QBC", Cards() / "link.QBC");
  EXPECT_EQ(Write("link.QBC", "new"), FileStatus::Ok);
  EXPECT_TRUE(fs::is_symlink(Cards() / "link.QBC"));
  EXPECT_EQ(OnDisk("real/verbs.QBC"), "new");
}

TEST_F(DiskFilesTest, RefusesAReadOnlyTarget) {
  const WithoutRights nobody;
  Put("verbs.QBC", "old");
  SetMode("verbs.QBC", 0444);
  EXPECT_EQ(Write("verbs.QBC", "new"), FileStatus::PathAccess);
  EXPECT_EQ(OnDisk("verbs.QBC"), "old");
  EXPECT_EQ(Names(Cards()), Name{"verbs.QBC"});
}

TEST_F(DiskFilesTest, RefusesANewFileInAProtectedFolder) {
  const WithoutRights nobody;
  SetMode("", 0555);
  EXPECT_EQ(Write("verbs.QBC", "new"), FileStatus::PathAccess);
  EXPECT_EQ(Names(Cards()), Name{});
}

TEST_F(DiskFilesTest, OverwritesInPlaceWhereTheFolderTakesNoNewFile) {
  const WithoutRights nobody;
  for (const std::string content : {"new", "a content longer than the old one", ""}) {
    SetMode("", 0755);
    Put("verbs.QBC", "the old content");
    SetMode("", 0555);
    EXPECT_EQ(Write("verbs.QBC", content), FileStatus::Ok);
    EXPECT_EQ(OnDisk("verbs.QBC"), content);
    EXPECT_EQ(Names(SafePlace()), Name{});
  }
}

TEST_F(DiskFilesTest, AnUnfinishedOverwritingLeavesNoTrace) {
  const WithoutRights nobody;
  Put("verbs.QBC", "old");
  SetMode("", 0555);
  std::unique_ptr<FileReplacement> replacement;
  ASSERT_EQ(files.Replace(At("verbs.QBC"), replacement), FileStatus::Ok);
  EXPECT_TRUE(replacement->ReplacesExisting());
  replacement.reset();
  EXPECT_EQ(OnDisk("verbs.QBC"), "old");
  EXPECT_EQ(Names(SafePlace()), Name{});
}

TEST_F(DiskFilesTest, DoesNotOverwriteInPlaceWithoutASafePlace) {
  const WithoutRights nobody;
  Put("verbs.QBC", "old");
  SetMode("", 0555);
  std::ofstream(SafePlace()) << "a file where the folder should be";
  EXPECT_EQ(Write("verbs.QBC", "new"), FileStatus::PathAccess);
  EXPECT_EQ(OnDisk("verbs.QBC"), "old");
}

TEST_F(DiskFilesTest, AFullDiskLeavesTheOldContent) {
  Put("verbs.QBC", "old");
  FileStatus status{};
  {
    const SmallDisk full(10);
    status = Write("verbs.QBC", std::string(100, 'x'));
  }
  EXPECT_EQ(status, FileStatus::DiskFull);
  EXPECT_EQ(OnDisk("verbs.QBC"), "old");
  EXPECT_EQ(Names(Cards()), Name{"verbs.QBC"});
}

TEST_F(DiskFilesTest, AFullDiskLeavesNoNewFile) {
  FileStatus status{};
  {
    const SmallDisk full(10);
    status = Write("verbs.QBC", std::string(100, 'x'));
  }
  EXPECT_EQ(status, FileStatus::DiskFull);
  EXPECT_EQ(Names(Cards()), Name{});
}

TEST_F(DiskFilesTest, AFullDiskLeavesTheOldContentOfAFileThatIsOverwrittenInPlace) {
  const WithoutRights nobody;
  Put("verbs.QBC", "old");
  SetMode("", 0555);
  FileStatus status{};
  {
    const SmallDisk full(10);
    status = Write("verbs.QBC", std::string(100, 'x'));
  }
  EXPECT_EQ(status, FileStatus::DiskFull);
  EXPECT_EQ(OnDisk("verbs.QBC"), "old");
  EXPECT_EQ(Names(SafePlace()), Name{});
}

TEST_F(DiskFilesTest, SaysWhenTooManyFilesAreOpen) {
  Put("verbs.QBC", "old");
  // Once with files to spare: a sanitizer that looks at the object for the first time opens some
  // too.
  ASSERT_EQ(ReadStatus("verbs.QBC"), FileStatus::Ok);
  ASSERT_EQ(Write("other.QBC", "x"), FileStatus::Ok);
  rlimit old{};
  ::getrlimit(RLIMIT_NOFILE, &old);
  const rlimit none{0, old.rlim_max};
  ::setrlimit(RLIMIT_NOFILE, &none);
  const FileStatus read = ReadStatus("verbs.QBC");
  const FileStatus written = Write("new.QBC", "x");
  ::setrlimit(RLIMIT_NOFILE, &old);
  EXPECT_EQ(read, FileStatus::TooManyFiles);
  EXPECT_EQ(written, FileStatus::TooManyFiles);
}

// Removing

TEST_F(DiskFilesTest, RemovesAFile) {
  Put("verbs.QBC", "x");
  Put("nouns.QBC", "x");
  EXPECT_EQ(files.Remove(At("verbs.QBC")), FileStatus::Ok);
  EXPECT_EQ(Names(Cards()), Name{"nouns.QBC"});
}

TEST_F(DiskFilesTest, RemovesTheFileInAnotherLetterCase) {
  Put("VERBS.QBC", "x");
  EXPECT_EQ(files.Remove(At("verbs.qbc")), FileStatus::Ok);
  EXPECT_EQ(Names(Cards()), Name{});
}

TEST_F(DiskFilesTest, RefusesToRemoveAReadOnlyFile) {
  const WithoutRights nobody;
  Put("verbs.QBC", "x");
  SetMode("verbs.QBC", 0444);
  EXPECT_EQ(files.Remove(At("verbs.QBC")), FileStatus::PathAccess);
  EXPECT_EQ(Names(Cards()), Name{"verbs.QBC"});
}

TEST_F(DiskFilesTest, RefusesToRemoveAFileFromAProtectedFolder) {
  const WithoutRights nobody;
  Put("verbs.QBC", "x");
  SetMode("", 0555);
  EXPECT_EQ(files.Remove(At("verbs.QBC")), FileStatus::PathAccess);
  EXPECT_EQ(Names(Cards()), Name{"verbs.QBC"});
}

// Folders

TEST_F(DiskFilesTest, ListsFoldersAndFilesSortedWithoutRegardToLetterCase) {
  for (const char* const name : {"b.QBC", "A.QBC", "c.QBC", "B.QBC", "\xC3\x89.QBC"})
    Put(name, "x");
  for (const char* const name : {"zoo", "Animals"}) fs::create_directory(Cards() / name);
  FolderContent content;
  EXPECT_EQ(files.List(At(""), content), FileStatus::Ok);
  EXPECT_EQ(content.folders, (std::vector<Text>{u"Animals", u"zoo"}));
  EXPECT_EQ(content.files, (std::vector<Text>{u"A.QBC", u"B.QBC", u"b.QBC", u"c.QBC", u"É.QBC"}));
}

TEST_F(DiskFilesTest, ListsNoHiddenNamesAndNoLinksToNothing) {
  Put(".hidden", "x");
  Put("verbs.QBC", "x");
  fs::create_symlink("none", Cards() / "dangling.QBC");
  fs::create_symlink("verbs.QBC", Cards() / "link.QBC");
  FolderContent content;
  EXPECT_EQ(files.List(At(""), content), FileStatus::Ok);
  EXPECT_EQ(content.files, (std::vector<Text>{u"link.QBC", u"verbs.QBC"}));
}

TEST_F(DiskFilesTest, ListsWhatItMayNotLookAt) {
  const WithoutRights nobody;
  Put("verbs.QBC", "x");
  SetMode("", 0444);
  FolderContent content;
  EXPECT_EQ(files.List(At(""), content), FileStatus::Ok);
  EXPECT_EQ(content.files, std::vector<Text>{u"verbs.QBC"});
}

TEST_F(DiskFilesTest, AListReplacesTheCallers) {
  FolderContent content{{u"folder"}, {u"file"}};
  EXPECT_EQ(files.List(At(""), content), FileStatus::Ok);
  EXPECT_TRUE(content.folders.empty());
  EXPECT_TRUE(content.files.empty());
}

TEST_F(DiskFilesTest, CannotListWhatIsNoFolder) {
  Put("verbs.QBC", "x");
  FolderContent content;
  EXPECT_EQ(files.List(At("none"), content), FileStatus::PathNotFound);
  EXPECT_EQ(files.List(At("verbs.QBC"), content), FileStatus::PathNotFound);
}

TEST_F(DiskFilesTest, MayNotListAProtectedFolder) {
  const WithoutRights nobody;
  SetMode("", 0);
  FolderContent content;
  EXPECT_EQ(files.List(At(""), content), FileStatus::PathAccess);
}

TEST_F(DiskFilesTest, MakesAFolderWithThoseAboveIt) {
  EXPECT_EQ(files.MakeFolder(At("one/two/three")), FileStatus::Ok);
  EXPECT_TRUE(fs::is_directory(Cards() / "one/two/three"));
}

TEST_F(DiskFilesTest, AFolderThatIsThereAlreadyIsNoFailure) {
  EXPECT_EQ(files.MakeFolder(At("")), FileStatus::Ok);
  EXPECT_EQ(files.MakeFolder(At("one/")), FileStatus::Ok);
  EXPECT_EQ(files.MakeFolder(At("one")), FileStatus::Ok);
}

TEST_F(DiskFilesTest, MakesNoFolderWhereAFileIs) {
  Put("one", "x");
  EXPECT_EQ(files.MakeFolder(At("one")), FileStatus::FileAlreadyExists);
  EXPECT_EQ(files.MakeFolder(At("one/two")), FileStatus::FileAlreadyExists);
}

TEST_F(DiskFilesTest, MayNotMakeAFolderInAProtectedOne) {
  const WithoutRights nobody;
  SetMode("", 0555);
  EXPECT_EQ(files.MakeFolder(At("one")), FileStatus::PathAccess);
}

// Locking

TEST_F(DiskFilesTest, LocksAFileThatNeedNotExist) {
  EXPECT_NE(files.Lock(At("settings.INI")), nullptr);
  EXPECT_EQ(Names(Cards()), Name{});
}

TEST_F(DiskFilesTest, ALockKeepsOtherDescriptorsOut) {
  const int other = ::open(Cards().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  ASSERT_GE(other, 0);
  std::unique_ptr<FileLock> lock = files.Lock(At("settings.INI"));
  EXPECT_EQ(::flock(other, LOCK_EX | LOCK_NB), -1);
  lock.reset();
  EXPECT_EQ(::flock(other, LOCK_EX | LOCK_NB), 0);
  ::close(other);
}

TEST_F(DiskFilesTest, WaitsUntilTheOtherLockIsGivenBack) {
  std::unique_ptr<FileLock> first = files.Lock(At("settings.INI"));
  std::future<bool> second =
      std::async(std::launch::async, [this] { return files.Lock(At("settings.INI")) != nullptr; });
  EXPECT_EQ(second.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
  first.reset();
  EXPECT_TRUE(second.get());
}

TEST_F(DiskFilesTest, GoesOnWithoutALockThatIsNeverGivenBack) {
  const std::unique_ptr<FileLock> first = files.Lock(At("settings.INI"));
  EXPECT_EQ(files.Lock(At("settings.INI")), nullptr);
}

TEST_F(DiskFilesTest, GoesOnWithoutALockInAFolderThatIsNotThere) {
  EXPECT_EQ(files.Lock(At("none/settings.INI")), nullptr);
}

TEST_F(DiskFilesTest, TheLockSurvivesTheReplacementOfTheFile) {
  Put("settings.INI", "old");
  const std::unique_ptr<FileLock> lock = files.Lock(At("settings.INI"));
  EXPECT_EQ(Write("settings.INI", "new"), FileStatus::Ok);
  const int other = ::open(Cards().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  EXPECT_EQ(::flock(other, LOCK_EX | LOCK_NB), -1);
  ::close(other);
}

}  // namespace

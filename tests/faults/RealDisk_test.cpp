#include "base/Paths.h"
#include "cards/StackFileOperations.h"
#include "tests/faults/FaultWorld.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TextPrinters.h"

#include <climits>
#include <fstream>
#include <gtest/gtest.h>
#include <sched.h>
#include <stdexcept>
#include <sys/mount.h>

namespace {

namespace fs = std::filesystem;

const std::string Old = "Spanish\r\nAnimals" + std::string(57, ' ') +
                        "\r\ndog perro.wav \r\nel^perro  \r\ncat  \r\ngato  \r\n";
const std::string Edited =
    "Spanish\r\nAnimals" + std::string(57, ' ') + "\r\ndog perro.wav \r\nchanged  \r\n";

class RealDisk : public testing::Test {
 protected:
  /// Loads the stack and edits it, ready to be saved.
  void LoadAndEdit(const std::string& name = "words.QBC") {
    ASSERT_EQ(world.Load(name), FileStatus::Ok);
    world.Edit();
  }

  /// The save must fail so and cost nothing; once `mend` has been done the next one must work.
  void ExpectFailure(FileStatus expected, const std::function<void()>& mend) {
    const std::map<std::string, std::string> disk = world.Disk();
    const std::string memory = world.Memory();
    const std::size_t handles = OpenHandles();
    EXPECT_EQ(world.SaveEdited("words.QBC"), expected);
    EXPECT_EQ(world.Disk(), disk);
    EXPECT_EQ(world.Memory(), memory);
    EXPECT_EQ(world.Temporaries().size(), 0U);
    mend();
    EXPECT_EQ(world.SaveEdited("words.QBC"), FileStatus::Ok);
    EXPECT_EQ(world.OnDisk("cards/words.QBC"), Edited);
    EXPECT_EQ(OpenHandles(), handles);
  }

  FaultWorld world;
};

// A full disk

TEST_F(RealDisk, IsFullAfterAnyNumberOfBytes) {
  for (rlim_t bytes = 0; bytes < Edited.size(); ++bytes) {
    FaultWorld full;
    full.Put("cards/words.QBC", Old);
    ASSERT_EQ(full.Load("words.QBC"), FileStatus::Ok);
    full.Edit();
    const std::string memory = full.Memory();
    FileStatus status{};
    {
      const SmallDisk disk(bytes);
      status = full.SaveEdited("words.QBC");
    }
    ASSERT_EQ(status, FileStatus::DiskFull) << bytes;
    ASSERT_EQ(full.OnDisk("cards/words.QBC"), Old) << bytes;
    ASSERT_EQ(full.Memory(), memory) << bytes;
    ASSERT_EQ(full.Temporaries().size(), 0U) << bytes;
    ASSERT_EQ(full.SaveEdited("words.QBC"), FileStatus::Ok) << bytes;
    ASSERT_EQ(full.OnDisk("cards/words.QBC"), Edited) << bytes;
  }
}

/// Lets this process mount file systems that nobody else sees; false where the system does not.
bool GetOwnMounts() {
  const std::string user = std::to_string(::geteuid());
  const std::string group = std::to_string(::getegid());
  if (::unshare(CLONE_NEWNS) != 0) {
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
    // Without numbers here user and group could not own a file on what is mounted.
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << user + " " + user + " 1";
    std::ofstream("/proc/self/gid_map") << group + " " + group + " 1";
  }
  return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

/// Runs `action` in a process with mounts of its own; false where the system does not allow any.
bool WithOwnMounts(const std::function<void()>& action) {
  const pid_t probe = StartChild([] {
    if (!GetOwnMounts()) throw std::runtime_error("no mounts of one's own");
  });
  if (!EndedWell(probe)) return false;
  const pid_t child = StartChild([&] {
    ASSERT_TRUE(GetOwnMounts());
    action();
  });
  EXPECT_TRUE(EndedWell(child));
  return true;
}

TEST_F(RealDisk, IsASmallOneThatIsFull) {
  const bool ran = WithOwnMounts([&] {
    ASSERT_EQ(::mount("tmpfs", world.On("cards").c_str(), "tmpfs", 0, "size=64k,mode=777"), 0);
    world.Put("cards/words.QBC", Old);
    LoadAndEdit();
    world.Put("cards/filler", std::string(128 * 1024, 'x'));
    ASSERT_LT(world.OnDisk("cards/filler").size(), 64U * 1024);
    ExpectFailure(FileStatus::DiskFull, [&] { fs::remove(world.On("cards/filler")); });
    ::umount(world.On("cards").c_str());
  });
  if (!ran) GTEST_SKIP() << "this system lets nobody mount a disk";
}

TEST_F(RealDisk, IsWriteProtected) {
  const bool ran = WithOwnMounts([&] {
    const std::string cards = world.On("cards").string();
    ASSERT_EQ(::mount("tmpfs", cards.c_str(), "tmpfs", 0, "size=64k,mode=777"), 0);
    world.Put("cards/words.QBC", Old);
    LoadAndEdit();
    ASSERT_EQ(::mount("tmpfs", cards.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
    ExpectFailure(FileStatus::PathAccess, [&] {
      ASSERT_EQ(::mount("tmpfs", cards.c_str(), nullptr, MS_REMOUNT, nullptr), 0);
    });
    ::umount(cards.c_str());
  });
  if (!ran) GTEST_SKIP() << "this system lets nobody mount a disk";
}

TEST_F(RealDisk, IsADeviceThatIsAlwaysFull) {
  world.MakeStack();
  fs::create_symlink("/dev/full", world.On("cards/words.QBC"));
  EXPECT_EQ(world.SaveNew("words.QBC"), FileStatus::DeviceUnavailable);
  EXPECT_TRUE(fs::is_symlink(world.On("cards/words.QBC")));
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
  EXPECT_EQ(world.SaveNew("other.QBC"), FileStatus::Ok);
}

// Folders and files that are no longer what they were

TEST_F(RealDisk, TakesNoNewFileInAReadOnlyFolder) {
  world.Put("cards/words.QBC", Old);
  LoadAndEdit();
  world.ProtectFolder("cards");
  const std::string memory = world.Memory();
  EXPECT_EQ(world.SaveEdited("new.QBC"), FileStatus::PathAccess);
  EXPECT_EQ(world.Memory(), memory);
  EXPECT_EQ(world.OnDisk("cards/words.QBC"), Old);
  EXPECT_EQ(::chmod(world.On("cards").c_str(), 0755), 0);
  EXPECT_EQ(world.SaveEdited("new.QBC"), FileStatus::Ok);
  EXPECT_EQ(world.OnDisk("cards/new.QBC"), Edited);
}

TEST_F(RealDisk, HasLostTheFolder) {
  world.Put("cards/words.QBC", Old);
  LoadAndEdit();
  fs::remove_all(world.On("cards"));
  ExpectFailure(FileStatus::PathNotFound, [&] { fs::create_directory(world.On("cards")); });
}

TEST_F(RealDisk, LosesTheFolderBetweenTheDialogAndTheCards) {
  world.Put("cards/words.QBC", Old);
  LoadAndEdit();
  ASSERT_EQ(SaveStack(world.stacks, world.files, world.prompts, world.PathOf("cards"), u"words.QBC",
                      FileDialogMode::SaveEdited, u"Spanish"),
            FileStatus::Ok);
  fs::remove_all(world.On("cards"));
  EXPECT_EQ(world.editor->Save(), FileStatus::PathNotFound);
  EXPECT_EQ(world.stacks.Current().CardCount, 2);
  EXPECT_TRUE(world.editor->IsMarked(2));
  fs::create_directory(world.On("cards"));
  EXPECT_EQ(world.SaveEdited("words.QBC"), FileStatus::Ok);
  EXPECT_EQ(world.OnDisk("cards/words.QBC"), Edited);
}

TEST_F(RealDisk, HasAFolderWhereTheFileWas) {
  world.Put("cards/words.QBC", Old);
  LoadAndEdit();
  fs::remove(world.On("cards/words.QBC"));
  fs::create_directory(world.On("cards/words.QBC"));
  ExpectFailure(FileStatus::PathAccess, [&] { fs::remove(world.On("cards/words.QBC")); });
}

TEST_F(RealDisk, GetsAFolderWhereTheFileWasBetweenTheDialogAndTheCards) {
  world.Put("cards/words.QBC", Old);
  LoadAndEdit();
  ASSERT_EQ(SaveStack(world.stacks, world.files, world.prompts, world.PathOf("cards"), u"words.QBC",
                      FileDialogMode::SaveEdited, u"Spanish"),
            FileStatus::Ok);
  fs::remove(world.On("cards/words.QBC"));
  fs::create_directory(world.On("cards/words.QBC"));
  EXPECT_EQ(world.editor->Save(), FileStatus::PathAccess);
  EXPECT_TRUE(world.editor->IsMarked(2));
  EXPECT_EQ(world.Temporaries().size(), 0U);
}

TEST_F(RealDisk, HasAFileWhereTheFolderWas) {
  world.Put("cards/words.QBC", Old);
  LoadAndEdit();
  fs::remove_all(world.On("cards"));
  world.Put("cards", "a file");
  ExpectFailure(FileStatus::PathNotFound, [&] {
    fs::remove(world.On("cards"));
    fs::create_directory(world.On("cards"));
  });
}

// Links

TEST_F(RealDisk, KeepsALinkAndReplacesWhatItLeadsTo) {
  world.Put("safe/words.QBC", Old);
  fs::create_symlink("../safe/words.QBC", world.On("cards/words.QBC"));
  LoadAndEdit();
  EXPECT_EQ(world.SaveEdited("words.QBC"), FileStatus::Ok);
  EXPECT_EQ(fs::read_symlink(world.On("cards/words.QBC")), "../safe/words.QBC");
  EXPECT_FALSE(fs::is_symlink(world.On("safe/words.QBC")));
  EXPECT_EQ(world.OnDisk("safe/words.QBC"), Edited);
}

TEST_F(RealDisk, MakesTheFileThatALinkLeadsTo) {
  fs::create_symlink("../safe/words.QBC", world.On("cards/words.QBC"));
  world.MakeStack();
  EXPECT_EQ(world.SaveNew("words.QBC"), FileStatus::Ok);
  EXPECT_TRUE(fs::is_symlink(world.On("cards/words.QBC")));
  EXPECT_EQ(world.OnDisk("safe/words.QBC"), Old);
}

TEST_F(RealDisk, CannotFollowALinkIntoAFolderThatIsNotThere) {
  fs::create_symlink("../none/words.QBC", world.On("cards/words.QBC"));
  world.MakeStack();
  EXPECT_EQ(world.SaveNew("words.QBC"), FileStatus::PathNotFound);
  EXPECT_TRUE(fs::is_symlink(world.On("cards/words.QBC")));
}

// Names

TEST_F(RealDisk, HasPathsOfFourThousandCharacters) {
  std::string folder = world.On("cards").string();
  while (folder.size() < 3900) folder += "/" + std::string(90, 'd');
  ASSERT_EQ(world.files.MakeFolder(DecodePath(folder)), FileStatus::Ok);
  const auto load = [&](const std::string& name) {
    return LoadStack(world.stacks, world.files, world.prompts, DecodePath(folder), DecodePath(name),
                     [](const Text&) { return 0; });
  };
  std::size_t written = 0;
  // Around the longest path that the system takes, and, in steps, from 4,000 characters on.
  for (std::size_t length = 4000; length < PATH_MAX + 10; length += length < 4070 ? 14 : 1) {
    const std::string name(length - folder.size() - 1 - 4, 'n');
    FaultWorld other;
    other.MakeStack();
    const FileStatus status =
        SaveStack(other.stacks, other.files, other.prompts, DecodePath(folder),
                  DecodePath(name + ".QBC"), FileDialogMode::SaveNew, u"Spanish");
    if (status != FileStatus::Ok) {
      EXPECT_GE(length, std::size_t{PATH_MAX}) << length;
      continue;
    }
    ++written;
    EXPECT_EQ(load(name + ".QBC"), FileStatus::Ok) << length;
    EXPECT_EQ(world.stacks.Current().SideText(1, Back), u"el\r\nperro  ");
  }
  EXPECT_GT(written, 20U);
  EXPECT_EQ(world.Temporaries().size(), 0U);
}

TEST_F(RealDisk, KeepsNamesThatAreNoValidUtf8) {
  for (const std::string name : {"caf\xE9.QBC", "\xFF\xFE.QBC", "\xC3.QBC", "\xED\xA0\x80.QBC"}) {
    FaultWorld other;
    other.MakeStack();
    EXPECT_EQ(other.SaveNew(name), FileStatus::Ok);
    EXPECT_EQ(other.OnDisk("cards/" + name), Old);
    EXPECT_EQ(other.Load(name), FileStatus::Ok);
    other.Edit();
    EXPECT_EQ(other.SaveEdited(name), FileStatus::Ok);
    EXPECT_EQ(other.Disk().size(), 1U);
  }
}

}  // namespace

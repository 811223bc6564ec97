#include "base/CodePage.h"
#include "base/RescueCopy.h"
#include "base/TemporaryFile.h"
#include "tests/support/TextPrinters.h"
#include "tests/unit/base/DiskFilesFixture.h"

#include <chrono>
#include <cstring>
#include <sys/wait.h>

namespace {

/// The number of a process that has ended.
pid_t DeadProcess() {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(0);
  ::waitpid(child, nullptr, 0);
  return child;
}

class LeftoversTest : public DiskFilesTest {
 protected:
  /// The name under which a save of this process works.
  std::string NameInUse() {
    std::unique_ptr<FileReplacement> unfinished;
    EXPECT_EQ(files.Replace(At("verbs.QBC"), unfinished), FileStatus::Ok);
    const std::string mine = "-" + std::to_string(::getpid()) + "-";
    for (const std::string& name : Names(Cards())) {
      if (name.find(mine) != std::string::npos) return name;
    }
    ADD_FAILURE() << "no temporary file";
    return mine;
  }

  /// The name under which a save of another process of this system, or of another one, would.
  std::string NameOf(pid_t process, const std::string& otherSystem = "") {
    std::string name = NameInUse();
    const std::string number = "-" + std::to_string(::getpid()) + "-";
    name.replace(name.rfind(number), number.size(), "-" + std::to_string(process) + "-");
    if (!otherSystem.empty()) name.replace(std::strlen(".quibcards-save-"), 8, otherSystem);
    return name;
  }

  void Put(const std::string& name, std::chrono::hours age) {
    DiskFilesTest::Put(name, "left");
    fs::last_write_time(Cards() / name, fs::file_time_type::clock::now() - age);
  }

  bool StaysAfterASave(const std::string& name) {
    EXPECT_EQ(Write("verbs.QBC", "x"), FileStatus::Ok);
    return fs::exists(Cards() / name);
  }
};

TEST_F(LeftoversTest, OfADeadProcessGoAfterAnHour) {
  const std::string name = NameOf(DeadProcess());
  Put(name, std::chrono::hours(2));
  EXPECT_FALSE(StaysAfterASave(name));
}

TEST_F(LeftoversTest, StayForTheFirstHour) {
  const std::string name = NameOf(DeadProcess());
  Put(name, std::chrono::hours(0));
  EXPECT_TRUE(StaysAfterASave(name));
}

TEST_F(LeftoversTest, OfARunningProcessStay) {
  const std::string name = NameOf(::getppid());
  Put(name, std::chrono::hours(24 * 30));
  EXPECT_TRUE(StaysAfterASave(name));
}

TEST_F(LeftoversTest, OfAnotherSystemGoAfterAWeek) {
  const std::string name = NameOf(DeadProcess(), "0thersys");
  Put(name, std::chrono::hours(24 * 6));
  EXPECT_TRUE(StaysAfterASave(name));
  Put(name, std::chrono::hours(24 * 8));
  EXPECT_FALSE(StaysAfterASave(name));
}

TEST_F(LeftoversTest, AreNoFilesOfTheUsers) {
  const std::string pid = std::to_string(DeadProcess());
  for (const std::string& name : std::vector<std::string>{
           std::string(".quib-AAAAAA"), std::string(".quib-notes"),
           std::string(".quibcards-save-notes"), ".quibcards-save-" + pid,
           ".quibcards-save-x-" + pid + "x-AAAAAA", ".quibcards-save-x-" + pid + "-AAAAA",
           ".quibcards-save-x-0-AAAAAA", ".quibcards-save-x--AAAAAA", "x" + NameOf(DeadProcess()),
           NameOf(DeadProcess()) + "x"}) {
    Put(name, std::chrono::hours(24 * 30));
    EXPECT_TRUE(StaysAfterASave(name)) << name;
  }
}

TEST_F(LeftoversTest, OfOthersStay) {
  if (::geteuid() != 0) GTEST_SKIP() << "only root can give files away";
  const std::string name = NameOf(DeadProcess());
  Put(name, std::chrono::hours(24 * 30));
  ASSERT_EQ(::chown((Cards() / name).c_str(), 65534, 65534), 0);
  EXPECT_TRUE(StaysAfterASave(name));
}

TEST_F(LeftoversTest, ThatAreFoldersOrLinksStay) {
  const std::string folder = NameOf(DeadProcess());
  fs::create_directory(Cards() / folder);
  EXPECT_TRUE(StaysAfterASave(folder));
}

// Copies that can be recognised

TEST_F(DiskFilesTest, ACopyIsNamedAfterItsFileAndReplacesNone) {
  const std::string folder = Cards().string();
  std::string path;
  for (const char* const name : {"verbs (old).QBC", "verbs (old 2).QBC", "verbs (old 3).QBC"}) {
    ASSERT_EQ(WriteCopy(folder, "verbs.QBC", "old", name, path), FileStatus::Ok);
    EXPECT_EQ(path, folder + "/" + name);
    EXPECT_EQ(OnDisk(name), name);
    EXPECT_EQ(Mode(name), 0600U);
  }
}

TEST_F(DiskFilesTest, ACopyOfAnyNameFindsRoom) {
  std::string longName;
  while (longName.size() < 250) longName += "\xC3\xA4";
  for (const std::string& name : {longName, longName.substr(0, 246) + ".QBC", std::string("plain"),
                                  std::string(".QBC"), "x." + std::string(200, 'y')}) {
    std::string path;
    EXPECT_EQ(WriteCopy(Cards().string(), name, "new", "x", path), FileStatus::Ok) << name;
    EXPECT_EQ(ValidUtf8Length(path), path.size()) << "half a character";
  }
}

}  // namespace

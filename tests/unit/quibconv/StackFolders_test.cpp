#include "quibconv/StackFolders.h"

#include "base/Paths.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <stdlib.h>

namespace {

namespace fs = std::filesystem;

class StackFoldersTest : public testing::Test {
 protected:
  StackFoldersTest() {
    std::string pattern = (fs::temp_directory_path() / "quib-XXXXXX").string();
    root = ::mkdtemp(pattern.data());
  }
  ~StackFoldersTest() override { fs::remove_all(root); }
  void Make(const fs::path& name) {
    fs::create_directories((root / name).parent_path());
    std::ofstream(root / name) << "x";
  }
  std::vector<std::string> Found() {
    std::vector<std::string> names;
    for (const Text& path : StacksBelow(DecodePath(root.string()), troubles)) {
      names.push_back(fs::path(EncodePath(path)).lexically_relative(root).string());
    }
    return names;
  }

  fs::path root;
  std::vector<FolderTrouble> troubles;
};

TEST_F(StackFoldersTest, FindsStacksBelowInOrder) {
  for (const char* name :
       {"b.QBC", "a.qbs", "c/d/e.Qbc", "no.txt", ".hidden.QBC", ".git/x.QBC", "x.QBC.old"}) {
    Make(name);
  }
  fs::create_directory(root / "folder.QBC");
  EXPECT_EQ(Found(), (std::vector<std::string>{"a.qbs", "b.QBC", "c/d/e.Qbc"}));
  EXPECT_TRUE(troubles.empty());
}

TEST_F(StackFoldersTest, LinksToFoldersAreNotFollowed) {
  Make("a/b.QBC");
  fs::create_directory_symlink(root, root / "a" / "again");
  fs::create_symlink(root / "a" / "b.QBC", root / "link.QBC");
  EXPECT_EQ(Found(), (std::vector<std::string>{"a/b.QBC", "link.QBC"}));
}

TEST_F(StackFoldersTest, FoldersThatCannotBeListedAreTold) {
  root /= "none";
  EXPECT_TRUE(Found().empty());
  ASSERT_EQ(troubles.size(), 1U);
  EXPECT_EQ(troubles[0].status, FileStatus::FileNotFound);
  root = root.parent_path();
}

}  // namespace

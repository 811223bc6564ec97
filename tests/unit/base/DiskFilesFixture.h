#pragma once

#include "base/DiskFiles.h"
#include "base/Paths.h"
#include "tests/support/RealDisk.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

/// The real file system in a folder of its own that is thrown away.
class DiskFilesTest : public testing::Test {
 protected:
  DiskFilesTest() {
    fs::create_directory(m_root / "cards");
    for (const fs::path& folder : {m_root, m_root / "cards"}) {
      if (::geteuid() == 0 && ::chown(folder.c_str(), Nobody, Nobody) != 0) {
        ADD_FAILURE() << "cannot give " << folder << " away";
      }
    }
  }
  ~DiskFilesTest() override {
    std::error_code ignored;
    fs::permissions(Cards(), fs::perms::owner_all, ignored);
    fs::remove_all(m_root, ignored);
  }

  fs::path Cards() const { return m_root / "cards"; }
  fs::path SafePlace() const { return m_root / "safe"; }

  /// The path of a name in the folder "cards".
  Text At(const std::string& name) const { return DecodePath((Cards() / name).string()); }

  void Put(const std::string& name, const std::string& content) const {
    std::ofstream(Cards() / name, std::ios::binary) << content;
  }
  std::string OnDisk(const std::string& name) const {
    std::ifstream file(Cards() / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void SetMode(const std::string& name, mode_t mode) const {
    EXPECT_EQ(::chmod((Cards() / name).c_str(), mode), 0);
  }
  mode_t Mode(const std::string& name) const {
    struct stat info {};
    EXPECT_EQ(::stat((Cards() / name).c_str(), &info), 0);
    return info.st_mode & 07777;
  }

  /// Everything in a folder, hidden names included.
  static std::set<std::string> Names(const fs::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder)) names.insert(entry.path().filename());
    return names;
  }

  FileStatus Write(const std::string& name, std::string_view content) {
    std::unique_ptr<FileReplacement> replacement;
    const FileStatus begun = files.Replace(At(name), replacement);
    return begun == FileStatus::Ok ? replacement->Commit(content) : begun;
  }
  FileStatus ReadStatus(const std::string& name) {
    std::string content;
    return files.Read(At(name), content);
  }
  std::string Content(const std::string& name) {
    std::string content;
    EXPECT_EQ(files.Read(At(name), content), FileStatus::Ok) << name;
    return content;
  }

 private:
  static fs::path MakeRoot() {
    std::string root = testing::TempDir() + "quib-test-XXXXXX";
    return ::mkdtemp(root.data());
  }

  fs::path m_root = MakeRoot();

 protected:
  DiskFiles files{DecodePath(SafePlace().string())};
};

#include "base/DiskFiles.h"
#include "base/Paths.h"
#include "cards/StackFileOperations.h"
#include "tests/support/TextPrinters.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

const std::string Mine = "Topic\r\nDescription\r\na  \r\nb  \r\n";
const std::string Theirs = "Topic\r\nDescription\r\nc  \r\nb  \r\n";

/// Answers the first question with OK and those after it with Cancel.
class OkThenCancel : public Prompts {
 public:
  Answer Show(const Prompt&) override { return ++questions == 1 ? Answer::Ok : Answer::Cancel; }
  std::size_t questions = 0;
};

/// One file on the real disk, reached by many names; the current folder is the one above it.
class FileSpellings : public testing::Test {
 protected:
  FileSpellings() {
    std::string root = testing::TempDir() + "quib-spellings-XXXXXX";
    m_root = ::mkdtemp(root.data());
    fs::create_directories(m_root / "cards/more");
    fs::create_directory_symlink("cards", m_root / "link");
    fs::create_symlink("words.QBC", m_root / "cards/same.QBC");
    fs::current_path(m_root);
    Write("cards/words.QBC", Mine);
  }
  ~FileSpellings() override {
    std::error_code ignored;
    fs::current_path(m_before, ignored);
    fs::remove_all(m_root, ignored);
  }

  /// Writes into the file that is there.
  static void Write(const fs::path& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
  }

  /// Puts a new file into its place.
  static void Replace(const fs::path& path, const std::string& content) {
    Write("new", content);
    fs::rename("new", path);
  }

  FileStatus Load(const std::string& folder, const std::string& name) {
    stacks = StackStore();
    return LoadStack(stacks, files, prompts, DecodePath(folder), DecodePath(name),
                     [](const Text&) { return 0; });
  }

  /// Begins to save; the number of questions that were asked.
  std::size_t Questions(const std::string& folder, const std::string& name) {
    prompts.questions = 0;
    const FileStatus status = SaveStack(stacks, files, prompts, DecodePath(folder),
                                        DecodePath(name), FileDialogMode::SaveEdited, u"Topic");
    EXPECT_EQ(status, prompts.questions == 2 ? FileStatus::Declined : FileStatus::Ok);
    stacks.StackFileNumber.reset();
    return prompts.questions;
  }

  std::vector<std::string> Folders() const {
    return {"cards",
            "cards/",
            "./cards",
            "cards/.",
            "cards//",
            "cards/more/..",
            "cards/../cards",
            ".//cards/./more/../",
            "link",
            "link/more/..",
            "CARDS",
            "cards\\",
            (m_root / "cards").string(),
            "/" + (m_root / "link").string(),
            (m_root / "cards/../Link/").string()};
  }

  DiskFiles files{u"safe"};
  StackStore stacks;
  OkThenCancel prompts;

 private:
  fs::path m_before = fs::current_path();
  fs::path m_root;
};

TEST_F(FileSpellings, AllNameOneFile) {
  const std::vector<std::string> folders = Folders();
  for (const std::string& loaded : folders) {
    for (const std::string& saved : folders) {
      SCOPED_TRACE(loaded + " then " + saved);
      Write("cards/words.QBC", Mine);
      ASSERT_EQ(Load(loaded, "words.QBC"), FileStatus::Ok);
      EXPECT_EQ(Questions(saved, "words.QBC"), 1U);
      Replace("cards/words.QBC", Theirs);
      EXPECT_EQ(Questions(saved, "words.QBC"), 2U);
    }
  }
}

TEST_F(FileSpellings, LetterCaseAndLinksToTheFileAreTheFile) {
  for (const char* const loaded : {"words.QBC", "WORDS.qbc", "same.QBC", "Same.qbc"}) {
    for (const char* const saved : {"words.QBC", "WORDS.qbc", "same.QBC", "Same.qbc"}) {
      SCOPED_TRACE(std::string(loaded) + " then " + saved);
      Write("cards/words.QBC", Mine);
      ASSERT_EQ(Load("cards", loaded), FileStatus::Ok);
      Replace("cards/words.QBC", Theirs);
      EXPECT_EQ(Questions("cards", saved), 2U);
    }
  }
}

TEST_F(FileSpellings, AHardLinkIsTheFileForAsLongAsItIsOne) {
  fs::create_hard_link("cards/words.QBC", "cards/other.QBC");
  ASSERT_EQ(Load("cards", "words.QBC"), FileStatus::Ok);
  EXPECT_EQ(Questions("cards", "other.QBC"), 1U);
  Write("cards/words.QBC", Theirs);
  EXPECT_EQ(Questions("cards", "other.QBC"), 2U);
  Replace("cards/other.QBC", Theirs);
  EXPECT_EQ(Questions("cards", "other.QBC"), 1U) << "a file of its own by now";
}

TEST_F(FileSpellings, AFolderThatWasRenamedTookTheFileAlong) {
  ASSERT_EQ(Load("cards", "words.QBC"), FileStatus::Ok);
  fs::rename("cards", "vocabulary");
  EXPECT_EQ(Questions("vocabulary", "words.QBC"), 1U);
  Write("vocabulary/words.QBC", Theirs);
  EXPECT_EQ(Questions("vocabulary", "words.QBC"), 2U);
}

TEST_F(FileSpellings, AnotherFileOfTheSameNameIsAskedForOnce) {
  Write("cards/more/words.QBC", Theirs);
  ASSERT_EQ(Load("cards", "words.QBC"), FileStatus::Ok);
  EXPECT_EQ(Questions("cards/more", "words.QBC"), 1U);
}

TEST_F(FileSpellings, WhatWasSavedByOneNameIsKnownByAnother) {
  ASSERT_EQ(Load("link", "words.QBC"), FileStatus::Ok);
  prompts.questions = 0;
  ASSERT_EQ(SaveStack(stacks, files, prompts, u"./cards", u"words.QBC", FileDialogMode::SaveNew,
                      u"Topic"),
            FileStatus::Ok);
  EXPECT_EQ(Questions("cards/more/..", "WORDS.QBC"), 1U);
  fs::rename("cards", "vocabulary");
  Write("vocabulary/words.QBC", Theirs);
  EXPECT_EQ(Questions("vocabulary", "words.QBC"), 2U);
}

}  // namespace

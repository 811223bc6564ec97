#include "base/DiskFiles.h"
#include "base/Paths.h"
#include "cards/SideLine.h"
#include "cards/StackFileOperations.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/MemoryLimit.h"
#include "tests/support/TextPrinters.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <random>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr std::size_t Size = std::size_t{4} << 20;

class ReadingMemory : public testing::Test {
 protected:
  ReadingMemory() {
    std::string root = testing::TempDir() + "quib-memory-XXXXXX";
    m_root = ::mkdtemp(root.data());
  }
  ~ReadingMemory() override {
    std::error_code ignored;
    fs::remove_all(m_root, ignored);
  }

  /// How loading a file ends in a process that may use so many times its size.
  void ExpectStatus(FileStatus expected, const std::string& name, const std::string& content,
                    double times) {
    SCOPED_TRACE(name + " ending in " + content.substr(content.size() - 20));
    std::ofstream(m_root / name, std::ios::binary) << content;
    const pid_t child = StartChild([&] {
      DiskFiles files(u"safe");
      StackStore stacks;
      Answering prompts;
      const Text folder = DecodePath(m_root.string());
      AllowMemory(static_cast<std::size_t>(times * static_cast<double>(Size)));
      EXPECT_EQ(LoadStack(stacks, files, prompts, folder, DecodePath(name),
                          [](const Text&) { return 0; }),
                expected);
      EXPECT_EQ(stacks.StackCount, expected == FileStatus::Ok ? 0 : -1);
    });
    EXPECT_TRUE(EndedWell(child));
  }

 private:
  class Answering : public Prompts {
   public:
    Answer Show(const Prompt&) override { return Answer::Ok; }
  };

  fs::path m_root;
};

TEST_F(ReadingMemory, IsAtMostEightTimesTheFile) {
  if (!MemoryCanBeLimited) GTEST_SKIP() << "under the address sanitizer";
  const std::string head = "Topic\r\nDescription\r\n";
  const std::string end = "\r\nback\r\n";
  ExpectStatus(FileStatus::Ok, "x.QBC", Filled(Size, head, "long line ", end), 8);
  ExpectStatus(FileStatus::Ok, "x.QBC", Filled(Size, head, "a\r\n"), 8);
  ExpectStatus(FileStatus::Ok, "x.QBC", Filled(Size, head, "\r\n"), 8);
  ExpectStatus(FileStatus::Ok, "x.QBC", Filled(Size, head, "^", end), 8);
  ExpectStatus(FileStatus::Ok, "x.QBC", Filled(Size, head, "%", end), 8);
  ExpectStatus(FileStatus::Ok, "x.QBC", Filled(Size, "\xEF\xBB\xBF" + head, "\xD0\xB6", end), 8);
  ExpectStatus(FileStatus::Ok, "x.QBC", Filled(Size, head, "name", ".wav\r\nback\r\n"), 8);
  ExpectStatus(FileStatus::Ok, "x.QBS", Filled(Size, "[WinQuib]\r\nA1=b\r\nQ1=", "long^", "\r\n"),
               8);
  ExpectStatus(FileStatus::Ok, "x.QBS", Filled(Size, "[WinQuib]\r\nQ1=a\r\nA1=b\r\n", "other\r\n"),
               8);
}

TEST_F(ReadingMemory, ThatRunsOutIsTold) {
  if (!MemoryCanBeLimited) GTEST_SKIP() << "under the address sanitizer";
  const std::string content =
      Filled(Size, "Topic\r\nDescription\r\n", "long line ", "\r\nback\r\n");
  for (const double times : {0.1, 0.5, 1.5}) {
    ExpectStatus(FileStatus::OutOfMemory, "x.QBC", content, times);
  }
}

TEST(DecodeSideText, OfAPartBeginsAsThatOfTheWhole) {
  std::mt19937 random(1);
  for (int i = 0; i < 20000; ++i) {
    Text text;
    for (int unit = 0; unit < 40; ++unit) text += u"^%a^%"[random() % 5];
    for (const std::size_t kept : {1U, 5U, 9U}) {
      EXPECT_EQ(DecodeSideText(text, 2 * kept + 2).substr(0, kept),
                DecodeSideText(text).substr(0, kept));
    }
  }
}

}  // namespace

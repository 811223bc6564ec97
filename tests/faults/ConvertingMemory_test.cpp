#include "base/DiskFiles.h"
#include "base/Paths.h"
#include "quibconv/Session.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/MemoryLimit.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr std::size_t Size = std::size_t{2} << 20;

class ConvertingMemory : public testing::Test {
 protected:
  ConvertingMemory() {
    std::string root = testing::TempDir() + "quib-memory-XXXXXX";
    m_root = ::mkdtemp(root.data());
  }
  ~ConvertingMemory() override {
    std::error_code ignored;
    fs::remove_all(m_root, ignored);
  }

  void Put(const std::string& name, const std::string& start, const std::string& piece,
           const std::string& end = "") {
    m_name = name;
    std::ofstream(m_root / name, std::ios::binary) << Filled(Size, start, piece, end);
  }

  /// How a command on the file ends, in words, where it may use eight times the file's size.
  void Expect(const std::string& words, std::vector<std::string> arguments) {
    SCOPED_TRACE(arguments.front() + " of " + m_name);
    arguments.push_back((m_root / m_name).string());
    if (arguments.front() == "convert") arguments.push_back((m_root / "out").string());
    const pid_t child = StartChild([&] {
      std::string said;
      const auto hear = [&](std::string_view heard) { said += heard; };
      DiskFiles files(u"safe");
      Surroundings surroundings{.files = files,
                                .out = hear,
                                .error = hear,
                                .input = [](std::string&) { return false; },
                                .progress = [](std::size_t, std::size_t) {},
                                .terminalWidth = 0,
                                .characterWidth = [](char32_t) { return 1; }};
      const ParsedArguments parsed = ParseArguments(arguments);
      ASSERT_TRUE(parsed.request) << parsed.words;
      AllowMemory(8 * Size);
      (void)RunRequest(*parsed.request, surroundings);
      EXPECT_NE(said.find(words), std::string::npos) << said.substr(0, 400);
    });
    EXPECT_TRUE(EndedWell(child));
  }

 private:
  fs::path m_root;
  std::string m_name;
};

TEST_F(ConvertingMemory, OfATableIsAtMostEightTimesTheFile) {
  if (!MemoryCanBeLimited) GTEST_SKIP() << "under the address sanitizer";
  Put("x.csv", "", "a\n");
  Expect("1048576 cards", {"convert", "--to", "tsv"});
  Put("x.tsv", "", "\xD0\x96\t\xD0\x96\n");
  Expect("cards", {"convert", "--to", "csv"});
  Put("x.csv", "Front,Back,Front sound\n", "a,b,c.wav\n");
  Expect("cards", {"convert", "--to", "tsv"});
}

TEST_F(ConvertingMemory, OfAStackThatIsOneLineIsAtMostEightTimesTheFile) {
  if (!MemoryCanBeLimited) GTEST_SKIP() << "under the address sanitizer";
  const std::string head = "Topic\r\nDescription\r\n";
  const std::string end = "\r\nback\r\n";
  const std::string tooLong = "a field of more than 1048576 bytes";
  for (const std::string piece : {"long line ", "^", "%"}) {
    Put("x.QBC", head, piece, end);
    Expect("the program keeps 256 of them", {"check"});
    Expect(tooLong, {"convert", "--to", "tsv"});
    Expect("more than 1048576 characters and is cut to 256", {"convert", "--to", "qbc"});
  }
  Put("x.QBC", head, "name", ".wav\r\nback\r\n");
  Expect("is not there", {"check"});
  Expect(tooLong, {"convert", "--to", "tsv"});
  Put("x.QBC", "", "topic ", "\r\nDescription\r\na\r\nb\r\n");
  Expect("no topic can be called", {"check"});
  Expect("and is cut to 1048577", {"convert", "--to", "anki"});
  Put("x.QBS", "[WinQuib]\r\nA1=b\r\nQ1=", "long^", "\r\n");
  Expect("the program keeps 256 of them", {"check"});
  Expect(tooLong, {"convert", "--to", "tsv"});
}

}  // namespace

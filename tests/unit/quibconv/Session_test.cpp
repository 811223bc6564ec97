#include "quibconv/Session.h"

#include "base/Paths.h"
#include "tests/support/MemoryFiles.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace {

/// Runs command lines on files in memory.
class SessionTest : public testing::Test {
 protected:
  int Run(std::vector<std::string> arguments) {
    out.clear();
    error.clear();
    const ParsedArguments parsed = ParseArguments(std::move(arguments));
    EXPECT_TRUE(parsed.request) << parsed.words;
    if (!parsed.request) return -1;
    Surroundings surroundings{.files = files,
                              .out = [&](std::string_view words) { out += words; },
                              .error = [&](std::string_view words) { error += words; },
                              .input =
                                  [&](std::string& bytes) {
                                    bytes = input;
                                    return !inputFails;
                                  },
                              .progress = [&](std::size_t, std::size_t all) { progressOf = all; },
                              .terminalWidth = 0,
                              .characterWidth = [](char32_t) { return 1; }};
    return RunRequest(*parsed.request, surroundings);
  }

  MemoryFiles files;
  std::string input;
  bool inputFails = false;
  std::string out;
  std::string error;
  std::size_t progressOf = 0;
};

constexpr auto Clean = "Spanish\r\nAnimals\r\ndog  \r\nperro  \r\n";
constexpr auto Odd = "Spanish\r\nAnimals\r\n2^^10  \r\nb    \r\n";

TEST_F(SessionTest, CheckSaysWhereAndWhat) {
  files.Put(u"clean.QBC", Clean);
  files.Put(u"odd.QBC", Odd);
  files.Put(u"bad.QBC", "x");
  EXPECT_EQ(Run({"check", "clean.QBC"}), 0);
  EXPECT_EQ(out, "1 file checked: 1 clean, 0 with findings (0), 0 unusable\n");
  EXPECT_EQ(Run({"check", "clean.QBC", "odd.QBC"}), 1);
  EXPECT_EQ(
      out,
      "odd.QBC:3: card 1, front: a caret in “2^10”: the program shows it, but cannot save the "
      "stack again\n"
      "odd.QBC:4: card 1, back: 4 blanks behind the text, 2 more than the file needs\n"
      "2 files checked: 1 clean, 1 with findings (2), 0 unusable\n");
  EXPECT_EQ(error, "");
  EXPECT_EQ(Run({"check", "-q", "bad.QBC", "none.QBC", "odd.QBC"}), 2);
  EXPECT_EQ(error,
            "bad.QBC:1: error: the program refuses this file: no cards in it\n"
            "none.QBC: error: File not found\n");
  EXPECT_EQ(progressOf, 3U);
}

TEST_F(SessionTest, CheckListsTheFirstTenOfAKind) {
  std::string many = "T\r\nd\r\n";
  for (int i = 0; i < 8; ++i) many += "a    \r\nb    \r\n";
  files.Put(u"many.QBC", many);
  EXPECT_EQ(Run({"check", "-q", "many.QBC"}), 1);
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 11);
  EXPECT_TRUE(out.ends_with("many.QBC: 6 more of this kind (trailing-blanks); --all lists them\n"));
  EXPECT_EQ(Run({"check", "-q", "--all", "many.QBC"}), 1);
  EXPECT_EQ(std::count(out.begin(), out.end(), '\n'), 16);
}

TEST_F(SessionTest, CheckForMachines) {
  files.Put(u"odd.QBC", Odd);
  EXPECT_EQ(Run({"check", "--json", "odd.QBC", "none.QBC"}), 2);
  const auto json = nlohmann::json::parse(out);
  EXPECT_EQ(json["summary"]["unusable"], 1);
  EXPECT_EQ(json["summary"]["findings"], 2);
  const auto& file = json["files"][0];
  EXPECT_EQ(file["file"], "odd.QBC");
  EXPECT_EQ(file["topic"], "Spanish");
  EXPECT_EQ(file["cards"], 1);
  EXPECT_EQ(file["findings"][0]["kind"], "caret");
  EXPECT_EQ(file["findings"][0]["line"], 3);
  EXPECT_EQ(file["findings"][0]["side"], "front");
  EXPECT_EQ(json["files"][1]["findings"][0]["severity"], "error");
  EXPECT_EQ(error, "");
}

TEST_F(SessionTest, JsonTakesNamesThatAreNoUtf8) {
  files.Put(DecodePath("a\xFF.QBC"), Clean);
  EXPECT_EQ(Run({"check", "--json", "a\xFF.QBC"}), 0);
  EXPECT_EQ(nlohmann::json::parse(out)["files"][0]["file"], "a\uFFFD.QBC");
}

TEST_F(SessionTest, CheckAgainstASettingsFile) {
  files.Put(u"clean.QBC", Clean);
  files.Put(u"s.INI", "[TOPICS]\r\n0=General\r\n");
  EXPECT_EQ(Run({"check", "--settings", "s.INI", "clean.QBC"}), 1);
  files.Put(u"s.INI", "[TOPICS]\r\n0=General\r\n1=Spanish\r\n");
  EXPECT_EQ(Run({"check", "--settings", "s.INI", "clean.QBC"}), 0);
  EXPECT_EQ(Run({"check", "--settings", "none.INI", "clean.QBC"}), 2);
  EXPECT_EQ(error, "none.INI: error: File not found\n");
}

TEST_F(SessionTest, Info) {
  files.Put(u"clean.QBC", Clean);
  EXPECT_EQ(Run({"info", "clean.QBC"}), 0);
  EXPECT_EQ(out,
            "clean.QBC\n  format:      qbc\n  topic:       Spanish\n  description: Animals\n"
            "  cards:       1\n  media:       0 pictures, 0 sounds\n  encoding:    windows-1252\n"
            "  line ends:   CR LF\n  size:        34 bytes\n");
  EXPECT_EQ(Run({"info", "--json", "clean.QBC"}), 0);
  EXPECT_EQ(nlohmann::json::parse(out)["files"][0]["bytes"], 34);
  EXPECT_EQ(Run({"info", "none.QBC"}), 2);
}

TEST_F(SessionTest, Show) {
  files.Put(u"clean.QBC", Clean);
  EXPECT_EQ(Run({"show", "clean.QBC"}), 0);
  EXPECT_EQ(out, "#  Front  Back\n1  dog    perro\n");
  input = "a,b\n";
  EXPECT_EQ(Run({"show", "--from", "csv", "-"}), 0);
  EXPECT_EQ(out, "#  Front  Back\n1  a      b\n");
  EXPECT_EQ(Run({"show", "none.QBC"}), 2);
  files.Put(u"empty.csv", "");
  EXPECT_EQ(Run({"show", "empty.csv"}), 2);
  EXPECT_EQ(error, "empty.csv: error: no cards in it\n");
  EXPECT_EQ(out, "");
  EXPECT_EQ(Run({"show", "-"}), 2);
}

TEST_F(SessionTest, ConvertSaysWhatIsLostAndWhatIsWritten) {
  files.Put(u"clean.QBC", Clean);
  EXPECT_EQ(Run({"convert", "clean.QBC", "out.csv"}), 0);
  EXPECT_EQ(out, "out.csv: 1 card\n");
  EXPECT_EQ(error,
            "clean.QBC: the topic “Spanish” has no place in comma-separated text\n"
            "clean.QBC: the description “Animals” has no place in comma-separated text\n");
  EXPECT_EQ(files.Content(u"out.csv"), "dog,perro\r\n");
  EXPECT_EQ(Run({"convert", "clean.QBC", "out.csv"}), 2);
  EXPECT_EQ(Run({"convert", "--force", "-q", "clean.QBC", "out.csv"}), 0);
  EXPECT_EQ(out, "");
}

TEST_F(SessionTest, StrictConversionsWriteNothing) {
  files.Put(u"clean.QBC", Clean);
  EXPECT_EQ(Run({"convert", "--strict", "clean.QBC", "out.csv"}), 1);
  EXPECT_FALSE(files.Has(u"out.csv"));
  EXPECT_TRUE(error.ends_with(
      "clean.QBC: error: nothing is written, because something would be lost (--strict)\n"));
}

TEST_F(SessionTest, ConvertFromInputToOutput) {
  input = "a,b\n";
  EXPECT_EQ(Run({"convert", "--from", "csv", "--to", "tsv", "-", "-"}), 0);
  EXPECT_EQ(out, "a\tb\r\n");
  EXPECT_EQ(Run({"convert", "--from", "csv", "--to", "tsv", "--media", "copy", "-", "-"}), 2);
  inputFails = true;
  EXPECT_EQ(Run({"convert", "--from", "csv", "--to", "tsv", "-", "-"}), 2);
}

TEST_F(SessionTest, ControlCharactersOfAFileReachNoTerminal) {
  files.Put(u"evil.QBC", "T\r\nd\r\n\x1B[2J^^  \r\nb  \r\n");
  EXPECT_EQ(Run({"check", "evil.QBC"}), 1);
  EXPECT_EQ(out.find('\x1B'), std::string::npos);
  EXPECT_EQ(Run({"show", "evil.QBC"}), 0);
  EXPECT_EQ(out.find('\x1B'), std::string::npos);
  EXPECT_EQ(Run({"info", "evil.QBC"}), 0);
  EXPECT_EQ(out.find('\x1B'), std::string::npos);
}

}  // namespace

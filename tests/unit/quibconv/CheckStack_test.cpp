#include "quibconv/CheckStack.h"

#include "cards/CardStack.h"
#include "quibconv/Check.h"
#include "tests/support/MemoryFiles.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

constexpr auto Path = u"cards/x.QBC";

std::string Lines(std::initializer_list<std::string> lines) {
  std::string content;
  for (const std::string& line : lines) content += line + "\r\n";
  return content;
}

/// Checks "cards/x.QBC" or another file; finds what it finds as "line kind".
class CheckTest : public testing::Test {
 protected:
  std::vector<std::string> Check(const std::string& content, const Text& path = Path) {
    files.Put(path, content);
    MediaFolders folders(files);
    CheckOptions options;
    options.topics = topics;
    report = CheckFile(files, folders, path, options);
    std::vector<std::string> found;
    for (const Finding& finding : report.findings) {
      found.push_back(std::to_string(finding.line) + " " + std::string(KindName(finding.kind)));
    }
    return found;
  }
  /// A stack with these lines behind the header.
  std::vector<std::string> CheckSides(std::initializer_list<std::string> sides) {
    return Check("Spanish\r\nAnimals\r\n" + Lines(sides));
  }
  std::string LastMessage() const {
    return report.findings.empty() ? std::string() : report.findings.back().message;
  }

  using Found = std::vector<std::string>;
  MemoryFiles files;
  const TopicList* topics = nullptr;
  FileReport report;
};

TEST_F(CheckTest, ACleanStack) {
  files.Put(u"cards/perro.wav", "");
  files.Put(u"cards/dog.bmp", "");
  EXPECT_EQ(
      CheckSides({"dog perro.wav dog.bmp", "perro perro.wav ", "the cat^el gato  ", "gato  "}),
      Found());
  EXPECT_EQ(report.cards, 2U);
  EXPECT_EQ(report.media.sounds, 1U);
  EXPECT_EQ(report.media.pictures, 1U);
  EXPECT_EQ(report.encoding, "windows-1252");
  EXPECT_EQ(report.lineEnds, "CR LF");
}

TEST_F(CheckTest, FilesThatTheProgramRefuses) {
  EXPECT_EQ(Check(""), Found{"0 malformed"});
  EXPECT_EQ(Check("Spanish\r\nAnimals\r\n"), Found{"2 malformed"});
  EXPECT_EQ(CheckSides({"front  ", "back  ", "front again  "}), Found{"5 malformed"});
  EXPECT_EQ(LastMessage(),
            "the program refuses this file: the last card, “front again”, has no back");
  EXPECT_EQ(CheckSides({"front  ", "back  ", ""}), Found{"5 malformed"});
  EXPECT_EQ(
      LastMessage(),
      "the program refuses this file: the last line is empty, which makes a front without a back");
  EXPECT_EQ(WorstOf(report.findings), Severity::Error);
}

TEST_F(CheckTest, AFileThatCannotBeRead) {
  files.failRead = FileStatus::PermissionDenied;
  EXPECT_EQ(Check("x"), Found{"0 unreadable"});
  EXPECT_EQ(LastMessage(), "Permission denied");
}

TEST_F(CheckTest, LinesBehindCard300) {
  std::string content = "Spanish\r\nAnimals\r\n";
  for (int i = 0; i < 300; ++i) content += "a  \r\nb  \r\n";
  EXPECT_EQ(Check(content), Found());
  EXPECT_EQ(Check(content + "more  \r\n"), Found{"603 extra-cards"});
  EXPECT_EQ(LastMessage(), "1 line behind card 300 that the program does not read");
}

TEST_F(CheckTest, LongTexts) {
  EXPECT_EQ(CheckSides({std::string(256, 'x') + "  ", std::string(257, 'x') + "  "}),
            Found{"4 long-text"});
  EXPECT_EQ(report.findings[0].card, 1);
  EXPECT_EQ(report.findings[0].side, Back);
}

TEST_F(CheckTest, CaretsHoweverTheyAreWritten) {
  EXPECT_EQ(CheckSides({"2^^10  ", "100%%  "}), (Found{"3 caret", "4 caret"}));
}

TEST_F(CheckTest, WordsThatReadAsMedia) {
  for (const auto name : {u"intro.wav", u"a.wav", u"b.wav", u"foo.wav", u"c.gif"}) {
    files.Put(Text(u"cards/") + name, "");
  }
  EXPECT_EQ(CheckSides({"see intro.wav twice  ", "foo.waves  "}),
            (Found{"3 media-word", "4 media-word"}));
  EXPECT_EQ(CheckSides({"x a.wav b.wav ", "x c.gif a.wav "}), Found{"3 media-word"});
  EXPECT_EQ(CheckSides({" a.wav c.gif", "a.wav "}), Found());
}

TEST_F(CheckTest, MediaThatAreMissingOrDifferInLetterCase) {
  files.Put(u"cards/Perro.WAV", "");
  files.Put(u"cards/two.bmp", "");
  files.Put(u"cards/TWO.bmp", "");
  EXPECT_EQ(CheckSides({"a perro.wav ", "b none.wav ", "c  Two.bmp", "d  two.bmp"}),
            (Found{"3 media-case", "4 missing-media", "5 missing-media"}));
  EXPECT_EQ(report.findings[0].message, "the sound “perro.wav” is there as “Perro.WAV”");
}

TEST_F(CheckTest, MediaInOtherFoldersAreFoundAsTheProgramFindsThem) {
  files.Put(u"cards/more/a.wav", "");
  EXPECT_EQ(CheckSides({"a more/a.wav ", "b none/a.wav "}), Found{"4 missing-media"});
}

TEST_F(CheckTest, Topics) {
  EXPECT_EQ(Check(Lines({"", "d", "a  ", "b  "})), Found{"1 topic"});
  EXPECT_EQ(Check(Lines({std::string(21, 'x'), "d", "a  ", "b  "})), Found{"1 topic"});
  TopicList configured;
  configured.Names[0] = u"General";
  configured.TopicCount = 0;
  topics = &configured;
  EXPECT_EQ(CheckSides({"a  ", "b  "}), Found{"1 topic"});
  EXPECT_EQ(LastMessage(), "the topic “Spanish” is not in the settings file");
  EXPECT_EQ(Check(Lines({"General   ", "d", "a  ", "b  "})), Found());
}

TEST_F(CheckTest, DescriptionsThatAreCut) {
  EXPECT_EQ(Check(Lines({"T", std::string(64, 'd'), "a  ", "b  "})), Found());
  EXPECT_EQ(Check(Lines({"T", std::string(65, 'd'), "a  ", "b  "})), Found{"2 description"});
}

TEST_F(CheckTest, BlanksBehindTexts) {
  files.Put(u"cards/a.wav", "");
  EXPECT_EQ(CheckSides({"a    ", "b a.wav   ", "c", "d "}),
            (Found{"3 trailing-blanks", "4 trailing-blanks"}));
  EXPECT_EQ(report.findings[0].message, "4 blanks behind the text, 2 more than the file needs");
}

TEST_F(CheckTest, LineEnds) {
  EXPECT_EQ(Check("T\nd\na  \nb  \n"), Found());
  EXPECT_EQ(report.lineEnds, "LF");
  EXPECT_EQ(Check("T\r\nd\r\na\nb  \r\nc  \r\n"), Found{"3 line-ends"});
  EXPECT_EQ(Check("T\r\nd\r\na\rb  \r\nc  \r\n"), Found{"3 line-ends"});
}

TEST_F(CheckTest, Encodings) {
  EXPECT_EQ(Check("T\r\nd\r\ncaf\xE9  \r\nb  \r\n"), Found());
  EXPECT_EQ(Check("T\r\nd\r\ncaf\xC3\xA9  \r\nb  \r\n"), Found{"3 encoding"});
  EXPECT_EQ(Check("\xEF\xBB\xBFT\r\nd\r\ncaf\xC3\xA9  \r\nb  \r\n"), Found());
  EXPECT_EQ(report.encoding, "utf-8-bom");
  EXPECT_EQ(Check("\xEF\xBB\xBFT\r\nd\r\na  \r\ncaf\xE9  \r\n"), Found{"4 encoding"});
  EXPECT_EQ(Check("T\r\nd\r\na\x81\xE9  \r\nb  \r\n"), Found{"3 encoding"});
}

TEST_F(CheckTest, ControlCharacters) {
  EXPECT_EQ(Check("T\r\nd\r\na\x07\tb  \r\nc\x01  \r\n\x1A"), Found{"3 control-character"});
  EXPECT_EQ(LastMessage(), "2 control characters, the first is byte 0x07");
}

TEST_F(CheckTest, EmptyCards) {
  EXPECT_EQ(CheckSides({"  ", "  ", "a  ", "  "}), Found{"3 empty-card"});
}

TEST_F(CheckTest, ImportFiles) {
  files.Put(u"cards/Haus.wav", "");
  EXPECT_EQ(Check(Lines({"[WinQuib]", "Q1=house", "A1=<snd>Haus.wav", "remark"}), u"cards/x.QBS"),
            Found());
  EXPECT_EQ(Check(Lines({"[WinQuib]", "Q1=a", "A1=b", "Q3=c", "A3=d"}), u"cards/x.QBS"),
            (Found{"4 ignored-line", "5 ignored-line"}));
  EXPECT_EQ(Check(Lines({"[WinQuib]", "Q1=a", "A1=b", "Q2=c"}), u"cards/x.qbs"),
            Found{"0 unequal-sides"});
  EXPECT_EQ(Check(Lines({"[WinQuib]", "remark"}), u"cards/x.QBS"), Found{"0 malformed"});
  EXPECT_EQ(Check(Lines({"no mark", "Q1=a", "A1=b"}), u"cards/x.QBS"), Found{"3 malformed"});
  EXPECT_EQ(Check(Lines({"[WinQuib]", "Q1=see intro.wav now", "A1=b"}), u"cards/x.QBS"),
            (Found{"2 media-word", "2 missing-media"}));
}

TEST_F(CheckTest, FilesOfOtherProgramsForWhatAStackCannotHold) {
  EXPECT_EQ(Check("a,b\nc^d,\"e\n\nf\"\n" + std::string(300, 'x') + ",y\n", u"cards/words.csv"),
            (Found{"2 caret", "2 changed-text", "5 long-text"}));
  EXPECT_EQ(report.cards, 3U);
  EXPECT_EQ(Check("", u"cards/words.csv"), Found{"0 malformed"});
  EXPECT_EQ(Check("x", u"cards/words.doc"), Found{"0 unreadable"});
}

TEST_F(CheckTest, ListsOfMoreCardsThanAStackHolds) {
  std::string content;
  for (int i = 1; i <= 301; ++i) content += "a\tb\n";
  EXPECT_EQ(Check(content + "c^\td\n", u"cards/words.tsv"),
            (Found{"301 extra-cards", "302 caret"}));
  EXPECT_EQ(report.findings[1].card, 302);
}

}  // namespace

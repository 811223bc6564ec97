#include "base/CodePage.h"
#include "base/DiskFiles.h"
#include "decks/Conversion.h"

#include <algorithm>
#include <gtest/gtest.h>

// Files as other programs write them, from tests/data/decks.

namespace {

struct Converted {
  std::string bytes;
  Findings findings;

  bool Mentions(std::string_view words) const {
    return std::any_of(findings.begin(), findings.end(), [&](const Finding& finding) {
      return finding.message.find(words) != std::string::npos;
    });
  }
};

Converted ToStack(const Text& name, const ConvertOptions& options = {}) {
  DiskFiles files(u"");
  const Text path = FromUtf8(QUIB_SOURCE_DIR "/tests/data/decks/") + name;
  std::string bytes;
  EXPECT_EQ(files.Read(path, bytes), FileStatus::Ok) << ToUtf8(path);
  Conversion conversion;
  EXPECT_TRUE(PlanConversion(files, bytes, path, u"out.QBC", options, conversion));
  return {conversion.outputs.empty() ? std::string() : conversion.outputs.front().bytes,
          conversion.findings};
}

std::string Stack(const std::string& topic, const std::string& description,
                  std::initializer_list<std::string> lines) {
  std::string content =
      topic + "\r\n" + description + std::string(64 - description.size(), ' ') + "\r\n";
  for (const std::string& line : lines) content += line + "\r\n";
  return content;
}

TEST(Decks, VocabularyFile) {
  const Converted converted = ToStack(u"travel.kvtml");
  EXPECT_EQ(converted.bytes,
            Stack("Spanish", "On the road",
                  {"train  ", "el tren  ", "ticket^(for a journey)  ", "el billete billete.wav ",
                   "aeroplane & airport  plane.jpg", "el avi\xF3n <y el aeropuerto>  ",
                   "hotel room  ", "la habitaci\xF3n  "}));
  for (const char* lost :
       {"the author", "the license", "the comment", "<article>", "<grade>", "<pronunciation>",
        "<comment> has no place on a card; left out 2 times", "<example>", "“Русский”",
        "“room.png”", "“Getting there”, “Staying”", "<wordtypes>"}) {
    EXPECT_TRUE(converted.Mentions(lost)) << lost;
  }
}

TEST(Decks, VocabularyFileInOtherLanguages) {
  ConvertOptions options;
  options.read.columns = {3, 2};
  const Converted converted = ToStack(u"travel.kvtml", options);
  EXPECT_TRUE(converted.bytes.starts_with("\xEF\xBB\xBF"));
  EXPECT_NE(converted.bytes.find("поезд  \r\nel tren  \r\n"), std::string::npos);
  EXPECT_TRUE(converted.Mentions("“English”"));
}

TEST(Decks, AnkiExport) {
  const Converted converted = ToStack(u"french-verbs.anki.txt");
  EXPECT_EQ(converted.bytes,
            Stack("French", "Verbs",
                  {"to have  ", "avoir^j'ai, tu as  ", "to be  ", "\xEAtre & \xEAtre etre.wav ",
                   "to say \"yes\"  ", "dire oui^je dis oui  ", "to\xA0run  run.jpg",
                   "courir^il court  ", "1 < 2  ", "un est plus petit^que deux  "}));
  EXPECT_TRUE(converted.Mentions("formatting"));
  EXPECT_TRUE(converted.Mentions("column 6 (“Tags”) has no place on a card; 3 fields"));
}

TEST(Decks, TableOfASpreadsheet) {
  const Converted converted = ToStack(u"spreadsheet.tsv");
  EXPECT_EQ(converted.bytes, Stack("General", "",
                                   {"house  ", "das Haus  ", "the cat^and the dog  ",
                                    "die Katze^und der Hund  ", "\"quoted\"  ", "\x84zitiert\x93  ",
                                    "green  ", "gr\xFCn  ", "  ", "nur hinten  "}));
  EXPECT_TRUE(converted.Mentions("column 3 (“Notes”)"));
}

TEST(Decks, TableWithSemicolonsInAnOldEncoding) {
  ConvertOptions options;
  options.read.heading = Heading::Yes;
  const Converted converted = ToStack(u"semicolons.csv", options);
  EXPECT_EQ(converted.bytes,
            Stack("General", "",
                  {"Stra\xDF"
                   "e  ",
                   "street, road  ", "T\xFCr; Tor  ", "door  ", "\xD6l  ", "oil  "}));
}

}  // namespace

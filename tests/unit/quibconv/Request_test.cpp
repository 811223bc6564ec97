#include "quibconv/Request.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

ParsedArguments Parse(std::initializer_list<std::string> words) { return ParseArguments(words); }

TEST(ParseArguments, Check) {
  const ParsedArguments parsed =
      Parse({"check", "--settings", "s.INI", "--json", "--all", "-q", "a.QBC", "folder"});
  ASSERT_TRUE(parsed.request);
  EXPECT_EQ(parsed.request->command, Command::Check);
  EXPECT_EQ(parsed.request->files, (std::vector<std::string>{"a.QBC", "folder"}));
  EXPECT_EQ(parsed.request->settings, "s.INI");
  EXPECT_TRUE(parsed.request->json && parsed.request->all && parsed.request->quiet);
}

TEST(ParseArguments, Convert) {
  const ParsedArguments parsed = Parse({"convert",
                                        "--from",
                                        "csv",
                                        "--to",
                                        "tsv",
                                        "--encoding",
                                        "koi8-r",
                                        "--to-encoding",
                                        "utf-8-bom",
                                        "--separator",
                                        "semicolon",
                                        "--to-separator",
                                        "|",
                                        "--columns",
                                        "3,1",
                                        "--header",
                                        "--to-header",
                                        "--topic",
                                        "Español",
                                        "--description",
                                        "",
                                        "--swap",
                                        "--split",
                                        "--strict",
                                        "--force",
                                        "--media",
                                        "copy",
                                        "in",
                                        "-"});
  ASSERT_TRUE(parsed.request) << parsed.words;
  const Request& request = *parsed.request;
  const ConvertOptions& options = request.options;
  EXPECT_EQ(request.command, Command::Convert);
  EXPECT_EQ(request.files, std::vector<std::string>{"in"});
  EXPECT_EQ(request.output, "-");
  EXPECT_EQ(options.from, DeckFormat::Csv);
  EXPECT_EQ(options.to, DeckFormat::Tsv);
  EXPECT_EQ(options.read.encoding, "koi8-r");
  EXPECT_EQ(options.write.encoding, "utf-8-bom");
  EXPECT_EQ(options.read.separator, ';');
  EXPECT_EQ(options.write.separator, '|');
  EXPECT_EQ(options.read.columns.front, 3);
  EXPECT_EQ(options.read.columns.back, 1);
  EXPECT_EQ(options.read.heading, Heading::Yes);
  EXPECT_EQ(options.write.heading, Heading::Yes);
  EXPECT_EQ(options.topic, u"Español");
  EXPECT_EQ(options.description, u"");
  EXPECT_TRUE(options.swap && options.split && options.strict && options.force &&
              options.copyMedia);
}

TEST(ParseArguments, NothingIsSaidThatIsNotThere) {
  const ParsedArguments parsed = Parse({"convert", "in", "out"});
  ASSERT_TRUE(parsed.request);
  const ConvertOptions& options = parsed.request->options;
  EXPECT_FALSE(options.from || options.to || options.topic || options.description);
  EXPECT_FALSE(options.swap || options.split || options.strict || options.force ||
               options.copyMedia);
  EXPECT_EQ(options.read.separator, 0);
  EXPECT_EQ(options.read.heading, Heading::Guess);
}

TEST(ParseArguments, NamesThatBeginWithADashComeBehindTwo) {
  const ParsedArguments parsed = Parse({"check", "--", "-odd.QBC"});
  ASSERT_TRUE(parsed.request);
  EXPECT_EQ(parsed.request->files, std::vector<std::string>{"-odd.QBC"});
}

TEST(ParseArguments, MistakesAreTold) {
  for (const auto& words :
       std::vector<std::vector<std::string>>{{},
                                             {"frobnicate"},
                                             {"check"},
                                             {"convert", "in"},
                                             {"convert", "a", "b", "c"},
                                             {"check", "--nosuch", "a"},
                                             {"check", "--from", "doc", "a"},
                                             {"convert", "--encoding", "klingon", "a", "b"},
                                             {"convert", "--separator", "ab", "a", "b"},
                                             {"convert", "--separator", "\"", "a", "b"},
                                             {"convert", "--columns", "2", "a", "b"},
                                             {"convert", "--columns", "0,1", "a", "b"},
                                             {"convert", "--columns", "1,1", "a", "b"},
                                             {"convert", "--columns", "1,9999", "a", "b"},
                                             {"convert", "--header", "--no-header", "a", "b"},
                                             {"convert", "--media", "move", "a", "b"}}) {
    const ParsedArguments parsed = ParseArguments(words);
    EXPECT_FALSE(parsed.request);
    EXPECT_TRUE(parsed.wrong);
    EXPECT_FALSE(parsed.words.empty());
  }
}

TEST(ParseArguments, HelpFitsATerminalAndHasExamples) {
  for (const std::string command : {"", "check", "info", "show", "convert"}) {
    const ParsedArguments parsed = command.empty() ? Parse({"--help"}) : Parse({command, "--help"});
    EXPECT_FALSE(parsed.request || parsed.wrong);
    EXPECT_NE(parsed.words.find("Examples:"), std::string::npos) << command;
    std::istringstream lines(parsed.words);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), 100U) << line;
  }
  EXPECT_EQ(Parse({"--version"}).words, "quibconv " QUIB_VERSION "\n");
}

}  // namespace

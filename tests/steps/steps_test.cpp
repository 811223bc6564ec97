#include "decks/Formats.h"
#include "decks/TextEncoding.h"
#include "tests/steps/StepCounter.h"

#include <gtest/gtest.h>
#include <vector>

// Twice the file takes about twice the steps, whatever is in it: no reader looks at the same bytes
// again and again.

namespace {

struct Pattern {
  std::string head;
  std::string unit;  ///< repeated to the length of the file
  std::string tail;
};

std::string FileOf(const Pattern& pattern, std::size_t length) {
  std::string file = pattern.head;
  while (file.size() < length) file += pattern.unit;
  return file + pattern.tail;
}

template <typename Work>
std::uint64_t StepsOf(Work work) {
  const std::uint64_t before = StepsSoFar();
  work();
  return StepsSoFar() - before;
}

/// @param read  takes the bytes of a file
template <typename Read>
void ExpectStepsInProportion(const std::vector<Pattern>& patterns, Read read) {
  constexpr std::size_t Length = 24'000;
  // The steps of a reader that sorts, or doubles its memory where it is full, still fit in.
  constexpr double Most = 2.4;
  for (const Pattern& pattern : patterns) {
    const std::string once = FileOf(pattern, Length);
    const std::string twice = FileOf(pattern, 2 * Length);
    const std::uint64_t few = StepsOf([&] { read(once); });
    const std::uint64_t many = StepsOf([&] { read(twice); });
    EXPECT_GT(few, 0U);
    EXPECT_LT(static_cast<double>(many), Most * static_cast<double>(few) + Length)
        << few << " steps became " << many << ": " << pattern.head << pattern.unit << "..."
        << pattern.tail;
    EXPECT_LT(few, 3000 * Length) << pattern.head << pattern.unit << "..." << pattern.tail;
  }
}

void ReadAs(DeckFormat format, const std::string& bytes, const std::string& encoding = {}) {
  Deck deck;
  std::string used;
  Findings findings;
  ReadOptions options;
  options.encoding = encoding;
  const bool well = ReadDeck(format, bytes, format == DeckFormat::Import ? u"x.QBS" : u"x.QBC",
                             options, deck, used, findings);
  // A single card can be as long as the file, and goes on into a stack.
  if (well && deck.cards.size() == 1) (void)WriteDeck(DeckFormat::Stack, deck, {}, findings);
}

TEST(Steps, TheCounterSeesTheSquareOfALength) {
  // What a search from each place of a text takes, so that the tests below can fail.
  const auto squared = [](std::size_t length) {
    const std::string text(length, 'a');
    Findings findings;
    return StepsOf([&] {
      for (std::size_t i = 0; i < length; ++i) {
        std::string used;
        Text decoded;
        (void)DecodeForeignText(text, "utf-8", decoded, used, findings);
      }
    });
  };
  EXPECT_GT(squared(400), 3 * squared(200));
}

TEST(Steps, AnkiText) {
  const std::string html = "#separator:tab\n#html:true\n";
  std::vector<Pattern> patterns;
  for (const char* const unit : {"<a",          "<a ",    "<a \"", "<a '\"",    "<a=\"'",
                                 "<!--",        "<!-->",  "-->",   "[sound:",   "[sound:]",
                                 "]",           "&",      "&a",    "&#",        "&amp;",
                                 "{{",          "{{c1::", "<",     "</",        "<b>",
                                 "<br>",        "<div>",  "</p>",  "<img src=", "<img xsrc src>",
                                 "<img src=a>", "src",    "\"",    "'",         "\t",
                                 "a\n",         "\"\"\t", "\n\"",  "a\tb\n",    "#",
                                 "::"}) {
    patterns.push_back({html + "x", unit, ""});
    patterns.push_back({html + "x", unit, ">\ty"});
    patterns.push_back({html + "<img ", unit, "'\">]-->\ty"});
  }
  for (const char* const unit : {"#", "#\n", "#separator:tab\n", "#tags:a\n", "#deck:a::\n",
                                 "#guid column:1\n", "#tags column:1000\n", "#columns:a\tb\n"}) {
    patterns.push_back({"", unit, "a\tb\n"});
  }
  patterns.push_back({"#columns:", "a\t", "\na\tb\n"});
  patterns.push_back({"#columns:", "Front\tBack\t", "\na\tb\n"});
  patterns.push_back({"#deck column:1\n#tags column:2\n", "a\tb\tc\n", ""});
  patterns.push_back({"#deck:", "::", "\na\tb\n"});
  ExpectStepsInProportion(patterns,
                          [](const std::string& bytes) { ReadAs(DeckFormat::Anki, bytes); });
  ExpectStepsInProportion(
      patterns, [](const std::string& bytes) { (void)FormatForReading(u"x.txt", bytes); });
}

std::vector<Pattern> TablePatterns() {
  std::vector<Pattern> patterns;
  for (const char* const unit :
       {",",   ";",     "\t",          "\"",    "\"\"",          "\",",
        ",\"", "\"a\"", "a",           "a,b\n", "\"a\",\"b\"\n", "\n",
        "\r",  "\r\n",  "a\n",         "\"\n",  "a\"b,",         "\"a\nb\",c\n",
        " ",   "sep=",  "Front,Back\n"}) {
    patterns.push_back({"", unit, ""});
    patterns.push_back({"\"", unit, ""});
    patterns.push_back({"Front,Back,", unit, "\nx,y\n"});
    patterns.push_back({"a,b\n", unit, "\"x,\n"});
  }
  patterns.push_back({"", std::string(1, '\0'), ""});
  return patterns;
}

TEST(Steps, Tables) {
  ExpectStepsInProportion(TablePatterns(),
                          [](const std::string& bytes) { ReadAs(DeckFormat::Csv, bytes); });
  ExpectStepsInProportion(TablePatterns(),
                          [](const std::string& bytes) { ReadAs(DeckFormat::Tsv, bytes); });
}

TEST(Steps, VocabularyFiles) {
  const std::string head = "<kvtml version=\"2.0\">";
  std::vector<Pattern> patterns;
  for (const char* const unit :
       {"<a>",          "<a",  "</a>",  "<a/>", "<",       "&",          "&a",    "&a;",
        "&amp;",        "&#",  "&#65;", "<!--", "<!---->", "<?",         "<?x?>", "<![CDATA[",
        "<![CDATA[]]>", "]]>", "x",     "\n",   " ",       "<a b='c'/>", "<a b='"}) {
    patterns.push_back({"", unit, ""});
    patterns.push_back({head, unit, "</kvtml>"});
    patterns.push_back({head + "<entries><entry><translation id=\"0\"><text>", unit,
                        "</text></translation></entry></entries></kvtml>"});
    patterns.push_back({head + "<a ", unit, "/></kvtml>"});
    patterns.push_back({"<!DOCTYPE a [", unit, "]>" + head + "</kvtml>"});
  }
  const std::string end = "</kvtml>";
  patterns.push_back({head + "<entries>", "<entry/>", "</entries>" + end});
  patterns.push_back({head, "<entries/>", end});
  patterns.push_back(
      {head + "<identifiers>", "<identifier id='a'><name>x</name></identifier>",
       "</identifiers><entries><entry><translation id='b'/></entry></entries>" + end});
  patterns.push_back({head + "<entries><entry>", "<translation id='9'>x</translation>",
                      "</entry></entries>" + end});
  patterns.push_back(
      {head + "<lessons>", "<container><name>x</name></container>", "</lessons>" + end});
  patterns.push_back({head + "<information>", "<title>x</title>", "</information>" + end});
  patterns.push_back({"<kvtml version=\"2.0\" ", "a='b' ", "/>"});
  ExpectStepsInProportion(patterns,
                          [](const std::string& bytes) { ReadAs(DeckFormat::Kvtml, bytes); });
}

TEST(Steps, StacksAndImportLists) {
  const std::string head = "Topic\r\nDescription\r\n";
  std::vector<Pattern> patterns;
  for (const char* const unit :
       {"^", "^^", "%%", "%", ".wav", ".wav ", " .bmp", ".jpg.gif", "a", " ", "\r\n", "\n", "\r",
        "a\r\n", "\x1A", "\xEF\xBB\xBF", "\xFF"}) {
    patterns.push_back({"", unit, ""});
    patterns.push_back({head, unit, "\r\nb\r\n"});
  }
  ExpectStepsInProportion(patterns,
                          [](const std::string& bytes) { ReadAs(DeckFormat::Stack, bytes); });
  patterns.clear();
  for (const char* const unit :
       {"Q1=a\r\nA1=b\r\n", "Q1=", "Q1=\r\n", "<abc>", "Q1=<abc>", "%", "=", "^", ".wav", ">.wav",
        "[WinQuib]", "[", "Q", "\r\n", "\n", "a"}) {
    patterns.push_back({"", unit, ""});
    patterns.push_back({"[WinQuib]\r\n", unit, ""});
    patterns.push_back({"[WinQuib]\r\nQ1=", unit, "\r\nA1=b\r\n"});
  }
  ExpectStepsInProportion(patterns,
                          [](const std::string& bytes) { ReadAs(DeckFormat::Import, bytes); });
}

TEST(Steps, Encodings) {
  const std::vector<Pattern> patterns = {
      {"", "a", ""},        {"", "\xFF", ""},         {"", "\xC3", ""},
      {"", "\xC3\xA9", ""}, {"", "\xF0\x9F", ""},     {"\xEF\xBB\xBF", "\x80", ""},
      {"", "\xD8", ""},     {"\xFF\xFE", "\xDC", ""}, {"", "\x1B$B!!", ""},
      {"", "\x1B", ""},     {"\xFE\xFF", "\n", ""},   {"", std::string(1, '\0'), ""}};
  for (const char* const encoding :
       {"", "utf-8", "utf-16", "utf-32", "windows-1252", "koi8-r", "shift_jis", "euc-jp", "gb18030",
        "big5", "iso-2022-jp", "utf-7"}) {
    ExpectStepsInProportion(patterns, [&](const std::string& bytes) {
      Text text;
      std::string used;
      Findings findings;
      (void)DecodeForeignText(bytes, encoding, text, used, findings);
    });
  }
}

}  // namespace

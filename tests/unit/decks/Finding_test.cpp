#include "decks/Finding.h"

#include <gtest/gtest.h>
#include <set>

namespace {

TEST(Finding, EveryKindHasAWordOfItsOwn) {
  std::set<std::string_view> words;
  for (int kind = 0; kind <= static_cast<int>(FindingKind::Remark); ++kind) {
    words.insert(KindName(static_cast<FindingKind>(kind)));
  }
  EXPECT_EQ(words.size(), static_cast<std::size_t>(FindingKind::Remark) + 1);
}

TEST(Finding, TheWorstCounts) {
  EXPECT_EQ(WorstOf({}), Severity::Remark);
  EXPECT_EQ(WorstOf({Remarked(0, "a")}), Severity::Remark);
  EXPECT_EQ(WorstOf({Found(FindingKind::Caret, 1, "a"), Remarked(0, "b")}), Severity::Finding);
  EXPECT_EQ(WorstOf({Failed(FindingKind::Malformed, 1, "a"), Found(FindingKind::Caret, 1, "b")}),
            Severity::Error);
}

TEST(Findings, OnlyTheFirstOfAKindAreKept) {
  Findings findings;
  for (std::size_t i = 0; i < Findings::MostOfAKind + 5; ++i) {
    findings.push_back(Found(FindingKind::Caret, 1, "a caret"));
  }
  findings.push_back(Failed(FindingKind::Caret, 2, "an error is always kept"));
  findings.push_back(Found(FindingKind::LongText, 3, "another kind"));
  EXPECT_EQ(findings.size(), Findings::MostOfAKind + 2);
  EXPECT_EQ(findings.CountedOnly(FindingKind::Caret), 5U);
  EXPECT_EQ(findings.CountedOnly(), 5U);
  Findings more;
  more.Append(findings);
  EXPECT_EQ(more.size(), findings.size());
  EXPECT_EQ(more.CountedOnly(), 5U);
}

TEST(PrintableLines, NothingThatATerminalObeysIsLeft) {
  EXPECT_EQ(PrintableLines("a\x1B]0;x\x07\r\nb\tc\xC2\x9B"
                           "1m\xE2\x80\xAE\x7F\n"),
            "a␛]0;x␇␍\nb␉c\uFFFD1m\uFFFD␡\n");
  EXPECT_EQ(PrintableLines("caf\xE9"), "café");
  for (char16_t unit = 0; unit < 0xA0; ++unit) {
    const std::string shown =
        PrintableLines(std::string(unit < 0x80 ? "" : "\xC2") + static_cast<char>(unit));
    if (unit == u'\n' || (unit >= u' ' && unit < 0x7F)) continue;
    EXPECT_EQ(shown.size(), 3U) << static_cast<int>(unit);
  }
}

TEST(WithoutControls, JsonStaysJson) {
  EXPECT_EQ(WithoutControls("{\"a\": \"\\u001b \x7F \xC2\x9B \xE2\x80\xAE é\"}\n"),
            "{\"a\": \"\\u001b \\u007f \\u009b \\u202e é\"}\n");
}

TEST(Printable, ShowsWhatTerminalsWouldObey) {
  EXPECT_EQ(Printable(u"a\r\nb\tc\x1B[0m\x7F\u009B\u202E"), "a⏎b␉c␛[0m␡\uFFFD\uFFFD");
  EXPECT_EQ(Printable(u"a\u200B\u200E\u200F\u061C\uFEFF"), "a\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(Printable(u"\xD800x"), "\uFFFDx");
}

TEST(Quoted, CutsLongTextsBetweenCharacters) {
  EXPECT_EQ(Quoted(u"short"), "“short”");
  EXPECT_EQ(Quoted(Text(39, u'a') + u"\U0001F415 more"), "“" + std::string(39, 'a') + "…”");
}

}  // namespace

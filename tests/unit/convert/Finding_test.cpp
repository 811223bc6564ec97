#include "convert/Finding.h"

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

TEST(Printable, ShowsWhatTerminalsWouldObey) {
  EXPECT_EQ(Printable(u"a\r\nb\tc\x1B[0m\x7F\u009B\u202E"), "a⏎b␉c␛[0m␡\uFFFD\uFFFD");
  EXPECT_EQ(Printable(u"\xD800x"), "\uFFFDx");
}

TEST(Quoted, CutsLongTextsBetweenCharacters) {
  EXPECT_EQ(Quoted(u"short"), "“short”");
  EXPECT_EQ(Quoted(Text(39, u'a') + u"\U0001F415 more"), "“" + std::string(39, 'a') + "…”");
}

}  // namespace

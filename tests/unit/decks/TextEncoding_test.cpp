#include "decks/TextEncoding.h"

#include "base/CodePage.h"

#include <gtest/gtest.h>

namespace {

struct Decoded {
  bool known = false;
  Text text;
  std::string encoding;
  Findings findings;
};

Decoded Decode(std::string_view bytes, std::string_view encoding = {}) {
  Decoded result;
  result.known = DecodeForeignText(bytes, encoding, result.text, result.encoding, result.findings);
  return result;
}

std::string Encoded(TextView text, std::string_view encoding) {
  std::string bytes;
  TextEncoder encoder(encoding);
  encoder.Append(ToUtf8(text), bytes);
  encoder.End(bytes);
  return bytes;
}

TEST(DecodeForeignText, FindsOutTheEncoding) {
  EXPECT_EQ(Decode("caf\xC3\xA9").text, u"café");
  EXPECT_EQ(Decode("caf\xC3\xA9").encoding, "utf-8");
  EXPECT_EQ(Decode("\xEF\xBB\xBF"
                   "caf\xC3\xA9")
                .text,
            u"café");
  EXPECT_EQ(Decode("\xEF\xBB\xBF"
                   "caf\xC3\xA9")
                .encoding,
            "utf-8-bom");
  EXPECT_EQ(Decode(std::string_view("\xFF\xFE"
                                    "a\0\xE9\0",
                                    6))
                .text,
            u"aé");
  EXPECT_EQ(Decode(std::string_view("\xFE\xFF\0a\0\xE9", 6)).text, u"aé");
}

TEST(DecodeForeignText, TakesOtherBytesForWindows1252AndSaysSo) {
  const Decoded decoded = Decode("caf\xE9 \x80");
  EXPECT_EQ(decoded.text, u"café €");
  EXPECT_EQ(decoded.encoding, "windows-1252");
  ASSERT_EQ(decoded.findings.size(), 1U);
  EXPECT_EQ(decoded.findings[0].severity, Severity::Remark);
}

TEST(DecodeForeignText, TakesTheEncodingThatIsSaid) {
  EXPECT_EQ(Decode("\xC1", "koi8-r").text, u"а");
  EXPECT_EQ(Decode("\xA4", "ISO-8859-15").text, u"€");
  EXPECT_FALSE(Decode("a", "no-such-encoding").known);
}

TEST(DecodeForeignText, BadBytesAreListedWithTheirLine) {
  const Decoded decoded = Decode("one\ntwo\xFF\xFE!", "utf-8");
  EXPECT_EQ(decoded.text, u"one\ntwo\uFFFD\uFFFD!");
  ASSERT_EQ(decoded.findings.size(), 1U);
  EXPECT_EQ(decoded.findings[0].kind, FindingKind::Encoding);
  EXPECT_EQ(decoded.findings[0].line, 2);
}

TEST(DecodeForeignText, ATextThatEndsInTheMiddleOfACharacterEnds) {
  EXPECT_EQ(Decode("a\xC3", "utf-8").text, u"a\uFFFD");
}

TEST(DecodeForeignText, HalfACharacterOfUtf16LeavesTheOthersAlone) {
  using namespace std::string_view_literals;
  const Decoded decoded = Decode(
      "a\0\0\xD8"
      "b\0"sv,
      "utf-16le");
  EXPECT_EQ(decoded.text, u"a\uFFFDb");
  ASSERT_EQ(decoded.findings.size(), 1U);
  EXPECT_EQ(decoded.findings[0].message, "2 bytes are no utf-16le; they become “\uFFFD”");
  EXPECT_EQ(Decode("\xFF\xFE\0\0a\0\0\0"sv).text, u"a");
}

TEST(DecodeForeignText, BytesThatTheSystemPassesOverAreListed) {
  // An order to stay in the alphabet that is in use anyway: the text is the same without it.
  const Decoded decoded = Decode("\x1B(Ba", "iso-2022-jp");
  EXPECT_EQ(decoded.text, u"a");
  ASSERT_EQ(decoded.findings.size(), 1U);
  EXPECT_EQ(decoded.findings[0].kind, FindingKind::Encoding);
  for (const char* const encoding :
       {"utf-16", "utf-16le", "utf-32", "koi8-r", "shift_jis", "big5"}) {
    EXPECT_TRUE(Decode(Encoded(u"abc", encoding), encoding).findings.empty()) << encoding;
  }
}

TEST(TextEncoder, PutsAQuestionMarkForWhatIsLacking) {
  EXPECT_EQ(Encoded(u"é犬\U0001F415.", "windows-1252"), "\xE9??.");
  EXPECT_EQ(Encoded(u"é", "utf-8-bom"), "\xEF\xBB\xBF\xC3\xA9");
  EXPECT_EQ(Encoded(u"é", "UTF-8"), "\xC3\xA9");
}

TEST(TextEncoder, LongTextsGoThroughInPieces) {
  const Text text(100'000, u'ж');
  const std::string bytes = Encoded(text, "koi8-r");
  EXPECT_EQ(bytes.size(), 100'000U);
  EXPECT_EQ(Decode(bytes, "koi8-r").text, text);
}

TEST(TextEncoder, PiecesMakeTheFileOfTheWhole) {
  for (const char* const encoding :
       {"utf-8", "utf-8-bom", "utf-16", "utf-32", "iso-2022-jp", "shift_jis", "big5-hkscs"}) {
    std::string bytes;
    TextEncoder encoder(encoding);
    for (const std::string_view piece : {"犬", "x", "", "犬é", "猫"}) encoder.Append(piece, bytes);
    encoder.End(bytes);
    EXPECT_EQ(bytes, Encoded(u"犬x犬é猫", encoding)) << encoding;
  }
}

TEST(TextEncoder, AMarkThatIsTextStaysText) {
  for (const char* const encoding : {"utf-8", "utf-8-bom", "utf-16", "utf-16le"}) {
    EXPECT_EQ(Decode(Encoded(u"\uFEFFa", encoding), encoding).text, u"\uFEFFa") << encoding;
  }
}

TEST(IsKnownEncoding, KnowsOurOwnName) {
  EXPECT_TRUE(IsKnownEncoding("utf-8-bom"));
  EXPECT_TRUE(IsKnownEncoding("shift_jis"));
  EXPECT_FALSE(IsKnownEncoding("klingon"));
}

TEST(IsKnownEncoding, TakesNamesAlone) {
  for (const char* const words :
       {"", "ascii//IGNORE", "ascii//TRANSLIT", "ascii/", "ascii,x", "a b"}) {
    EXPECT_FALSE(IsKnownEncoding(words)) << words;
  }
}

}  // namespace

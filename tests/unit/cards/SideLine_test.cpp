#include "cards/SideLine.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

/// What is encoded, and what became of it.
struct Encoded {
  Encoded(Text side, TextView sound, TextView picture) : text(std::move(side)) {
    status = EncodeSideLine(text, sound, picture, line);
  }

  Text text;
  Text line = u"untouched";
  FileStatus status;
};

/// What is left of a line and the name that was taken out of it.
struct Taken {
  Text line;
  Text name;
  friend bool operator==(const Taken&, const Taken&) = default;
};
void PrintTo(const Taken& taken, std::ostream* out) {
  *out << "line \"" << ToUtf8(taken.line) << "\", name \"" << ToUtf8(taken.name) << '"';
}

Taken TakeSound(Text line, char16_t separator = u' ') {
  const Text name = TakeSoundName(line, u"c/", separator);
  return {line, name};
}

Taken TakePicture(Text line, char16_t separator = u' ') {
  const Text name = TakePictureName(line, u"c/", separator);
  return {line, name};
}

}  // namespace

// --- EncodeSideLine

TEST(EncodeSideLine, JoinsTextSoundAndPictureByOneBlankEach) {
  const Encoded side(u"dog", u"c/perro.wav", u"c/dog.bmp");
  EXPECT_EQ(side.status, FileStatus::Ok);
  EXPECT_EQ(side.line, u"dog perro.wav dog.bmp");
}

TEST(EncodeSideLine, EndsInTwoBlanksWithoutMedia) {
  EXPECT_EQ(Encoded(u"dog", u"", u"").line, u"dog  ");
}

TEST(EncodeSideLine, EndsInOneBlankWithoutAPicture) {
  EXPECT_EQ(Encoded(u"perro", u"c/perro.wav", u"").line, u"perro perro.wav ");
}

TEST(EncodeSideLine, LeavesTwoBlanksBetweenTextAndPicture) {
  EXPECT_EQ(Encoded(u"dog", u"", u"c/dog.bmp").line, u"dog  dog.bmp");
}

TEST(EncodeSideLine, OfAnEmptySideIsTwoBlanks) { EXPECT_EQ(Encoded(u"", u"", u"").line, u"  "); }

TEST(EncodeSideLine, WritesALineBreakAsACaret) {
  EXPECT_EQ(Encoded(u"the cat\r\nel gato", u"", u"").line, u"the cat^el gato  ");
}

TEST(EncodeSideLine, WritesEveryLineBreak) {
  EXPECT_EQ(Encoded(u"\r\na\r\n\r\nb\r\n", u"", u"").line, u"^a^^b^  ");
}

TEST(EncodeSideLine, TakesTheBaseNameBehindEitherSeparator) {
  EXPECT_EQ(Encoded(u"x", u"c:\\cards\\a.wav", u"/cards/b.gif").line, u"x a.wav b.gif");
}

TEST(EncodeSideLine, TakesANameWithoutSeparatorAsItIs) {
  EXPECT_EQ(Encoded(u"x", u"a.wav", u"b.gif").line, u"x a.wav b.gif");
}

TEST(EncodeSideLine, ChangesTheTextItselfToItsFormPlusTheSoundName) {
  EXPECT_EQ(Encoded(u"the\r\ndog", u"c/perro.wav", u"c/dog.bmp").text, u"the^dog perro.wav");
}

TEST(EncodeSideLine, LeavesABlankBehindATextWithoutSound) {
  EXPECT_EQ(Encoded(u"dog", u"", u"c/dog.bmp").text, u"dog ");
}

TEST(EncodeSideLine, FailsForATextWithACaretAndLeavesTheLineAlone) {
  const Encoded side(u"a^b", u"c/x.wav", u"");
  EXPECT_EQ(side.status, FileStatus::Overflow);
  EXPECT_EQ(side.line, u"untouched");
}

TEST(EncodeSideLine, GrowsATextWithACaretTo32768CharactersInFrontOfIt) {
  const Encoded side(u"a^b^c", u"c/x.wav", u"");
  EXPECT_EQ(side.text.size(), 32'768U);
  EXPECT_EQ(side.text, u"a" + Text(32'764, u'^') + u"b^c");
}

TEST(EncodeSideLine, DoesNotEncodeLineBreaksOfATextWithACaret) {
  EXPECT_TRUE(Encoded(u"^\r\nx", u"", u"").text.ends_with(u"^\r\nx"));
}

TEST(EncodeSideLine, FailsForTheLongestTextWithOneMoreCaret) {
  const Encoded side(Text(32'766, u'x') + u"^", u"", u"");
  EXPECT_EQ(side.status, FileStatus::Overflow);
  EXPECT_EQ(side.text, Text(32'766, u'x') + u"^^");
}

TEST(EncodeSideLine, AddsOneCaretToATextThatIsAlreadyTooLong) {
  const Encoded side(Text(40'000, u'x') + u"^", u"", u"");
  EXPECT_EQ(side.status, FileStatus::Overflow);
  EXPECT_EQ(side.text.size(), 40'002U);
}

TEST(EncodeSideLine, WritesAnOverlongTextWithoutCaretInFull) {
  const Encoded side(Text(40'000, u'x'), u"", u"");
  EXPECT_EQ(side.status, FileStatus::Ok);
  EXPECT_EQ(side.line, Text(40'000, u'x') + u"  ");
}

TEST(EncodeSideLine, LeavesPercentSignsAlone) {
  EXPECT_EQ(Encoded(u"5%%", u"", u"").line, u"5%%  ");
}

TEST(EncodeSideLine, LeavesALoneCarriageReturnAndLineFeedAlone) {
  EXPECT_EQ(Encoded(u"a\rb\nc", u"", u"").line, u"a\rb\nc  ");
}

// --- DecodeSideText

TEST(DecodeSideText, FollowsTheTable) {
  const std::pair<TextView, TextView> table[] = {
      {u"", u""},
      {u"plain", u"plain"},
      {u"a^b", u"a\r\nb"},
      {u"a^^b", u"a^b"},
      {u"a%%b", u"a^b"},
      {u"^", u"\r\n"},
      {u"^^", u"^"},
      {u"^^^", u"^\r\n"},
      {u"^^^^", u"^^"},
      {u"^ ^", u"\r\n \r\n"},
      {u"50%", u"50%"},
      {u"%%", u"^"},
      {u"%%%", u"^%"},
      {u"%%%%", u"^^"},
      {u"%^", u"%\r\n"},
      {u"%^^", u"^%"},  // "%%%": the first two make the caret
      {u"^^%", u"^%"},
      {u"%^^%", u"^^"},
      {u"two  blanks  ", u"two  blanks  "},
  };
  for (const auto& [text, decoded] : table)
    EXPECT_EQ(DecodeSideText(text), decoded) << ToUtf8(text);
}

TEST(DecodeSideText, UndoesTheEncodingOfSingleLineBreaks) {
  const Encoded side(u"one\r\ntwo\r\nthree", u"", u"");
  EXPECT_EQ(DecodeSideText(side.line), u"one\r\ntwo\r\nthree  ");
}

// --- TakeSoundName

TEST(TakeSoundName, LeavesALineWithoutSoundAlone) {
  EXPECT_EQ(TakeSound(u" dog  dog.bmp "), (Taken{u" dog  dog.bmp ", u""}));
}

TEST(TakeSoundName, TakesTheNameAndTrimsTheRest) {
  EXPECT_EQ(TakeSound(u"dog perro.wav dog.bmp"), (Taken{u"dog  dog.bmp", u"c/perro.wav"}));
  EXPECT_EQ(TakeSound(u"perro perro.wav "), (Taken{u"perro", u"c/perro.wav"}));
}

TEST(TakeSoundName, TrimsBothEndsOfTheRest) {
  EXPECT_EQ(TakeSound(u"  a dog.wav  "), (Taken{u"a", u"c/dog.wav"}));
}

TEST(TakeSoundName, AtTheStartOfTheLineLeavesTheRestUntrimmed) {
  EXPECT_EQ(TakeSound(u"dog.wav  x "), (Taken{u"  x ", u"c/dog.wav"}));
}

TEST(TakeSoundName, BehindASeparatorAtTheStartTrimsTheRest) {
  EXPECT_EQ(TakeSound(u" dog.wav  x "), (Taken{u"x", u"c/dog.wav"}));
}

TEST(TakeSoundName, MayTakeTheWholeLine) {
  EXPECT_EQ(TakeSound(u"dog.wav"), (Taken{u"", u"c/dog.wav"}));
}

TEST(TakeSoundName, TakesABareExtensionAsAName) {
  EXPECT_EQ(TakeSound(u".wav"), (Taken{u"", u"c/.wav"}));
  EXPECT_EQ(TakeSound(u"x .wav y"), (Taken{u"x  y", u"c/.wav"}));
}

TEST(TakeSoundName, IgnoresLetterCaseAndKeepsIt) {
  EXPECT_EQ(TakeSound(u"dog PERRO.WaV "), (Taken{u"dog", u"c/PERRO.WaV"}));
}

TEST(TakeSoundName, TakesTheFirstOfTwo) {
  EXPECT_EQ(TakeSound(u"x a.wav b.wav"), (Taken{u"x  b.wav", u"c/a.wav"}));
}

TEST(TakeSoundName, TakesAWordOfTheText) {
  EXPECT_EQ(TakeSound(u"play intro.wav now  "), (Taken{u"play  now", u"c/intro.wav"}));
}

TEST(TakeSoundName, EndsTheNameBehindTheExtension) {
  EXPECT_EQ(TakeSound(u"x a.wave y"), (Taken{u"x e y", u"c/a.wav"}));
}

TEST(TakeSoundName, TakesOnlyTheLastWordOfANameWithBlanks) {
  EXPECT_EQ(TakeSound(u"dog my sound.wav "), (Taken{u"dog my", u"c/sound.wav"}));
}

TEST(TakeSoundName, WithAnotherSeparatorTakesTheNameBehindIt) {
  EXPECT_EQ(TakeSound(u"Q1=<snd>my dog.wav text", u'>'),
            (Taken{u"Q1=<snd> text", u"c/my dog.wav"}));
}

TEST(TakeSoundName, WithoutItsSeparatorTakesTheLineUpToTheName) {
  EXPECT_EQ(TakeSound(u"Q1=dog dog.wav", u'>'), (Taken{u"", u"c/Q1=dog dog.wav"}));
}

TEST(TakeSoundName, LeavesAnEmptyLineAlone) { EXPECT_EQ(TakeSound(u""), (Taken{u"", u""})); }

// --- TakePictureName

TEST(TakePictureName, TakesEachOfTheThreeKinds) {
  EXPECT_EQ(TakePicture(u"dog  dog.bmp"), (Taken{u"dog", u"c/dog.bmp"}));
  EXPECT_EQ(TakePicture(u"dog  dog.JPG"), (Taken{u"dog", u"c/dog.JPG"}));
  EXPECT_EQ(TakePicture(u"dog  dog.Gif"), (Taken{u"dog", u"c/dog.Gif"}));
}

TEST(TakePictureName, PrefersBmpToJpgToGifWhereverTheyStand) {
  EXPECT_EQ(TakePicture(u"x a.gif b.jpg c.bmp"), (Taken{u"x a.gif b.jpg", u"c/c.bmp"}));
  EXPECT_EQ(TakePicture(u"x a.gif b.jpg"), (Taken{u"x a.gif", u"c/b.jpg"}));
}

TEST(TakePictureName, TakesNothingElse) {
  EXPECT_EQ(TakePicture(u"x a.png b.jpeg c.bm"), (Taken{u"x a.png b.jpeg c.bm", u""}));
}

TEST(TakePictureName, AtTheStartOfTheLineLeavesTheRestUntrimmed) {
  EXPECT_EQ(TakePicture(u"dog.gif "), (Taken{u" ", u"c/dog.gif"}));
}

TEST(TakePictureName, TakesTheFirstOfOneKind) {
  EXPECT_EQ(TakePicture(u"x a.bmp b.bmp"), (Taken{u"x  b.bmp", u"c/a.bmp"}));
}

// --- StripImportPrefix

TEST(StripImportPrefix, FollowsTheTable) {
  const std::pair<TextView, TextView> table[] = {
      {u"Q1=house", u"house"},
      {u"Q2=<abc>cat", u"cat"},
      {u"A2=50%Katze", u"Katze"},
      {u"Q1=", u""},
      {u"Q1=a=b", u"a=b"},
      {u"nothing", u"nothing"},
      {u"", u""},
      {u"Q1=<abc><def>cat", u"cat"},
      {u"Q1=<abc>", u""},
      {u"Q1=<ab>cat", u"<ab>cat"},
      {u"Q1=<abcd>cat", u"<abcd>cat"},
      {u"Q1= <abc>cat", u" <abc>cat"},
      {u"Q1=x<abc>cat", u"x<abc>cat"},
      {u"Q1=<a>c>cat", u"c>cat"},  // any three characters; cut behind the first ">"
      {u"Q1=<abc>50%cat", u"cat"},
      {u"Q1=50%<abc>cat", u"<abc>cat"},
      {u"Q1=a%b%c", u"b%c"},
      {u"Q1=a%b%%c", u"b^c"},
      {u"Q1=a^b^^c", u"a\r\nb^c"},
      {u"Q1=%", u""},
  };
  for (const auto& [line, text] : table) {
    EXPECT_EQ(DecodeSideText(StripImportPrefix(line)), text) << ToUtf8(line);
  }
}

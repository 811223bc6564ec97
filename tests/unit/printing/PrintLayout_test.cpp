#include "printing/PrintLayout.h"

#include "tests/support/TextPrinters.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

/// A page of 10,000 by 14,000 twips. At 10 points a character is 100 wide and 240 high, in bold
/// 120 wide.
class FakePrinter : public PrintMeasure {
 public:
  double width = 10'000;
  double height = 14'000;
  double widthPerPoint = 10;
  double heightPerPoint = 24;

  double PageWidth() override { return width; }
  double PageHeight() override { return height; }
  double TextWidth(const PrintFont& font, TextView line) override {
    EXPECT_EQ(line.find_first_of(LineBreak), TextView::npos) << "only lines can be measured";
    return static_cast<double>(line.size()) * font.size * widthPerPoint * (font.bold ? 1.2 : 1);
  }
  double TextHeight(const PrintFont& font) override { return font.size * heightPerPoint; }
};

constexpr double LineHeight = 240;
constexpr double Margin = 5 * LineHeight;
constexpr double Middle = 5'000;
constexpr double Indent = Margin + LineHeight;
constexpr double FirstCard = 5 * LineHeight;  // an empty line, the title, three empty lines

class PrintStackTest : public testing::Test {
 protected:
  PrintStackTest() { stack.StackName = u"verbs.QBC"; }

  void AddCard(const Text& front, const Text& back) {
    ++stack.CardCount;
    stack.SetSideText(stack.CardCount, Front, front);
    stack.SetSideText(stack.CardCount, Back, back);
  }

  FileStatus Print() {
    pages.clear();
    return PrintStack(stack, settings, printer, progress, pages);
  }

  /// Where `text` was printed; fails the test when it was not.
  PrintedText Where(const Text& text) {
    EXPECT_EQ(Print(), FileStatus::Ok);
    for (const PrintedText& piece : pages) {
      if (piece.text == text) return piece;
    }
    ADD_FAILURE() << "not printed: " << ToUtf8(text);
    return {};
  }

  void ExpectAt(const Text& text, int page, double x, double y) {
    const PrintedText piece = Where(text);
    EXPECT_EQ(piece.page, page);
    EXPECT_DOUBLE_EQ(piece.x, x);
    EXPECT_DOUBLE_EQ(piece.y, y);
  }

  FakePrinter printer;
  CardStack stack;
  PrintSettings settings{
      .front = {.name = u"Serif", .size = 10}, .back = {.name = u"Sans", .size = 10}, .margin = 5};
  PrintProgress progress = [](int) { return true; };
  std::vector<PrintedText> pages;
};

TEST_F(PrintStackTest, TitleIsTheNameFieldInBoldBelowAnEmptyLine) {
  settings.front.size = 1;
  const Text field = FixedWidth(u"verbs.QBC", 256);
  ExpectAt(field, 0, Middle - 256 * 12 / 2.0, 24);
  EXPECT_EQ(Where(field).font, (PrintFont{u"Serif", 1, true}));
}

TEST_F(PrintStackTest, TitleBeginsLeftOfThePageWhenItsFieldIsWider) {
  ExpectAt(FixedWidth(u"verbs.QBC", 256), 0, Middle - 256 * 120 / 2.0, LineHeight);
}

TEST_F(PrintStackTest, StackWithoutCardsPrintsItsTitleOnly) {
  ASSERT_EQ(Print(), FileStatus::Ok);
  EXPECT_EQ(pages.size(), 1U);
}

TEST_F(PrintStackTest, CardsBeginBelowThreeEmptyLines) {
  AddCard(u"one", u"uno");
  ExpectAt(u"one", 0, Margin, FirstCard);
}

TEST_F(PrintStackTest, NarrowBackStandsBesideItsFrontFromTheMiddle) {
  AddCard(u"one", u"uno");
  ExpectAt(u"uno", 0, Middle, FirstCard);
}

TEST_F(PrintStackTest, EachCardTakesTheNextLine) {
  AddCard(u"one", u"uno");
  AddCard(u"two", u"dos");
  ExpectAt(u"two", 0, Margin, FirstCard + LineHeight);
  ExpectAt(u"dos", 0, Middle, FirstCard + LineHeight);
}

TEST_F(PrintStackTest, SidesHaveTheirFontsAndOnlyTheTitleIsBold) {
  settings.back.size = 12;
  AddCard(u"one", u"uno");
  AddCard(u"two", u"dos");
  for (const auto& [text, font] :
       {std::pair(u"one", settings.front), {u"uno", settings.back}, {u"two", settings.front}}) {
    EXPECT_EQ(Where(text).font, font);
  }
}

TEST_F(PrintStackTest, LinesAreAsHighAsTheirTallestFont) {
  AddCard(u"one", u"uno");
  AddCard(u"two", u"dos");
  settings.back.size = 20;
  ExpectAt(u"two", 0, Margin, FirstCard + 2 * LineHeight);
  settings.back.size = 5;
  ExpectAt(u"two", 0, Margin, FirstCard + LineHeight);
}

TEST_F(PrintStackTest, CardsAboveTheCountStayAway) {
  AddCard(u"one", u"uno");
  stack.SetSideText(2, Front, u"two");
  ASSERT_EQ(Print(), FileStatus::Ok);
  EXPECT_EQ(pages.size(), 3U);
}

TEST_F(PrintStackTest, EmptySidesLeaveTheirPlaceFree) {
  AddCard(u"", u"uno");
  AddCard(u"two", u"");
  ExpectAt(u"uno", 0, Middle, FirstCard);
  ExpectAt(u"two", 0, Margin, FirstCard + LineHeight);
  EXPECT_EQ(pages.size(), 3U);
}

TEST_F(PrintStackTest, MarginZeroPrintsTheFrontAtTheLeftEdge) {
  settings.margin = 0;
  AddCard(u"one", u"uno");
  ExpectAt(u"one", 0, 0, FirstCard);
}

TEST_F(PrintStackTest, MarginCountsLinesOfTheFrontFont) {
  settings.margin = 7;
  settings.back.size = 20;
  AddCard(u"one", u"uno");
  ExpectAt(u"one", 0, 7 * LineHeight, FirstCard);
}

// --- backs that do not fit beside their front

TEST_F(PrintStackTest, BackAsWideAsItsColumnStaysBesideItsFront) {
  const Text back(48, u'b');  // half the page less 200
  AddCard(u"one", back);
  ExpectAt(back, 0, Middle, FirstCard);
}

TEST_F(PrintStackTest, BackWiderThanItsColumnStandsBelowIndentedByALine) {
  const Text back(49, u'b');
  AddCard(u"one", back);
  AddCard(u"two", u"dos");
  ExpectAt(u"one", 0, Margin, FirstCard);
  ExpectAt(back, 0, Indent, FirstCard + LineHeight);
  ExpectAt(u"two", 0, Margin, FirstCard + 2 * LineHeight);
}

TEST_F(PrintStackTest, FrontThatEndsAtItsColumnKeepsTheBackBesideIt) {
  AddCard(Text(36, u'f'), u"uno");  // the margin and 36 characters: 200 before the middle
  ExpectAt(u"uno", 0, Middle, FirstCard);
}

TEST_F(PrintStackTest, FrontWiderThanItsColumnSendsTheBackBelow) {
  AddCard(Text(37, u'f'), u"uno");
  ExpectAt(u"uno", 0, Indent, FirstCard + LineHeight);
}

TEST_F(PrintStackTest, FrontMayRunOverTheRightEdge) {
  AddCard(Text(400, u'f'), u"uno");
  ExpectAt(Text(400, u'f'), 0, Margin, FirstCard);
  ExpectAt(u"uno", 0, Indent, FirstCard + LineHeight);
}

TEST_F(PrintStackTest, IndentIsALineOfTheFrontFont) {
  settings.back.size = 20;
  AddCard(Text(37, u'f'), u"uno");
  ExpectAt(u"uno", 0, Indent, FirstCard + 2 * LineHeight);
}

TEST_F(PrintStackTest, BackAsWideAsThePageLess400IsOneLine) {
  const Text back(96, u'b');
  AddCard(u"one", back);
  ExpectAt(back, 0, Indent, FirstCard + LineHeight);
}

TEST_F(PrintStackTest, BackWiderThanThePageLess400IsSplitAtItsMiddleCharacter) {
  AddCard(u"one", Text(48, u'a') + Text(49, u'b'));
  AddCard(u"two", u"dos");
  ExpectAt(Text(48, u'a'), 0, Indent, FirstCard + LineHeight);
  ExpectAt(Text(49, u'b'), 0, Indent, FirstCard + 2 * LineHeight);
  ExpectAt(u"two", 0, Margin, FirstCard + 3 * LineHeight);
}

TEST_F(PrintStackTest, BackIsSplitOnceHoweverWideItIs) {
  AddCard(u"one", Text(150, u'a') + Text(150, u'b'));
  ExpectAt(Text(150, u'a'), 0, Indent, FirstCard + LineHeight);
  ExpectAt(Text(150, u'b'), 0, Indent, FirstCard + 2 * LineHeight);
}

TEST_F(PrintStackTest, SplitLeavesTheTwoUnitsOfACharacterTogether) {
  AddCard(u"one", Text(48, u'a') + u"\U0001F600" + Text(48, u'b'));
  ExpectAt(Text(48, u'a'), 0, Indent, FirstCard + LineHeight);
  ExpectAt(u"\U0001F600" + Text(48, u'b'), 0, Indent, FirstCard + 2 * LineHeight);
}

// --- line breaks inside a card

TEST_F(PrintStackTest, LineBreaksPrintAsOneBlank) {
  AddCard(u"to\r\nbe", u"ser\r\nestar");
  ExpectAt(u"to be", 0, Margin, FirstCard);
  ExpectAt(u"ser estar", 0, Middle, FirstCard);
}

TEST_F(PrintStackTest, BackIsMeasuredByItsWidestLine) {
  const Text back = Text(10, u'a') + u"\r\n" + Text(48, u'b') + u"\r\n" + Text(20, u'c');
  AddCard(u"one", back);
  ExpectAt(StripCrLf(back), 0, Middle, FirstCard);
  stack.SetSideText(1, Back, Text(10, u'a') + u"\r\n" + Text(49, u'b'));
  ExpectAt(Text(10, u'a') + u" " + Text(49, u'b'), 0, Indent, FirstCard + LineHeight);
}

TEST_F(PrintStackTest, SplitCountsTheTextWithoutItsLineBreaks) {
  AddCard(u"one", Text(97, u'a') + u"\r\n" + Text(10, u'b'));
  ExpectAt(Text(54, u'a'), 0, Indent, FirstCard + LineHeight);
  ExpectAt(Text(43, u'a') + u" " + Text(10, u'b'), 0, Indent, FirstCard + 2 * LineHeight);
}

TEST_F(PrintStackTest, FrontIsAsWideAsItIsPrinted) {
  AddCard(Text(18, u'f') + u"\r\n" + Text(17, u'f'), u"uno");  // 36 characters with the blank
  ExpectAt(u"uno", 0, Middle, FirstCard);
  stack.SetSideText(1, Front, Text(18, u'f') + u"\r\n" + Text(18, u'f'));
  ExpectAt(u"uno", 0, Indent, FirstCard + LineHeight);
}

// --- pages

TEST_F(PrintStackTest, CardBeginsOnThePageDownTo720AboveItsEnd) {
  AddCard(u"one", u"uno");
  AddCard(u"two", u"dos");
  printer.height = FirstCard + 720;
  ExpectAt(u"one", 0, Margin, FirstCard);
}

TEST_F(PrintStackTest, CardBelowThatBeginsThePageAfterAnEmptyLine) {
  AddCard(u"one", u"uno");
  AddCard(u"two", u"dos");
  printer.height = FirstCard + 719;
  ExpectAt(u"one", 1, Margin, LineHeight);
  ExpectAt(u"uno", 1, Middle, LineHeight);
  ExpectAt(u"two", 1, Margin, 2 * LineHeight);
}

TEST_F(PrintStackTest, EmptyLineOfAPageIsOneOfTheFrontFont) {
  AddCard(u"one", u"uno");
  AddCard(u"two", u"dos");
  settings.back.size = 20;
  printer.height = FirstCard + 720;
  ExpectAt(u"two", 1, Margin, LineHeight);
}

TEST_F(PrintStackTest, LineThatWouldPassThePagesEndBeginsTheNextPage) {
  settings.back.size = 32;  // 768 high
  AddCard(u"one", u"uno");
  printer.height = FirstCard + 767;
  ExpectAt(u"one", 1, Margin, 0);
  ExpectAt(u"uno", 1, Middle, 0);
  printer.height = FirstCard + 768;
  ExpectAt(u"uno", 0, Middle, FirstCard);
}

TEST_F(PrintStackTest, BackBelowItsFrontMayBeginTheNextPage) {
  settings.back.size = 32;
  AddCard(Text(37, u'f'), u"uno");
  printer.height = FirstCard + 768 + 767;
  ExpectAt(Text(37, u'f'), 0, Margin, FirstCard);
  ExpectAt(u"uno", 1, Indent, 0);
}

TEST_F(PrintStackTest, PageLowerThanALinePrintsOneLineAPage) {
  AddCard(u"one", u"uno");
  AddCard(u"two", u"dos");
  printer.height = 100;
  const int first = Where(u"one").page;
  EXPECT_GT(Where(u"two").page, first);
}

TEST_F(PrintStackTest, ThreeHundredCardsFollowEachOtherOverThePages) {
  for (int card = 1; card <= MaxCards; ++card) AddCard(u"f" + NumberText(card), u"b");
  // The first page has room for the lines from 1200 to 13,200, later ones from 240.
  ExpectAt(u"f51", 0, Margin, 13'200);
  ExpectAt(u"f52", 1, Margin, LineHeight);
  ExpectAt(u"f106", 1, Margin, 13'200);
  ExpectAt(u"f107", 2, Margin, LineHeight);
  ExpectAt(u"f300", 5, Margin, (300 - 271) * LineHeight);
}

// --- numbers

TEST_F(PrintStackTest, PageWidthIsRoundedHalvesToEvenAndThenHalved) {
  AddCard(u"one", u"uno");
  for (const auto& [width, half] :
       {std::pair(10'001.0, 5'000), {10'001.5, 5'001}, {10'002.5, 5'001}, {32'767.4, 16'383}}) {
    printer.width = width;
    ExpectAt(u"uno", 0, half, FirstCard);
  }
}

TEST_F(PrintStackTest, MarginCountsRoundedLinesWhileLinesAdvanceUnrounded) {
  AddCard(u"one", u"uno");
  printer.heightPerPoint = 24.05;
  ExpectAt(u"one", 0, 5 * 240, 5 * 240.5);
}

TEST_F(PrintStackTest, WidthOfABackIsRoundedHalvesToEven) {
  settings.back.size = 8;
  const Text back(64, u'b');
  AddCard(u"", back);
  printer.widthPerPoint = 4800.5 / 512;
  EXPECT_DOUBLE_EQ(Where(back).x, Middle);  // counts as 4800
  printer.widthPerPoint = 4800.75 / 512;
  EXPECT_DOUBLE_EQ(Where(back).x, Indent);  // counts as 4801
}

TEST_F(PrintStackTest, NumbersThatDoNotFit16BitsAreAnOverflow) {
  printer.width = 32'767;
  EXPECT_EQ(Print(), FileStatus::Ok);
  printer.width = 32'768;
  EXPECT_EQ(Print(), FileStatus::Overflow);
  printer.width = 10'000;
  settings.margin = 136;  // 32,640
  EXPECT_EQ(Print(), FileStatus::Ok);
  settings.margin = 137;
  EXPECT_EQ(Print(), FileStatus::Overflow);
  settings.margin = 0;
  printer.heightPerPoint = 4'000;
  EXPECT_EQ(Print(), FileStatus::Overflow);
}

TEST_F(PrintStackTest, TooWideABackIsAnOverflow) {
  AddCard(u"one", Text(327, u'b'));
  EXPECT_EQ(Print(), FileStatus::Ok);
  stack.SetSideText(1, Back, Text(328, u'b'));
  EXPECT_EQ(Print(), FileStatus::Overflow);
}

TEST_F(PrintStackTest, TooFarAnIndentIsAnOverflowWhereItIsNeeded) {
  settings.margin = 136;  // 32,640; a line more is too far
  AddCard(u"", u"uno");
  EXPECT_EQ(Print(), FileStatus::Overflow);
  stack.CardCount = 0;
  EXPECT_EQ(Print(), FileStatus::Ok);
}

TEST_F(PrintStackTest, TallPagesAndWideFrontsAreNoOverflow) {
  printer.height = 40'000;
  AddCard(Text(400, u'f'), u"uno");
  EXPECT_EQ(Print(), FileStatus::Ok);
}

// --- progress

TEST_F(PrintStackTest, TellsItsProgressBeforeEachCard) {
  for (int card = 1; card <= 3; ++card) AddCard(u"one", u"uno");
  std::vector<int> told;
  progress = [&told](int cards) {
    told.push_back(cards);
    return true;
  };
  EXPECT_EQ(Print(), FileStatus::Ok);
  EXPECT_EQ(told, (std::vector{0, 1, 2}));
}

TEST_F(PrintStackTest, CanBeCancelled) {
  for (int card = 1; card <= 3; ++card) AddCard(u"one", u"uno");
  int calls = 0;
  progress = [&calls](int) { return ++calls < 2; };
  EXPECT_EQ(Print(), FileStatus::Declined);
  EXPECT_EQ(calls, 2);
}

// --- the dialog's texts

TEST(StripCrLf, ReplacesPairsOnly) {
  EXPECT_EQ(StripCrLf(u"a\r\nb"), u"a b");
  EXPECT_EQ(StripCrLf(u"\r\n\r\n"), u"  ");
  EXPECT_EQ(StripCrLf(u"a\rb\nc"), u"a\rb\nc");
  EXPECT_EQ(StripCrLf(u""), u"");
}

TEST(SizeOf, KeepsWhatLiesAboveZeroAndUpTo32) {
  const std::pair<TextView, float> table[] = {{u"32", 32.F},   {u"8.25", 8.25F}, {u"12", 12.F},
                                              {u".5", 0.5F},   {u"9.", 9.F},     {u"1.2.3", 1.2F},
                                              {u"31.9", 31.9F}};
  for (const auto& [typed, size] : table) EXPECT_EQ(SizeOf(typed), size) << ToUtf8(typed);
}

TEST(SizeOf, IsTheDefaultForEverythingElse) {
  for (const TextView typed : {u"40", u"32.1", u"33", u"", u".", u"0", u"0.0", u"abc", u"-5",
                               u"99999999999999999999999999999999999999999999"}) {
    EXPECT_EQ(SizeOf(typed), 8.25F) << ToUtf8(typed);
  }
}

TEST(RepairedMargin, ReplacesValuesAbove40) {
  for (const TextView kept : {u"0", u"5", u"40", u"007", u""}) {
    EXPECT_EQ(RepairedMargin(kept), kept);
  }
  for (const TextView repaired : {u"41", u"99", u"100000000000000000000000"}) {
    EXPECT_EQ(RepairedMargin(repaired), u"5");
  }
}

TEST(PrintCaption, HoldsTheNameInItsFullWidth) {
  CardStack stack;
  stack.StackName = u"verbs.QBC";
  EXPECT_EQ(PrintCaption(stack), u"Quib!Cards 5.50 - verbs.QBC" + Text(256 - 9, u' '));
  EXPECT_EQ(PrintAction(stack), u"Print verbs.QBC" + Text(256 - 9, u' '));
}

TEST(DisplayFontCaption, NamesTheTopic) {
  EXPECT_EQ(DisplayFontCaption(u"Spanish"), u"Quib!Cards 5.50 (Spanish)");
}

TEST(PreviewText, SaysWhichSideItShows) {
  EXPECT_EQ(PreviewText(Front, true), u"This is the front font at the selected size.");
  EXPECT_EQ(PreviewText(Back, true), u"This is the back font at the selected size.");
}

TEST(PreviewText, SaysThatThereIsNone) {
  for (const int side : {Front, Back}) {
    EXPECT_EQ(PreviewText(side, false),
              u"This font is a printer font only.  No preview is possible.");
  }
}

}  // namespace

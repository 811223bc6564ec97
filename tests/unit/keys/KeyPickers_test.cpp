#include "keys/KeyPickers.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>
#include <set>

namespace {

constexpr CharCode Code(int number) { return static_cast<CharCode>(number); }

/// A table with one assignment for each side mark of `sides`.
KeyTable TableOf(std::string_view sides) {
  KeyTable table;
  for (const char side : sides) {
    ++table.KeyCount;
    table.Slots.at(static_cast<std::size_t>(table.KeyCount)) = {Code(side), Code('2'), Code('E'),
                                                                Code('x')};
  }
  return table;
}

TEST(PickerRequest, IsMinusOneForTheFrontAndMinusTwoForTheBack) {
  EXPECT_EQ(PickerRequest(KeySide::Front), -1);
  EXPECT_EQ(PickerRequest(KeySide::Back), -2);
  EXPECT_EQ(RequestedSide(-1), KeySide::Front);
  EXPECT_EQ(RequestedSide(-2), KeySide::Back);
}

TEST(IsForSide, LeavesOutAssignmentsOfTheOtherSideOnly) {
  for (int mark = 0; mark < 256; ++mark) {
    const KeyAssignment assignment{.side = Code(mark)};
    EXPECT_EQ(IsForSide(assignment, KeySide::Front), mark != '2') << mark;
    EXPECT_EQ(IsForSide(assignment, KeySide::Back), mark != '1') << mark;
  }
}

TEST(ChartCode, CountsAllCodesPageByPage) {
  int expected = 0;
  for (int page = 0; page < ChartPages; ++page) {
    for (int key = 0; key < ChartPageSize; ++key) {
      EXPECT_EQ(ChartCode(page, key), Code(expected++));
    }
  }
  EXPECT_EQ(expected, 256);
}

TEST(ChartRangeText, NamesFirstAndLastCodeAsPlainNumbers) {
  EXPECT_EQ(ChartRangeText(0), u"Codes 0 - 31");
  EXPECT_EQ(ChartRangeText(1), u"Codes 32 - 63");
  EXPECT_EQ(ChartRangeText(7), u"Codes 224 - 255");
}

TEST(ChartStatusText, ShowsTheCodeWithFourDigits) {
  EXPECT_EQ(ChartStatusText(Code(0)), u"Code - 0000");
  EXPECT_EQ(ChartStatusText(Code(9)), u"Code - 0009");
  EXPECT_EQ(ChartStatusText(Code(65)), u"Code - 0065");
  EXPECT_EQ(ChartStatusText(Code(255)), u"Code - 0255");
}

TEST(IsControlCode, HoldsForTheCodesWithoutAGlyph) {
  const std::set<int> high = {127, 129, 141, 143, 144, 157};
  for (int code = 0; code < 256; ++code) {
    EXPECT_EQ(IsControlCode(Code(code)), code < 32 || high.contains(code)) << code;
  }
}

TEST(InvisibleName, NamesControlsAndBlanksAndNothingElse) {
  std::set<Text> names;
  for (int code = 0; code < 256; ++code) {
    const TextView name = InvisibleName(Code(code));
    const bool invisible = IsControlCode(Code(code)) || code == 32 || code == 160 || code == 173;
    EXPECT_EQ(!name.empty(), invisible) << code;
    names.insert(Text(name));
  }
  EXPECT_EQ(names.size(), 42U) << "41 different names, and none";
}

TEST(InvisibleName, KnowsTheUsualAbbreviations) {
  EXPECT_EQ(InvisibleName(Code(0)), u"NUL");
  EXPECT_EQ(InvisibleName(Code(9)), u"HT");
  EXPECT_EQ(InvisibleName(Code(13)), u"CR");
  EXPECT_EQ(InvisibleName(Code(27)), u"ESC");
  EXPECT_EQ(InvisibleName(Code(31)), u"US");
  EXPECT_EQ(InvisibleName(Code(127)), u"DEL");
  EXPECT_EQ(InvisibleName(Code(160)), u"NBSP");
}

TEST(PickerScrollMaximum, IsKeptAsComputedBelowOne) {
  EXPECT_EQ(PickerScrollMaximum(0), -4);
  EXPECT_EQ(PickerScrollMaximum(3), -1);
  EXPECT_EQ(PickerScrollMaximum(5), 1);
  EXPECT_EQ(PickerScrollMaximum(30), 26);
}

TEST(PickerSlot, ShowsTheSlotsInUseOnly) {
  const KeyTable keys = TableOf("333");
  EXPECT_EQ(PickerSlot(keys, 1, 0), 1);
  EXPECT_EQ(PickerSlot(keys, 1, 2), 3);
  EXPECT_EQ(PickerSlot(keys, 1, 3), std::nullopt);
  EXPECT_EQ(PickerSlot(keys, 3, 0), 3);
  EXPECT_EQ(PickerSlot(keys, -1, 0), std::nullopt);
  EXPECT_EQ(PickerSlot(keys, -1, 1), std::nullopt);
}

TEST(IsRowChoosable, HoldsForTheRequestedSideAndForBoth) {
  const KeyTable keys = TableOf("123");
  EXPECT_TRUE(IsRowChoosable(keys, 1, 0, KeySide::Front));
  EXPECT_FALSE(IsRowChoosable(keys, 1, 1, KeySide::Front));
  EXPECT_TRUE(IsRowChoosable(keys, 1, 2, KeySide::Front));
  EXPECT_FALSE(IsRowChoosable(keys, 1, 0, KeySide::Back));
  EXPECT_TRUE(IsRowChoosable(keys, 1, 1, KeySide::Back));
  EXPECT_TRUE(IsRowChoosable(keys, 1, 2, KeySide::Back));
}

TEST(IsRowChoosable, NeverHoldsForABlankRow) {
  EXPECT_FALSE(IsRowChoosable(TableOf("3"), 1, 1, KeySide::Front));
  EXPECT_FALSE(IsRowChoosable(TableOf(""), 1, 0, KeySide::Front));
}

TEST(KeystrokeText, NamesModifiersAndKey) {
  EXPECT_EQ(KeystrokeText({Code('3'), Code('7'), Code('E'), Code('x')}), u"Shift+Ctrl+Alt+E");
  EXPECT_EQ(KeystrokeText({Code('3'), Code('2'), Code(190), Code('x')}), u"Ctrl+.");
}

TEST(ChoosableSlotFrom, SkipsTheOtherSide) {
  const KeyTable keys = TableOf("12213");
  EXPECT_EQ(ChoosableSlotFrom(keys, 0, 1, KeySide::Front), 1);
  EXPECT_EQ(ChoosableSlotFrom(keys, 1, 1, KeySide::Front), 4);
  EXPECT_EQ(ChoosableSlotFrom(keys, 4, -1, KeySide::Front), 1);
  EXPECT_EQ(ChoosableSlotFrom(keys, 0, 1, KeySide::Back), 2);
}

TEST(ChoosableSlotFrom, GoesAsFarAsItCan) {
  const KeyTable keys = TableOf("333");
  EXPECT_EQ(ChoosableSlotFrom(keys, 1, 5, KeySide::Front), 3);
  EXPECT_EQ(ChoosableSlotFrom(keys, 4, -2, KeySide::Front), 2);
  EXPECT_EQ(ChoosableSlotFrom(keys, 3, 1, KeySide::Front), std::nullopt);
  EXPECT_EQ(ChoosableSlotFrom(keys, 1, -1, KeySide::Front), std::nullopt);
  EXPECT_EQ(ChoosableSlotFrom(TableOf("22"), 0, 1, KeySide::Front), std::nullopt);
}

TEST(TopThatShows, ScrollsNoFurtherThanItMust) {
  EXPECT_EQ(TopThatShows(3, 1), 1);
  EXPECT_EQ(TopThatShows(5, 1), 1);
  EXPECT_EQ(TopThatShows(6, 1), 2);
  EXPECT_EQ(TopThatShows(30, 1), 26);
  EXPECT_EQ(TopThatShows(2, 10), 2);
}

}  // namespace

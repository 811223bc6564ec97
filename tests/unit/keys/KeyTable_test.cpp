#include "keys/KeyTable.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

constexpr CharCode Code(int number) { return static_cast<CharCode>(number); }

KeyAssignment Assignment(char side, char modifiers, int key, int character) {
  return {Code(side), Code(modifiers), Code(key), Code(character)};
}

KeyTable TableOf(std::initializer_list<KeyAssignment> assignments) {
  KeyTable table;
  for (const KeyAssignment& assignment : assignments) {
    ++table.KeyCount;
    table.Slots.at(static_cast<std::size_t>(table.KeyCount)) = assignment;
  }
  return table;
}

void ExpectSameKeys(const KeyTable& actual, const KeyTable& expected) {
  ASSERT_EQ(actual.KeyCount, expected.KeyCount);
  for (int i = 1; i <= expected.KeyCount; ++i) EXPECT_EQ(actual.Slot(i), expected.Slot(i)) << i;
}

TEST(KeyTable, HasNoKeysAtFirst) { EXPECT_EQ(KeyTable().KeyCount, 0); }

TEST(KeyTable, HasTheSlots1To30) {
  const KeyTable table;
  EXPECT_NO_THROW((void)table.Slot(1));
  EXPECT_NO_THROW((void)table.Slot(30));
  for (const int index : {-1, 0, 31}) {
    try {
      (void)table.Slot(index);
      ADD_FAILURE() << index;
    } catch (const Fault& fault) {
      EXPECT_EQ(fault.Number(), FileStatus::SubscriptOutOfRange);
    }
  }
}

TEST(KeysText, WritesFourCharactersAnAssignmentAndPadsTo120) {
  const KeyTable table =
      TableOf({Assignment('1', '2', 'E', 0xE9), Assignment('3', '6', 'N', 0xF1)});
  EXPECT_EQ(KeysText(table), u"12E\u00E936N\u00F1" + Text(112, u' '));
}

TEST(KeysText, OfAnEmptyTableIs120Blanks) { EXPECT_EQ(KeysText(KeyTable()), Text(120, u' ')); }

TEST(KeysText, LeavesOutSlotsWithoutModifiers) {
  const KeyTable table = TableOf({Assignment('1', '2', 'A', 'a'), Assignment('1', ' ', 'B', 'b'),
                                  Assignment('1', '4', 'C', 'c')});
  EXPECT_EQ(KeysText(table), u"12Aa14Cc" + Text(112, u' '));
}

TEST(KeysText, NeverWritesSlot0) {
  KeyTable table;
  table.Slots[0] = Assignment('1', '2', 'A', 'a');
  EXPECT_EQ(KeysText(table), Text(120, u' '));
}

TEST(KeysText, HasRoomForAllThirty) {
  KeyTable table;
  Text expected;
  for (int i = 1; i <= 30; ++i) {
    table.Slots[static_cast<std::size_t>(i)] = Assignment('3', '4', 'A' - 1 + i, '0' + i);
    expected +=
        Text{u'3', u'4', static_cast<char16_t>('A' - 1 + i), static_cast<char16_t>('0' + i)};
  }
  table.KeyCount = 30;
  EXPECT_EQ(KeysText(table), expected);
}

TEST(KeysText, WritesKeysAsCharactersOfTheCodePage) {
  EXPECT_EQ(KeysText(TableOf({Assignment('3', '2', 190, 0x80)})).substr(0, 4), u"32\u00BE\u20AC");
}

TEST(ParseKeysText, OfNothingHasNoKeys) {
  EXPECT_EQ(ParseKeysText(u"").KeyCount, 0);
  EXPECT_EQ(ParseKeysText(Text(120, u' ')).KeyCount, 0);
}

TEST(ParseKeysText, ReadsRecordsInOrder) {
  ExpectSameKeys(ParseKeysText(u"12E\u00E936N\u00F1" + Text(112, u' ')),
                 TableOf({Assignment('1', '2', 'E', 0xE9), Assignment('3', '6', 'N', 0xF1)}));
}

TEST(ParseKeysText, ReadsAnUnpaddedValue) {
  ExpectSameKeys(ParseKeysText(u"24,."), TableOf({Assignment('2', '4', ',', '.')}));
}

TEST(ParseKeysText, DropsAFragmentAtTheEnd) {
  for (const TextView fragment : {u"3", u"36", u"36N"}) {
    EXPECT_EQ(ParseKeysText(u"12Ee" + Text(fragment)).KeyCount, 1);
    EXPECT_EQ(ParseKeysText(fragment).KeyCount, 0);
  }
}

TEST(ParseKeysText, IgnoresWhatComesAfter120Characters) {
  Text text;
  for (int i = 0; i < 40; ++i) text += u"12Ee";
  const KeyTable table = ParseKeysText(text);
  EXPECT_EQ(table.KeyCount, 30);
  EXPECT_EQ(table.Slot(30), Assignment('1', '2', 'E', 'e'));
}

TEST(ParseKeysText, LosesALastRecordThatTypesABlank) {
  ExpectSameKeys(ParseKeysText(u"12Ee14A "), TableOf({Assignment('1', '2', 'E', 'e')}));
}

TEST(ParseKeysText, KeepsARecordThatTypesABlankBeforeOthers) {
  ExpectSameKeys(ParseKeysText(u"14A 12Ee"),
                 TableOf({Assignment('1', '4', 'A', ' '), Assignment('1', '2', 'E', 'e')}));
}

TEST(ParseKeysText, TakesJunkAsItIs) {
  ExpectSameKeys(ParseKeysText(u"junk, no keys"),
                 TableOf({Assignment('j', 'u', 'n', 'k'), Assignment(',', ' ', 'n', 'o'),
                          Assignment(' ', 'k', 'e', 'y')}));
}

TEST(ParseKeysText, LeavesOutARecordWithACharacterOutsideTheCodePage) {
  ExpectSameKeys(ParseKeysText(u"12Ee12A\u043614Oo"),
                 TableOf({Assignment('1', '2', 'E', 'e'), Assignment('1', '4', 'O', 'o')}));
}

TEST(ParseKeysText, RoundTripsEveryCharacterCode) {
  for (int code = 1; code < 256; ++code) {
    const KeyTable table =
        TableOf({Assignment('3', '2', 'K', code), Assignment('1', '4', 'L', 'l')});
    ExpectSameKeys(ParseKeysText(KeysText(table)), table);
  }
}

TEST(ParseKeysText, RoundTripsEveryCharacterCodeButTheBlankInTheLastRecord) {
  for (int code = 1; code < 256; ++code) {
    if (code == ' ') continue;
    const KeyTable table = TableOf({Assignment('3', '2', 'K', code)});
    ExpectSameKeys(ParseKeysText(KeysText(table)), table);
  }
}

TEST(ParseKeysText, RoundTripsEveryKeyCode) {
  for (int code = 1; code < 256; ++code) {
    const KeyTable table = TableOf({Assignment('2', '7', code, 'x')});
    ExpectSameKeys(ParseKeysText(KeysText(table)), table);
  }
}

TEST(ParseKeysText, RoundTripsAFullTable) {
  KeyTable table;
  for (int i = 1; i <= 30; ++i) {
    table.Slots[static_cast<std::size_t>(i)] = Assignment('3', '6', 'A' - 1 + i, 225 + i);
  }
  table.KeyCount = 30;
  ExpectSameKeys(ParseKeysText(KeysText(table)), table);
}

}  // namespace

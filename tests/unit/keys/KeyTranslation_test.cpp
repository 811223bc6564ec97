#include "keys/KeyTranslation.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>

namespace {

constexpr CharCode Code(int number) { return static_cast<CharCode>(number); }

class TranslateKeyDownTest : public testing::Test {
 protected:
  void Add(char side, char modifiers, int key, int character) {
    ++table.KeyCount;
    table.Slots.at(static_cast<std::size_t>(table.KeyCount)) = {Code(side), Code(modifiers),
                                                                Code(key), Code(character)};
  }
  /// Presses a key; `keyCode` tells afterwards whether it was swallowed.
  bool Press(int key, int shift) {
    keyCode = key;
    return TranslateKeyDown(table, field, keyCode, shift);
  }
  void ExpectUntouched() const {
    EXPECT_EQ(field.text, u"abc");
    EXPECT_EQ(field.SelStart, 1U);
  }

  KeyTable table;
  FieldContent field{u"abc", 1};
  Int16 keyCode = 0;
};

TEST_F(TranslateKeyDownTest, TypesTheCharacterAtTheCaret) {
  Add('1', '2', 'E', 0xE9);
  EXPECT_TRUE(Press('E', CtrlModifier));
  EXPECT_EQ(field.text, u"a\u00E9bc");
  EXPECT_EQ(field.SelStart, 2U);
  EXPECT_EQ(keyCode, 0);
}

TEST_F(TranslateKeyDownTest, TypesAtTheStart) {
  Add('3', '2', 'E', 0xE9);
  field.SelStart = 0;
  EXPECT_TRUE(Press('E', CtrlModifier));
  EXPECT_EQ(field.text, u"\u00E9abc");
  EXPECT_EQ(field.SelStart, 1U);
}

TEST_F(TranslateKeyDownTest, TypesAtTheEnd) {
  Add('3', '2', 'E', 0xE9);
  field.SelStart = 3;
  EXPECT_TRUE(Press('E', CtrlModifier));
  EXPECT_EQ(field.text, u"abc\u00E9");
  EXPECT_EQ(field.SelStart, 4U);
}

TEST_F(TranslateKeyDownTest, TypesAtTheEndWhenTheCaretIsBehindIt) {
  Add('3', '2', 'E', 0xE9);
  field.SelStart = 10;
  EXPECT_TRUE(Press('E', CtrlModifier));
  EXPECT_EQ(field.text, u"abc\u00E9");
  EXPECT_EQ(field.SelStart, 4U);
}

TEST_F(TranslateKeyDownTest, TypesIntoAnEmptyField) {
  Add('3', '2', 'E', 0xE9);
  field = {};
  EXPECT_TRUE(Press('E', CtrlModifier));
  EXPECT_EQ(field.text, u"\u00E9");
}

TEST_F(TranslateKeyDownTest, TypesTheCharacterOfEveryCode) {
  for (int code = 1; code < 256; ++code) {
    table = {};
    field = {};
    Add('3', '4', 'A', code);
    EXPECT_TRUE(Press('A', AltModifier));
    EXPECT_EQ(field.text, Text(1, CharOfCode(Code(code))));
  }
}

TEST_F(TranslateKeyDownTest, MatchesTheModifiersExactly) {
  for (int assigned = 1; assigned <= 7; ++assigned) {
    for (int pressed = 2; pressed <= 7; ++pressed) {
      table = {};
      Add('3', static_cast<char>('0' + assigned), 'E', 'x');
      EXPECT_EQ(Press('E', pressed), assigned == pressed) << assigned << " " << pressed;
      EXPECT_EQ(keyCode, 0) << "a key match swallows the keystroke";
    }
  }
}

TEST_F(TranslateKeyDownTest, MatchesEveryKeyCode) {
  for (int key = 1; key < 256; ++key) {
    table = {};
    Add('3', '2', key, 'x');
    EXPECT_TRUE(Press(key, CtrlModifier)) << key;
    EXPECT_FALSE(Press(key == 255 ? 1 : key + 1, CtrlModifier)) << key;
  }
}

TEST_F(TranslateKeyDownTest, LeavesAKeystrokeWithoutCtrlAndAltAlone) {
  Add('3', '1', 'E', 0xE9);
  Add('3', '0', 'F', 0xE9);
  for (const int key : {'E', 'F'}) {
    for (const int shift : {0, 1}) {
      EXPECT_FALSE(Press(key, shift));
      EXPECT_EQ(keyCode, key);
      ExpectUntouched();
    }
  }
}

TEST_F(TranslateKeyDownTest, LeavesAKeyWithoutAssignmentAlone) {
  Add('3', '2', 'E', 0xE9);
  EXPECT_FALSE(Press('F', CtrlModifier));
  EXPECT_EQ(keyCode, 'F');
  ExpectUntouched();
}

TEST_F(TranslateKeyDownTest, LeavesEveryKeyAloneWithAnEmptyTable) {
  for (int key = 1; key < 256; ++key) {
    EXPECT_FALSE(Press(key, CtrlModifier | AltModifier));
    EXPECT_EQ(keyCode, key);
  }
  ExpectUntouched();
}

TEST_F(TranslateKeyDownTest, SwallowsAKeyWithOtherModifiers) {
  Add('3', '2', 'E', 0xE9);
  EXPECT_FALSE(Press('E', AltModifier));
  EXPECT_EQ(keyCode, 0);
  ExpectUntouched();
}

TEST_F(TranslateKeyDownTest, NeverReachesALaterSlotWithTheSameKey) {
  Add('1', '2', 'E', 0xE9);
  Add('2', '2', 'E', 0xE8);
  Add('3', '4', 'E', 0xEA);
  EXPECT_FALSE(Press('E', AltModifier));
  EXPECT_EQ(keyCode, 0);
  ExpectUntouched();
}

TEST_F(TranslateKeyDownTest, TakesTheFirstOfTwoEqualSlots) {
  Add('1', '2', 'E', 0xE9);
  Add('2', '2', 'E', 0xE8);
  EXPECT_TRUE(Press('E', CtrlModifier));
  EXPECT_EQ(field.text, u"a\u00E9bc");
}

TEST_F(TranslateKeyDownTest, FindsALaterSlotBehindOtherKeys) {
  Add('3', '2', 'A', 'x');
  Add('3', '2', 'B', 'y');
  Add('3', '2', 'C', 'z');
  EXPECT_TRUE(Press('C', CtrlModifier));
  EXPECT_EQ(field.text, u"azbc");
}

TEST_F(TranslateKeyDownTest, AssignmentsOfAnySideWorkInAnyField) {
  for (const char side : {'1', '2', '3'}) {
    table = {};
    field = {u"abc", 1};
    Add(side, '2', 'E', 'x');
    EXPECT_TRUE(Press('E', CtrlModifier)) << side;
    EXPECT_EQ(field.text, u"axbc") << side;
  }
}

TEST_F(TranslateKeyDownTest, AShiftAssignmentSwallowsItsKeyUnderCtrl) {
  Add('3', '1', 'E', 0xE9);
  EXPECT_FALSE(Press('E', ShiftModifier | CtrlModifier));
  EXPECT_EQ(keyCode, 0);
  ExpectUntouched();
}

TEST_F(TranslateKeyDownTest, ChecksNoLength) {
  Add('3', '2', 'E', 'x');
  field = {Text(256, u'a'), 256};
  EXPECT_TRUE(Press('E', CtrlModifier));
  EXPECT_EQ(field.text, Text(256, u'a') + u"x");
}

TEST_F(TranslateKeyDownTest, LooksAtSlotsInUseOnly) {
  Add('3', '2', 'E', 'x');
  table.KeyCount = 0;
  EXPECT_FALSE(Press('E', CtrlModifier));
  EXPECT_EQ(keyCode, 'E');
}

TEST_F(TranslateKeyDownTest, ReachesTheThirtiethSlot) {
  for (int i = 1; i <= 29; ++i) Add('3', '2', 100 + i, 'x');
  Add('3', '6', 'N', 0xF1);
  EXPECT_TRUE(Press('N', CtrlModifier | AltModifier));
  EXPECT_EQ(field.text, u"a\u00F1bc");
}

}  // namespace

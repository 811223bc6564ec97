#include "keys/KeyNames.h"

#include "tests/support/TextPrinters.h"

#include <gtest/gtest.h>
#include <map>

namespace {

constexpr CharCode Code(int number) { return static_cast<CharCode>(number); }

const std::map<int, char>& Punctuation() {
  static const std::map<int, char> keys = {
      {186, ';'}, {187, '='}, {188, ','},  {189, '-'}, {190, '.'},  {191, '/'},
      {192, '`'}, {219, '['}, {220, '\\'}, {221, ']'}, {222, '\''},
  };
  return keys;
}

KeyAssignment Assignment(char side, char modifiers, int key, int character) {
  return {Code(side), Code(modifiers), Code(key), Code(character)};
}

TEST(ModifierName, NamesEverySumInTheOrderShiftCtrlAlt) {
  constexpr std::array<TextView, 8> Names = {
      u"",     u"Shift+",     u"Ctrl+",     u"Shift+Ctrl+",
      u"Alt+", u"Shift+Alt+", u"Ctrl+Alt+", u"Shift+Ctrl+Alt+"};
  for (int modifiers = 0; modifiers < 8; ++modifiers) {
    EXPECT_EQ(ModifierName(modifiers), Names[static_cast<std::size_t>(modifiers)]);
  }
}

TEST(ModifierName, LooksAtTheThreeBitsOnly) {
  EXPECT_EQ(ModifierName(8), u"");
  EXPECT_EQ(ModifierName(9), u"Shift+");
}

TEST(KeyCodeToChar, ShowsPunctuationKeysAsTheirCharacterAndAllOthersUnchanged) {
  for (int code = 0; code < 256; ++code) {
    const auto key = Punctuation().find(code);
    const int expected = key == Punctuation().end() ? code : key->second;
    EXPECT_EQ(KeyCodeToChar(Code(code)), Code(expected)) << code;
  }
}

TEST(CharToKeyCode, IsTheInverse) {
  for (int code = 0; code < 256; ++code) {
    int expected = code;
    for (const auto& [key, character] : Punctuation()) {
      if (character == code) expected = key;
    }
    EXPECT_EQ(CharToKeyCode(Code(code)), Code(expected)) << code;
  }
}

TEST(CharToKeyCode, ComesBackFromEveryPunctuationKey) {
  for (const auto& [key, character] : Punctuation()) {
    EXPECT_EQ(CharToKeyCode(KeyCodeToChar(Code(key))), Code(key));
    EXPECT_EQ(KeyCodeToChar(CharToKeyCode(Code(character))), Code(character));
  }
}

TEST(KeyAssignmentText, NamesCharacterModifiersAndKey) {
  EXPECT_EQ(KeyAssignmentText(Assignment('1', '2', 'E', 0xE9)), u"\u00E9 = Ctrl+E");
  EXPECT_EQ(KeyAssignmentText(Assignment('3', '6', 'N', 0xF1)), u"\u00F1 = Ctrl+Alt+N");
  EXPECT_EQ(KeyAssignmentText(Assignment('3', '7', 190, 0x80)), u"\u20AC = Shift+Ctrl+Alt+.");
}

TEST(KeyAssignmentText, NamesNoModifiersWhereTheFieldIsNoDigit) {
  EXPECT_EQ(KeyAssignmentText(Assignment('3', 'x', 'E', 'e')), u"e = E");
}

TEST(KeyAssignmentText, ShowsEveryCharacterOfTheCodePage) {
  for (int code = 0; code < 256; ++code) {
    EXPECT_EQ(KeyAssignmentText(Assignment('3', '4', 'A', code)),
              Text(1, CharOfCode(Code(code))) + u" = Alt+A");
  }
}

TEST(KeyAssignmentText, HasNoSideInFront) {
  EXPECT_EQ(KeyAssignmentText(Assignment('2', '4', 'A', 'a')), u"a = Alt+A");
}

TEST(KeyAssignmentListText, PutsTheSideInFront) {
  EXPECT_EQ(KeyAssignmentListText(Assignment('1', '2', 'E', 'e')), u"[F] e = Ctrl+E");
  EXPECT_EQ(KeyAssignmentListText(Assignment('2', '2', 'E', 'e')), u"[B] e = Ctrl+E");
  EXPECT_EQ(KeyAssignmentListText(Assignment('3', '2', 'E', 'e')), u"e = Ctrl+E");
}

TEST(KeyAssignmentListText, PutsNothingInFrontForAnUnknownSide) {
  EXPECT_EQ(KeyAssignmentListText(Assignment('0', '2', 'E', 'e')), u"e = Ctrl+E");
}

}  // namespace

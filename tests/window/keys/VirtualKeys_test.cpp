#include "windows/keys/VirtualKeys.h"

#include <QKeyEvent>

#include <gtest/gtest.h>
#include <map>

namespace {

int CodeOf(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, quint32 scanCode = 0) {
  return VirtualKeyOf(QKeyEvent(QEvent::KeyPress, key, modifiers, scanCode, 0, 0));
}

int StateOf(Qt::KeyboardModifiers modifiers, int key = Qt::Key_E) {
  return ShiftStateOf(QKeyEvent(QEvent::KeyPress, key, modifiers));
}

/// A key with a symbol of its own, on the US layout.
struct SymbolKey {
  int code;
  char plain;
  char shifted;
  quint32 scanCode;
};

constexpr SymbolKey SymbolKeys[] = {
    {'1', '1', '!', 10},  {'2', '2', '@', 11}, {'3', '3', '#', 12},  {'4', '4', '$', 13},
    {'5', '5', '%', 14},  {'6', '6', '^', 15}, {'7', '7', '&', 16},  {'8', '8', '*', 17},
    {'9', '9', '(', 18},  {'0', '0', ')', 19}, {186, ';', ':', 47},  {187, '=', '+', 21},
    {188, ',', '<', 59},  {189, '-', '_', 20}, {190, '.', '>', 60},  {191, '/', '?', 61},
    {192, '`', '~', 49},  {219, '[', '{', 34}, {220, '\\', '|', 51}, {221, ']', '}', 35},
    {222, '\'', '"', 48},
};

/// The scan codes of the letter keys.
const std::map<char, quint32> LetterScanCodes = {
    {'Q', 24}, {'W', 25}, {'E', 26}, {'R', 27}, {'T', 28}, {'Y', 29}, {'U', 30},
    {'I', 31}, {'O', 32}, {'P', 33}, {'A', 38}, {'S', 39}, {'D', 40}, {'F', 41},
    {'G', 42}, {'H', 43}, {'J', 44}, {'K', 45}, {'L', 46}, {'Z', 52}, {'X', 53},
    {'C', 54}, {'V', 55}, {'B', 56}, {'N', 57}, {'M', 58}};

TEST(VirtualKeyOf, NamesLettersByTheirCapital) {
  for (int letter = 'A'; letter <= 'Z'; ++letter) {
    EXPECT_EQ(CodeOf(letter), letter);
    EXPECT_EQ(CodeOf(letter, Qt::ShiftModifier | Qt::ControlModifier), letter);
  }
}

TEST(VirtualKeyOf, TakesALetterFromTheLayoutAndNotFromTheScanCode) {
  EXPECT_EQ(CodeOf(Qt::Key_Q, Qt::ControlModifier, 38), 'Q') << "where A is on the US layout";
  EXPECT_EQ(CodeOf(Qt::Key_M, Qt::ControlModifier, 47), 'M') << "where ; is on the US layout";
}

TEST(VirtualKeyOf, NamesTheLettersOfOtherScriptsByTheirKey) {
  constexpr int CyrillicU = 0x423;
  for (const auto& [letter, scanCode] : LetterScanCodes) {
    EXPECT_EQ(CodeOf(CyrillicU, Qt::ControlModifier, scanCode), letter);
  }
  EXPECT_EQ(LetterScanCodes.size(), 26U);
}

TEST(VirtualKeyOf, NamesDigitsAndPunctuationByTheirSymbols) {
  for (const SymbolKey& key : SymbolKeys) {
    EXPECT_EQ(CodeOf(key.plain), key.code) << key.plain;
    EXPECT_EQ(CodeOf(key.shifted, Qt::ShiftModifier), key.code) << key.shifted;
  }
}

TEST(VirtualKeyOf, NamesDigitsAndPunctuationByTheirScanCodes) {
  for (const SymbolKey& key : SymbolKeys) {
    EXPECT_EQ(CodeOf(key.plain, Qt::NoModifier, key.scanCode), key.code) << key.plain;
    EXPECT_EQ(CodeOf(key.shifted, Qt::ShiftModifier, key.scanCode), key.code) << key.shifted;
  }
}

TEST(VirtualKeyOf, BelievesTheScanCodeRatherThanTheSymbol) {
  EXPECT_EQ(CodeOf(Qt::Key_Colon, Qt::ShiftModifier, 60), 190) << "Shift+. on a German keyboard";
  EXPECT_EQ(CodeOf(Qt::Key_Ampersand, Qt::NoModifier, 10), '1') << "1 on a French keyboard";
}

TEST(VirtualKeyOf, NamesTheKeyBesideTheLeftShiftByItsScanCodeAlone) {
  EXPECT_EQ(CodeOf(Qt::Key_Less, Qt::NoModifier, 94), 226);
  EXPECT_EQ(CodeOf(Qt::Key_Less), 188);
}

TEST(VirtualKeyOf, NamesKeypadDigitsAndOperators) {
  for (int digit = 0; digit <= 9; ++digit) {
    EXPECT_EQ(CodeOf(Qt::Key_0 + digit, Qt::KeypadModifier), 96 + digit);
  }
  const std::map<int, int> operators = {{Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107},
                                        {Qt::Key_Minus, 109},    {Qt::Key_Period, 110},
                                        {Qt::Key_Comma, 110},    {Qt::Key_Slash, 111}};
  for (const auto& [key, code] : operators) {
    EXPECT_EQ(CodeOf(key, Qt::KeypadModifier, 63), code) << key;
  }
}

TEST(VirtualKeyOf, NamesKeypadKeysWithoutNumLockByTheirNavigation) {
  EXPECT_EQ(CodeOf(Qt::Key_Home, Qt::KeypadModifier), 36);
  EXPECT_EQ(CodeOf(Qt::Key_Clear, Qt::KeypadModifier), 12);
  EXPECT_EQ(CodeOf(Qt::Key_Delete, Qt::KeypadModifier), 46);
  EXPECT_EQ(CodeOf(Qt::Key_Enter, Qt::KeypadModifier), 13);
}

TEST(VirtualKeyOf, NamesFunctionKeys) {
  for (int number = 1; number <= 24; ++number) {
    EXPECT_EQ(CodeOf(Qt::Key_F1 + number - 1), 111 + number);
  }
}

TEST(VirtualKeyOf, NamesNavigationEditingAndModifierKeys) {
  const std::map<int, int> codes = {
      {Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},         {Qt::Key_Backtab, 9},
      {Qt::Key_Clear, 12},    {Qt::Key_Return, 13},     {Qt::Key_Enter, 13},
      {Qt::Key_Shift, 16},    {Qt::Key_Control, 17},    {Qt::Key_Alt, 18},
      {Qt::Key_Pause, 19},    {Qt::Key_CapsLock, 20},   {Qt::Key_Escape, 27},
      {Qt::Key_Space, 32},    {Qt::Key_PageUp, 33},     {Qt::Key_PageDown, 34},
      {Qt::Key_End, 35},      {Qt::Key_Home, 36},       {Qt::Key_Left, 37},
      {Qt::Key_Up, 38},       {Qt::Key_Right, 39},      {Qt::Key_Down, 40},
      {Qt::Key_Print, 44},    {Qt::Key_Insert, 45},     {Qt::Key_Delete, 46},
      {Qt::Key_Help, 47},     {Qt::Key_Meta, 91},       {Qt::Key_Menu, 93},
      {Qt::Key_NumLock, 144}, {Qt::Key_ScrollLock, 145}};
  for (const auto& [key, code] : codes) EXPECT_EQ(CodeOf(key), code) << std::hex << key;
}

TEST(VirtualKeyOf, NeverTakesASymbolForTheKeyOfTheSameNumber) {
  EXPECT_EQ(CodeOf(Qt::Key_Exclam, Qt::ShiftModifier), '1') << "33 is Page Up";
  EXPECT_EQ(CodeOf(Qt::Key_Period), 190) << "46 is Delete";
  EXPECT_EQ(CodeOf(Qt::Key_Apostrophe), 222) << "39 is Right";
  EXPECT_EQ(CodeOf(Qt::Key_QuoteLeft), 192) << "96 is the keypad's 0";
}

TEST(VirtualKeyOf, KnowsNoCodeForOtherKeys) {
  for (const int key : {0, int{Qt::Key_unknown}, int{Qt::Key_VolumeUp}, int{Qt::Key_Dead_Acute}}) {
    EXPECT_EQ(CodeOf(key), 0) << key;
  }
}

TEST(VirtualKeyOf, KnowsDeadKeysByTheirPlace) {
  EXPECT_EQ(CodeOf(Qt::Key_Dead_Circumflex, Qt::ControlModifier, 34), 219) << "^ in France";
  EXPECT_EQ(CodeOf(Qt::Key_Dead_Acute, Qt::ControlModifier, 48), 191) << "where ' is elsewhere";
}

std::optional<int> DigitOf(int key, Qt::KeyboardModifiers modifiers = {}, quint32 scanCode = 0) {
  return DigitOfKey(QKeyEvent(QEvent::KeyPress, key, modifiers, scanCode, 0, 0));
}

TEST(DigitOfKey, IsByPlaceWhateverTheLayoutPrintsThere) {
  EXPECT_EQ(DigitOf(Qt::Key_Ampersand, {}, 10), 1);
  EXPECT_EQ(DigitOf(Qt::Key_1, Qt::ShiftModifier, 10), 1);
  EXPECT_EQ(DigitOf(Qt::Key_QuoteDbl, {}, 12), 3);
  EXPECT_EQ(DigitOf(Qt::Key_Agrave, {}, 19), 0);
}

TEST(DigitOfKey, KnowsTheKeypadAndKeysWithoutAPlace) {
  EXPECT_EQ(DigitOf(Qt::Key_4, Qt::KeypadModifier, 83), 4);
  EXPECT_EQ(DigitOf(Qt::Key_2), 2);
}

TEST(DigitOfKey, IsNothingForOtherKeys) {
  EXPECT_FALSE(DigitOf(Qt::Key_Left, Qt::KeypadModifier, 83));
  EXPECT_FALSE(DigitOf(Qt::Key_Plus, Qt::KeypadModifier, 86));
  EXPECT_FALSE(DigitOf(Qt::Key_Escape, {}, 9));
  EXPECT_FALSE(DigitOf(Qt::Key_Return, {}, 36));
  EXPECT_FALSE(DigitOf(Qt::Key_Space, {}, 65));
  EXPECT_FALSE(DigitOf(Qt::Key_F1, {}, 67));
  EXPECT_FALSE(DigitOf(Qt::Key_Q, {}, 24));
}

TEST(ShiftStateOf, AddsShiftCtrlAndAlt) {
  for (int state = 0; state < 8; ++state) {
    Qt::KeyboardModifiers modifiers;
    if ((state & 1) != 0) modifiers |= Qt::ShiftModifier;
    if ((state & 2) != 0) modifiers |= Qt::ControlModifier;
    if ((state & 4) != 0) modifiers |= Qt::AltModifier;
    EXPECT_EQ(StateOf(modifiers), state);
    EXPECT_EQ(StateOf(modifiers | Qt::KeypadModifier | Qt::MetaModifier), state);
  }
}

TEST(ShiftStateOf, TakesAltGrForPlainTyping) {
  EXPECT_EQ(StateOf(Qt::GroupSwitchModifier), 0);
  EXPECT_EQ(StateOf(Qt::GroupSwitchModifier | Qt::ControlModifier | Qt::AltModifier), 0);
  EXPECT_EQ(StateOf(Qt::GroupSwitchModifier | Qt::ShiftModifier), 1);
}

}  // namespace

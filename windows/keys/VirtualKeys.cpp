#include "windows/keys/VirtualKeys.h"

#include "keys/KeyAssignment.h"
#include "keys/KeyCodes.h"

#include <QKeyEvent>

#include <array>

namespace {

struct KeyCode {
  int key;  // a Qt::Key
  int code;
};

constexpr int CodeOfKeypadZero = 96;
constexpr int CodeOfF1 = 112;

// Source: the virtual-key codes of the desktop that the key table was made on.
constexpr std::array SpecialKeys = {
    KeyCode{Qt::Key_Backspace, 8}, KeyCode{Qt::Key_Tab, 9},       KeyCode{Qt::Key_Backtab, 9},
    KeyCode{Qt::Key_Clear, 12},    KeyCode{Qt::Key_Return, 13},   KeyCode{Qt::Key_Enter, 13},
    KeyCode{Qt::Key_Shift, 16},    KeyCode{Qt::Key_Control, 17},  KeyCode{Qt::Key_Alt, 18},
    KeyCode{Qt::Key_Pause, 19},    KeyCode{Qt::Key_CapsLock, 20}, KeyCode{Qt::Key_Escape, 27},
    KeyCode{Qt::Key_Space, 32},    KeyCode{Qt::Key_PageUp, 33},   KeyCode{Qt::Key_PageDown, 34},
    KeyCode{Qt::Key_End, 35},      KeyCode{Qt::Key_Home, 36},     KeyCode{Qt::Key_Left, 37},
    KeyCode{Qt::Key_Up, 38},       KeyCode{Qt::Key_Right, 39},    KeyCode{Qt::Key_Down, 40},
    KeyCode{Qt::Key_Print, 44},    KeyCode{Qt::Key_SysReq, 44},   KeyCode{Qt::Key_Insert, 45},
    KeyCode{Qt::Key_Delete, 46},   KeyCode{Qt::Key_Help, 47},     KeyCode{Qt::Key_Meta, 91},
    KeyCode{Qt::Key_Menu, 93},     KeyCode{Qt::Key_NumLock, 144}, KeyCode{Qt::Key_ScrollLock, 145},
};

constexpr std::array KeypadOperators = {
    KeyCode{Qt::Key_Asterisk, 106}, KeyCode{Qt::Key_Plus, 107},  KeyCode{Qt::Key_Minus, 109},
    KeyCode{Qt::Key_Period, 110},   KeyCode{Qt::Key_Comma, 110},  // by the country
    KeyCode{Qt::Key_Slash, 111},
};

// Dead keys by the combining character that they stand for.
constexpr std::array DeadKeys = {
    KeyCode{Qt::Key_Dead_Grave, 0x300},      KeyCode{Qt::Key_Dead_Acute, 0x301},
    KeyCode{Qt::Key_Dead_Circumflex, 0x302}, KeyCode{Qt::Key_Dead_Tilde, 0x303},
    KeyCode{Qt::Key_Dead_Diaeresis, 0x308},
};

template <class Table>
int Find(const Table& table, int key) {
  for (const KeyCode& entry : table) {
    if (entry.key == key) return entry.code;
  }
  return 0;
}

int CodeOfKeypad(int key) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return CodeOfKeypadZero + key - Qt::Key_0;
  return Find(KeypadOperators, key);
}

/// 0 for a key that is no character
char32_t SymbolOf(int key) {
  if (key > 0 && key < Qt::Key_Escape) return static_cast<char32_t>(key);
  return static_cast<char32_t>(Find(DeadKeys, key));
}

PressedKey PressedKeyOf(const QKeyEvent& event) {
  return {.symbol = SymbolOf(event.key()),
          .scanCode = event.nativeScanCode(),
          .shift = (event.modifiers() & Qt::ShiftModifier) != 0};
}

bool IsOnKeypad(const QKeyEvent& event) { return (event.modifiers() & Qt::KeypadModifier) != 0; }

}  // namespace

int VirtualKeyOf(const QKeyEvent& event) {
  const int key = event.key();
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return CodeOfF1 + key - Qt::Key_F1;
  if (IsOnKeypad(event)) {
    if (const int code = CodeOfKeypad(key); code != 0) return code;
  }
  if (const int code = Find(SpecialKeys, key); code != 0) return code;
  return CodeOfTypingKey(PressedKeyOf(event));
}

std::optional<int> DigitOfKey(const QKeyEvent& event) {
  const int key = event.key();
  if (IsOnKeypad(event)) {
    if (key < Qt::Key_0 || key > Qt::Key_9) return std::nullopt;
    return key - Qt::Key_0;
  }
  if (SymbolOf(key) == 0 || key == Qt::Key_Space) return std::nullopt;
  return DigitOfTypingKey(PressedKeyOf(event));
}

int ShiftStateOf(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers = event.modifiers();
  int state = 0;
  if ((modifiers & Qt::ShiftModifier) != 0) state |= ShiftModifier;
  if ((modifiers & Qt::GroupSwitchModifier) != 0) return state;  // AltGr
  if ((modifiers & Qt::ControlModifier) != 0) state |= CtrlModifier;
  if ((modifiers & Qt::AltModifier) != 0) state |= AltModifier;
  return state;
}

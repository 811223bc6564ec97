#include "keys/VirtualKeys.h"

#include "keys/KeyAssignment.h"

#include <QKeyEvent>

#include <array>
#include <string_view>

namespace {

struct KeyCode {
  int key;  // a Qt::Key, or a character
  int code;
};

constexpr int CodeOfKeypadZero = 96;
constexpr int CodeOfF1 = 112;
constexpr int CodeOfOem102 = 226;

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

// The symbols of the US layout, without and with Shift.
constexpr std::array Symbols = {
    KeyCode{')', '0'},  KeyCode{'!', '1'},  KeyCode{'@', '2'}, KeyCode{'#', '3'}, KeyCode{'$', '4'},
    KeyCode{'%', '5'},  KeyCode{'^', '6'},  KeyCode{'&', '7'}, KeyCode{'*', '8'}, KeyCode{'(', '9'},
    KeyCode{';', 186},  KeyCode{':', 186},  KeyCode{'=', 187}, KeyCode{'+', 187}, KeyCode{',', 188},
    KeyCode{'<', 188},  KeyCode{'-', 189},  KeyCode{'_', 189}, KeyCode{'.', 190}, KeyCode{'>', 190},
    KeyCode{'/', 191},  KeyCode{'?', 191},  KeyCode{'`', 192}, KeyCode{'~', 192}, KeyCode{'[', 219},
    KeyCode{'{', 219},  KeyCode{'\\', 220}, KeyCode{'|', 220}, KeyCode{']', 221}, KeyCode{'}', 221},
    KeyCode{'\'', 222}, KeyCode{'"', 222},
};

/// Neighbouring keys of a keyboard row. Scan codes as X11 and Wayland report them: the kernel's
/// code plus 8.
struct KeyRow {
  quint32 firstScanCode;
  std::string_view codes;
};

constexpr std::array KeyRows = {
    KeyRow{10, "1234567890\xBD\xBB"},     // 10..21: digits, - =
    KeyRow{24, "QWERTYUIOP\xDB\xDD"},     // 24..35: letters, [ ]
    KeyRow{38, "ASDFGHJKL\xBA\xDE\xC0"},  // 38..49: letters, ; ' `
    KeyRow{51,
           "\xDC"
           "ZXCVBNM\xBC\xBE\xBF"},  // 51..61: backslash, letters, , . /
};
constexpr quint32 ScanCodeOfOem102 = 94;

template <class Table>
int Find(const Table& table, int key) {
  for (const KeyCode& entry : table) {
    if (entry.key == key) return entry.code;
  }
  return 0;
}

int CodeOfScanCode(quint32 scanCode) {
  for (const KeyRow& row : KeyRows) {
    if (scanCode < row.firstScanCode) continue;
    const quint32 place = scanCode - row.firstScanCode;
    if (place < row.codes.size()) return static_cast<unsigned char>(row.codes[place]);
  }
  return scanCode == ScanCodeOfOem102 ? CodeOfOem102 : 0;
}

int CodeOfKeypad(int key) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return CodeOfKeypadZero + key - Qt::Key_0;
  return Find(KeypadOperators, key);
}

int CodeOfSymbol(int key) {
  if (key >= Qt::Key_0 && key <= Qt::Key_9) return key;
  return Find(Symbols, key);
}

}  // namespace

int VirtualKeyOf(const QKeyEvent& event) {
  const int key = event.key();
  if (key >= Qt::Key_A && key <= Qt::Key_Z) return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return CodeOfF1 + key - Qt::Key_F1;
  if ((event.modifiers() & Qt::KeypadModifier) != 0) {
    if (const int code = CodeOfKeypad(key); code != 0) return code;
  }
  if (const int code = Find(SpecialKeys, key); code != 0) return code;
  // From here on key() is a symbol, which the layout and Shift have chosen; the scan code is the
  // key's own. Without one the symbol has to do.
  if (const int code = CodeOfScanCode(event.nativeScanCode()); code != 0) return code;
  return CodeOfSymbol(key);
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

#include "keys/KeyCodes.h"

#include <array>
#include <string_view>

namespace {

constexpr unsigned ScanCodeOfFirstDigit = 10;
constexpr unsigned ScanCodeOfOem102 = 94;
constexpr int CodeOfOem102 = 226;  // the key beside the left Shift
constexpr int CodeOfOem8 = 223;    // a key that the US layout does not have

// Sources of all codes: the virtual-key codes of the desktop that the key table was made on.
struct SymbolCode {
  char32_t symbol;
  int code;
};

constexpr std::array PlainSymbols = {
    SymbolCode{U',', 188},  SymbolCode{U'-', 189}, SymbolCode{U'.', 190},  SymbolCode{U'/', 191},
    SymbolCode{U';', 186},  SymbolCode{U'=', 187}, SymbolCode{U'`', 192},  SymbolCode{U'[', 219},
    SymbolCode{U'\\', 220}, SymbolCode{U']', 221}, SymbolCode{U'\'', 222},
};

// What Shift makes of them on the US layout.
constexpr std::array ShiftedSymbols = {
    SymbolCode{U'<', 188}, SymbolCode{U'_', 189}, SymbolCode{U'>', 190}, SymbolCode{U'?', 191},
    SymbolCode{U':', 186}, SymbolCode{U'+', 187}, SymbolCode{U'~', 192}, SymbolCode{U'{', 219},
    SymbolCode{U'|', 220}, SymbolCode{U'}', 221}, SymbolCode{U'"', 222},
};

// The digit row with Shift on the US layout, from 0 to 9.
constexpr std::u32string_view ShiftedDigits = U")!@#$%^&*(";

/// A key of some layouts: its place, its symbol, its code.
struct KeyCap {
  unsigned scanCode;
  char32_t symbol;
  int code;
};

// Keys whose own place belongs to a symbol that is on another key. The layouts are named by their
// country.
constexpr std::array MovedKeys = {
    KeyCap{20, U'\u00DF', 191},           // de: sharp s; - is at 61
    KeyCap{20, U'+', 191},                // dk fi no se: - is at 61
    KeyCap{34, U'`', 219},                // es without dead keys: the same key as with them
    KeyCap{48, U'\u00C0', 191},           // it: a grave; ' is at 20 and - at 61
    KeyCap{48, U'\u00B0', 191},           //     the same with Shift
    KeyCap{48, U'\u0301', 191},           // es: acute accent; ' is at 20 and - at 61
    KeyCap{48, U'\u0308', 191},           //     the same with Shift
    KeyCap{48, U'\u00B4', 191},           //     and both without dead keys
    KeyCap{48, U'\u00A8', 191},           //
    KeyCap{48, U'\u00BA', 191},           // pt: masculine ordinal; ' is at 20 and - at 61
    KeyCap{48, U'\u00AA', 191},           //     the same with Shift
    KeyCap{51, U'#', CodeOfOem8},         // gb, where \ is at 94; de, where 94 is another key
    KeyCap{51, U'\'', 220},               // dk fi no se: or it would be one with the key at 48
    KeyCap{51, U'\u00D9', 192},           // it: u grave; \ is at 49
    KeyCap{51, U'\u00A7', 192},           //     the same with Shift
    KeyCap{51, U'\u0303', 192},           // pt: tilde; \ is at 49
    KeyCap{51, U'\u0302', 192},           //     the same with Shift
    KeyCap{60, U'\u042E', CodeOfOem102},  // ru: yu; . is at 61 and / at 94
};

// Keys that Shift gives a symbol that would be taken for another key's.
constexpr std::array ShiftedKeys = {
    KeyCap{21, U'`', 187},          // de without dead keys
    KeyCap{51, U'\'', CodeOfOem8},  // de
    KeyCap{51, U'~', CodeOfOem8},   // gb
    KeyCap{51, U'/', 220},          // ru
    KeyCap{58, U'?', 188},          // fr
    KeyCap{59, U'.', 186},          // fr
    KeyCap{59, U';', 188},          // de es it pt dk fi no se
    KeyCap{60, U'/', 190},          // fr
    KeyCap{60, U':', 190},          // de es it pt dk fi no se
    KeyCap{61, U',', 190},          // ru
    KeyCap{94, U'>', CodeOfOem102},
};

/// Neighbouring keys of a keyboard row and their codes on the US layout.
struct KeyRow {
  unsigned firstScanCode;
  std::string_view codes;
};

constexpr std::array KeyRows = {
    KeyRow{ScanCodeOfFirstDigit, "1234567890\xBD\xBB"},  // 10..21: digits, - =
    KeyRow{24, "QWERTYUIOP\xDB\xDD"},                    // 24..35: letters, [ ]
    KeyRow{38, "ASDFGHJKL\xBA\xDE\xC0"},                 // 38..49: letters, ; ' `
    KeyRow{51,
           "\xDC"
           "ZXCVBNM\xBC\xBE\xBF"},  // 51..61: backslash, letters, , . /
};

bool IsLetter(int code) { return code >= 'A' && code <= 'Z'; }

bool IsDigit(int code) { return code >= '0' && code <= '9'; }

template <class Table>
int FindSymbol(const Table& table, char32_t symbol) {
  for (const SymbolCode& entry : table) {
    if (entry.symbol == symbol) return entry.code;
  }
  return 0;
}

template <class Table>
int FindKeyCap(const Table& table, const PressedKey& key) {
  for (const KeyCap& cap : table) {
    if (cap.scanCode == key.scanCode && cap.symbol == key.symbol) return cap.code;
  }
  return 0;
}

int CodeOfPlace(unsigned scanCode) {
  for (const KeyRow& row : KeyRows) {
    if (scanCode < row.firstScanCode) continue;
    const unsigned place = scanCode - row.firstScanCode;
    if (place < row.codes.size()) return static_cast<unsigned char>(row.codes[place]);
  }
  return scanCode == ScanCodeOfOem102 ? CodeOfOem102 : 0;
}

/// Letters from the Greek ones on, leaving out further Latin letters and the signs.
bool IsLetterOfAnotherScript(char32_t symbol) {
  const bool signs = symbol >= 0x2000 && symbol < 0x2C00;
  const bool latin = symbol >= 0x1E00 && symbol < 0x1F00;
  return symbol >= 0x0370 && symbol <= 0xFFFF && !signs && !latin;
}

int CodeWithoutPlace(const PressedKey& key) {
  if (key.symbol <= U'9' && IsDigit(static_cast<int>(key.symbol))) {
    return static_cast<int>(key.symbol);
  }
  if (const int code = FindSymbol(PlainSymbols, key.symbol); code != 0) return code;
  if (const int code = FindSymbol(ShiftedSymbols, key.symbol); code != 0) return code;
  const std::size_t digit = ShiftedDigits.find(key.symbol);
  return digit == std::u32string_view::npos ? 0 : '0' + static_cast<int>(digit);
}

}  // namespace

int CodeOfTypingKey(const PressedKey& key) {
  if (key.symbol >= U'A' && key.symbol <= U'Z') return static_cast<int>(key.symbol);
  if (key.scanCode == 0) return CodeWithoutPlace(key);
  const int place = CodeOfPlace(key.scanCode);
  if (IsDigit(place)) return place;
  if (key.shift) {
    if (const int code = FindKeyCap(ShiftedKeys, key); code != 0) return code;
  }
  if (const int code = FindKeyCap(MovedKeys, key); code != 0) return code;
  if (const int code = FindSymbol(PlainSymbols, key.symbol); code != 0) return code;
  if (key.shift) {
    if (const int code = FindSymbol(ShiftedSymbols, key.symbol); code != 0) return code;
  }
  // A sign, or a further Latin letter, where others have a letter: that letter is on another key.
  if (IsLetter(place) && !IsLetterOfAnotherScript(key.symbol)) return 0;
  return place;
}

std::optional<int> DigitOfTypingKey(const PressedKey& key) {
  const int code = CodeOfTypingKey(key);
  if (!IsDigit(code)) return std::nullopt;
  return code - '0';
}

#pragma once

#include <optional>

class QKeyEvent;

/// The virtual-key code of a keystroke, by which the key table names its keys: letters and digits
/// as themselves, punctuation 186..192 and 219..222, keypad 96..111, function keys 112..135. For
/// keys that type a character CodeOfTypingKey says how it depends on the keyboard layout.
/// @return 0 for a key without a code
int VirtualKeyOf(const QKeyEvent& event);

/// The digit 0 to 9 of a key in the digit row, by its place, whatever the layout prints there and
/// whether or not Shift is held; or of a key of the keypad that types a digit.
std::optional<int> DigitOfKey(const QKeyEvent& event);

/// The modifiers of a keystroke as the sum of Shift 1, Ctrl 2 and Alt 4. A keystroke with AltGr is
/// plain typing: it has no Ctrl and no Alt.
int ShiftStateOf(const QKeyEvent& event);

#pragma once

class QKeyEvent;

/// The virtual-key code of a keystroke, by which the key table names its keys: letters and digits
/// as themselves, punctuation 186..192 and 219..222, keypad 96..111, function keys 112..135. The
/// code belongs to the key, not to the symbol that Shift or the layout gives it.
/// @return 0 for a key without a code
int VirtualKeyOf(const QKeyEvent& event);

/// The modifiers of a keystroke as the sum of Shift 1, Ctrl 2 and Alt 4. A keystroke with AltGr is
/// plain typing: it has no Ctrl and no Alt.
int ShiftStateOf(const QKeyEvent& event);

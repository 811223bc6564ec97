#pragma once

#include "keys/KeyAssignment.h"

/// "Shift+", "Ctrl+", "Alt+" for the bits 1, 2, 4 of `modifiers`, always in this order.
Text ModifierName(int modifiers);

/// The key as shown: the punctuation keys 186..192 and 219..222 as their characters, every other
/// code unchanged.
CharCode KeyCodeToChar(CharCode keyCode);

/// The exact inverse: the key code for a keystroke typed as text.
CharCode CharToKeyCode(CharCode character);

/// "é = Ctrl+E": how an assignment reads in a menu.
Text KeyAssignmentText(const KeyAssignment& assignment);

/// The same behind "[F] " or "[B] " for an assignment of one side: how it reads in a list.
Text KeyAssignmentListText(const KeyAssignment& assignment);

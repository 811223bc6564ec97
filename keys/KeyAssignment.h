#pragma once

#include "base/CodePage.h"

/// The modifiers of a keystroke, as bits.
enum Modifier : int { ShiftModifier = 1, CtrlModifier = 2, AltModifier = 4 };

/// One keystroke that types one character. All four fields are codes of one character each, as the
/// settings file stores them.
struct KeyAssignment {
  CharCode side{u'3'};       ///< '1' front side only, '2' back side only, '3' both
  CharCode modifiers{u' '};  ///< '1'..'7', the sum of Shift 1, Ctrl 2 and Alt 4; ' ' an empty slot
  CharCode key{u' '};        ///< the virtual-key code: letters and digits as themselves
  CharCode character{u' '};  ///< the character typed, 1..255

  friend bool operator==(const KeyAssignment&, const KeyAssignment&) = default;
};

inline constexpr CharCode FrontSideMark{u'1'};
inline constexpr CharCode BackSideMark{u'2'};
inline constexpr CharCode BothSidesMark{u'3'};
inline constexpr CharCode EmptySlotMark{u' '};

/// The modifiers as a sum of bits: the usual decimal reading of the one digit, 0 for no digit.
constexpr int ModifiersOf(const KeyAssignment& assignment) {
  const int digit = static_cast<int>(assignment.modifiers) - u'0';
  return digit >= 0 && digit <= 9 ? digit : 0;
}

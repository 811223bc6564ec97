#pragma once

#include "base/Int16.h"
#include "keys/KeyTable.h"

#include <optional>

/// The side of the cards that a picker is opened for.
enum class KeySide : int { Front = 1, Back = 2 };

/// What KeyCodeToSend holds when a picker opens: -1 or -2. A picker that is cancelled leaves it.
constexpr Int16 PickerRequest(KeySide side) { return -static_cast<int>(side); }

/// The side that a picker's request asks for; any number but -2 is the front.
constexpr KeySide RequestedSide(int request) {
  return request == PickerRequest(KeySide::Back) ? KeySide::Back : KeySide::Front;
}

/// Whether a menu of `side` lists an assignment: any that is not marked for the other side alone.
bool IsForSide(const KeyAssignment& assignment, KeySide side);

// The code chart: all 256 codes in pages.

inline constexpr int ChartPages = 8;
inline constexpr int ChartPageSize = 32;

/// @param page  0..7
/// @param key   0..31
CharCode ChartCode(int page, int key);

/// "Codes 32 - 63"
Text ChartRangeText(int page);

/// "Code - 0065"
Text ChartStatusText(CharCode code);

/// Whether the code stands for a control character, which no font draws.
bool IsControlCode(CharCode code);

/// The abbreviation of a control character or a blank: "NUL", "DEL", "SP", "NBSP"; empty for a
/// character that leaves a mark. Source: Unicode's name aliases.
TextView InvisibleName(CharCode code);

// The assignment picker: five rows of the key table.

inline constexpr int PickerRows = 5;

/// The last first slot of the scroll bar as computed: KeyCount - 4, also below 1.
constexpr Int16 PickerScrollMaximum(int keyCount) { return keyCount - (PickerRows - 1); }

/// The slot that row 0..4 shows when the first row shows slot `top`; nothing for a row below the
/// last slot, or above the first.
std::optional<int> PickerSlot(const KeyTable& keys, int top, int row);

/// Whether the row shows an assignment that can be chosen for `side`: one marked for it or for
/// both.
bool IsRowChoosable(const KeyTable& keys, int top, int row, KeySide side);

/// "Ctrl+E": the keystroke of an assignment.
Text KeystrokeText(const KeyAssignment& assignment);

/// The choosable slot that is `steps` choosable slots away from `slot`, or as far as there are any.
/// @param slot   1..KeyCount; 0 is before the first one
/// @param steps  negative for upwards
/// @return nothing when no slot can be chosen that way
std::optional<int> ChoosableSlotFrom(const KeyTable& keys, int slot, int steps, KeySide side);

/// The first row's slot that brings `slot` into view with the least scrolling from `top`.
int TopThatShows(int slot, int top);

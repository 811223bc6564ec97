#pragma once

#include "base/Int16.h"
#include "base/Text.h"
#include "keys/KeyAssignment.h"

#include <array>

inline constexpr int MaxKeyAssignments = 30;
inline constexpr int KeysTextWidth = 4 * MaxKeyAssignments;  ///< characters of a KEYS value

/// The key assignments of a topic: slots 1..KeyCount are in use, in the order in which they were
/// added, without gaps. Slot 0 is never used.
struct KeyTable {
  std::array<KeyAssignment, MaxKeyAssignments + 1> Slots;
  Int16 KeyCount = 0;

  /// Slot 1..30; any other number throws Fault(SubscriptOutOfRange).
  const KeyAssignment& Slot(int index) const;
};

/// The KEYS value: four characters for each slot whose modifiers field is not blank, padded with
/// blanks to KeysTextWidth.
Text KeysText(const KeyTable& table);

/// Reads a KEYS value of any content: at most KeysTextWidth characters, without the blanks at their
/// right end; a fragment of one to three characters at the end is dropped. A record with a
/// character that has no code in Windows-1252 is left out.
KeyTable ParseKeysText(TextView text);

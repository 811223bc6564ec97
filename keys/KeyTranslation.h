#pragma once

#include "base/Int16.h"
#include "keys/KeyTable.h"

/// A card text field as a keystroke finds it.
struct FieldContent {
  Text text;
  std::size_t SelStart = 0;  ///< position of the caret, or of the selection's start
};

/// Applies the topic's key assignments to a keystroke in a card text field.
/// @param keyCode  virtual-key code; 0 afterwards when the keystroke is swallowed
/// @param shift    sum of Shift 1, Ctrl 2, Alt 4; below 2 nothing happens
/// @return true when a character was inserted at the caret. A selection is not replaced, and no
///         length is checked. The side of an assignment plays no part.
bool TranslateKeyDown(const KeyTable& table, FieldContent& field, Int16& keyCode, int shift);

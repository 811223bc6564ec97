#include "keys/KeyTranslation.h"

#include <algorithm>

bool TranslateKeyDown(const KeyTable& table, FieldContent& field, Int16& keyCode, int shift) {
  if (shift < CtrlModifier) return false;  // Shift alone types as always
  for (int i = 1; i <= table.KeyCount; ++i) {
    const KeyAssignment& slot = table.Slot(i);
    // A key match swallows the keystroke even when the modifiers differ, so a later slot with the
    // same key is out of reach from the keyboard. Meant so.
    if (static_cast<int>(slot.key) != keyCode) continue;
    keyCode = 0;
    if (ModifiersOf(slot) != shift) continue;
    const std::size_t caret = std::min(field.SelStart, field.text.size());
    field.text.insert(caret, 1, CharOfCode(slot.character));
    field.SelStart = caret + 1;
    return true;
  }
  return false;
}

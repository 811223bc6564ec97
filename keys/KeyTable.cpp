#include "keys/KeyTable.h"

#include <optional>

namespace {

std::optional<KeyAssignment> ParseRecord(TextView record) {
  std::array<CharCode, 4> fields{};
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const std::optional<CharCode> code = CodeOfChar(record[i]);
    if (!code) return std::nullopt;
    fields[i] = *code;
  }
  return KeyAssignment{fields[0], fields[1], fields[2], fields[3]};
}

}  // namespace

const KeyAssignment& KeyTable::Slot(int index) const {
  if (index < 1 || index > MaxKeyAssignments) throw Fault(FileStatus::SubscriptOutOfRange);
  return Slots[static_cast<std::size_t>(index)];
}

Text KeysText(const KeyTable& table) {
  Text text;
  for (int i = 1; i <= MaxKeyAssignments; ++i) {
    const KeyAssignment& slot = table.Slot(i);
    if (slot.modifiers == EmptySlotMark) continue;
    for (const CharCode field : {slot.side, slot.modifiers, slot.key, slot.character}) {
      text += CharOfCode(field);
    }
  }
  return FixedWidth(text, KeysTextWidth);
}

KeyTable ParseKeysText(TextView text) {
  text = TrimRight(text.substr(0, KeysTextWidth));
  KeyTable table;
  for (std::size_t at = 0; at + 4 <= text.size(); at += 4) {
    if (const auto record = ParseRecord(text.substr(at, 4))) {
      ++table.KeyCount;
      table.Slots[static_cast<std::size_t>(table.KeyCount)] = *record;
    }
  }
  return table;
}

#include "base/CodePage.h"
#include "keys/KeyTable.h"
#include "keys/KeyTranslation.h"
#include "tests/fuzz/Require.h"

#include <cstdint>
#include <vector>

namespace {

std::vector<KeyAssignment> AssignmentsIn(const KeyTable& table) {
  std::vector<KeyAssignment> used;
  for (int i = 1; i <= table.KeyCount; ++i) {
    if (table.Slot(i).modifiers != EmptySlotMark) used.push_back(table.Slot(i));
  }
  return used;
}

/// A record whose last character is a blank is lost at the end of a value, for values lose the
/// blanks there.
void RequireReadsBack(const KeyTable& table) {
  std::vector<KeyAssignment> written = AssignmentsIn(table);
  const Text text = KeysText(table);
  REQUIRE(text.size() == KeysTextWidth);
  if (!written.empty() && written.back().character == CharCode{u' '}) written.pop_back();
  const KeyTable again = ParseKeysText(text);
  REQUIRE(AssignmentsIn(again) == written);
  REQUIRE(again.KeyCount == static_cast<int>(written.size()));
}

void RequireOneKeystroke(const KeyTable& table, int key, int shift) {
  const Text before = u"abc";
  const std::size_t caret = static_cast<std::size_t>(key) % 5;  // also behind the end
  FieldContent field{before, caret};
  Int16 keyCode = key;
  const bool typed = TranslateKeyDown(table, field, keyCode, shift);
  REQUIRE(keyCode == key || keyCode == 0);
  if (shift < CtrlModifier) REQUIRE(!typed && keyCode == key);
  if (!typed) {
    REQUIRE(field.text == before && field.SelStart == caret);
    return;
  }
  REQUIRE(keyCode == 0);
  REQUIRE(field.text.size() == before.size() + 1);
  REQUIRE(field.SelStart >= 1 && field.SelStart <= field.text.size());
  REQUIRE(Text(field.text).erase(field.SelStart - 1, 1) == before);
}

}  // namespace

// The bytes are a KEYS value as the settings file holds it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Text value = DecodeFileText({reinterpret_cast<const char*>(data), size});
  const KeyTable table = ParseKeysText(value);
  REQUIRE(table.KeyCount >= 0 && table.KeyCount <= MaxKeyAssignments);
  RequireReadsBack(table);
  for (int key = 0; key <= 255; ++key) {
    for (int shift = 0; shift <= 7; ++shift) RequireOneKeystroke(table, key, shift);
  }
  return 0;
}

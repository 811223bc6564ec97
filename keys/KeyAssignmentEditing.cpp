#include "keys/KeyAssignmentEditing.h"

#include "keys/KeyNames.h"
#include "keys/KeyPickers.h"

#include <algorithm>

namespace {

// Key codes up to this one belong to digit 0, to keys without a character, and to control keys.
constexpr int LastUnassignableKey = 48;
constexpr int PeriodKey = 190;
constexpr std::size_t KeystrokeCaptionLength = 19;  // "ADD - 0233 = Ctrl+E"

/// The codes `first` to `last`, or the single code `first`; downwards when `last` is below `first`.
struct CodeRange {
  int first;
  int last;
};

constexpr std::array CodeOrder = {
    CodeRange{192, 214}, CodeRange{216, 246}, CodeRange{248, 255}, CodeRange{188, 190},
    CodeRange{215, 215}, CodeRange{247, 247}, CodeRange{177, 176}, CodeRange{185, 185},
    CodeRange{178, 179}, CodeRange{145, 146}, CodeRange{161, 172}, CodeRange{174, 175},
    CodeRange{180, 184}, CodeRange{186, 187}, CodeRange{191, 191}, CodeRange{173, 173},
    CodeRange{147, 160}, CodeRange{144, 1},
};

KeyScroll ScrollOfRows(int count, int value) {
  const int maximum = count - (ShownKeyRows - 1);
  return {.enabled = true, .maximum = maximum, .value = std::clamp(value, 1, maximum)};
}

Prompt ClosingQuestion(const Text& text) {
  return {.text = text, .icon = PromptIcon::Question, .buttons = PromptButtons::YesNo};
}

}  // namespace

CharCode SideMark(TickedSides sides) {
  return static_cast<CharCode>(u'0' + (sides.front ? 1 : 0) + (sides.back ? 2 : 0));
}

KeyFont FontOfSides(TickedSides sides) {
  if (sides.front && sides.back) return KeyFont::Default;
  return sides.front ? KeyFont::Front : KeyFont::Back;
}

KeyFont FontOfAssignment(const KeyAssignment& assignment, TickedSides sides) {
  if (assignment.side == FrontSideMark) return KeyFont::Front;
  if (assignment.side == BackSideMark) return KeyFont::Back;
  return FontOfSides(sides);
}

std::array<CharCode, 255> AssignableCharacters() {
  std::array<CharCode, 255> characters{};
  std::size_t at = 0;
  for (const CodeRange& range : CodeOrder) {
    const int step = range.first <= range.last ? 1 : -1;
    for (int code = range.first; code != range.last + step; code += step) {
      characters.at(at++) = static_cast<CharCode>(code);
    }
  }
  return characters;
}

std::vector<Text> KeystrokeSuggestions() {
  std::vector<Text> suggestions;
  for (int modifiers = CtrlModifier; modifiers <= (ShiftModifier | CtrlModifier | AltModifier);
       ++modifiers) {
    for (const char16_t letter : TextView(u"AEIOU")) {
      suggestions.push_back(ModifierName(modifiers) + letter);
    }
  }
  return suggestions;
}

bool IsAssignableKey(int keyCode, int shift) {
  return keyCode > LastUnassignableKey && keyCode <= 255 && shift > ShiftModifier &&
         keyCode != PeriodKey;
}

Text PressedKeyText(int keyCode, int shift) {
  return ModifierName(shift) + CharOfCode(KeyCodeToChar(static_cast<CharCode>(keyCode)));
}

std::optional<Keystroke> ParseKeystroke(TextView text) {
  if (text.size() < 2) return std::nullopt;
  const std::optional<CharCode> character = CodeOfChar(text.back());
  if (!character) return std::nullopt;
  const CharCode key = CharToKeyCode(*character);
  const TextView names = text.substr(0, text.size() - 2);
  const auto score = [=](TextView name, int bit) {
    return names.find(name) == TextView::npos ? 0 : bit;
  };
  const int modifiers =
      score(u"Shift", ShiftModifier) + score(u"Ctrl", CtrlModifier) + score(u"Alt", AltModifier);
  if (modifiers == 0 || static_cast<int>(key) <= LastUnassignableKey) return std::nullopt;
  return Keystroke{.modifiers = static_cast<CharCode>(u'0' + modifiers), .key = key};
}

Text CodeText(CharCode code) {
  const Text digits = NumberText(static_cast<int>(code));
  return Text(4 - digits.size(), u'0') + digits;
}

Text KeyRowText(const KeyAssignment& assignment) {
  Text prefix;
  if (assignment.side == FrontSideMark) prefix = u"[F] ";
  if (assignment.side == BackSideMark) prefix = u"[B] ";
  return prefix + KeystrokeText(assignment);
}

Text AddCaption(TextView codeText, TextView keystroke) {
  return u"ADD - " + Text(codeText) + u" = " + Text(keystroke);
}

Text DeleteCaption(const KeyAssignment& assignment) {
  return u"DELETE - " + CodeText(assignment.character) + u" = " + KeyRowText(assignment);
}

KeyAction ActionOf(TextView caption) {
  if (caption.find(u"ADD") != TextView::npos) return KeyAction::Add;
  if (caption.find(u"DELETE") != TextView::npos) return KeyAction::Delete;
  return KeyAction::None;
}

bool TakesTypedCharacters(TextView caption) { return caption.size() < KeystrokeCaptionLength; }

KeyScroll ScrollAtStart(int count) {
  return {.enabled = count > ShownKeyRows, .maximum = std::max(1, count), .value = 1};
}

KeyScroll ScrollAfterAdd(KeyScroll scroll, int count) {
  return count <= ShownKeyRows ? scroll : ScrollOfRows(count, count);
}

KeyScroll ScrollAfterDelete(KeyScroll scroll, int count) {
  if (count > ShownKeyRows) return ScrollOfRows(count, scroll.value - 1);
  return {.enabled = false, .maximum = scroll.maximum, .value = 1};
}

KeyAssignmentEditing::KeyAssignmentEditing(const KeyTable& keys) {
  m_workKeys.KeyCount = keys.KeyCount;
  for (int i = 1; i <= keys.KeyCount; ++i) {
    m_workKeys.Slots[static_cast<std::size_t>(i)] = keys.Slot(i);
  }
}

std::optional<KeyAssignment> KeyAssignmentEditing::Assignment(int slot) const {
  if (slot < 1 || slot > WorkCount()) return std::nullopt;
  return m_workKeys.Slot(slot);
}

AddKeyResult KeyAssignmentEditing::Add(TextView keystroke, TickedSides sides,
                                       std::optional<CharCode> character) {
  if (WorkCount() == MaxKeyAssignments) return AddKeyResult::TooMany;
  const std::optional<Keystroke> parsed = ParseKeystroke(keystroke);
  if (!parsed || !character) return AddKeyResult::Incomplete;
  const KeyAssignment added{SideMark(sides), parsed->modifiers, parsed->key, *character};
  if (Exists(added)) return AddKeyResult::Exists;
  ++m_workKeys.KeyCount;
  m_workKeys.Slots[static_cast<std::size_t>(WorkCount())] = added;
  m_changed = true;
  return AddKeyResult::Added;
}

bool KeyAssignmentEditing::Exists(const KeyAssignment& added) const {
  for (int i = 1; i <= WorkCount(); ++i) {
    const KeyAssignment& slot = m_workKeys.Slot(i);
    if (slot.key != added.key || slot.modifiers != added.modifiers) continue;
    const bool both = slot.side == BothSidesMark || added.side == BothSidesMark;
    if (both || slot.side == added.side) return true;
  }
  return false;
}

bool KeyAssignmentEditing::Delete(int slot) {
  if (slot < 1 || slot > WorkCount()) return false;
  const auto deleted = m_workKeys.Slots.begin() + slot;
  const auto last = m_workKeys.Slots.begin() + WorkCount();
  std::move(deleted + 1, last + 1, deleted);
  last->modifiers = EmptySlotMark;
  --m_workKeys.KeyCount;
  m_changed = true;
  return true;
}

KeyTable KeyAssignmentEditing::AcceptedKeys() const {
  return KeyAssignmentEditing(m_workKeys).m_workKeys;
}

Prompt TooManyKeysPrompt() {
  return {.text = u"Maximum of " + NumberText(MaxKeyAssignments) + u" Key Assignments!",
          .icon = PromptIcon::Exclamation};
}

Prompt KeyExistsPrompt() {
  return {.text = u"This Control Key Assignment Already Exists!", .icon = PromptIcon::Exclamation};
}

Prompt SaveKeysPrompt(TextView topicName) {
  return ClosingQuestion(u"Save These Key Assignments for " + Text(TrimRight(topicName)) + u"?");
}

Prompt AddTopicAndKeysPrompt(TextView topicName) {
  return ClosingQuestion(u"Add " + Text(TrimRight(topicName)) + u" and keys to File?");
}

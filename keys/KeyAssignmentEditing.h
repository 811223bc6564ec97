#pragma once

#include "base/Prompts.h"
#include "keys/KeyTable.h"

#include <array>
#include <optional>
#include <vector>

inline constexpr int ShownKeyRows = 7;  ///< assignments that the editor shows at a time

/// The two side boxes of the editor; one of them is always ticked.
struct TickedSides {
  bool front = true;
  bool back = true;
};

/// The side of a new assignment: '1' front, '2' back, '3' both.
CharCode SideMark(TickedSides sides);

/// In which font a character is shown: that of a side, or the default font for both sides at once.
enum class KeyFont { Front, Back, Default };

KeyFont FontOfSides(TickedSides sides);

/// The font of a shown assignment; the boxes decide for one that belongs to both sides.
KeyFont FontOfAssignment(const KeyAssignment& assignment, TickedSides sides);

/// The characters that can be assigned, each of the codes 1..255 once: accented letters first,
/// then symbols, then the rest with the control codes last.
std::array<CharCode, 255> AssignableCharacters();

/// The suggested keystrokes "Ctrl+A", "Ctrl+E", .. "Shift+Ctrl+Alt+U": the vowels under each
/// combination that holds Ctrl or Alt.
std::vector<Text> KeystrokeSuggestions();

/// A keystroke as an assignment stores it.
struct Keystroke {
  CharCode modifiers{u' '};
  CharCode key{u' '};

  friend bool operator==(const Keystroke&, const Keystroke&) = default;
};

/// True for a keystroke that names itself when it is pressed in the keystroke box.
/// @param keyCode  virtual-key code
/// @param shift    sum of Shift 1, Ctrl 2, Alt 4
bool IsAssignableKey(int keyCode, int shift);

/// "Ctrl+E": how a pressed keystroke reads. The key code must be one of 0..255.
Text PressedKeyText(int keyCode, int shift);

/// Reads "Ctrl+E": the last character is the key; "Shift", "Ctrl" and "Alt" count wherever they
/// stand before it. Nothing when no modifier stands there, or when the key is none that can be
/// assigned: key codes up to 48 are refused, so that no record holds a line break as its key.
std::optional<Keystroke> ParseKeystroke(TextView text);

/// "0233"
Text CodeText(CharCode code);

/// "[F] Ctrl+E": the second column of a shown assignment.
Text KeyRowText(const KeyAssignment& assignment);

/// What the action button would do, as its caption says.
enum class KeyAction { None, Add, Delete };

inline constexpr TextView NoActionCaption = u"Action: None";
/// "ADD - 0233 = Ctrl+E"
Text AddCaption(TextView codeText, TextView keystroke);
/// "DELETE - 0233 = [F] Ctrl+E"
Text DeleteCaption(const KeyAssignment& assignment);
KeyAction ActionOf(TextView caption);

/// False once the action's caption names a keystroke: then the keystroke box takes no characters.
bool TakesTypedCharacters(TextView caption);

/// The scroll bar beside the shown assignments; its values begin with 1.
struct KeyScroll {
  bool enabled = false;
  int maximum = 1;
  int value = 1;  ///< the slot in the first row

  friend bool operator==(const KeyScroll&, const KeyScroll&) = default;
};

/// At the start every slot can be brought to the first row; after a change only as far as the rows
/// stay filled. Meant so.
KeyScroll ScrollAtStart(int count);
/// Brings the new assignment, the last one, into view.
KeyScroll ScrollAfterAdd(KeyScroll scroll, int count);
KeyScroll ScrollAfterDelete(KeyScroll scroll, int count);

enum class AddKeyResult { Added, Incomplete, TooMany, Exists };

/// The working copy of a topic's key assignments. The topic's own table stays as it is until the
/// copy is accepted.
class KeyAssignmentEditing {
 public:
  explicit KeyAssignmentEditing(const KeyTable& keys);

  int WorkCount() const { return m_workKeys.KeyCount; }
  /// True after every successful add or delete, even when one undid the other.
  bool Changed() const { return m_changed; }

  /// The assignment in a slot, or nothing for a slot that is not in use.
  std::optional<KeyAssignment> Assignment(int slot) const;

  /// Appends an assignment. A keystroke may stand once for the front and once for the back, or once
  /// for both.
  /// @param character  the chosen one; without it the assignment is incomplete
  AddKeyResult Add(TextView keystroke, TickedSides sides, std::optional<CharCode> character);

  /// Closes up the later slots. Returns false for a slot that is not in use.
  bool Delete(int slot);

  /// The table to be stored: the slots in use, all others cleared.
  KeyTable AcceptedKeys() const;

 private:
  bool Exists(const KeyAssignment& added) const;

  KeyTable m_workKeys;
  bool m_changed = false;
};

/// "Maximum of 30 Key Assignments!"
Prompt TooManyKeysPrompt();
Prompt KeyExistsPrompt();
/// "Save These Key Assignments for General?"
Prompt SaveKeysPrompt(TextView topicName);
/// "Add Spanish and keys to File?"
Prompt AddTopicAndKeysPrompt(TextView topicName);

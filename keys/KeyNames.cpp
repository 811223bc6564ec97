#include "keys/KeyNames.h"

#include <algorithm>
#include <array>

namespace {

struct PunctuationKey {
  CharCode keyCode;
  CharCode character;
};

// Source: the virtual-key codes of the punctuation keys on the US layout.
constexpr std::array PunctuationKeys = {
    PunctuationKey{CharCode{188}, CharCode{u','}},  PunctuationKey{CharCode{189}, CharCode{u'-'}},
    PunctuationKey{CharCode{190}, CharCode{u'.'}},  PunctuationKey{CharCode{191}, CharCode{u'/'}},
    PunctuationKey{CharCode{186}, CharCode{u';'}},  PunctuationKey{CharCode{187}, CharCode{u'='}},
    PunctuationKey{CharCode{192}, CharCode{u'`'}},  PunctuationKey{CharCode{219}, CharCode{u'['}},
    PunctuationKey{CharCode{220}, CharCode{u'\\'}}, PunctuationKey{CharCode{221}, CharCode{u']'}},
    PunctuationKey{CharCode{222}, CharCode{u'\''}},
};

}  // namespace

Text ModifierName(int modifiers) {
  Text name;
  if ((modifiers & ShiftModifier) != 0) name += u"Shift+";
  if ((modifiers & CtrlModifier) != 0) name += u"Ctrl+";
  if ((modifiers & AltModifier) != 0) name += u"Alt+";
  return name;
}

CharCode KeyCodeToChar(CharCode keyCode) {
  const auto* const key = std::find_if(PunctuationKeys.begin(), PunctuationKeys.end(),
                                       [=](const auto& entry) { return entry.keyCode == keyCode; });
  return key == PunctuationKeys.end() ? keyCode : key->character;
}

CharCode CharToKeyCode(CharCode character) {
  const auto* const key =
      std::find_if(PunctuationKeys.begin(), PunctuationKeys.end(),
                   [=](const auto& entry) { return entry.character == character; });
  return key == PunctuationKeys.end() ? character : key->keyCode;
}

Text KeyAssignmentText(const KeyAssignment& assignment) {
  return Text(1, CharOfCode(assignment.character)) + u" = " +
         ModifierName(ModifiersOf(assignment)) + CharOfCode(KeyCodeToChar(assignment.key));
}

Text KeyAssignmentListText(const KeyAssignment& assignment) {
  const Text text = KeyAssignmentText(assignment);
  if (assignment.side == FrontSideMark) return u"[F] " + text;
  if (assignment.side == BackSideMark) return u"[B] " + text;
  return text;
}

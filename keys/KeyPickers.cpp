#include "keys/KeyPickers.h"

#include "keys/KeyNames.h"

#include <array>

namespace {

constexpr std::array<TextView, 33> LowNames = {
    u"NUL", u"SOH", u"STX", u"ETX", u"EOT", u"ENQ", u"ACK", u"BEL", u"BS",  u"HT",  u"LF",
    u"VT",  u"FF",  u"CR",  u"SO",  u"SI",  u"DLE", u"DC1", u"DC2", u"DC3", u"DC4", u"NAK",
    u"SYN", u"ETB", u"CAN", u"EM",  u"SUB", u"ESC", u"FS",  u"GS",  u"RS",  u"US",  u"SP"};

struct HighName {
  CharCode code;
  TextView name;
};

constexpr std::array HighNames = {
    HighName{CharCode{127}, u"DEL"},  HighName{CharCode{129}, u"HOP"},
    HighName{CharCode{141}, u"RI"},   HighName{CharCode{143}, u"SS3"},
    HighName{CharCode{144}, u"DCS"},  HighName{CharCode{157}, u"OSC"},
    HighName{CharCode{160}, u"NBSP"}, HighName{CharCode{173}, u"SHY"},
};

Text FourDigits(int number) {
  const Text digits = NumberText(number);
  return Text(4 - digits.size(), u'0') + digits;
}

bool IsInUse(const KeyTable& keys, int slot) { return slot >= 1 && slot <= keys.KeyCount; }

}  // namespace

bool IsForSide(const KeyAssignment& assignment, KeySide side) {
  return assignment.side != (side == KeySide::Front ? BackSideMark : FrontSideMark);
}

CharCode ChartCode(int page, int key) { return static_cast<CharCode>(ChartPageSize * page + key); }

Text ChartRangeText(int page) {
  const int first = ChartPageSize * page;
  return u"Codes " + NumberText(first) + u" - " + NumberText(first + ChartPageSize - 1);
}

Text ChartStatusText(CharCode code) { return u"Code - " + FourDigits(static_cast<int>(code)); }

bool IsControlCode(CharCode code) {
  const char16_t character = CharOfCode(code);
  return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

TextView InvisibleName(CharCode code) {
  if (static_cast<std::size_t>(code) < LowNames.size()) {
    return LowNames.at(static_cast<std::size_t>(code));
  }
  for (const HighName& entry : HighNames) {
    if (entry.code == code) return entry.name;
  }
  return {};
}

std::optional<int> PickerSlot(const KeyTable& keys, int top, int row) {
  const int slot = top + row;
  return IsInUse(keys, slot) ? std::optional(slot) : std::nullopt;
}

bool IsRowChoosable(const KeyTable& keys, int top, int row, KeySide side) {
  const std::optional<int> slot = PickerSlot(keys, top, row);
  if (!slot) return false;
  const CharCode mark = keys.Slot(*slot).side;
  return mark == BothSidesMark || mark == (side == KeySide::Front ? FrontSideMark : BackSideMark);
}

Text KeystrokeText(const KeyAssignment& assignment) {
  return ModifierName(ModifiersOf(assignment)) + CharOfCode(KeyCodeToChar(assignment.key));
}

std::optional<int> ChoosableSlotFrom(const KeyTable& keys, int slot, int steps, KeySide side) {
  const int direction = steps < 0 ? -1 : 1;
  std::optional<int> found;
  for (int at = slot + direction; steps != 0 && IsInUse(keys, at); at += direction) {
    if (!IsRowChoosable(keys, at, 0, side)) continue;
    found = at;
    steps -= direction;
  }
  return found;
}

int TopThatShows(int slot, int top) {
  if (slot < top) return slot;
  return slot >= top + PickerRows ? slot - PickerRows + 1 : top;
}

#include "authoring/TypedCards.h"

#include "cards/SideLine.h"

namespace {

/// What DecodeSideText makes the same text of again.
Text AsTyped(TextView text) { return ReplaceAll(text, u"^", u"^^"); }

}  // namespace

bool TypedCards::HasPrevious() const {
  return IsTyped(m_corrected == 0 ? int{Stack().CardCount} : m_corrected - 1);
}

CardFields TypedCards::GoTo(int card, const CardFields& shown) {
  if (m_corrected == 0) {
    m_entry = shown;
  } else {
    Store(shown);
  }
  return Show(card);
}

CardFields TypedCards::GoBack(const CardFields& shown) {
  return GoTo(m_corrected == 0 ? int{Stack().CardCount} : m_corrected - 1, shown);
}

CardFields TypedCards::GoOn(const CardFields& shown) {
  return GoTo(IsTyped(m_corrected + 1) ? m_corrected + 1 : 0, shown);
}

CardFields TypedCards::Drop() { return Show(0); }

void TypedCards::Store(const CardFields& shown) {
  for (const int side : {Front, Back}) {
    const SideFields& now = shown.sides[static_cast<std::size_t>(side)];
    const SideFields& given = m_shown.sides[static_cast<std::size_t>(side)];
    if (now.text != given.text) {
      Stack().SetSideText(m_corrected, side, DecodeSideText(now.text));
    }
    Stack().SetSideSound(m_corrected, side, now.sound);
    Stack().SetSidePicture(m_corrected, side, now.picture);
  }
}

CardFields TypedCards::Show(int card) {
  m_corrected = card;
  if (card == 0) return m_entry;
  m_shown = FieldsOf(Stack(), card);
  for (SideFields& side : m_shown.sides) side.text = AsTyped(side.text);
  return m_shown;
}

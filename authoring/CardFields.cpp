#include "authoring/CardFields.h"

#include "cards/SideLine.h"

CardFields FieldsOf(const CardStack& stack, int card) {
  CardFields fields;
  for (const int side : {Front, Back}) {
    fields.sides[static_cast<std::size_t>(side)] = {Text(stack.SideText(card, side)),
                                                    stack.SideSound(card, side),
                                                    stack.SidePicture(card, side)};
  }
  return fields;
}

void StoreFields(CardStack& stack, int card, const CardFields& fields) {
  for (const int side : {Front, Back}) {
    const SideFields& of = fields.sides[static_cast<std::size_t>(side)];
    stack.SetSideText(card, side, of.text);
    stack.SetSideSound(card, side, of.sound);
    stack.SetSidePicture(card, side, of.picture);
  }
}

bool AddCard(CardStack& stack, const CardFields& typed) {
  if (stack.CardCount >= MaxCards) return false;
  ++stack.CardCount;
  CardFields card = typed;
  for (SideFields& side : card.sides) side.text = DecodeSideText(side.text);
  StoreFields(stack, stack.CardCount, card);
  return true;
}

Prompt StackFullPrompt() {
  return {.text = u"Maximum of " + NumberText(MaxCards) + u" Cards per Stack",
          .icon = PromptIcon::Exclamation};
}

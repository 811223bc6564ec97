#include "authoring/SpokenSelection.h"

namespace {

constexpr std::size_t LongestSpoken = 500;  // characters of a side; the field has them all

Text Spoken(TextView text) {
  return ReplaceAll(TrimRight(CutText(text, LongestSpoken)), LineBreak, u" ");
}

}  // namespace

Text SpokenSelection(const CardEditor& editor, const CardStack& stack) {
  if (editor.SelRow() < 0) return u"No card selected.";
  const int card = editor.CurCard();
  Text words = u"Card " + NumberText(card) + u" of " + NumberText(stack.CardCount) + u". Front: " +
               Spoken(stack.SideText(card, Front)) + u". Back: " +
               Spoken(stack.SideText(card, Back)) + u".";
  if (editor.IsMarked(card)) words += u" Marked for deletion.";
  return words;
}

#include "cards/UnsavableText.h"

#include "cards/StackFileOperations.h"

#include <algorithm>

namespace {

constexpr char16_t Caret = u'^';
constexpr std::size_t ShownAround = 30;  // characters at each side of the caret

/// The text on one line, cut at both ends where it is long.
Text Excerpt(TextView text) {
  const std::size_t caret = text.find(Caret);
  const std::size_t start = caret > ShownAround ? caret - ShownAround : 0;
  const TextView before = text.substr(0, start);
  // A cut goes before the character that it would part.
  const TextView from = text.substr(CutText(text, before.size()).size());
  const TextView shown = CutText(from, caret - start + ShownAround);
  Text excerpt = ReplaceAll(shown, LineBreak, u" \u21B5 ");
  std::replace_if(
      excerpt.begin(), excerpt.end(), [](char16_t unit) { return unit < u' '; }, u' ');
  if (start > 0) excerpt.insert(0, u"\u2026");
  if (shown.size() < from.size()) excerpt += u'\u2026';
  return excerpt;
}

}  // namespace

std::optional<CardSide> FirstUnsavableText(const CardStack& stack, const IsLeftOut& isLeftOut) {
  for (int card = 1; card <= stack.CardCount; ++card) {
    if (isLeftOut && isLeftOut(card)) continue;
    for (const int side : {Front, Back}) {
      if (stack.SideText(card, side).find(Caret) != TextView::npos) return CardSide{card, side};
    }
  }
  return {};
}

Text UnsavableTextWords(const CardStack& stack, const CardSide& where) {
  return u"Card " + NumberText(where.card) + (where.side == Front ? u", front: " : u", back: ") +
         Excerpt(TrimRight(stack.SideText(where.card, where.side))) +
         u"\r\nThe character ^ cannot be saved. Change this text, then save again.";
}

Prompt SaveErrorPrompt(FileStatus status, const StackStore& stacks, const IsLeftOut& isLeftOut) {
  Prompt prompt = FileErrorPrompt(status, stacks.Saves.rescueFolder);
  if (status != FileStatus::Overflow) return prompt;
  const std::optional<CardSide> where = FirstUnsavableText(stacks.Current(), isLeftOut);
  if (where) prompt.text += u"\r\n\r\n" + UnsavableTextWords(stacks.Current(), *where);
  return prompt;
}

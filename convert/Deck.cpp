#include "convert/Deck.h"

#include "base/Paths.h"

#include <algorithm>
#include <set>
#include <utility>

Text WithCrLf(TextView text) {
  if (text.find_first_of(LineBreak) == TextView::npos) return Text(text);
  Text result;
  result.reserve(text.size() + 8);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'\r' && text[i] != u'\n') {
      result += text[i];
      continue;
    }
    if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
    result.append(LineBreak);
  }
  return result;
}

void SwapSides(Deck& deck) {
  for (DeckCard& card : deck.cards) std::swap(card.sides[0], card.sides[1]);
}

std::vector<Deck> SplitDeck(const Deck& deck, std::size_t most, std::size_t descriptionWidth) {
  const std::size_t count = std::max<std::size_t>(1, (deck.cards.size() + most - 1) / most);
  if (count == 1) return {deck};
  std::vector<Deck> parts(count);
  for (std::size_t i = 0; i < count; ++i) {
    Deck& part = parts[i];
    part.topic = deck.topic;
    Text number = u"(" + NumberText(static_cast<int>(i) + 1) + u" of " +
                  NumberText(static_cast<int>(count)) + u")";
    if (!deck.description.empty()) {
      const TextView room = CutText(deck.description, descriptionWidth - number.size() - 1);
      number = Text(room).append(u" ").append(number);
    }
    part.description = number;
    const auto first = deck.cards.begin() + static_cast<std::ptrdiff_t>(i * most);
    const std::size_t length = std::min(most, deck.cards.size() - i * most);
    part.cards.assign(first, first + static_cast<std::ptrdiff_t>(length));
  }
  return parts;
}

TextView BareMediaName(TextView name) { return BaseName(name); }

MediaCount CountMedia(const Deck& deck) {
  std::set<TextView> sounds;
  std::set<TextView> pictures;
  for (const DeckCard& card : deck.cards) {
    for (const DeckSide& side : card.sides) {
      if (!side.sound.empty()) sounds.insert(side.sound);
      if (!side.picture.empty()) pictures.insert(side.picture);
    }
  }
  return {sounds.size(), pictures.size()};
}

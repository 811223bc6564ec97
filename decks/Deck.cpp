#include "decks/Deck.h"

#include "base/Paths.h"

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

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

std::size_t CountParts(const Deck& deck, std::size_t most) {
  return std::max<std::size_t>(1, (deck.cards.size() + most - 1) / most);
}

Deck TakePart(Deck& deck, std::size_t most, std::size_t part, std::size_t descriptionWidth) {
  const std::size_t count = CountParts(deck, most);
  Deck result;
  result.topic = deck.topic;
  result.description = deck.description;
  if (count > 1) {
    const Text number = u"(" + NumberText(static_cast<int>(part) + 1) + u" of " +
                        NumberText(static_cast<int>(count)) + u")";
    const TextView room = CutText(deck.description, descriptionWidth - number.size() - 1);
    result.description = deck.description.empty() ? number : Text(room).append(u" ").append(number);
  }
  const std::size_t end = std::min(deck.cards.size(), (part + 1) * most);
  for (std::size_t i = part * most; i < end; ++i)
    result.cards.push_back(std::exchange(deck.cards[i], {}));
  return result;
}

TextView BareMediaName(TextView name) { return BaseName(name); }

MediaCount CountMedia(const Deck& deck) {
  // Marks of the names take less room than the names.
  std::vector<std::size_t> sounds;
  std::vector<std::size_t> pictures;
  const auto add = [](const Text& name, std::vector<std::size_t>& names) {
    const std::size_t mark = std::hash<Text>()(name);
    if (!name.empty() && (names.empty() || names.back() != mark)) names.push_back(mark);
  };
  for (const DeckCard& card : deck.cards) {
    for (const DeckSide& side : card.sides) {
      add(side.sound, sounds);
      add(side.picture, pictures);
    }
  }
  for (std::vector<std::size_t>* const names : {&sounds, &pictures}) {
    std::sort(names->begin(), names->end());
    names->erase(std::unique(names->begin(), names->end()), names->end());
  }
  return {sounds.size(), pictures.size()};
}

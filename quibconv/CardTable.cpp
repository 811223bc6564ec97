#include "quibconv/CardTable.h"

#include "base/CodePage.h"
#include "decks/Finding.h"

#include <algorithm>
#include <fmt/format.h>

namespace {

constexpr int Gap = 2;
constexpr int NarrowestColumn = 8;

struct Cell {
  std::string text;
  int width = 0;
};

/// Calls `use` with each character of UTF-8 text and its bytes, until it returns false.
template <typename Use>
void ForEachCharacter(std::string_view utf8, Use use) {
  while (!utf8.empty()) {
    std::size_t length = 1;
    while (length < utf8.size() && (static_cast<unsigned char>(utf8[length]) & 0xC0) == 0x80)
      ++length;
    char32_t character = static_cast<unsigned char>(utf8.front());
    if (length > 1) character &= 0xFFU >> (length + 1);
    for (std::size_t i = 1; i < length; ++i) {
      character = character << 6 | (static_cast<unsigned char>(utf8[i]) & 0x3F);
    }
    if (!use(character, utf8.substr(0, length))) return;
    utf8.remove_prefix(length);
  }
}

int WidthOf(std::string_view utf8, CharacterWidth characterWidth) {
  int width = 0;
  ForEachCharacter(utf8, [&](char32_t character, std::string_view) {
    width += std::max(0, characterWidth(character));
    return true;
  });
  return width;
}

Cell CellOf(const DeckSide& side, CharacterWidth characterWidth) {
  Text text = side.text;
  for (const Text& name : {side.picture, side.sound}) {
    if (!name.empty()) text.append(text.empty() ? u"[" : u" [").append(name).append(u"]");
  }
  Cell cell{Printable(text), 0};
  cell.width = WidthOf(cell.text, characterWidth);
  return cell;
}

Cell Cut(const Cell& cell, int room, CharacterWidth characterWidth) {
  if (cell.width <= room) return cell;
  Cell cut;
  ForEachCharacter(cell.text, [&](char32_t character, std::string_view bytes) {
    const int width = std::max(0, characterWidth(character));
    if (cut.width + width > room - 1) return false;
    cut.text += bytes;
    cut.width += width;
    return true;
  });
  cut.text += "…";
  ++cut.width;
  return cut;
}

}  // namespace

void ShowCardTable(const Deck& deck, int width, CharacterWidth characterWidth,
                   const TextOutput& out) {
  int frontWidth = static_cast<int>(std::string_view("Front").size());
  int backWidth = 0;
  for (const DeckCard& card : deck.cards) {
    frontWidth = std::max(frontWidth, CellOf(card.sides[0], characterWidth).width);
    backWidth = std::max(backWidth, CellOf(card.sides[1], characterWidth).width);
  }
  frontWidth = std::min(frontWidth, WidestFront);
  const int numberWidth = static_cast<int>(std::to_string(deck.cards.size()).size());
  if (width > 0) {
    const int room = std::max(width - numberWidth - 2 * Gap, 2 * NarrowestColumn);
    if (frontWidth + backWidth > room) {
      // The narrower column keeps its width as long as it takes no more than half.
      frontWidth = std::min(frontWidth, std::max(room / 2, room - backWidth));
      backWidth = room - frontWidth;
    }
  }
  const auto add = [&](const std::string& number, const Cell& front, const Cell& back) {
    const int padding = back.text.empty() ? 0 : std::max(0, frontWidth - front.width) + Gap;
    out(fmt::format("{:>{}}  {}{}{}\n", number, numberWidth, front.text,
                    std::string(static_cast<std::size_t>(padding), ' '), back.text));
  };
  const auto cell = [&](const DeckSide& side, int room) {
    const Cell whole = CellOf(side, characterWidth);
    return width > 0 ? Cut(whole, room, characterWidth) : whole;
  };
  add("#", {"Front", 5}, {"Back", 4});
  std::size_t number = 0;
  for (const DeckCard& card : deck.cards) {
    add(std::to_string(++number), cell(card.sides[0], frontWidth), cell(card.sides[1], backWidth));
  }
}

#include "decks/CardList.h"

#include "base/Fault.h"

#include <algorithm>
#include <utility>

namespace {

// A packed page is nothing where all its cards are empty, else its cards one after the other. A
// packed card: the way from the line of the card before it, a byte with a bit for each text that
// there is, and those: twice the length, one more where units take two bytes, and the units.

void PackNumber(std::uint64_t number, std::string& packed) {
  while (number >= 0x80) {
    packed += static_cast<char>(number | 0x80);
    number >>= 7;
  }
  packed += static_cast<char>(number);
}

void PackText(const Text& text, std::string& packed) {
  const bool wide =
      std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit > 0xFF; });
  PackNumber(std::uint64_t{text.size()} << 1 | (wide ? 1 : 0), packed);
  for (const char16_t unit : text) {
    packed += static_cast<char>(unit & 0xFF);
    if (wide) packed += static_cast<char>(unit >> 8);
  }
}

std::array<Text*, 6> TextsOf(DeckCard& card) {
  DeckSide& front = card.sides[0];
  DeckSide& back = card.sides[1];
  return {&front.text, &back.text, &front.sound, &back.sound, &front.picture, &back.picture};
}

std::string Pack(std::vector<DeckCard>& cards) {
  std::string packed;
  const auto isEmpty = [](const DeckCard& card) {
    return card.line == 0 && card.sides[0].IsEmpty() && card.sides[1].IsEmpty();
  };
  if (std::all_of(cards.begin(), cards.end(), isEmpty)) return packed;
  std::int64_t line = 0;
  for (DeckCard& card : cards) {
    const std::int64_t way = card.line - std::exchange(line, card.line);
    PackNumber(way < 0 ? (static_cast<std::uint64_t>(-way) << 1 | 1)
                       : static_cast<std::uint64_t>(way) << 1,
               packed);
    const std::size_t present = packed.size();
    packed += '\0';
    int bit = 1;
    for (const Text* const text : TextsOf(card)) {
      if (!text->empty()) {
        packed[present] = static_cast<char>(packed[present] | bit);
        PackText(*text, packed);
      }
      bit <<= 1;
    }
  }
  packed.shrink_to_fit();
  return packed;
}

class Unpacker {
 public:
  explicit Unpacker(const std::string& packed) : m_next(packed.data()) {}

  void Take(DeckCard& card) {
    const std::uint64_t way = TakeNumber();
    const auto length = static_cast<std::int64_t>(way >> 1);
    m_line += (way & 1) != 0 ? -length : length;
    card.line = static_cast<int>(m_line);
    const auto present = static_cast<unsigned char>(*m_next++);
    unsigned bit = 1;
    for (Text* const text : TextsOf(card)) {
      if ((present & bit) != 0) TakeText(*text);
      bit <<= 1;
    }
  }

 private:
  std::uint64_t TakeNumber() {
    std::uint64_t number = 0;
    for (unsigned shift = 0;; shift += 7) {
      const auto byte = static_cast<unsigned char>(*m_next++);
      number |= std::uint64_t{byte & 0x7FU} << shift;
      if (byte < 0x80) return number;
    }
  }

  void TakeText(Text& text) {
    const std::uint64_t head = TakeNumber();
    const bool wide = (head & 1) != 0;
    text.resize(head >> 1);
    for (char16_t& unit : text) {
      unit = static_cast<unsigned char>(*m_next++);
      if (wide) unit = static_cast<char16_t>(unit | static_cast<unsigned char>(*m_next++) << 8);
    }
  }

  const char* m_next;
  std::int64_t m_line = 0;
};

}  // namespace

void CardList::resize(std::size_t size) {
  while (m_size < size) emplace_back();
  if (size == m_size) return;
  const std::size_t pages = (size + PageSize - 1) / PageSize;
  for (OpenPage& page : m_open) {
    if (page.number != NoPage && page.number >= pages) page = {};
  }
  m_packed.resize(pages);
  m_size = size;
  if (pages == 0) return;
  OpenPage& last = Open(pages - 1);
  last.cards.resize(size - (pages - 1) * PageSize);
  last.isChanged = true;
}

DeckCard& CardList::operator[](std::size_t at) {
  if (at >= m_size) throw Fault(FileStatus::SubscriptOutOfRange);
  OpenPage& page = Open(at / PageSize);
  page.isChanged = true;
  return page.cards[at % PageSize];
}

const DeckCard& CardList::operator[](std::size_t at) const {
  if (at >= m_size) throw Fault(FileStatus::SubscriptOutOfRange);
  return Open(at / PageSize).cards[at % PageSize];
}

DeckCard& CardList::emplace_back() {
  const std::size_t number = m_size / PageSize;
  if (number == m_packed.size()) m_packed.emplace_back();
  OpenPage& page = Open(number);
  page.isChanged = true;
  if (page.cards.capacity() < PageSize) page.cards.reserve(PageSize);  // no card moves
  ++m_size;
  return page.cards.emplace_back();
}

CardList::OpenPage& CardList::Open(std::size_t number) const {
  const auto found = std::find_if(m_open.begin(), m_open.end(),
                                  [&](const OpenPage& page) { return page.number == number; });
  if (found != m_open.end()) {
    std::rotate(m_open.begin(), found, found + 1);
    return m_open.front();
  }
  Close(m_open.back());
  std::rotate(m_open.begin(), m_open.end() - 1, m_open.end());
  OpenPage& page = m_open.front();
  page.number = number;
  const std::size_t first = number * PageSize;
  const std::size_t count = std::min(PageSize, m_size - std::min(first, m_size));
  page.cards.resize(count);
  if (m_packed[number].empty()) return page;
  Unpacker packed(m_packed[number]);
  for (DeckCard& card : page.cards) packed.Take(card);
  return page;
}

void CardList::Close(OpenPage& page) const {
  if (page.number != NoPage && page.isChanged) m_packed[page.number] = Pack(page.cards);
  page.number = NoPage;
  page.cards.clear();
  page.isChanged = false;
}

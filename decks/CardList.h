#pragma once

#include "base/Text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

/// What a side of a card holds, whatever file it comes from. Line breaks are CR LF.
struct DeckSide {
  Text text;
  Text sound;    ///< as the file names it; empty when there is none
  Text picture;  ///< the same

  bool operator==(const DeckSide&) const = default;
  bool IsEmpty() const { return text.empty() && sound.empty() && picture.empty(); }
};

struct DeckCard {
  std::array<DeckSide, 2> sides;  ///< by Front and Back
  int line = 0;                   ///< where the card begins in its file, from 1; 0 when unknown
};

/// The cards of a deck, however many, in little more room than their texts take: pages of cards
/// are packed, but for the few that were used last. It is used as a vector is, except that a
/// reference to a card holds only until cards of OpenPages other pages have been asked for.
class CardList {
 public:
  static constexpr std::size_t PageSize = 256;  ///< cards
  static constexpr std::size_t OpenPages = 2;

  template <class List, class Card>
  class Iterator {
   public:
    using iterator_category = std::forward_iterator_tag;
    using difference_type = std::ptrdiff_t;
    using value_type = DeckCard;
    using pointer = Card*;
    using reference = Card&;
    Iterator() = default;
    Iterator(List& list, std::size_t at) : m_list(&list), m_at(at) {}
    Card& operator*() const { return (*m_list)[m_at]; }
    Card* operator->() const { return &(*m_list)[m_at]; }
    Iterator& operator++() {
      ++m_at;
      return *this;
    }
    Iterator operator++(int) {
      const Iterator before = *this;
      ++m_at;
      return before;
    }
    bool operator==(const Iterator& other) const { return m_at == other.m_at; }

   private:
    List* m_list = nullptr;
    std::size_t m_at = 0;
  };

  std::size_t size() const { return m_size; }
  bool empty() const { return m_size == 0; }
  void clear() { *this = {}; }
  /// New cards are empty.
  void resize(std::size_t size);

  /// The index is below size(), else Fault.
  DeckCard& operator[](std::size_t at);
  const DeckCard& operator[](std::size_t at) const;
  DeckCard& at(std::size_t at) { return (*this)[at]; }
  const DeckCard& at(std::size_t at) const { return (*this)[at]; }
  DeckCard& front() { return (*this)[0]; }
  const DeckCard& front() const { return (*this)[0]; }
  DeckCard& back() { return (*this)[m_size - 1]; }
  const DeckCard& back() const { return (*this)[m_size - 1]; }

  DeckCard& emplace_back();
  void push_back(DeckCard card) { emplace_back() = std::move(card); }

  auto begin() { return Iterator<CardList, DeckCard>(*this, 0); }
  auto end() { return Iterator<CardList, DeckCard>(*this, m_size); }
  auto begin() const { return Iterator<const CardList, const DeckCard>(*this, 0); }
  auto end() const { return Iterator<const CardList, const DeckCard>(*this, m_size); }

 private:
  struct OpenPage {
    std::size_t number = NoPage;
    std::vector<DeckCard> cards;
    bool isChanged = false;  // the packed page, if any, is older
  };
  static constexpr std::size_t NoPage = static_cast<std::size_t>(-1);

  OpenPage& Open(std::size_t number) const;
  void Close(OpenPage& page) const;

  std::size_t m_size = 0;
  // A list is the same to its user whichever of its pages are packed.
  mutable std::vector<std::string> m_packed;
  mutable std::array<OpenPage, OpenPages> m_open;  // the one used last comes first
};

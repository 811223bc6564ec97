#pragma once

#include "authoring/CardFields.h"
#include "cards/StackStore.h"

/// The cards that were typed in a create window since it opened, and which of them its fields show:
/// one that is being corrected, or the entry of the next card, which is in no stack yet.
///
/// A card that is gone back to is shown as it is typed: a caret is two. A side that was not touched
/// keeps its text to the letter.
class TypedCards {
 public:
  /// Begins with the selected stack. The cards that it holds already were not typed here.
  explicit TypedCards(StackStore& stacks)
      : m_stacks(stacks), m_first(stacks.Current().CardCount + 1) {}

  /// The number of the card that is being corrected; 0 for the entry.
  int Corrected() const { return m_corrected; }
  bool HasPrevious() const;
  /// Whether `card` can be gone back to.
  bool IsTyped(int card) const { return card >= m_first && card <= Stack().CardCount; }

  /// Goes from what the fields show to another card, which may be the corrected one itself, or with
  /// 0 to the entry. A corrected card takes what was typed; the entry waits.
  /// @return what the fields are to show
  CardFields GoTo(int card, const CardFields& shown);

  /// To the card before, or behind, the corrected one; behind the last one comes the entry.
  CardFields GoBack(const CardFields& shown);
  CardFields GoOn(const CardFields& shown);

  /// Back to the entry; what was changed on the corrected card is dropped.
  CardFields Drop();

 private:
  CardStack& Stack() const { return m_stacks.Current(); }
  void Store(const CardFields& shown);
  CardFields Show(int card);

  StackStore& m_stacks;
  int m_first;
  int m_corrected = 0;
  CardFields m_entry;  // while a card is corrected
  CardFields m_shown;  // of the corrected card, as its fields were given it
};

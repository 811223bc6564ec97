#pragma once

#include "authoring/CardFields.h"
#include "authoring/MediaFuture.h"
#include "base/Files.h"
#include "cards/StackFile.h"
#include "cards/StackStore.h"
#include "cards/UnsavableText.h"

#include <array>

inline constexpr int RowsPerPage = 5;

/// Tells whether the save dialog opened its target: then "file already open" is the answer.
/// Otherwise a fixed name is looked for and never made, and any other status means that the dialog
/// was cancelled.
FileStatus ProbeStackFile(const StackStore& stacks, Files& files);

/// The card editor's state and operations, without a window. It works on the selected stack in
/// place; only Save reaches the disk.
///
/// Rows 0..4 show the cards from TopCard on. SelRow is the selected row, -1 for none; CurCard is
/// the card that the fields show.
class CardEditor {
 public:
  explicit CardEditor(StackStore& stacks) : m_stacks(stacks) {}

  int SelRow() const { return m_selRow; }
  int TopCard() const { return m_topCard; }
  int CurCard() const { return m_curCard; }

  /// The scroll bar's range is 1..ScrollMaximum(); it can be used when CanScroll().
  int ScrollMaximum() const;
  bool CanScroll() const { return Stack().CardCount > RowsPerPage; }

  /// Texts of a row, empty beyond the last card.
  Text RowText(int row, int side) const;
  bool IsRowStruckOut(int row) const;
  /// The first text that keeps the cards that are left from being saved.
  std::optional<CardSide> UnsavableText() const;
  Prompt SaveErrorPrompt(FileStatus status) const;
  bool IsMarked(int card) const { return m_deleted.at(static_cast<std::size_t>(card)); }

  /// "3/20"; without a selected row one less than the top card, so "0/20" at first.
  Text PositionText() const;

  /// The six fields of the selected card, its texts without the blanks at their ends that every
  /// load adds; empty when none is selected.
  CardFields ShownFields() const;

  /// Selects the row of a clicked label. False, and nothing changes, when the label's text is
  /// empty, unless the card has media alone: with no text on either side each label stands for it.
  bool SelectRow(int row, int side);
  bool CanSelectRow(int row, int side) const;

  /// Scrolls. The selection keeps its row, so another card becomes the selected one; a row without
  /// a front text is deselected.
  void ScrollTo(int topCard);

  /// Moves the selection by keys and scrolls where it must; cards without a text count as well.
  /// Without a selection it begins above the page.
  void MoveSelection(int rows);

  /// Goes to a card that was found: in the bottom row where possible.
  void GoTo(int card);

  /// Stores a text that was edited, when it differs from the card's. Blanks at the end do not
  /// count: they are not shown, and looking at a card must not change it.
  /// @return true when it was stored
  bool CommitText(int side, TextView text);

  /// Stores a media name of the selected card.
  void CommitMedia(int side, MediaKind kind, TextView name);

  /// Marks the selected card for deletion, or takes the mark back.
  void ToggleDeleted();

  /// After cards were appended: back to the first page.
  void CardsAppended();

  /// Writes the undeleted cards to the file that the save dialog left open and closes it. On
  /// success the stack loses the marked cards; on failure everything stays. The file is closed
  /// either way.
  FileStatus Save();

 private:
  CardStack& Stack() { return m_stacks.Current(); }
  const CardStack& Stack() const { return m_stacks.Current(); }
  FileStatus WriteCards(StackFile& file) const;
  void Compact();

  StackStore& m_stacks;
  int m_topCard = 1;
  int m_selRow = -1;
  int m_curCard = 0;
  std::array<bool, MaxCards + 1> m_deleted{};
};

#pragma once

#include "keys/KeyAssignmentEditing.h"

#include <QGroupBox>

#include <array>
#include <functional>
#include <initializer_list>

class QFrame;
class QKeyEvent;
class QLabel;
class QScrollBar;

/// Like the inside of a list.
void UseWindowColours(QWidget* widget);

/// The key assignments in the key assignment editor: seven rows of them, each the character and its
/// keystroke, beside a scroll bar. A row can be highlighted; what that means is up to the window.
class KeyRows : public QGroupBox {
  Q_OBJECT

 public:
  /// The assignment at a place, from 1; nothing behind the last.
  using AssignmentAt = std::function<std::optional<KeyAssignment>(int place)>;
  /// The font in which an assignment's character stands.
  using FontOf = std::function<QFont(const KeyAssignment& assignment)>;

  KeyRows(AssignmentAt assignmentAt, FontOf fontOf, QWidget* owner);

  /// Makes the rows high and wide enough for these fonts.
  void SetRowSizes(std::initializer_list<QFont> fonts);

  /// Shows the assignments from a place on; no row is highlighted then.
  void ShowScroll(KeyScroll scroll);
  /// Shows the same rows again.
  void Refresh();
  const KeyScroll& Scroll() const { return m_scroll; }

  /// @param row  0..6, or -1 for none
  void HighlightRow(int row);
  int HighlightedRow() const { return m_highlighted; }

  /// What Tab comes to, in this order.
  QWidget* FirstRow() const;
  QWidget* Bar() const;

 signals:
  /// A row was clicked, or chosen by a key. It may be empty.
  void RowChosen(int row);
  /// The scroll bar was moved; no row will be highlighted any more.
  void Scrolled();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void MakeRows();
  void LayOut();
  bool FilterRow(int row, QEvent* event);
  bool lblCol2_KeyDown(int row, const QKeyEvent& event);
  void vsbBar_Change(int value);
  void vsbBar_Enter();
  int RowOf(const QObject* label) const;
  void ShowKeyRow(int row, const std::optional<KeyAssignment>& assignment);
  void MoveToRow(int row);

  AssignmentAt m_assignmentAt;
  FontOf m_fontOf;
  KeyScroll m_scroll;
  int m_highlighted = -1;

  QFrame* sspCol1;
  QFrame* sspCol2;
  std::array<QLabel*, ShownKeyRows> lblCol1{};
  std::array<QLabel*, ShownKeyRows> lblCol2{};
  QScrollBar* vsbBar = nullptr;
};

#pragma once

#include "authoring/CardEditor.h"
#include "windows/frame/Announcer.h"
#include "windows/frame/Form.h"

#include <array>

class KeyMenus;
class QFrame;
class QLabel;
class QPushButton;
class QScrollBar;
class RowLabel;
class SidePanel;
class ZoomKeys;
class frmFind;

/// The card editor: the selected stack as a list of cards, five at a time, with the fields of the
/// selected one below. Changes go into the stack in memory at once; the file changes only by
/// saving.
class frmEdit : public Form {
  Q_OBJECT

 public:
  /// @param find  the find window, which outlives this one
  frmEdit(SharedState& shared, Platform& platform, QWidget* owner, frmFind& find);

 signals:
  /// Another topic is selected now.
  void TopicChanged();

 protected:
  bool Form_QueryUnload(UnloadCause cause) override;
  void Form_Activate() override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  Text SizeName() const override { return u"Edit"; }

  void MakeRows();
  void MakeMenus();
  void LayOut();
  void Form_Load();
  void ShowCaption();
  void ApplyFonts();
  CardStack& Stack() { return m_shared.Stacks.Current(); }

  void FillRows();
  void ShowHighlight();
  void ShowCard();
  void ShowPosition();
  void SetScrollRange();
  /// Shows all that depends on the top card and the selection.
  void ShowAll();
  void SaySelection();
  /// Leads to the text that keeps the cards from being saved.
  void ShowUnsavableText();

  /// Stores what was typed into the text fields. Buttons by mnemonic, the scroll bar, the wheel and
  /// menus do not move the focus, so every command begins with it.
  void CommitTexts();
  void CommitText(int side);

  void Row_Click(int row, int side);
  void vsbBar_Change(int topCard);
  void MoveSelection(int rows);
  static int RowsMovedBy(int key);
  void ShowListFocus(bool focused);
  void TurnWheel(int delta);
  void cmdEdit_Click();
  void cmdAppend_Click();
  void cmdDel_Click();
  void cmdEnd_Click();
  void cmdCancAll_Click();
  void mnuFind_Click();
  void mnuReFind_Click();
  void ShowFound();
  void mnuTopic_Click();
  void mnuDesc_Click();

  /// Saves through the save dialog.
  /// @return true when the stack was saved
  bool SaveCards();

  CardEditor m_editor;
  frmFind& m_find;
  Announcer m_announcer;
  bool m_noSavePrompt = false;
  int m_wheel = 0;  // turned, but not yet by a whole notch

  QFrame* sspListBox = nullptr;
  std::array<RowLabel*, RowsPerPage> lblCol1{};
  std::array<RowLabel*, RowsPerPage> lblCol2{};
  QScrollBar* vsbBar = nullptr;
  std::array<SidePanel*, 2> m_sides{};
  QLabel* lblCardCount = nullptr;
  QPushButton* cmdEdit = nullptr;
  QPushButton* cmdAppend = nullptr;
  QPushButton* cmdDel = nullptr;
  QPushButton* cmdEnd = nullptr;
  QPushButton* cmdCancAll = nullptr;
  QAction* mnuReFind = nullptr;
  KeyMenus* m_keyMenus = nullptr;
  ZoomKeys* m_zoom = nullptr;
};

#pragma once

#include "authoring/TypedCards.h"
#include "windows/frame/Announcer.h"
#include "windows/frame/Form.h"

#include <array>
#include <optional>

class KeyMenus;
class QLabel;
class QPushButton;
class SidePanel;
class ZoomKeys;

/// Where cards are typed in: into a new stack, which is saved at the end, or, in AddCardsMode,
/// behind those of the selected stack, which the card editor saves. Cards that were typed can be
/// gone back to and corrected while the window is open.
class frmCreate : public Form {
  Q_OBJECT

 public:
  frmCreate(SharedState& shared, Platform& platform, QWidget* owner);

 protected:
  bool Form_QueryUnload(UnloadCause cause) override;
  void Form_Activate() override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  Text SizeName() const override { return u"Create"; }

  void LayOut();
  void MakeMenus();
  void Form_Load();
  bool IsAdding() const { return m_shared.Switches.AddCardsMode; }
  CardStack& Stack() { return m_shared.Stacks.Current(); }
  CardFields Typed() const;
  void ApplyFonts();
  void ShowFields(const CardFields& fields);
  /// Shows what `m_cards` has come to.
  void ShowCard(const CardFields& fields);
  /// Ends a correction, which the card takes.
  void BackToEntry();
  bool AreBothTextsTyped() const;

  void AddCard();
  void ClearEntry();
  void ShowCardCount();
  /// @return false when the stack was not saved and the window stays open
  bool SaveNewStack();
  void ShowUnsavableText();

  void cmdPrev_Click();
  void cmdCont_Click();
  void cmdCanc_Click();
  void cmdEnd_Click();
  void cmdCancAll_Click() { Unload(); }

  bool m_saveOnExit = false;
  bool m_canContinue = false;  // with the entry, while another card is shown
  std::optional<TypedCards> m_cards;
  Announcer m_announcer;

  QLabel* lblCardCount;
  QLabel* lblNotice;
  std::array<SidePanel*, 2> m_sides;
  QPushButton* cmdCont;
  QPushButton* cmdPrev;
  QPushButton* cmdCanc;
  QPushButton* cmdEnd;
  QPushButton* cmdCancAll;
  KeyMenus* m_keyMenus = nullptr;
  ZoomKeys* m_zoom = nullptr;
};

#pragma once

#include "authoring/CardFields.h"
#include "shell/Form.h"

#include <array>

class KeyMenus;
class QLabel;
class QPushButton;
class SidePanel;

/// Where cards are typed in: into a new stack, which is saved at the end, or, in AddCardsMode,
/// behind those of the selected stack, which the card editor saves.
class frmCreate : public Form {
  Q_OBJECT

 public:
  frmCreate(SharedState& shared, Platform& platform, QWidget* owner);

 protected:
  bool Form_QueryUnload(UnloadCause cause) override;
  void Form_Activate() override;

 private:
  void LayOut();
  void MakeMenus();
  void Form_Load();
  bool IsAdding() const { return m_shared.Switches.AddCardsMode; }
  CardStack& Stack() { return m_shared.Stacks.Current(); }
  CardFields Typed() const;
  bool AreBothTextsTyped() const;

  void AddCard();
  void ClearEntry();
  void ShowCardCount();
  /// @return false when the stack was not saved and the window stays open
  bool SaveNewStack();

  void cmdCont_Click();
  void cmdCanc_Click() { ClearEntry(); }
  void cmdEnd_Click();
  void cmdCancAll_Click() { Unload(); }

  bool m_saveOnExit = false;

  QLabel* lblCardCount;
  std::array<SidePanel*, 2> m_sides;
  QPushButton* cmdCont;
  QPushButton* cmdCanc;
  QPushButton* cmdEnd;
  QPushButton* cmdCancAll;
  KeyMenus* m_keyMenus = nullptr;
};

#pragma once

#include "authoring/CardSearch.h"
#include "windows/frame/Form.h"

class KeyMenus;
class QCheckBox;
class QLineEdit;
class QPushButton;
class ZoomKeys;

/// The find window. It lives for the whole run and is only hidden, so that "Find Next" and the next
/// search find its settings.
class frmFind : public Form {
  Q_OBJECT

 public:
  frmFind(SharedState& shared, Platform& platform, QWidget* owner);

  /// Shows the window with its text selected, and returns when it is hidden.
  void ShowForSearch();

  /// Searches from the card behind FoundCard on, with the settings as the window has them.
  void FindNext();

 private:
  Text SizeName() const override { return u"Find"; }

  void LayOut();
  SearchSettings Settings() const;
  void SetFindFont();
  void ApplyFont();
  void Side_Click(QCheckBox* clicked);
  void txtFind_GotFocus();
  void txtFind_LostFocus();
  void cmdOK_Click();
  void cmdCanc_Click() { done(0); }

  QLineEdit* txtFind;
  QCheckBox* sscFront;
  QCheckBox* sscBack;
  QCheckBox* sscCase;
  QPushButton* cmdOK;
  QPushButton* cmdCanc;
  KeyMenus* m_keyMenus = nullptr;
  ZoomKeys* m_zoom = nullptr;
  float m_fontSize = 0;  // of txtFind before it is zoomed
  Text m_fontName;       // of txtFind, as the topic names it
};

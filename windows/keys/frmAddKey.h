#pragma once

#include "keys/KeyAssignmentEditing.h"
#include "windows/frame/Form.h"

#include <array>

class KeyRows;
class QCheckBox;
class QComboBox;
class QFrame;
class QGroupBox;
class QLabel;
class QListWidget;
class QPushButton;

/// The key assignment editor. It edits the selected topic's assignments, or, while a topic is being
/// added, begins with none and adds the topic; either way nothing is stored before it closes, and
/// then only if the user says so.
class frmAddKey : public Form {
  Q_OBJECT

 public:
  frmAddKey(SharedState& shared, Platform& platform, QWidget* owner);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  bool Form_QueryUnload(UnloadCause cause) override;
  void Form_Unload() override;

 private:
  Text SizeName() const override { return u"AddKey"; }

  void LayOut();
  QWidget* LayOutCharacters();
  QWidget* LayOutKeystroke();
  void SetNames();
  void FillLists();

  void Form_Load();
  void sscSide_Click(QCheckBox* box, QCheckBox* other);
  void lstAddKey_Click();
  void lstAddKey_GotFocus();
  void cboControlKey_Click(int index);
  void cboControlKey_Edited(const QString& text);
  bool cboControlKey_KeyDown(const QKeyEvent& event);
  bool cboControlKey_KeyPress(const QKeyEvent& event) const;
  void lblCol2_Click(int row);
  void vsbBar_Change();
  void cmdAction_Click();
  void cmdMore_Click();
  void cmdCancel_Click();
  void cmdDone_Click() { Unload(); }

  void AddKeyAssignment();
  void DeleteKeyAssignment();
  /// Each asks, saves after a Yes, and returns whether the window may close.
  bool AskAndSaveKeys();
  bool AskAndAddTopic();
  TopicSave SaveKeys(const KeyTable& keys);

  bool FilterKeystrokeBox(QEvent* event);
  void ShowAction(Text caption);
  void OfferKeystroke();
  void ClearCharacter();
  void ClearKeystroke();
  void SelectCharacter(int code);
  void SetListFont();
  std::optional<CharCode> ChosenCharacter() const;
  TickedSides Sides() const;
  QFont FontFor(KeyFont keyFont) const;
  TextView ListFontName() const;

  const bool m_newTopic;
  const Text m_topicName;
  KeyAssignmentEditing m_editing;
  const std::array<CharCode, 255> m_characters = AssignableCharacters();
  Text m_caption;  // of the action button
  Text m_ascCode;  // of the character chosen last

  KeyRows* sspKeyAss;
  QFrame* sspSides;
  QCheckBox* sscFront;
  QCheckBox* sscBack;
  QGroupBox* sspAddKey;
  QListWidget* lstAddKey;
  QLabel* sspAscCode;
  QGroupBox* sspControlKey;
  QFrame* sspControlOutline;
  QComboBox* cboControlKey;
  QPushButton* cmdAction;
  QPushButton* cmdMore;
  QPushButton* cmdCancel;
  QPushButton* cmdDone;
};

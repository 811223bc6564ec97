#pragma once

#include "keys/KeyPickers.h"
#include "windows/frame/Form.h"

#include <array>

class QFrame;
class QGroupBox;
class QLabel;
class QPushButton;
class QScrollBar;

/// The assignment picker: the topic's key assignments, each in the font of its side. KeyCodeToSend
/// says for which side when it opens, and holds the chosen code when it closes; cancelled, it stays
/// as it was.
class frmKeys : public Form {
  Q_OBJECT

 public:
  /// @param topic  fonts and keys; must live as long as the window
  frmKeys(SharedState& shared, Platform& platform, QWidget* owner, const TopicSettings& topic);

  /// The scroll bar's maximum as computed, also where that is below 1 and the bar stays at 1.
  Int16 ScrollMaximum() const { return PickerScrollMaximum(m_topic.Keys.KeyCount); }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void LayOut();
  void Form_Load();
  void ShowRows(int top);
  void ShowRow(int row, int top);
  QFont FontOf(const KeyAssignment& assignment) const;
  void SelectRow(int row);
  void Choose(std::optional<int> slot);

  void vsbBar_Change(int value);
  void lblCol_Click(int row);
  void lblCol_DblClick(int row);
  void cmdSend_Click();
  void cmdMore_Click();
  void cmdCanc_Click() { Unload(); }

  const TopicSettings& m_topic;
  KeySide m_side;
  int m_selectedRow = -1;  // 0..4, or -1 for none

  QGroupBox* sspKeyAss;
  QFrame* sspRows;
  QFrame* sspCol1;
  QFrame* sspCol2;
  std::array<QLabel*, PickerRows> lblCol1;
  std::array<QLabel*, PickerRows> lblCol2;
  QScrollBar* vsbBar;
  QPushButton* cmdSend;
  QPushButton* cmdMore;
  QPushButton* cmdCanc;
};

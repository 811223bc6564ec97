#pragma once

#include "windows/frame/Form.h"

#include <array>

class QFrame;
class QLabel;
class QPushButton;
class QScrollBar;

/// The code chart: all 256 characters of a side's font, 32 at a time. KeyCodeToSend says for which
/// side when it opens, and holds the chosen code when it closes; cancelled, it stays as it was.
class frmMoreKeys : public Form {
  Q_OBJECT

 public:
  /// @param fonts  the fonts of the two sides; read at once
  frmMoreKeys(SharedState& shared, Platform& platform, QWidget* owner, const TopicFonts& fonts);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  Text SizeName() const override { return u"MoreKeys"; }

  enum class KeyLook { Lowered, Raised, Pressed };

  QFrame*& Panel(int key) { return sspKey.at(static_cast<std::size_t>(key)); }
  QLabel*& Label(int key) { return lblKey.at(static_cast<std::size_t>(key)); }

  void LayOut();
  void Form_Load(const TopicFonts& fonts);
  void ShowKey(int key);
  void SetLook(int key, KeyLook look);
  void Deselect();
  void MoveBy(int keys);
  void MoveTo(int code);

  void hsbBar_Change(int page);
  void lblKey_Click(int index);
  void lblKey_MouseDown(int index);
  void lblKey_MouseUp(int index);
  void cmdSend_Click();
  void cmdCancel_Click() { Unload(); }

  QFont m_font;
  int m_selectedKey = -1;              // 0..31, or -1 for none
  std::array<bool, 32> m_dimmed = {};  // keys whose character the font does not have

  QFrame* sspKeyFrame;
  std::array<QFrame*, 32> sspKey;
  std::array<QLabel*, 32> lblKey;
  QScrollBar* hsbBar;
  QLabel* sspRange;
  QLabel* sspStatus;
  QPushButton* cmdSend;
  QPushButton* cmdCancel;
};

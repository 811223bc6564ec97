#pragma once

#include "windows/frame/Form.h"

#include <array>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

/// The study settings: how long a question stays visible, and what of a card is offered.
class frmTime : public Form {
  Q_OBJECT

 public:
  frmTime(SharedState& shared, Platform& platform, QWidget* owner);

 protected:
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void LayOut();
  void Form_Load();
  void Option_Click(IntervalOption option);
  void txtOther_Click();
  void cmdOK_Click();
  void cmdCanc_Click() { Unload(); }
  QRadioButton* ButtonOf(IntervalOption option) const;

  QLabel* Label1;
  QLabel* Label2;
  QLabel* Picture1;
  QRadioButton* oNone;
  QRadioButton* o250msecs;
  QRadioButton* o500msecs;
  QRadioButton* o1000msecs;
  QRadioButton* oOther;
  QLineEdit* txtOther;
  QCheckBox* DisplayWord;
  QCheckBox* PlaySound;
  QCheckBox* ShowPicture;
  QPushButton* cmdOK;
  QPushButton* cmdCanc;
};

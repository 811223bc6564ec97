#pragma once

#include "windows/frame/Form.h"

class QLabel;
class QPushButton;

class frmAboutBox : public Form {
  Q_OBJECT

 public:
  frmAboutBox(SharedState& shared, Platform& platform, QWidget* owner);

 private:
  void cmdOverview_Click() { m_platform.help.Show(HelpContext::Overview); }
  void cmdOK_Click() { Unload(); }

  QLabel* lblTitle;
  QLabel* lblVersion;
  QLabel* lblAbout;
  QPushButton* cmdOverview;
  QPushButton* cmdOK;
};

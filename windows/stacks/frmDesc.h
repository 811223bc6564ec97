#pragma once

#include "windows/frame/Form.h"

class QLineEdit;
class QPushButton;

/// Asks for the description of a new stack (NewDescription), or changes that of the stack being
/// edited. It belongs to the program, not to a stack.
class frmDesc : public Form {
  Q_OBJECT

 public:
  frmDesc(SharedState& shared, Platform& platform, QWidget* owner);

 protected:
  bool Form_QueryUnload(UnloadCause cause) override;

 private:
  void LayOut();
  void Form_Load();
  void cmdOK_Click();
  void cmdCanc_Click() { Unload(); }

  Text m_oldDescription;
  QLineEdit* txtDesc;
  QPushButton* cmdOK;
  QPushButton* cmdCanc;
};

#include "windows/stacks/frmDesc.h"

#include "windows/frame/OneLine.h"
#include "windows/frame/QtText.h"
#include "windows/frame/TypingFilter.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>

frmDesc::frmDesc(SharedState& shared, Platform& platform, QWidget* owner)
    : Form("frmDesc", shared, platform, owner),
      txtDesc(Add<QLineEdit>(QStringLiteral("txtDesc"))),
      cmdOK(Add<QPushButton>(QStringLiteral("cmdOK"), QStringLiteral("OK"))),
      cmdCanc(Add<QPushButton>(QStringLiteral("cmdCanc"), QStringLiteral("Cancel"))) {
  LayOut();
  AddHelp(AddMenuBar(), HelpContext::Description);
  KeepToOneLine(txtDesc);
  // The box takes one character more than a description holds; it is lost on OK. Meant so.
  new TypingFilter(txtDesc, [](qsizetype length, QChar) { return length <= DescriptionWidth; });
  connect(cmdOK, &QPushButton::clicked, this, &frmDesc::cmdOK_Click);
  connect(cmdCanc, &QPushButton::clicked, this, &frmDesc::cmdCanc_Click);
  SetOkButton(cmdOK);
  SetCancelButton(cmdCanc);
  Form_Load();
}

void frmDesc::LayOut() {
  auto* const sspDesc = Add<QFrame>(QStringLiteral("sspDesc"));
  auto* const sspButtons = Add<QFrame>(QStringLiteral("sspButtons"));
  txtDesc->setAccessibleName(QStringLiteral("Description"));
  txtDesc->setMinimumWidth(txtDesc->fontMetrics().averageCharWidth() * DescriptionWidth);
  auto* const top = new QHBoxLayout(sspDesc);
  top->setContentsMargins(0, 0, 0, 0);
  top->addWidget(txtDesc);
  auto* const buttons = new QHBoxLayout(sspButtons);
  buttons->setContentsMargins(0, 0, 0, 0);
  buttons->addStretch();
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdCanc);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(16, 16, 16, 12);
  column->setSpacing(16);
  column->addWidget(sspDesc);
  column->addStretch();
  column->addWidget(sspButtons);
}

void frmDesc::Form_Load() {
  const bool isNew = m_shared.Switches.NewDescription;
  if (!isNew) m_oldDescription = m_shared.Stacks.StackDescription;
  setWindowTitle(isNew ? QStringLiteral("Enter File Description")
                       : QStringLiteral("Change File Description"));
  txtDesc->setText(ToQString(TrimRight(m_oldDescription)));
}

bool frmDesc::Form_QueryUnload(UnloadCause cause) {
  if (cause == UnloadCause::CloseBox) m_shared.Stacks.StackDescription = m_oldDescription;
  return true;
}

void frmDesc::cmdOK_Click() {
  m_shared.Stacks.StackDescription = TrimRight(CutText(ToText(txtDesc->text()), DescriptionWidth));
  Unload();
}

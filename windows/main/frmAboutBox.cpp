#include "windows/main/frmAboutBox.h"

#include "base/Version.h"
#include "windows/frame/QtText.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>

frmAboutBox::frmAboutBox(SharedState& shared, Platform& platform, QWidget* owner)
    : Form("frmAboutBox", shared, platform, owner),
      lblTitle(Add<QLabel>(QStringLiteral("lblTitle"))),
      lblVersion(Add<QLabel>(QStringLiteral("lblVersion"))),
      lblAbout(Add<QLabel>(QStringLiteral("lblAbout"))),
      cmdOverview(Add<QPushButton>(QStringLiteral("cmdOverview"))),
      cmdOK(Add<QPushButton>(QStringLiteral("cmdOK"))) {
  setWindowTitle(QStringLiteral("About ") + ToQString(ProgramName));
  auto* const imgIcon = Add<QLabel>(QStringLiteral("imgIcon"));
  imgIcon->setAccessibleName(ToQString(ProgramName));
  imgIcon->setPixmap(QApplication::windowIcon().pixmap(QSize(64, 64), devicePixelRatioF()));
  QFont large = lblTitle->font();
  large.setPointSizeF(large.pointSizeF() * 1.6);
  large.setBold(true);
  lblTitle->setFont(large);
  lblTitle->setText(ToQString(ProgramName));
  lblVersion->setText(QStringLiteral("Version ") + ToQString(ProgramVersion));
  lblAbout->setText(QStringLiteral("Learning with study cards"));
  cmdOverview->setText(QStringLiteral("O&verview"));
  cmdOK->setText(QStringLiteral("OK"));

  auto* const words = new QVBoxLayout;
  words->setSpacing(4);
  words->addWidget(lblTitle);
  words->addWidget(lblVersion);
  words->addSpacing(8);
  words->addWidget(lblAbout);
  words->addStretch();
  auto* const top = new QHBoxLayout;
  top->setSpacing(20);
  top->addWidget(imgIcon, 0, Qt::AlignTop);
  top->addLayout(words, 1);
  auto* const buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch();
  buttons->addWidget(cmdOverview);
  buttons->addWidget(cmdOK);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(20);
  column->addLayout(top);
  column->addLayout(buttons);
  layout()->setSizeConstraint(QLayout::SetFixedSize);

  connect(cmdOverview, &QPushButton::clicked, this, &frmAboutBox::cmdOverview_Click);
  connect(cmdOK, &QPushButton::clicked, this, &frmAboutBox::cmdOK_Click);
  connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this,
          &frmAboutBox::cmdOverview_Click);
  SetOkButton(cmdOK);
  SetCancelButton(cmdOK);
  cmdOK->setFocus();
}

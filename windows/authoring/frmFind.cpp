#include "windows/authoring/frmFind.h"

#include "program/Zoom.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/OneLine.h"
#include "windows/frame/Pointer.h"
#include "windows/frame/QtText.h"
#include "windows/keys/CardField.h"
#include "windows/keys/KeyMenus.h"
#include "windows/keys/ZoomKeys.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>

frmFind::frmFind(SharedState& shared, Platform& platform, QWidget* owner)
    : Form("frmFind", shared, platform, owner),
      txtFind(Add<QLineEdit>(QStringLiteral("txtFind"))),
      sscFront(Add<QCheckBox>(QStringLiteral("sscFront"), QStringLiteral("&Front of Card"))),
      sscBack(Add<QCheckBox>(QStringLiteral("sscBack"), QStringLiteral("&Back of Card"))),
      sscCase(Add<QCheckBox>(QStringLiteral("sscCase"), QStringLiteral("&Case Sensitive"))),
      cmdOK(Add<QPushButton>(QStringLiteral("cmdOK"), QStringLiteral("OK"))),
      cmdCanc(Add<QPushButton>(QStringLiteral("cmdCanc"), QStringLiteral("Cancel"))) {
  LayOut();
  QMenuBar* const bar = AddMenuBar();
  auto* const field = new CardField(txtFind, shared.Topic.Keys);
  m_zoom = new ZoomKeys(bar, platform.state, u"frmFind", ExactZoom);
  connect(m_zoom, &ZoomKeys::Changed, this, &frmFind::ApplyFont);
  m_keyMenus = new KeyMenus(bar, KeyMenuStyle::CardWindow, shared.Topic, shared, platform);
  m_keyMenus->AddField(field);
  AddHelp(bar, HelpContext::Find);
  KeepToOneLine(txtFind);
  sscFront->setChecked(true);
  sscBack->setChecked(true);
  connect(field, &CardField::GotFocus, this, &frmFind::txtFind_GotFocus);
  connect(field, &CardField::LostFocus, this, &frmFind::txtFind_LostFocus);
  connect(sscFront, &QCheckBox::clicked, this, [this] { Side_Click(sscFront); });
  connect(sscBack, &QCheckBox::clicked, this, [this] { Side_Click(sscBack); });
  connect(cmdOK, &QPushButton::clicked, this, &frmFind::cmdOK_Click);
  connect(cmdCanc, &QPushButton::clicked, this, &frmFind::cmdCanc_Click);
  SetOkButton(cmdOK);
  SetCancelButton(cmdCanc);
}

void frmFind::LayOut() {
  auto* const sspFind = Add<QGroupBox>(QStringLiteral("sspFind"), QStringLiteral("Find &What:"));
  auto* const sspSides = Add<QGroupBox>(QStringLiteral("sspSides"), QStringLiteral("Search"));
  auto* const sspCase = Add<QGroupBox>(QStringLiteral("sspCase"), QStringLiteral("Letter case"));
  auto* const sspButtons = Add<QFrame>(QStringLiteral("sspButtons"));
  txtFind->setAccessibleName(QStringLiteral("Find what"));
  sspFind->setFocusProxy(txtFind);
  (new QHBoxLayout(sspFind))->addWidget(txtFind);
  auto* const sides = new QVBoxLayout(sspSides);
  sides->addWidget(sscFront);
  sides->addWidget(sscBack);
  auto* const letterCase = new QVBoxLayout(sspCase);
  letterCase->addWidget(sscCase);
  letterCase->addStretch();
  auto* const boxes = new QHBoxLayout;
  boxes->addWidget(sspSides);
  boxes->addWidget(sspCase);
  auto* const buttons = new QHBoxLayout(sspButtons);
  buttons->setContentsMargins(0, 0, 0, 0);
  buttons->addStretch();
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdCanc);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(16, 12, 16, 12);
  column->setSpacing(12);
  column->addWidget(sspFind);
  column->addLayout(boxes);
  column->addStretch();
  column->addWidget(sspButtons);
  SetTabOrder({txtFind, sscFront, sscBack, sscCase, cmdOK, cmdCanc});
}

void frmFind::ShowForSearch() {
  SetFindFont();
  m_keyMenus->Rebuild();
  const Text name(TrimRight(m_shared.Stacks.Current().StackName));
  setWindowTitle(TitleText(u"Finder - Using " + name));
  txtFind->setFocus();
  txtFind->selectAll();
  SetPointer(PointerShape::Normal);  // the first showing alone is a loading
  ShowModal();
}

SearchSettings frmFind::Settings() const {
  return {ToText(txtFind->text()), sscFront->isChecked(), sscBack->isChecked(),
          sscCase->isChecked()};
}

void frmFind::FindNext() {
  const int found = ::FindNext(m_shared.Stacks.Current(), Settings(), m_shared.Switches.FoundCard);
  if (found == 0) {
    m_platform.prompts.Show(TextNotFoundPrompt());
  } else {
    m_shared.Switches.FoundCard = found;
  }
}

void frmFind::SetFindFont() {
  const TopicFonts& fonts = m_shared.Topic.Fonts;
  Text name(DefaultFontName);
  float size = DefaultFontSize;
  if (!sscBack->isChecked()) {
    name = fonts.FrontFont;
    size = fonts.FrontSize;
  } else if (!sscFront->isChecked()) {
    name = fonts.BackFont;
    size = fonts.BackSize;
  }
  // The size follows only when the name is another. Meant so.
  if (name == m_fontName) return;
  m_fontName = name;
  m_fontSize = size;
  ApplyFont();
}

void frmFind::ApplyFont() {
  txtFind->setFont(DisplayFont(m_fontName, m_fontSize, m_zoom->Factor()));
}

void frmFind::Side_Click(QCheckBox* clicked) {
  if (!sscFront->isChecked() && !sscBack->isChecked()) clicked->setChecked(true);
  SetFindFont();
}

void frmFind::txtFind_GotFocus() {
  m_keyMenus->SetEnabled(KeySide::Front, sscFront->isChecked());
  m_keyMenus->SetEnabled(KeySide::Back, sscBack->isChecked());
}

void frmFind::txtFind_LostFocus() {
  m_keyMenus->SetEnabled(KeySide::Front, false);
  m_keyMenus->SetEnabled(KeySide::Back, false);
}

void frmFind::cmdOK_Click() {
  if (txtFind->text().isEmpty()) return;
  FindNext();
  cmdCanc_Click();
}

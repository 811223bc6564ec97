#include "authoring/frmCreate.h"

#include "authoring/CardTextBox.h"
#include "authoring/EditMenu.h"
#include "authoring/NewStack.h"
#include "authoring/SidePanel.h"
#include "base/QtText.h"
#include "cards/frmLoad.h"
#include "keys/CardField.h"
#include "keys/KeyMenus.h"
#include "settings/DisplayFont.h"
#include "shell/Pointer.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>

namespace {

constexpr float LargerBy = 2;  // points: what is being typed stands larger than in study

}  // namespace

frmCreate::frmCreate(SharedState& shared, Platform& platform, QWidget* owner)
    : Form("frmCreate", shared, platform, owner),
      lblCardCount(Add<QLabel>(QStringLiteral("lblCardCount"))),
      m_sides{new SidePanel(Front, shared, platform, this),
              new SidePanel(Back, shared, platform, this)},
      cmdCont(Add<QPushButton>(QStringLiteral("cmdCont"), QStringLiteral("Continue"))),
      cmdCanc(Add<QPushButton>(QStringLiteral("cmdCanc"), QStringLiteral("Cancel Entry"))),
      cmdEnd(Add<QPushButton>(QStringLiteral("cmdEnd"))),
      cmdCancAll(Add<QPushButton>(QStringLiteral("cmdCancAll"), QStringLiteral("Cancel All"))) {
  LayOut();
  MakeMenus();
  for (SidePanel* const panel : m_sides) {
    connect(panel, &SidePanel::TextChanged, this, [this] { cmdCont->setEnabled(true); });
  }
  connect(cmdCont, &QPushButton::clicked, this, &frmCreate::cmdCont_Click);
  connect(cmdCanc, &QPushButton::clicked, this, &frmCreate::cmdCanc_Click);
  connect(cmdEnd, &QPushButton::clicked, this, &frmCreate::cmdEnd_Click);
  connect(cmdCancAll, &QPushButton::clicked, this, &frmCreate::cmdCancAll_Click);
  Form_Load();
}

void frmCreate::LayOut() {
  auto* const sspCardCount = Add<QFrame>(QStringLiteral("sspCardCount"));
  auto* const count = new QHBoxLayout(sspCardCount);
  count->setContentsMargins(0, 0, 0, 0);
  count->addWidget(new QLabel(QStringLiteral("Card Count:"), sspCardCount));
  count->addWidget(lblCardCount);
  count->addStretch();
  lblCardCount->setAccessibleDescription(QStringLiteral("Card count"));
  auto* const sides = new QHBoxLayout;
  sides->setSpacing(12);
  sides->addWidget(m_sides[0]);
  sides->addWidget(m_sides[1]);
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QPushButton* const button : {cmdCont, cmdCanc, cmdEnd, cmdCancAll}) {
    buttons->addWidget(button);
  }
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(12);
  column->addWidget(sspCardCount);
  column->addLayout(sides, 1);
  column->addLayout(buttons);
  resize(680, 340);
}

void frmCreate::MakeMenus() {
  QMenuBar* const bar = AddMenuBar();
  new EditMenu(bar);
  m_keyMenus = new KeyMenus(bar, KeyMenuStyle::CardWindow, m_shared.Topic, m_shared, m_platform);
  m_keyMenus->AddSideField(m_sides[0]->Field(), KeySide::Front);
  m_keyMenus->AddSideField(m_sides[1]->Field(), KeySide::Back);
  AddHelp(bar, HelpContext::Create);
}

void frmCreate::Form_Load() {
  const TopicFonts& fonts = m_shared.Topic.Fonts;
  m_sides[0]->SetTextFont(DisplayFont(fonts.FrontFont, fonts.FrontSize + LargerBy));
  m_sides[1]->SetTextFont(DisplayFont(fonts.BackFont, fonts.BackSize + LargerBy));
  const Text topic = m_shared.Topics.Name(m_shared.Topics.CurrentTopic);
  if (IsAdding()) {
    // The name stands in its full width.
    setWindowTitle(ToQString(u"Add Cards to " + FixedWidth(Stack().StackName, StackNameWidth) +
                             u" (" + topic + u")"));
    cmdEnd->setText(QStringLiteral("Done"));
    cmdCancAll->setEnabled(false);
  } else {
    BeginNewStack(m_shared.Stacks, m_shared.Topics.CurrentTopic);
    setWindowTitle(ToQString(u"Create Cards - " + topic));
    cmdEnd->setText(QStringLiteral("Save/End"));
  }
  cmdCont->setEnabled(false);
  ShowCardCount();
  m_sides[0]->TextBox()->setFocus();
}

void frmCreate::Form_Activate() { m_keyMenus->Rebuild(); }

CardFields frmCreate::Typed() const { return {{m_sides[0]->Content(), m_sides[1]->Content()}}; }

bool frmCreate::AreBothTextsTyped() const {
  const CardFields typed = Typed();
  return !typed.sides[0].text.empty() && !typed.sides[1].text.empty();
}

void frmCreate::AddCard() {
  if (!::AddCard(Stack(), Typed())) m_platform.prompts.Show(StackFullPrompt());
}

void frmCreate::ClearEntry() {
  for (SidePanel* const panel : m_sides) {
    SideFields fields = panel->Content();
    fields.text.clear();  // the media names stay and go into the next card
    panel->SetContent(fields);
  }
  cmdCont->setEnabled(false);
  ShowCardCount();
  m_sides[0]->TextBox()->setFocus();
}

void frmCreate::ShowCardCount() { lblCardCount->setText(ToQString(NumberText(Stack().CardCount))); }

void frmCreate::cmdCont_Click() {
  // The card is stored before anything is tested: with one side empty it is stored all the same,
  // and again at the next press. Meant so.
  AddCard();
  if (AreBothTextsTyped()) {
    ClearEntry();
  } else {
    ShowCardCount();
  }
}

void frmCreate::cmdEnd_Click() {
  if (AreBothTextsTyped()) cmdCont_Click();
  m_saveOnExit = !IsAdding();
  Unload();
}

bool frmCreate::Form_QueryUnload(UnloadCause) {
  SetPointer(PointerShape::Busy);
  if (Stack().CardCount > 0 && m_saveOnExit) return SaveNewStack();
  if (!IsAdding()) DropNewStack(m_shared.Stacks);
  return true;
}

bool frmCreate::SaveNewStack() {
  if (!Typed().sides[1].text.empty()) AddCard();  // the front may be empty
  const Text name = Stack().StackName;
  m_shared.Switches.FileDialogMode = FileDialogMode::SaveNew;
  frmLoad(m_shared, m_platform, this).ShowModal();
  if (Stack().StackName != name) return true;
  SetPointer(PointerShape::Normal);
  m_saveOnExit = false;
  ShowCardCount();
  return false;
}

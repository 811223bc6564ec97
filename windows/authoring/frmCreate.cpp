#include "windows/authoring/frmCreate.h"

#include "authoring/NewStack.h"
#include "cards/UnsavableText.h"
#include "program/Zoom.h"
#include "windows/authoring/CardTextBox.h"
#include "windows/authoring/EditMenu.h"
#include "windows/authoring/SidePanel.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/Pointer.h"
#include "windows/frame/QtText.h"
#include "windows/keys/CardField.h"
#include "windows/keys/KeyMenus.h"
#include "windows/keys/ZoomKeys.h"
#include "windows/stacks/frmLoad.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>

namespace {

constexpr float LargerBy = 2;  // points: what is being typed stands larger than in study

}  // namespace

frmCreate::frmCreate(SharedState& shared, Platform& platform, QWidget* owner)
    : Form("frmCreate", shared, platform, owner),
      m_announcer(this),
      lblCardCount(Add<QLabel>(QStringLiteral("lblCardCount"))),
      lblNotice(Add<QLabel>(QStringLiteral("lblNotice"))),
      m_sides{new SidePanel(Front, shared, platform, this),
              new SidePanel(Back, shared, platform, this)},
      cmdCont(Add<QPushButton>(QStringLiteral("cmdCont"), QStringLiteral("Continue"))),
      cmdPrev(Add<QPushButton>(QStringLiteral("cmdPrev"), QStringLiteral("&Previous Card"))),
      cmdCanc(Add<QPushButton>(QStringLiteral("cmdCanc"), QStringLiteral("Cancel Entry"))),
      cmdEnd(Add<QPushButton>(QStringLiteral("cmdEnd"))),
      cmdCancAll(Add<QPushButton>(QStringLiteral("cmdCancAll"), QStringLiteral("Cancel All"))) {
  LayOut();
  MakeMenus();
  for (SidePanel* const panel : m_sides) {
    connect(panel, &SidePanel::TextChanged, this, [this] { cmdCont->setEnabled(true); });
  }
  connect(cmdPrev, &QPushButton::clicked, this, &frmCreate::cmdPrev_Click);
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
  count->addWidget(lblNotice);
  lblCardCount->setAccessibleDescription(QStringLiteral("Card count"));
  auto* const sides = new QHBoxLayout;
  sides->setSpacing(12);
  sides->addWidget(m_sides[0]);
  sides->addWidget(m_sides[1]);
  cmdPrev->setToolTip(QStringLiteral("Back to a card that you have typed, to correct it"));
  cmdCont->setToolTip(QStringLiteral("Store the card and go on (Ctrl+Enter)"));
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QPushButton* const button : {cmdCont, cmdPrev, cmdCanc, cmdEnd, cmdCancAll}) {
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
  m_zoom = new ZoomKeys(bar, m_platform.state, u"frmCreate", ExactZoom);
  connect(m_zoom, &ZoomKeys::Changed, this, &frmCreate::ApplyFonts);
  m_keyMenus = new KeyMenus(bar, KeyMenuStyle::CardWindow, m_shared.Topic, m_shared, m_platform);
  m_keyMenus->AddSideField(m_sides[0]->Field(), KeySide::Front);
  m_keyMenus->AddSideField(m_sides[1]->Field(), KeySide::Back);
  AddHelp(bar, HelpContext::Create);
}

void frmCreate::ApplyFonts() {
  const TopicFonts& fonts = m_shared.Topic.Fonts;
  const float zoom = m_zoom->Factor();
  m_sides[0]->SetTextFont(DisplayFont(fonts.FrontFont, fonts.FrontSize + LargerBy, zoom));
  m_sides[1]->SetTextFont(DisplayFont(fonts.BackFont, fonts.BackSize + LargerBy, zoom));
}

void frmCreate::Form_Load() {
  ApplyFonts();
  const Text topic = m_shared.Topics.Name(m_shared.Topics.CurrentTopic);
  if (IsAdding()) {
    // The name stands in its full width.
    setWindowTitle(TitleText(u"Add Cards to " + FixedWidth(Stack().StackName, StackNameWidth) +
                             u" (" + topic + u")"));
    cmdEnd->setText(QStringLiteral("Done"));
    cmdCancAll->setEnabled(false);
  } else {
    BeginNewStack(m_shared.Stacks, m_shared.Topics.CurrentTopic);
    setWindowTitle(TitleText(u"Create Cards - " + topic));
    cmdEnd->setText(QStringLiteral("Save/End"));
  }
  m_cards.emplace(m_shared.Stacks);
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

void frmCreate::ShowCardCount() {
  lblCardCount->setText(ToQString(NumberText(Stack().CardCount)));
  cmdPrev->setEnabled(m_cards->HasPrevious());
  const int card = m_cards->Corrected();
  lblNotice->setText(
      card == 0 ? QString()
                : QStringLiteral("Correcting card %1. Continue goes on from it.").arg(card));
}

void frmCreate::ShowFields(const CardFields& fields) {
  for (const int side : {Front, Back}) {
    m_sides[static_cast<std::size_t>(side)]->SetContent(
        fields.sides[static_cast<std::size_t>(side)]);
  }
}

void frmCreate::ShowCard(const CardFields& fields) {
  ShowFields(fields);
  const bool correcting = m_cards->Corrected() != 0;
  cmdCont->setEnabled(correcting || m_canContinue);
  ShowCardCount();
  m_sides[0]->TextBox()->setFocus();
  m_announcer.Say(correcting ? lblNotice->text() : QStringLiteral("New card."));
}

void frmCreate::BackToEntry() {
  if (m_cards->Corrected() != 0) ShowCard(m_cards->GoTo(0, Typed()));
}

void frmCreate::cmdPrev_Click() {
  if (m_cards->Corrected() == 0) m_canContinue = cmdCont->isEnabled();
  ShowCard(m_cards->GoBack(Typed()));
}

void frmCreate::cmdCont_Click() {
  if (m_cards->Corrected() != 0) {
    ShowCard(m_cards->GoOn(Typed()));
    return;
  }
  // The card is stored before anything is tested: with one side empty it is stored all the same,
  // and again at the next press. Meant so.
  AddCard();
  if (AreBothTextsTyped()) {
    ClearEntry();
  } else {
    ShowCardCount();
  }
}

void frmCreate::cmdCanc_Click() {
  if (m_cards->Corrected() != 0) {
    ShowCard(m_cards->Drop());
  } else {
    ClearEntry();
  }
}

void frmCreate::cmdEnd_Click() {
  BackToEntry();
  if (AreBothTextsTyped()) cmdCont_Click();
  m_saveOnExit = !IsAdding();
  Unload();
}

bool frmCreate::Form_QueryUnload(UnloadCause) {
  BackToEntry();
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
  ShowUnsavableText();
  return false;
}

/// A stack with a caret can never be saved, so the user is led to it.
void frmCreate::ShowUnsavableText() {
  const std::optional<CardSide> where = FirstUnsavableText(Stack());
  if (!where || !m_cards->IsTyped(where->card)) return;
  m_canContinue = cmdCont->isEnabled();
  ShowCard(m_cards->GoTo(where->card, Typed()));
  CardTextBox* const box = m_sides[static_cast<std::size_t>(where->side)]->TextBox();
  box->setFocus();
  box->SelectFirst(u'^');
}

/// Enter alone does nothing where cards are typed.
void frmCreate::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const bool control = (event->modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
  if (enter && control) {
    if (cmdCont->isEnabled()) cmdCont->click();
  } else {
    Form::keyPressEvent(event);
  }
}

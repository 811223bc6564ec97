#include "study/frmStepper.h"

#include "base/QtText.h"
#include "settings/DisplayFont.h"
#include "shell/Icons.h"
#include "shell/Pointer.h"
#include "study/MediaFiles.h"
#include "study/PictureBox.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QToolButton>

namespace {

/// A card text breaks where the card says and nowhere else, so a long line scrolls.
QScrollArea* Scrolling(QLabel* label, QWidget* owner) {
  label->setAlignment(Qt::AlignCenter);
  label->setMargin(12);
  auto* const area = new QScrollArea(owner);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(label);
  return area;
}

bool HasPictures(const CardStack& stack) {
  for (int card = 1; card <= stack.CardCount; ++card) {
    for (const int side : {Front, Back}) {
      if (!stack.SidePicture(card, side).empty()) return true;
    }
  }
  return false;
}

}  // namespace

frmStepper::frmStepper(SharedState& shared, Platform& platform, StudyWindows& windows,
                       int instanceNumber)
    : Form("frmStepper", shared, platform, nullptr),
      m_windows(windows),
      m_topic(shared.Topic),
      m_random(platform.makeRandom()),
      sspTop(Add<QFrame>(QStringLiteral("sspTop"))),
      lblTop(Add<QLabel>(QStringLiteral("lblTop"))),
      lblBottom(Add<QLabel>(QStringLiteral("lblBottom"))),
      picTop(Add<PictureBox>(QStringLiteral("picTop"))),
      lblCardCount(Add<QLabel>(QStringLiteral("lblCardCount"))),
      ssoFront(Add<QRadioButton>(QStringLiteral("ssoFront"), QStringLiteral("&Front"))),
      ssoBack(Add<QRadioButton>(QStringLiteral("ssoBack"), QStringLiteral("&Back"))),
      ssrSound{Add<QToolButton>(QStringLiteral("ssrSound(0)")),
               Add<QToolButton>(QStringLiteral("ssrSound(1)"))},
      cmdNext(Add<QPushButton>(QStringLiteral("cmdNext"), QStringLiteral("&Next"))),
      cmdRedo(Add<QPushButton>(QStringLiteral("cmdRedo"), QStringLiteral("&Redo"))),
      cmdQuit(Add<QPushButton>(QStringLiteral("cmdQuit"), QStringLiteral("&Quit"))),
      tmrTimer(new QTimer(this)) {
  setWindowFlags(Qt::Window);
  setAttribute(Qt::WA_DeleteOnClose);
  tmrTimer->setObjectName(QStringLiteral("tmrTimer"));
  m_session.instanceNumber = instanceNumber;
  m_session.stackIndex = shared.Stacks.CurrentStack;
  LayOut();
  AddHelp(AddMenuBar(), HelpContext::Stepper);
  connect(cmdNext, &QPushButton::clicked, this, &frmStepper::cmdNext_Click);
  connect(cmdRedo, &QPushButton::clicked, this, &frmStepper::cmdRedo_Click);
  connect(cmdQuit, &QPushButton::clicked, this, &frmStepper::cmdQuit_Click);
  connect(ssoFront, &QRadioButton::clicked, this, [this] { SideOption_Click(Front); });
  connect(ssoBack, &QRadioButton::clicked, this, [this] { SideOption_Click(Back); });
  connect(tmrTimer, &QTimer::timeout, this, &frmStepper::tmrTimer_Timer);
  Form_Load();
}

void frmStepper::LayOut() {
  sspTop->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
  sspTop->setBackgroundRole(QPalette::Base);
  sspTop->setAutoFillBackground(true);
  sspTop->setMinimumSize(420, 220);
  for (QLabel* const line : {lblTop, lblBottom}) {
    line->setBackgroundRole(QPalette::Base);
    line->setForegroundRole(QPalette::Text);
    line->setAutoFillBackground(true);
  }
  lblTop->setAccessibleName(QStringLiteral("Question"));
  lblBottom->setAccessibleName(QStringLiteral("Answer"));
  auto* const middle = new QFrame(sspTop);
  middle->setFrameShape(QFrame::HLine);
  middle->setFrameShadow(QFrame::Sunken);
  auto* const card = new QVBoxLayout(sspTop);
  card->addWidget(Scrolling(lblTop, sspTop), 2);
  card->addWidget(picTop, 3);
  card->addWidget(middle);
  card->addWidget(Scrolling(lblBottom, sspTop), 2);

  const std::array<QString, 2> tips = {QStringLiteral("Play the question's sound"),
                                       QStringLiteral("Play the answer's sound")};
  for (std::size_t i = 0; i < ssrSound.size(); ++i) {
    ssrSound[i]->setIcon(TintedIcon("sound"));
    ssrSound[i]->setIconSize(QSize(20, 20));
    ssrSound[i]->setToolTip(tips[i]);
    ssrSound[i]->setAccessibleName(tips[i]);
    ssrSound[i]->setEnabled(false);
  }
  auto* const lblSide = Add<QLabel>(QStringLiteral("lblSide"), QStringLiteral("Ask first:"));
  lblCardCount->setToolTip(QStringLiteral("Cards drawn and cards in the stack"));
  auto* const head = new QHBoxLayout;
  head->addWidget(lblSide);
  head->addWidget(ssoFront);
  head->addWidget(ssoBack);
  head->addStretch();
  head->addWidget(ssrSound[0]);
  head->addWidget(ssrSound[1]);
  head->addSpacing(12);
  head->addWidget(lblCardCount);
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdNext);
  buttons->addWidget(cmdRedo);
  buttons->addWidget(cmdQuit);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(10);
  column->addLayout(head);
  column->addWidget(sspTop, 1);
  column->addLayout(buttons);
  SetTabOrder({cmdNext, cmdRedo, cmdQuit, ssoFront, ssoBack, ssrSound[0], ssrSound[1]});
}

void frmStepper::Form_Load() {
  const StudyMode chosen = m_shared.Switches.StudyMode;
  Start(m_session, chosen, m_shared.Timer);
  setWindowTitle(ToQString(
      StudyTitle(chosen, Stack().StackName, m_shared.Topics.Name(m_shared.Topics.CurrentTopic))));
  tmrTimer->setInterval(m_shared.Timer.TimerInterval);
  picTop->setVisible(HasPictures(Stack()));
  resize(560, picTop->isHidden() ? 360 : 520);
  ShowSessionStart();
  cmdRedo->setEnabled(false);
  cmdNext->setFocus();
  Render();
}

void frmStepper::Form_Unload() {
  tmrTimer->stop();
  m_windows.Remove(m_session.instanceNumber);
}

Text frmStepper::Media(const Text& name) const {
  return FindMedia(m_platform.files, name, m_shared.Switches.DefaultFolder);
}

/// Shows the count, the side asked first and its fonts, as at the start of a pass.
void frmStepper::ShowSessionStart() {
  lblCardCount->setText(ToQString(CardCountText(m_session, Stack())));
  (m_session.firstSide == Front ? ssoFront : ssoBack)->setChecked(true);
  ApplyFonts();
}

void frmStepper::ApplyFonts() {
  const TopicFonts& fonts = m_topic.Fonts;
  const QFont front = DisplayFont(fonts.FrontFont, fonts.FrontSize);
  const QFont back = DisplayFont(fonts.BackFont, fonts.BackSize);
  lblTop->setFont(m_session.firstSide == Front ? front : back);
  lblBottom->setFont(m_session.firstSide == Front ? back : front);
}

/// Puts the display state on the screen, at once: a sound that follows holds everything up.
void frmStepper::Render() {
  lblTop->setText(ToShownText(m_display.questionLine));
  lblBottom->setText(ToShownText(m_display.answerLine));
  if (!picTop->Show(ToQString(m_display.picture))) {
    const Text file = m_display.picture;
    m_display.picture.clear();
    m_platform.prompts.Show(
        {.text = u"The picture can't be shown:\r\n" + file, .icon = PromptIcon::Exclamation});
  }
}

void frmStepper::SetSideControls(bool enabled) {
  cmdRedo->setEnabled(enabled);
  ssoFront->setEnabled(enabled);
  ssoBack->setEnabled(enabled);
}

void frmStepper::cmdNext_Click() {
  switch (Step(m_session, Stack(), *m_random)) {
    case StepPhase::Question:
      NewQuestion();
      break;
    case StepPhase::Answer:
      RevealAnswer();
      break;
    case StepPhase::EndOfStack:
      AskForRestart();
      break;
  }
}

void frmStepper::NewQuestion() {
  ClearCard(m_display);
  const auto find = [this](const Text& name) { return Media(name); };
  ShowQuestion(m_display, m_session, Stack(), m_shared.Timer, find);
  lblCardCount->setText(ToQString(CardCountText(m_session, Stack())));
  SetSideControls(false);
  Render();
  if (tmrTimer->interval() > 0) tmrTimer->start();
}

void frmStepper::RevealAnswer() {
  tmrTimer->stop();
  ShowAnswer(m_display, m_session, Stack());
  Render();
  SetSideControls(true);
}

void frmStepper::AskForRestart() {
  const QPointer<frmStepper> alive(this);
  const Answer answer = m_platform.prompts.Show({.text = u"No more cards - Restart?",
                                                 .icon = PromptIcon::Information,
                                                 .buttons = PromptButtons::YesNo});
  if (alive == nullptr) return;  // the program ended while the question was open
  if (answer == Answer::Yes) {
    RestartPass();
  } else {
    Unload();
  }
}

void frmStepper::RestartPass() {
  Restart(m_session);
  ShowSessionStart();
  SetSideControls(true);
  ClearCard(m_display);
  Render();
}

void frmStepper::cmdRedo_Click() {
  Redo(m_session);
  cmdNext->setFocus();
}

void frmStepper::SideOption_Click(int side) {
  if (m_session.firstSide != side) {
    SetFirstSide(m_session, side);
    const auto find = [this](const Text& name) { return Media(name); };
    TurnOver(m_display, m_shared.Timer, find);
    ApplyFonts();
    Render();
  }
  cmdNext->setFocus();
}

void frmStepper::tmrTimer_Timer() {
  BlankQuestion(m_display);
  Render();
}

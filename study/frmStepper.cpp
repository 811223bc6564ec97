#include "study/frmStepper.h"

#include "base/AccessibleRole.h"
#include "base/QtText.h"
#include "keys/CardField.h"
#include "keys/KeyMenus.h"
#include "settings/DisplayFont.h"
#include "shell/Icons.h"
#include "study/CardZoom.h"
#include "study/ChooserPanel.h"
#include "study/MediaFiles.h"
#include "study/PictureBox.h"
#include "study/Speller.h"
#include "study/SpokenText.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QToolButton>

#include <algorithm>
#include <climits>

namespace {

constexpr int MarkSize = 32;
constexpr float ComfortableZoom = 1.75;  // makes a font of 8.25 points 19 pixels high
constexpr int PictureHeight = 160;       // pixels, added where a stack has pictures

/// A card text breaks where the card says and nowhere else, so a long line scrolls.
QScrollArea* Scrolling(QLabel* label, QWidget* owner) {
  label->setAlignment(Qt::AlignCenter);
  label->setMargin(4);
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
      m_topicName(shared.Topics.Name(shared.Topics.CurrentTopic)),
      m_topic(shared.Topic),
      m_random(platform.makeRandom()) {
  setWindowFlags(Qt::Window);
  setAttribute(Qt::WA_DeleteOnClose);
  m_session.instanceNumber = instanceNumber;
  m_session.stackIndex = shared.Stacks.CurrentStack;
  Start(m_session, shared.Switches.StudyMode, shared.Timer);
  MakeControls();
  LayOut();
  connect(cmdNext, &QPushButton::clicked, this, &frmStepper::cmdNext_Click);
  connect(cmdRedo, &QPushButton::clicked, this, &frmStepper::cmdRedo_Click);
  connect(cmdQuit, &QPushButton::clicked, this, &frmStepper::cmdQuit_Click);
  connect(ssoFront, &QRadioButton::clicked, this, [this] { SideOption_Click(Front); });
  connect(ssoBack, &QRadioButton::clicked, this, [this] { SideOption_Click(Back); });
  connect(ssrSound[0], &QToolButton::clicked, this, [this] { ssrSound_Click(0); });
  connect(ssrSound[1], &QToolButton::clicked, this, [this] { ssrSound_Click(1); });
  connect(m_chooser, &ChooserPanel::Chosen, this, &frmStepper::optChoice_Click);
  connect(tmrTimer, &QTimer::timeout, this, &frmStepper::tmrTimer_Timer);
  Form_Load();
}

void frmStepper::MakeControls() {
  sspTop = Add<QFrame>(QStringLiteral("sspTop"));
  lblTop = Add<QLabel>(QStringLiteral("lblTop"));
  lblBottom = Add<QLabel>(QStringLiteral("lblBottom"));
  picTop = Add<PictureBox>(QStringLiteral("picTop"));
  lblCardCount = Add<QLabel>(QStringLiteral("lblCardCount"));
  lblRight = Add<QLabel>(QStringLiteral("lblRight"));
  lblWrong = Add<QLabel>(QStringLiteral("lblWrong"));
  imgPicture = {Add<QLabel>(QStringLiteral("imgPicture(4)")),
                Add<QLabel>(QStringLiteral("imgPicture(5)"))};
  ssoFront = Add<QRadioButton>(QStringLiteral("ssoFront"), QStringLiteral("&Front"));
  ssoBack = Add<QRadioButton>(QStringLiteral("ssoBack"), QStringLiteral("&Back"));
  ssrSound = {Add<QToolButton>(QStringLiteral("ssrSound(0)")),
              Add<QToolButton>(QStringLiteral("ssrSound(1)"))};
  txtSpell = Add<QLineEdit>(QStringLiteral("txtSpell"));
  lblSpellAnswer = Add<QLabel>(QStringLiteral("lblSpellAnswer"));
  m_chooser = new ChooserPanel(this);
  // The Speller's captions have no mnemonics: Alt types letters there.
  const bool plain = IsSpeller();
  cmdNext = Add<QPushButton>(QStringLiteral("cmdNext"),
                             plain ? QStringLiteral("Next") : QStringLiteral("&Next"));
  cmdRedo = Add<QPushButton>(QStringLiteral("cmdRedo"),
                             plain ? QStringLiteral("Redo") : QStringLiteral("&Redo"));
  cmdQuit = Add<QPushButton>(QStringLiteral("cmdQuit"),
                             plain ? QStringLiteral("Quit") : QStringLiteral("&Quit"));
  tmrTimer = new QTimer(this);
  tmrTimer->setObjectName(QStringLiteral("tmrTimer"));
  tmrTimer->setTimerType(Qt::PreciseTimer);  // a coarse one may tick early
}

void frmStepper::LayOut() {
  LayOutCard();
  const std::array<QString, 2> tips = {QStringLiteral("Play the question's sound"),
                                       QStringLiteral("Play the answer's sound")};
  const int soundIcon = fontMetrics().height() + 4;
  for (std::size_t i = 0; i < ssrSound.size(); ++i) {
    ssrSound[i]->setIcon(TintedIcon("sound"));
    ssrSound[i]->setIconSize(QSize(soundIcon, soundIcon));
    ssrSound[i]->setToolTip(tips[i]);
    ssrSound[i]->setAccessibleName(tips[i]);
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
  auto* const foot = new QHBoxLayout;
  foot->addWidget(MakeScoreRow());
  foot->addStretch();
  foot->addWidget(cmdNext);
  foot->addWidget(cmdRedo);
  foot->addWidget(cmdQuit);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(10);
  column->addLayout(head);
  column->addWidget(sspTop, 1);
  column->addWidget(MakeSpellerRow());
  column->addWidget(m_chooser);
  column->addLayout(foot);
  m_chooser->setVisible(IsChooser());

  QMenuBar* const bar = AddMenuBar();
  if (IsSpeller()) {
    auto* const field = new CardField(txtSpell, m_topic.Keys);
    m_keyMenus = new KeyMenus(bar, KeyMenuStyle::StudyWindow, m_topic, m_shared, m_platform);
    m_keyMenus->AddField(field);
    connect(field, &CardField::GotFocus, this, &frmStepper::txtSpell_GotFocus);
    connect(field, &CardField::LostFocus, this, &frmStepper::txtSpell_LostFocus);
  }
  AddHelp(bar, HelpContext::Stepper);
  SetTabOrder({txtSpell, m_chooser->FirstOption(), cmdNext, cmdRedo, cmdQuit, ssoFront, ssoBack,
               ssrSound[0], ssrSound[1]});
}

void frmStepper::LayOutCard() {
  sspTop->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
  sspTop->setBackgroundRole(QPalette::Base);
  sspTop->setAutoFillBackground(true);
  sspTop->setMinimumSize(SmallestCardWidth, SmallestCardHeight);
  sspTop->installEventFilter(this);
  sspTop->setFocusPolicy(Qt::ClickFocus);
  sspTop->setAccessibleName(QStringLiteral("Card"));
  SetAccessibleRole(sspTop, QAccessible::Grouping);
  for (QLabel* const line : {lblTop, lblBottom}) {
    line->setBackgroundRole(QPalette::Base);
    line->setForegroundRole(QPalette::Text);
    line->setAutoFillBackground(true);
  }
  lblTop->setAccessibleDescription(QStringLiteral("Question"));
  lblBottom->setAccessibleDescription(QStringLiteral("Answer"));
  m_answerHalf = new QWidget(sspTop);
  auto* const middle = new QFrame(m_answerHalf);
  middle->setFrameShape(QFrame::HLine);
  middle->setFrameShadow(QFrame::Sunken);
  auto* const answer = new QVBoxLayout(m_answerHalf);
  answer->setContentsMargins(0, 0, 0, 0);
  answer->setSpacing(4);
  answer->addWidget(middle);
  answer->addWidget(Scrolling(lblBottom, m_answerHalf), 1);
  auto* const card = new QVBoxLayout(sspTop);
  card->setContentsMargins(12, 8, 12, 8);
  card->setSpacing(8);
  card->addWidget(Scrolling(lblTop, sspTop), 2);
  card->addWidget(picTop, 3);
  card->addWidget(m_answerHalf, 2);
}

QWidget* frmStepper::MakeSpellerRow() {
  auto* const row = new QWidget(this);
  auto* const lblSpell = Add<QLabel>(QStringLiteral("lblSpell"), QStringLiteral("Your answer:"));
  auto* const lblCorrect =
      Add<QLabel>(QStringLiteral("lblCorrect"), QStringLiteral("Correct answer:"));
  txtSpell->setAccessibleName(lblSpell->text());
  lblSpellAnswer->setAccessibleDescription(lblCorrect->text());
  lblSpellAnswer->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto* const grid = new QGridLayout(row);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setColumnStretch(1, 1);
  grid->addWidget(lblSpell, 0, 0);
  grid->addWidget(txtSpell, 0, 1);
  grid->addWidget(lblCorrect, 1, 0);
  grid->addWidget(lblSpellAnswer, 1, 1);
  row->setVisible(IsSpeller());
  return row;
}

QWidget* frmStepper::MakeScoreRow() {
  auto* const row = new QWidget(this);
  auto* const line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  const auto addCounter = [&](const QString& caption, QLabel* counter) {
    line->addWidget(new QLabel(caption, row));
    line->addWidget(counter);
    line->addSpacing(12);
    counter->setAccessibleDescription(caption);
  };
  addCounter(QStringLiteral("Right:"), lblRight);
  addCounter(QStringLiteral("Wrong:"), lblWrong);
  const std::array<const char*, 2> icons = {"right", "wrong"};
  const std::array<QString, 2> names = {QStringLiteral("Right"), QStringLiteral("Wrong")};
  auto* const marks = new QWidget(row);
  marks->setFixedSize(MarkSize, MarkSize);
  for (std::size_t i = 0; i < imgPicture.size(); ++i) {
    imgPicture[i]->setParent(marks);
    imgPicture[i]->setPixmap(
        TintedIcon(icons[i]).pixmap(QSize(MarkSize, MarkSize), devicePixelRatioF()));
    imgPicture[i]->setAccessibleName(names[i]);
    imgPicture[i]->setToolTip(names[i]);
    imgPicture[i]->hide();
  }
  line->addWidget(marks);
  row->setVisible(IsSpeller() || IsChooser());
  return row;
}

void frmStepper::Form_Load() {
  const StudyMode chosen = m_shared.Switches.StudyMode;
  setWindowTitle(ToQString(StudyTitle(chosen, Stack().StackName, m_topicName)));
  tmrTimer->setInterval(m_shared.Timer.TimerInterval);
  picTop->setVisible(HasPictures(Stack()));
  ShowSessionStart();
  const QSize smallestCard(SmallestCardWidth, SmallestCardHeight);
  QSize size = layout()->totalMinimumSize() + smallestCard * ComfortableZoom - smallestCard;
  if (!picTop->isHidden()) size.rheight() += PictureHeight;
  resize(size.boundedTo(screen()->availableSize()));
  cmdRedo->setEnabled(false);
  cmdNext->setFocus();
  Render();
}

void frmStepper::Form_Unload() {
  tmrTimer->stop();
  m_platform.sound.Stop();
  m_windows.Remove(m_session.instanceNumber);
}

MediaLookup frmStepper::PictureLookup() const {
  return [this](const Text& name) {
    return FindMedia(m_platform.files, name, m_shared.Switches.DefaultFolder);
  };
}

/// Shows the count, the side asked first and its fonts, as at the start of a pass.
void frmStepper::ShowSessionStart() {
  lblCardCount->setText(ToQString(CardCountText(m_session, Stack())));
  (m_session.firstSide == Front ? ssoFront : ssoBack)->setChecked(true);
  ApplyFonts();
}

void frmStepper::ApplyFonts() {
  const TopicFonts& fonts = m_topic.Fonts;
  const auto fontOf = [&](int side, float zoom) {
    return side == Front ? DisplayFont(fonts.FrontFont, fonts.FrontSize, zoom)
                         : DisplayFont(fonts.BackFont, fonts.BackSize, zoom);
  };
  const float zoom = CardZoom(sspTop->width(), sspTop->height());
  lblTop->setFont(fontOf(m_session.firstSide, zoom));
  lblBottom->setFont(fontOf(m_session.AnswerSide(), zoom));
  // The rows below take their height from the card, so the width alone decides about them.
  const float rowZoom = std::min(CardZoom(sspTop->width(), INT_MAX), ComfortableZoom);
  const QFont answer = fontOf(m_session.AnswerSide(), rowZoom);
  txtSpell->setFont(answer);
  lblSpellAnswer->setFont(answer);
  m_chooser->SetAnswerFont(answer);
}

/// Puts the display state on the screen, at once: a sound that follows holds everything up.
bool frmStepper::Render() {
  lblTop->setText(ToShownText(m_display.questionLine));
  lblBottom->setText(ToShownText(m_display.answerLine));
  // The Chooser's answers stand below the card; only a card that is turned over there has text on
  // its lower half.
  m_answerHalf->setVisible(!IsChooser() || !m_display.answerLine.empty());
  lblSpellAnswer->setText(ToShownText(m_display.correctAnswer));
  ssrSound[0]->setEnabled(m_display.questionSoundEnabled);
  ssrSound[1]->setEnabled(m_display.answerSoundEnabled);
  imgPicture[0]->setVisible(m_display.mark == Mark::Right);
  imgPicture[1]->setVisible(m_display.mark == Mark::Wrong);
  lblRight->setText(ToQString(NumberText(m_session.right)));
  lblWrong->setText(ToQString(NumberText(m_session.wrong)));
  m_chooser->Render(m_display);
  if (picTop->Show(ToQString(m_display.picture))) return true;
  const Text file = m_display.picture;
  m_display.picture.clear();
  const QPointer<frmStepper> alive(this);
  m_platform.prompts.Show(
      {.text = u"The picture can't be shown:\r\n" + file, .icon = PromptIcon::Exclamation});
  return alive != nullptr;
}

void frmStepper::SetSideControls(bool enabled) {
  cmdRedo->setEnabled(enabled);
  ssoFront->setEnabled(enabled);
  ssoBack->setEnabled(enabled);
}

void frmStepper::Say(TextView words) { m_announcer.Say(ToQString(words)); }

bool frmStepper::PlayCardSound(const Text& name) {
  if (m_shared.Timer.NoSound || name.empty()) return true;
  const Text file = PictureLookup()(name);
  if (file.empty()) return true;
  const QPointer<frmStepper> alive(this);
  repaint();
  m_platform.sound.Play(file);
  return alive != nullptr && isVisible();
}

void frmStepper::cmdNext_Click() {
  switch (Step(m_session, Stack(), *m_random)) {
    case StepPhase::Question:
      NewQuestion();
      break;
    case StepPhase::Answer:
      IsSpeller() ? CheckSpelling() : RevealAnswer();
      break;
    case StepPhase::EndOfStack:
      AskForRestart();
      break;
  }
}

void frmStepper::NewQuestion() {
  ClearCard(m_display);
  ShowQuestion(m_display, m_session, Stack(), m_shared.Timer, PictureLookup());
  if (IsChooser()) {
    m_chooser->ClearSelection();
    ShowChoices(m_display, m_session, Stack());
    sspTop->setFocus();  // away from Next, and on no answer: a second key press must not choose
    cmdNext->setEnabled(false);
  }
  lblCardCount->setText(ToQString(CardCountText(m_session, Stack())));
  SetSideControls(false);
  txtSpell->clear();
  if (!Render() || !PlayCardSound(m_display.questionSound)) return;
  if (tmrTimer->interval() > 0) tmrTimer->start();
  if (IsSpeller()) txtSpell->setFocus();
  Say(SpokenQuestion(m_display, m_session, Stack()));
}

void frmStepper::CheckSpelling() {
  tmrTimer->stop();
  const Text answer = ShownSideText(Stack(), m_session.currentCard, m_session.AnswerSide());
  const bool right = IsSpelledRight(FromShownText(txtSpell->text()), answer);
  CountAnswer(m_session, right);
  ShowSpelling(m_display, m_session, Stack(), right);
  Render();
  cmdNext->setFocus();
  SetSideControls(true);
  Say(SpokenVerdict(m_display, m_session));
}

void frmStepper::RevealAnswer() {
  tmrTimer->stop();
  ShowAnswer(m_display, m_session, Stack());
  if (!Render() || !PlayCardSound(m_display.answerSound)) return;
  SetSideControls(true);
  Say(SpokenAnswer(m_display));
}

void frmStepper::optChoice_Click(int index) {
  const std::optional<bool> right = Choose(m_session, index);
  if (!right) return;  // only the first choice counts
  const bool blanked = m_shared.Timer.HideWord || tmrTimer->interval() > 0;
  tmrTimer->stop();
  ShowChoiceMade(m_display, m_session, *right);
  SetSideControls(true);
  cmdNext->setEnabled(true);
  cmdNext->setFocus();
  if (blanked) {
    const Mark mark = m_display.mark;  // the marks come after the sound
    ShowQuestionAgain(m_display, m_session, Stack(), m_shared.Timer, PictureLookup());
    if (!Render() || !PlayCardSound(m_display.questionSound)) return;
    m_display.mark = mark;
  }
  Render();
  Text words = SpokenVerdict(m_display, m_session);
  if (blanked) words += u' ' + SpokenCard(m_display);
  Say(words);
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
  txtSpell->clear();
  m_chooser->ClearSelection();
  Render();
  Say(SpokenCount(m_session, Stack()));
}

void frmStepper::cmdRedo_Click() {
  Redo(m_session);
  (IsSpeller() ? static_cast<QWidget*>(txtSpell) : cmdNext)->setFocus();
}

void frmStepper::SideOption_Click(int side) {
  const bool turned = m_session.firstSide != side;
  if (turned) {
    SetFirstSide(m_session, side);
    TurnOver(m_display, m_shared.Timer, PictureLookup());
    ApplyFonts();
    lblCardCount->setText(ToQString(CardCountText(m_session, Stack())));
    Render();
  }
  cmdNext->setFocus();
  if (turned) Say(SpokenCard(m_display));
}

void frmStepper::ssrSound_Click(int index) {
  (void)PlayCardSound(index == 0 ? m_display.questionSound : m_display.answerSound);
}

void frmStepper::tmrTimer_Timer() {
  BlankQuestion(m_display);
  Render();
}

void frmStepper::txtSpell_GotFocus() {
  m_keyMenus->SetEnabled(m_session.AnswerSide() == Back ? KeySide::Back : KeySide::Front, true);
}

void frmStepper::txtSpell_LostFocus() {
  m_keyMenus->SetEnabled(KeySide::Front, false);
  m_keyMenus->SetEnabled(KeySide::Back, false);
}

bool frmStepper::eventFilter(QObject* watched, QEvent* event) {
  if (watched == sspTop && event->type() == QEvent::Resize) ApplyFonts();
  return Form::eventFilter(watched, event);
}

void frmStepper::keyPressEvent(QKeyEvent* event) {
  const int choice = event->key() - Qt::Key_1;
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == 0;
  if (IsChooser() && plain && choice >= 0 && choice < ChoiceCount) {
    m_chooser->Press(choice);
    return;
  }
  Form::keyPressEvent(event);
}

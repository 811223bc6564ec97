#include "windows/study/frmStepper.h"

#include "study/MediaFiles.h"
#include "study/Speller.h"
#include "study/SpokenText.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/QtText.h"
#include "windows/keys/KeyMenus.h"
#include "windows/keys/ZoomKeys.h"
#include "windows/study/ChooserPanel.h"
#include "windows/study/PictureBox.h"
#include "windows/study/ScrolledText.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFrame>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QToolButton>

#include <algorithm>

namespace {

// Of the card of a window that opens for the first time, in pixels.
constexpr int CardWidth = 735;
constexpr int CardHeight = 350;
constexpr int PictureHeight = 160;  // added where a stack has pictures

constexpr int MostAnswerLines = 3;  // under the answer field; the card shows them all

bool HasPictures(const CardStack& stack) {
  for (int card = 1; card <= stack.CardCount; ++card) {
    for (const int side : {Front, Back}) {
      if (!stack.SidePicture(card, side).empty()) return true;
    }
  }
  return false;
}

/// The words before the file's name.
Text PictureFaultText(PictureFault fault) {
  switch (fault) {
    case PictureFault::TooLarge:
      return u"The picture is too large to be shown:";
    case PictureFault::TooSlow:
      return u"The picture takes too long to be shown:";
    case PictureFault::None:
    case PictureFault::Unreadable:
      break;
  }
  return u"The picture can't be shown:";
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
  const auto act = [this](QWidget* control, void (frmStepper::*click)()) {
    return [this, control, click] { Act(control, [this, click] { (this->*click)(); }); };
  };
  connect(cmdNext, &QPushButton::clicked, this, act(cmdNext, &frmStepper::cmdNext_Click));
  connect(cmdRedo, &QPushButton::clicked, this, act(cmdRedo, &frmStepper::cmdRedo_Click));
  connect(cmdQuit, &QPushButton::clicked, this, &frmStepper::cmdQuit_Click);
  connect(ssoFront, &QRadioButton::clicked, this,
          [this] { Act(ssoFront, [this] { SideOption_Click(Front); }); });
  connect(ssoBack, &QRadioButton::clicked, this,
          [this] { Act(ssoBack, [this] { SideOption_Click(Back); }); });
  connect(ssrSound[0], &QToolButton::clicked, this,
          [this] { Act(ssrSound[0], [this] { ssrSound_Click(0); }); });
  connect(ssrSound[1], &QToolButton::clicked, this,
          [this] { Act(ssrSound[1], [this] { ssrSound_Click(1); }); });
  connect(m_chooser, &ChooserPanel::Chosen, this,
          [this](int index) { Act(m_chooser, [this, index] { optChoice_Click(index); }); });
  connect(m_zoom, &ZoomKeys::Changed, this, &frmStepper::ApplyFonts);
  connect(tmrTimer, &QTimer::timeout, this, &frmStepper::tmrTimer_Timer);
  connect(picTop, &PictureBox::Failed, this, &frmStepper::picTop_Failed);
  Form_Load();
}

void frmStepper::Form_Load() {
  const StudyMode chosen = m_shared.Switches.StudyMode;
  setWindowTitle(TitleText(StudyTitle(chosen, Stack().StackName, m_topicName)));
  tmrTimer->setInterval(m_shared.Timer.TimerInterval);
  picTop->setVisible(HasPictures(Stack()));
  ShowSessionStart();
  resize(OpeningSize().boundedTo(screen()->availableSize()));
  m_sizeName = StudyCaption(chosen);
  cmdRedo->setEnabled(false);
  cmdNext->setFocus();
  Render();
}

QSize frmStepper::OpeningSize() const {
  QSize card(CardWidth, CardHeight);
  if (!picTop->isHidden()) card.rheight() += PictureHeight;
  return layout()->totalSizeHint() - sspTop->sizeHint() + card;
}

void frmStepper::Form_Unload() {
  if (!m_open) return;  // its place in the list may be another window's by now
  m_open = false;
  tmrTimer->stop();
  if (m_soundPlays) m_platform.sound.Stop();
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
  ShowFirstSide();
  ApplyFonts();
}

void frmStepper::ShowFirstSide() {
  (m_session.firstSide == Front ? ssoFront : ssoBack)->setChecked(true);
}

void frmStepper::ApplyFonts() {
  const TopicFonts& fonts = m_topic.Fonts;
  const float zoom = m_zoom->Factor();
  const QFont front = DisplayFont(fonts.FrontFont, fonts.FrontSize, zoom);
  const QFont back = DisplayFont(fonts.BackFont, fonts.BackSize, zoom);
  const QFont& question = m_session.firstSide == Front ? front : back;
  const QFont& answer = m_session.firstSide == Front ? back : front;
  m_question->SetTextFont(question);
  m_answer->SetTextFont(answer);
  txtSpell->setFont(answer);
  lblSpellAnswer->setFont(answer);
  m_chooser->SetAnswerFont(answer);
  // There is room for the answer before it is shown: nothing moves at the check.
  lblSpellAnswer->setFixedHeight(QFontMetrics(answer).lineSpacing() *
                                 std::min(MostLines(Stack()), MostAnswerLines));
}

/// Puts the display state on the screen, at once: a sound that follows holds everything up.
bool frmStepper::Render() {
  m_question->SetText(ToShownText(m_display.questionLine));
  m_answer->SetText(ToShownText(m_display.answerLine));
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
  const QPointer<frmStepper> alive(this);
  picTop->Show(ToQString(m_display.picture));
  return alive != nullptr && m_open;
}

void frmStepper::SetSideControls(bool enabled) {
  cmdRedo->setEnabled(enabled);
  ssoFront->setEnabled(enabled);
  ssoBack->setEnabled(enabled);
}

void frmStepper::Say(TextView words) { m_announcer.Say(ToQString(words)); }

void frmStepper::Act(QWidget* control, std::function<void()> action) {
  if (QApplication::activeModalWidget() != nullptr) return;  // which freezes this window
  m_windows.Actions().Do([alive = QPointer(this), control, action = std::move(action)] {
    if (alive == nullptr || !alive->isVisible()) return;
    if (control->isEnabled()) return action();
    alive->ShowFirstSide();  // an option shows at once that it was clicked
  });
}

bool frmStepper::WaitForPicture() {
  const QPointer<frmStepper> alive(this);
  picTop->WaitUntilLoaded();
  return alive != nullptr && isVisible();
}

bool frmStepper::PlayCardSound(const Text& name) {
  if (m_shared.Timer.NoSound || name.empty()) return true;
  const Text file = PictureLookup()(name);
  if (file.empty()) return true;
  if (!WaitForPicture()) return false;
  const QPointer<frmStepper> alive(this);
  repaint();
  m_soundPlays = true;
  m_platform.sound.Play(file);
  if (alive == nullptr) return false;
  m_soundPlays = false;
  return m_open;
}

void frmStepper::cmdNext_Click() {
  if (!m_open) return;
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
  // The editor may have given the stack its first picture meanwhile.
  if (picTop->isHidden()) picTop->setVisible(HasPictures(Stack()));
  lblCardCount->setText(ToQString(CardCountText(m_session, Stack())));
  SetSideControls(false);
  txtSpell->setText({});  // for good: undoing must not bring the last answer back
  ++m_questions;
  if (!Render() || !PlayCardSound(m_display.questionSound)) return;
  if (tmrTimer->interval() > 0) {
    if (!WaitForPicture()) return;
    tmrTimer->start();
  }
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
  if (!m_open) return;
  const std::optional<bool> right = Choose(m_session, index);
  if (!right) return;  // only the first choice counts
  const bool blanked = m_shared.Timer.HideWord || tmrTimer->interval() > 0;
  tmrTimer->stop();
  m_chooser->Select(index);  // one that was clicked later may show already
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
  if (alive == nullptr || !m_open) return;  // it was closed while the question was open
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
  txtSpell->setText({});
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
  if (!m_open) return;
  (void)PlayCardSound(index == 0 ? m_display.questionSound : m_display.answerSound);
}

void frmStepper::tmrTimer_Timer() {
  m_windows.Actions().Do([alive = QPointer(this), question = m_questions] {
    // While this waited the answer may have been shown, or the next question.
    if (alive == nullptr || !alive->tmrTimer->isActive() || alive->m_questions != question) return;
    BlankQuestion(alive->m_display);
    alive->Render();
  });
}

void frmStepper::picTop_Failed(PictureFault fault) {
  const Text file = m_display.picture;
  m_display.picture.clear();
  m_platform.prompts.Show(
      {.text = PictureFaultText(fault) + u"\r\n" + file, .icon = PromptIcon::Exclamation});
}

void frmStepper::txtSpell_GotFocus() {
  m_keyMenus->SetEnabled(m_session.AnswerSide() == Back ? KeySide::Back : KeySide::Front, true);
}

void frmStepper::txtSpell_LostFocus() {
  m_keyMenus->SetEnabled(KeySide::Front, false);
  m_keyMenus->SetEnabled(KeySide::Back, false);
}

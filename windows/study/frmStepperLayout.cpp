// What stands where in a study window. What it does is in frmStepper.cpp.
#include "program/Zoom.h"
#include "windows/frame/AccessibleRole.h"
#include "windows/frame/Icons.h"
#include "windows/frame/OneLine.h"
#include "windows/frame/QtText.h"
#include "windows/frame/ToolTips.h"
#include "windows/keys/CardField.h"
#include "windows/keys/KeyMenus.h"
#include "windows/keys/ZoomKeys.h"
#include "windows/study/ChooserPanel.h"
#include "windows/study/PictureBox.h"
#include "windows/study/ScrolledText.h"
#include "windows/study/frmStepper.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

namespace {

constexpr int MarkSize = 32;

}  // namespace

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
    SetSilentToolTip(*ssrSound[i], ToText(tips[i]));
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
  const TopicFonts& fonts = m_topic.Fonts;
  m_zoom =
      new ZoomKeys(bar, m_platform.state, u"study", ReadableZoom(fonts.FrontSize, fonts.BackSize));
  AddHelp(bar, HelpContext::Stepper);
  const auto& choices = m_chooser->Options();
  SetTabOrder({txtSpell, choices[0], choices[1], choices[2], choices[3], cmdNext, cmdRedo, cmdQuit,
               ssoFront, ssoBack, ssrSound[0], ssrSound[1]});
}

void frmStepper::LayOutCard() {
  sspTop->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
  sspTop->setBackgroundRole(QPalette::Base);
  sspTop->setAutoFillBackground(true);
  sspTop->setFocusPolicy(Qt::ClickFocus);
  sspTop->setAccessibleName(QStringLiteral("Card"));
  sspTop->setAccessibleDescription(
      QStringLiteral("Page Up, Page Down and the arrow keys scroll a long text"));
  SetAccessibleRole(sspTop, QAccessible::Grouping);
  for (QLabel* const line : {lblTop, lblBottom}) {
    line->setBackgroundRole(QPalette::Base);
    line->setForegroundRole(QPalette::Text);
    line->setAutoFillBackground(true);
  }
  lblTop->setAccessibleDescription(QStringLiteral("Question"));
  lblBottom->setAccessibleDescription(QStringLiteral("Answer"));
  m_question = new ScrolledText(lblTop, sspTop);
  picTop->setParent(sspTop);  // a reader goes through them in the order they come in
  m_answerHalf = new QWidget(sspTop);
  auto* const middle = new QFrame(m_answerHalf);
  middle->setFrameShape(QFrame::HLine);
  middle->setFrameShadow(QFrame::Sunken);
  auto* const answer = new QVBoxLayout(m_answerHalf);
  answer->setContentsMargins(0, 0, 0, 0);
  answer->setSpacing(4);
  answer->addWidget(middle);
  m_answer = new ScrolledText(lblBottom, m_answerHalf);
  answer->addWidget(m_answer, 1);
  auto* const card = new QVBoxLayout(sspTop);
  card->setContentsMargins(12, 8, 12, 8);
  card->setSpacing(8);
  card->addWidget(m_question, 2);
  card->addWidget(picTop, 3);
  card->addWidget(m_answerHalf, 2);
}

QWidget* frmStepper::MakeSpellerRow() {
  auto* const row = new QWidget(this);
  auto* const lblSpell = Add<QLabel>(QStringLiteral("lblSpell"), QStringLiteral("Your answer:"));
  auto* const lblCorrect =
      Add<QLabel>(QStringLiteral("lblCorrect"), QStringLiteral("Correct answer:"));
  txtSpell->setAccessibleName(lblSpell->text());
  KeepToOneLine(txtSpell);
  lblSpellAnswer->setAccessibleDescription(lblCorrect->text());
  lblSpellAnswer->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
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
    SetSilentToolTip(*imgPicture[i], ToText(names[i]));
    imgPicture[i]->hide();
  }
  line->addWidget(marks);
  row->setVisible(IsSpeller() || IsChooser());
  return row;
}

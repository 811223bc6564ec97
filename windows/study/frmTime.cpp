#include "windows/study/frmTime.h"

#include "windows/frame/Icons.h"
#include "windows/frame/Pointer.h"
#include "windows/frame/QtText.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

frmTime::frmTime(SharedState& shared, Platform& platform, QWidget* owner)
    : Form("frmTime", shared, platform, owner),
      Label1(Add<QLabel>(QStringLiteral("Label1"), QStringLiteral("Quib Time"))),
      Label2(Add<QLabel>(QStringLiteral("Label2"), QStringLiteral("seconds"))),
      Picture1(Add<QLabel>(QStringLiteral("Picture1"))),
      oNone(Add<QRadioButton>(QStringLiteral("oNone"), QStringLiteral("&None"))),
      o250msecs(Add<QRadioButton>(QStringLiteral("o250msecs"), QStringLiteral("0.&25 Seconds"))),
      o500msecs(Add<QRadioButton>(QStringLiteral("o500msecs"), QStringLiteral("0.&50 Seconds"))),
      o1000msecs(Add<QRadioButton>(QStringLiteral("o1000msecs"), QStringLiteral("&1 Second"))),
      oOther(Add<QRadioButton>(QStringLiteral("oOther"), QStringLiteral("&Other ->"))),
      txtOther(Add<QLineEdit>(QStringLiteral("txtOther"))),
      DisplayWord(Add<QCheckBox>(QStringLiteral("DisplayWord"), QStringLiteral("&Display Word"))),
      PlaySound(Add<QCheckBox>(QStringLiteral("PlaySound"), QStringLiteral("&Play Sound"))),
      ShowPicture(Add<QCheckBox>(QStringLiteral("ShowPicture"), QStringLiteral("&Show Picture"))),
      cmdOK(Add<QPushButton>(QStringLiteral("cmdOK"), QStringLiteral("OK"))),
      cmdCanc(Add<QPushButton>(QStringLiteral("cmdCanc"), QStringLiteral("&Cancel"))) {
  setWindowTitle(QStringLiteral("Set Timer"));
  LayOut();
  AddHelp(AddMenuBar(), HelpContext::Timer);
  for (const IntervalOption option :
       {IntervalOption::None, IntervalOption::Quarter, IntervalOption::Half, IntervalOption::One,
        IntervalOption::Other}) {
    connect(ButtonOf(option), &QRadioButton::clicked, this,
            [this, option] { Option_Click(option); });
  }
  connect(cmdOK, &QPushButton::clicked, this, &frmTime::cmdOK_Click);
  connect(cmdCanc, &QPushButton::clicked, this, &frmTime::cmdCanc_Click);
  SetOkButton(cmdOK);
  SetCancelButton(cmdCanc);
  Form_Load();
}

void frmTime::LayOut() {
  QFont heading = Label1->font();
  heading.setBold(true);
  Label1->setFont(heading);
  Picture1->setPixmap(TintedIcon("quibber").pixmap(QSize(48, 48), devicePixelRatioF()));
  Picture1->setAccessibleName(QStringLiteral("Quib timer"));
  txtOther->setAccessibleName(QStringLiteral("Other quib time in seconds"));
  txtOther->setMaximumWidth(100);

  auto* const other = new QHBoxLayout;
  other->setSpacing(8);
  other->addWidget(oOther);
  other->addWidget(txtOther);
  other->addWidget(Label2);
  other->addStretch();
  auto* const grid = new QGridLayout;
  grid->setHorizontalSpacing(40);
  grid->setVerticalSpacing(8);
  grid->addWidget(Label1, 0, 0);
  int row = 1;
  for (QRadioButton* const option : {oNone, o250msecs, o500msecs, o1000msecs}) {
    grid->addWidget(option, row++, 0);
  }
  grid->addLayout(other, row, 0);
  // The switches stand beside the last three times.
  for (QCheckBox* const box : {ShowPicture, PlaySound, DisplayWord}) grid->addWidget(box, row--, 1);
  grid->addWidget(Picture1, 0, 1, row + 1, 1, Qt::AlignHCenter | Qt::AlignTop);

  auto* const sspButtons = Add<QFrame>(QStringLiteral("sspButtons"));
  auto* const buttons = new QHBoxLayout(sspButtons);
  buttons->setContentsMargins(0, 0, 0, 0);
  buttons->setSpacing(8);
  buttons->addStretch();
  buttons->addWidget(cmdOK);
  buttons->addWidget(cmdCanc);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(20);
  column->addLayout(grid);
  column->addWidget(sspButtons);
  column->setSizeConstraint(QLayout::SetFixedSize);
}

QRadioButton* frmTime::ButtonOf(IntervalOption option) const {
  switch (option) {
    case IntervalOption::None:
      return oNone;
    case IntervalOption::Quarter:
      return o250msecs;
    case IntervalOption::Half:
      return o500msecs;
    case IntervalOption::One:
      return o1000msecs;
    case IntervalOption::Other:
      break;
  }
  return oOther;
}

void frmTime::Form_Load() {
  TimerSettings& settings = m_shared.Timer;
  settings.TimerSettingsConfirmed = false;
  DisplayWord->setChecked(!settings.HideWord);
  PlaySound->setChecked(!settings.NoSound);
  ShowPicture->setChecked(!settings.NoPicture);
  const IntervalOption option = OptionOf(settings.TimerInterval);
  ButtonOf(option)->setChecked(true);
  ButtonOf(option)->setFocus();
  txtOther->setEnabled(option == IntervalOption::Other);
  if (option == IntervalOption::Other) {
    txtOther->setText(ToQString(SecondsText(settings.TimerInterval)));
  }
}

void frmTime::Option_Click(IntervalOption option) {
  // Written at once, so Cancel does not undo it. Meant so.
  if (const std::optional<Int16> interval = IntervalOf(option)) {
    m_shared.Timer.TimerInterval = *interval;
  }
  txtOther->setEnabled(option == IntervalOption::Other);
  if (option == IntervalOption::Other) txtOther->setFocus();
}

void frmTime::txtOther_Click() {
  oOther->setChecked(true);
  Option_Click(IntervalOption::Other);
}

void frmTime::mousePressEvent(QMouseEvent* event) {
  // While the box is disabled, a click on it arrives here.
  if (!txtOther->isEnabled() && txtOther->geometry().contains(event->pos())) txtOther_Click();
  Form::mousePressEvent(event);
}

void frmTime::cmdOK_Click() {
  TimerSettings& settings = m_shared.Timer;
  if (oOther->isChecked()) {
    const std::optional<Int16> interval = IntervalOfSeconds(ToText(txtOther->text()));
    if (!interval) {
      m_platform.prompts.Show({.text = u"The quib time can be at most 32.767 seconds.",
                               .icon = PromptIcon::Exclamation});
      txtOther->setFocus();
      txtOther->selectAll();
      return;
    }
    settings.TimerInterval = *interval;
  }
  settings.HideWord = !DisplayWord->isChecked();
  settings.NoSound = !PlaySound->isChecked();
  settings.NoPicture = !ShowPicture->isChecked();
  settings.TimerSettingsConfirmed = true;
  Unload();
}

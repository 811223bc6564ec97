#include "windows/topics/frmConfig.h"

#include "program/StackTopics.h"
#include "windows/frame/Pointer.h"
#include "windows/frame/QtText.h"
#include "windows/frame/SettingsNotice.h"
#include "windows/frame/TypingFilter.h"
#include "windows/keys/frmAddKey.h"
#include "windows/printing/frmPrint.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int MostTyped = 21;  // one more than the settings file keeps

/// The switches by which the dialog knows its purpose. None is left behind: a stale name would be
/// taken for that of a topic being added.
class TopicSwitches {
 public:
  TopicSwitches(WindowSwitches& switches, bool add, bool change, const Text& proposedName)
      : m_switches(switches) {
    Set(add, change, proposedName);
  }
  TopicSwitches(const TopicSwitches&) = delete;
  TopicSwitches& operator=(const TopicSwitches&) = delete;
  ~TopicSwitches() { Set(false, false, Text()); }

 private:
  void Set(bool add, bool change, const Text& name) {
    m_switches.NewTopicMode = add;
    m_switches.ChangeTopicMode = change;
    m_switches.NewTopicName = name;
  }

  WindowSwitches& m_switches;
  BusyPointer m_busy;
};

}  // namespace

void frmConfig::ShowToAdd(SharedState& shared, Platform& platform, QWidget* owner,
                          const Text& proposedName) {
  const TopicSwitches adding(shared.Switches, true, false, proposedName);
  const TopicSettings before = shared.Topic;
  frmConfig(shared, platform, owner).ShowModal();
  // The new topic's fonts were chosen in the place of the selected one's.
  shared.Topic = before;
}

bool frmConfig::ShowToChange(SharedState& shared, Platform& platform, QWidget* owner) {
  const TopicSwitches changing(shared.Switches, false, true, Text());
  frmConfig dialog(shared, platform, owner);
  dialog.ShowModal();
  return dialog.m_chosen;
}

void frmConfig::ShowToDelete(SharedState& shared, Platform& platform, QWidget* owner,
                             CloseStudyWindows closeStudyWindows) {
  const TopicSwitches deleting(shared.Switches, false, false, Text());
  frmConfig(shared, platform, owner, std::move(closeStudyWindows)).ShowModal();
}

TopicCheck frmConfig::FileTopicCheck(SharedState& shared, Platform& platform, QWidget* owner) {
  return [&shared, &platform, owner](const Text& name) {
    const AddTopic add = [&](const Text& proposed) {
      ShowToAdd(shared, platform, owner, proposed);
    };
    // Another program may have added it.
    if (FindTopic(shared.Topics, name) < 0) {
      ReloadTopics(shared.Stacks, shared.Topics, platform.profile);
    }
    return ResolveFileTopic(name, shared.Topics, platform.prompts, add);
  };
}

frmConfig::frmConfig(SharedState& shared, Platform& platform, QWidget* owner,
                     CloseStudyWindows closeStudyWindows)
    : Form("frmConfig", shared, platform, owner),
      m_closeStudyWindows(std::move(closeStudyWindows)),
      lstTopic(Add<QListWidget>(QStringLiteral("lstTopic"))),
      txtTopic(Add<QLineEdit>(QStringLiteral("txtTopic"))),
      cmdAction(Add<QPushButton>(QStringLiteral("cmdAction"))),
      cmdCancel(Add<QPushButton>(QStringLiteral("cmdCancel"))) {
  LayOut();
  AddHelp(AddMenuBar(), HelpContext::Topics);
  new TypingFilter(txtTopic, [](qsizetype length, QChar typed) {
    return length < MostTyped && typed != u'[' && typed != u']';
  });
  connect(lstTopic, &QListWidget::itemSelectionChanged, this, &frmConfig::lstTopic_Click);
  connect(lstTopic, &QListWidget::itemClicked, this, &frmConfig::lstTopic_Click);
  connect(txtTopic, &QLineEdit::textChanged, this, [this] { cmdAction->setEnabled(true); });
  // Enter takes a proposed name as it stands.
  connect(txtTopic, &QLineEdit::returnPressed, this, [this] { cmdAction->setEnabled(true); });
  connect(cmdAction, &QPushButton::clicked, this, &frmConfig::cmdAction_Click);
  connect(cmdCancel, &QPushButton::clicked, this, &frmConfig::cmdCancel_Click);
  SetCancelButton(cmdCancel);
  Form_Load();
}

void frmConfig::LayOut() {
  lstTopic->setAccessibleName(QStringLiteral("Topics"));
  txtTopic->setAccessibleName(QStringLiteral("Name of the new topic"));
  txtTopic->setMinimumWidth(260);
  auto* const lblTopic = Add<QLabel>(QStringLiteral("lblTopic"), QStringLiteral("Topic name:"));
  lblTopic->setVisible(m_shared.Switches.NewTopicMode);
  auto* const name = new QVBoxLayout;
  name->setSpacing(4);
  name->addWidget(lblTopic);
  name->addWidget(txtTopic);
  auto* const buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch();
  buttons->addWidget(cmdAction);
  buttons->addWidget(cmdCancel);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(12, 12, 12, 12);
  column->setSpacing(12);
  column->addWidget(lstTopic, 1);
  column->addLayout(name);
  column->addStretch();  // with the list hidden, the field stays beside its name
  column->addLayout(buttons);
}

void frmConfig::Form_Load() {
  const WindowSwitches& switches = m_shared.Switches;
  lstTopic->setVisible(!switches.NewTopicMode);
  txtTopic->setVisible(switches.NewTopicMode);
  if (switches.NewTopicMode) {
    setWindowTitle(QStringLiteral("Add Topic"));
    txtTopic->setText(ToQString(WithoutSectionMarks(switches.NewTopicName)));
    cmdCancel->setText(QStringLiteral("Ca&ncel"));
    cmdAction->setText(QStringLiteral("&Continue"));
    SetOkButton(cmdAction);
  } else if (switches.ChangeTopicMode) {
    setWindowTitle(QStringLiteral("Change Topic"));
    cmdCancel->setText(QStringLiteral("Ca&ncel"));
    cmdAction->setText(QStringLiteral("&Change"));
  } else {
    setWindowTitle(QStringLiteral("Delete Topic"));
    cmdCancel->setText(QStringLiteral("Do&ne"));
    cmdAction->setText(QStringLiteral("&Delete"));
  }
  RefreshList();
  cmdAction->setEnabled(false);
}

void frmConfig::Form_Activate() { RefreshList(); }  // another program may have changed the topics

void frmConfig::Form_Unload() { SetPointer(PointerShape::Busy); }  // the caller restores it

QStringList frmConfig::TopicNames() const {
  QStringList names;
  for (int i = FirstListed(); i <= m_shared.Topics.TopicCount; ++i) {
    // A number without a topic keeps its place, so that places stay numbers.
    names << ToQString(m_shared.Topics.IsTopic(i) ? m_shared.Topics.Name(i) : Text());
  }
  return names;
}

void frmConfig::RefreshList() {
  ReloadTopics(m_shared.Stacks, m_shared.Topics, m_platform.profile);
  ShowSettingsTrouble(*this, m_platform.profile);
  if (m_shared.Switches.NewTopicMode || TopicNames() == m_listed) return;
  const Text chosen = ChosenName();
  m_listed = TopicNames();
  lstTopic->clear();
  lstTopic->addItems(m_listed);
  const qsizetype row = chosen.empty() ? -1 : m_listed.indexOf(ToQString(chosen));
  Choose(static_cast<int>(row));
}

/// Chooses a row, or none with -1. That none is the current one is said outright: a list that was
/// never told where it is begins at its first row without choosing it, and Down passes over it.
void frmConfig::Choose(int row) {
  lstTopic->clearSelection();
  lstTopic->setCurrentIndex({});
  if (row >= 0) lstTopic->setCurrentRow(row);
  lstTopic_Click();
}

int frmConfig::ChosenRow() const {
  const QList<QListWidgetItem*> chosen = lstTopic->selectedItems();
  return chosen.isEmpty() ? -1 : lstTopic->row(chosen.first());
}

Text frmConfig::ChosenName() const {
  const int row = ChosenRow();
  return row < 0 ? Text() : ToText(m_listed.at(row));
}

void frmConfig::lstTopic_Click() { cmdAction->setEnabled(ChosenRow() >= 0); }

void frmConfig::cmdAction_Click() {
  WindowSwitches& switches = m_shared.Switches;
  switches.NewTopicName =
      switches.NewTopicMode ? CleanTopicName(FirstLine(ToText(txtTopic->text()))) : ChosenName();
  RefreshList();  // one that another program has deleted is chosen no more
  if (switches.NewTopicName.empty()) {
    cmdAction->setEnabled(false);
  } else if (switches.NewTopicMode) {
    AddNewTopic(switches.NewTopicName);
  } else if (ChosenRow() >= 0 && switches.ChangeTopicMode) {
    m_shared.Topics.CurrentTopic = ChosenRow();
    m_chosen = true;
    Unload();
  } else if (ChosenRow() >= 0) {
    AskAndDeleteTopic(ChosenRow() + FirstListed());
  }
}

void frmConfig::AddNewTopic(const Text& name) {
  if (IsTakenTopicName(m_shared.Topics, name)) {
    m_platform.prompts.Show(
        {.text = name + u" already exists.  Re-enter.", .icon = PromptIcon::Exclamation});
    txtTopic->clear();
    txtTopic->setFocus();
    return;
  }
  if (!MayShareSection(name)) return;
  SetPointer(PointerShape::Busy);
  m_shared.Switches.PrintMode = false;
  frmPrint(m_shared, m_platform, this).ShowModal();
  frmAddKey(m_shared, m_platform, this).ShowModal();
  Unload();
}

bool frmConfig::MayShareSection(const Text& name) {
  const int other = TopicSharingSection(m_shared.Topics, name);
  if (other < 0) return true;
  const Text question = name + u" and " + m_shared.Topics.Name(other) +
                        u" would share their fonts and keys, and those of " +
                        m_shared.Topics.Name(other) + u" would be replaced.\r\nAdd it?";
  const Answer answer = m_platform.prompts.Show(
      {.text = question, .icon = PromptIcon::Exclamation, .buttons = PromptButtons::YesNo});
  if (answer != Answer::Yes) txtTopic->setFocus();
  return answer == Answer::Yes;
}

void frmConfig::AskAndDeleteTopic(int topic) {
  const TopicList shown = m_shared.Topics;
  const Text name = shown.Name(topic);
  const Answer answer = m_platform.prompts.Show({.text = u"Delete " + name + u" and its keys?",
                                                 .icon = PromptIcon::Question,
                                                 .buttons = PromptButtons::YesNo});
  if (answer != Answer::Yes) return;
  const BusyPointer busy;
  // The list may have been read anew while the question was on the screen.
  const int number = FollowTopic(shown, topic, m_shared.Topics);
  const bool isThere = m_shared.Topics.Name(number) == name;
  const bool deleted =
      !isThere || RemoveTopic(m_shared.Stacks, m_shared.Topics, m_platform.profile, number);
  if (deleted && m_closeStudyWindows) m_closeStudyWindows(name);
  Choose(-1);
  RefreshList();
}

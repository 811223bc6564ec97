#include "settings/frmConfig.h"

#include "base/QtText.h"
#include "base/TypingFilter.h"
#include "keys/frmAddKey.h"
#include "printing/frmPrint.h"
#include "shell/Pointer.h"
#include "shell/TopicRemoval.h"

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
  frmConfig(shared, platform, owner).ShowModal();
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
    txtTopic->setText(ToQString(CleanTopicName(switches.NewTopicName)));
    cmdCancel->setText(QStringLiteral("Ca&ncel"));
    cmdAction->setText(QStringLiteral("&Continue"));
    SetOkButton(cmdAction);
  } else if (switches.ChangeTopicMode) {
    setWindowTitle(QStringLiteral("Change Topic"));
    FillList(FirstListed());
    cmdCancel->setText(QStringLiteral("Ca&ncel"));
    cmdAction->setText(QStringLiteral("&Change"));
  } else {
    setWindowTitle(QStringLiteral("Delete Topic"));
    FillList(FirstListed());
    cmdCancel->setText(QStringLiteral("Do&ne"));
    cmdAction->setText(QStringLiteral("&Delete"));
  }
  // A proposed name can be continued with at once; an entry must be chosen first.
  cmdAction->setEnabled(!txtTopic->text().isEmpty());
}

void frmConfig::Form_Unload() { SetPointer(PointerShape::Busy); }  // the caller restores it

void frmConfig::FillList(int first) {
  lstTopic->clear();
  for (int i = first; i <= m_shared.Topics.TopicCount; ++i) {
    // A number without a topic keeps its place, so that places stay numbers.
    lstTopic->addItem(ToQString(m_shared.Topics.IsTopic(i) ? m_shared.Topics.Name(i) : Text()));
  }
}

int frmConfig::ChosenRow() const {
  const QList<QListWidgetItem*> chosen = lstTopic->selectedItems();
  return chosen.isEmpty() ? -1 : lstTopic->row(chosen.first());
}

void frmConfig::lstTopic_Click() { cmdAction->setEnabled(ChosenRow() >= 0); }

void frmConfig::cmdAction_Click() {
  WindowSwitches& switches = m_shared.Switches;
  const int row = ChosenRow();
  if (switches.NewTopicMode) {
    switches.NewTopicName = CleanTopicName(FirstLine(ToText(txtTopic->text())));
  } else {
    const int topic = row + FirstListed();
    switches.NewTopicName =
        row >= 0 && m_shared.Topics.IsTopic(topic) ? m_shared.Topics.Name(topic) : Text();
  }
  if (switches.NewTopicName.empty()) {
    cmdAction->setEnabled(false);
  } else if (switches.NewTopicMode) {
    AddNewTopic(switches.NewTopicName);
  } else if (switches.ChangeTopicMode) {
    m_shared.Topics.CurrentTopic = row;
    m_chosen = true;
    Unload();
  } else {
    DeleteListedTopic(row);
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
  SetPointer(PointerShape::Busy);
  m_shared.Switches.PrintMode = false;
  frmPrint(m_shared, m_platform, this).ShowModal();
  frmAddKey(m_shared, m_platform, this).ShowModal();
  Unload();
}

void frmConfig::DeleteListedTopic(int row) {
  const int topic = row + FirstListed();
  const Text name = m_shared.Topics.Name(topic);
  const Answer answer = m_platform.prompts.Show({.text = u"Delete " + name + u" and its keys?",
                                                 .icon = PromptIcon::Question,
                                                 .buttons = PromptButtons::YesNo});
  if (answer != Answer::Yes) return;
  const BusyPointer busy;
  delete lstTopic->takeItem(row);
  DeleteTopic(m_shared.Topics, m_platform.profile, topic);
  if (m_closeStudyWindows) m_closeStudyWindows(name);
  ForgetTopic(m_shared.Stacks, m_shared.Topics, topic);
  lstTopic->clearSelection();
  cmdAction->setEnabled(false);
}

#include "windows/main/frmMain.h"

#include "base/Version.h"
#include "cards/StackFileOperations.h"
#include "program/CommandLine.h"
#include "windows/authoring/frmCreate.h"
#include "windows/authoring/frmEdit.h"
#include "windows/authoring/frmFind.h"
#include "windows/frame/Icons.h"
#include "windows/frame/Pointer.h"
#include "windows/frame/QtText.h"
#include "windows/frame/SettingsNotice.h"
#include "windows/main/frmAboutBox.h"
#include "windows/printing/frmPrint.h"
#include "windows/stacks/frmLoad.h"
#include "windows/study/frmStepper.h"
#include "windows/study/frmTime.h"
#include "windows/topics/frmConfig.h"

#include <QActionGroup>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>

namespace {

constexpr int RibbonIconSize = 28;

QFrame* Separator(QWidget* owner) {
  auto* const line = new QFrame(owner);
  line->setFrameShape(QFrame::VLine);
  line->setFrameShadow(QFrame::Sunken);
  return line;
}

}  // namespace

frmMain::frmMain(SharedState& shared, Platform& platform, const Text& commandLine, QWidget* splash)
    : Form("frmMain", shared, platform, nullptr),
      m_studyWindows(shared, platform),
      m_splash(splash),
      m_topicGroup(new QActionGroup(this)) {
  setWindowFlags(Qt::Window);
  new QVBoxLayout(this);
  m_menuBar = AddMenuBar();
  sspRibbon = Add<QFrame>(QStringLiteral("sspRibbon"));
  auto* const ribbonRow = new QHBoxLayout(sspRibbon);
  ribbonRow->setContentsMargins(6, 4, 6, 4);
  ribbonRow->setSpacing(2);
  MakeFileMenu();
  ribbonRow->addWidget(Separator(sspRibbon));
  MakeRunMenu();
  ribbonRow->addStretch();
  MakeTopicMenu();
  MakeHelpMenu();
  LayOut();
  connect(cboStacks, &QComboBox::activated, this, &frmMain::cboStacks_Click);
  const QSize withHint = sizeHint();
  Form_Load(commandLine);
  resize(withHint.expandedTo(sizeHint()));
}

void frmMain::Command::SetEnabled(bool enabled) const {
  item->setEnabled(enabled);
  button->setEnabled(enabled);
}

frmMain::Command frmMain::AddCommand(QMenu* menu, const QString& itemName, const QString& caption,
                                     const QString& buttonName, const QString& buttonCaption,
                                     const char* icon, const QString& toolTip) {
  Command command;
  command.item = AddItem(menu, itemName, caption);
  command.item->setIcon(TintedIcon(icon));
  command.item->setIconVisibleInMenu(false);
  auto* const button = new QToolButton(sspRibbon);
  button->setObjectName(buttonName);
  button->setText(buttonCaption);
  button->setIcon(TintedIcon(icon));
  button->setIconSize(QSize(RibbonIconSize, RibbonIconSize));
  button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
  button->setAutoRaise(true);
  button->setToolTip(toolTip);
  button->setFocusPolicy(Qt::TabFocus);
  button->setMinimumWidth(64);
  sspRibbon->layout()->addWidget(button);
  connect(button, &QToolButton::clicked, command.item, &QAction::trigger);
  command.button = button;
  return command;
}

void frmMain::MakeFileMenu() {
  QMenu* const menu = AddMenu(m_menuBar, QStringLiteral("mnuFile"), QStringLiteral("&File"));
  m_load = AddCommand(menu, QStringLiteral("mnuLoad"), QStringLiteral("&Load Stack..."),
                      QStringLiteral("ssrLoad"), QStringLiteral("Load"), "load",
                      QStringLiteral("Load a stack of cards from a file"));
  m_create = AddCommand(menu, QStringLiteral("mnuCreate"), QStringLiteral("&Create Stack..."),
                        QStringLiteral("ssrNew"), QStringLiteral("Create"), "new",
                        QStringLiteral("Type in a new stack of cards"));
  m_edit = AddCommand(menu, QStringLiteral("mnuEdit"), QStringLiteral("&Edit Stack..."),
                      QStringLiteral("ssrEdit"), QStringLiteral("Edit"), "edit",
                      QStringLiteral("Change the cards of the selected stack"));
  m_print = AddCommand(menu, QStringLiteral("mnuPrint"), QStringLiteral("&Print Stack..."),
                       QStringLiteral("ssrPrint"), QStringLiteral("Print"), "print",
                       QStringLiteral("Print the selected stack"));
  m_remove = AddCommand(menu, QStringLiteral("mnuRemove"), QStringLiteral("&Remove from List"),
                        QStringLiteral("ssrUnLoad"), QStringLiteral("Remove"), "unload",
                        QStringLiteral("Take the selected stack off the list; its file stays"));
  menu->insertSeparator(m_print.item);
  menu->insertSeparator(m_remove.item);
  mnuDel = AddItem(menu, QStringLiteral("mnuDel"), QStringLiteral("&Delete Stack File..."));
  menu->addSeparator();
  QAction* const mnuQuit = AddItem(menu, QStringLiteral("mnuQuit"), QStringLiteral("&Quit"));
  m_load.item->setShortcut(QKeySequence::Open);
  mnuQuit->setShortcut(QKeySequence::Quit);
  connect(m_load.item, &QAction::triggered, this, &frmMain::mnuLoad_Click);
  connect(m_create.item, &QAction::triggered, this, &frmMain::mnuCreate_Click);
  connect(m_edit.item, &QAction::triggered, this, &frmMain::mnuEdit_Click);
  connect(m_print.item, &QAction::triggered, this, &frmMain::mnuPrint_Click);
  connect(m_remove.item, &QAction::triggered, this, &frmMain::mnuRemove_Click);
  connect(mnuDel, &QAction::triggered, this, &frmMain::mnuDel_Click);
  connect(mnuQuit, &QAction::triggered, this, &frmMain::mnuQuit_Click);
}

void frmMain::MakeRunMenu() {
  struct Mode {
    QString caption;
    const char* icon;
    QString toolTip;
  };
  const std::array<Mode, 4> modes = {
      Mode{QStringLiteral("&Stepper"), "stepper",
           QStringLiteral("Step through the cards: question, then answer")},
      Mode{QStringLiteral("&Quibber"), "quibber",
           QStringLiteral("The question is shown for a short time only")},
      Mode{QStringLiteral("S&peller"), "speller", QStringLiteral("Type the answer")},
      Mode{QStringLiteral("&Chooser"), "chooser", QStringLiteral("Pick the answer among four")},
  };
  QMenu* const menu = AddMenu(m_menuBar, QStringLiteral("mnuRun"), QStringLiteral("&Study"));
  for (int i = 0; i < 4; ++i) {
    const Mode& mode = modes[static_cast<std::size_t>(i)];
    QString plain = mode.caption;
    plain.remove(u'&');
    Command& command = m_run[static_cast<std::size_t>(i)];
    command = AddCommand(menu, QStringLiteral("mnuRunItem(%1)").arg(i), mode.caption,
                         QStringLiteral("ssrAction(%1)").arg(i), plain, mode.icon, mode.toolTip);
    connect(command.item, &QAction::triggered, this, [this, i] { mnuRunItem_Click(i); });
  }
}

void frmMain::MakeHelpMenu() {
  QMenu* const menu = AddMenu(m_menuBar, QStringLiteral("mnuHelp"), QStringLiteral("&Help"));
  const auto add = [&](const QString& name, const QString& caption, HelpContext context) {
    QAction* const item = AddItem(menu, name, caption);
    connect(item, &QAction::triggered, this, [this, context] { m_platform.help.Show(context); });
    return item;
  };
  add(QStringLiteral("mnuHlp_Index"), QStringLiteral("&Index"), HelpContext::Index)
      ->setShortcut(QKeySequence::HelpContents);
  add(QStringLiteral("mnuMMHelp"), QStringLiteral("&Main Window"), HelpContext::MainMenu);
  add(QStringLiteral("mnuUsing"), QStringLiteral("&Using Help"), HelpContext::UsingHelp);
  menu->addSeparator();
  QAction* const mnuAbout =
      AddItem(menu, QStringLiteral("mnuAbout"), QStringLiteral("&About ") + ToQString(ProgramName));
  connect(mnuAbout, &QAction::triggered, this, &frmMain::mnuAbout_Click);
}

QLabel* frmMain::AddFontPanel(const QString& name, const QString& caption) {
  auto* const panel = Add<QLabel>(name);
  panel->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
  panel->setAlignment(Qt::AlignCenter);
  panel->setMargin(8);
  panel->setAccessibleDescription(caption);
  panel->setToolTip(caption);
  return panel;
}

void frmMain::LayOut() {
  lblStacks = Add<QLabel>(QStringLiteral("lblStacks"), QStringLiteral("Card St&ack:"));
  cboStacks = Add<QComboBox>(QStringLiteral("cboStacks"));
  lblStacks->setBuddy(cboStacks);
  lblStackInfo = Add<QLabel>(QStringLiteral("lblStackInfo"));
  auto* const lblFrontFont =
      Add<QLabel>(QStringLiteral("lblFrontFont"), QStringLiteral("Front font:"));
  auto* const lblBackFont =
      Add<QLabel>(QStringLiteral("lblBackFont"), QStringLiteral("Back font:"));
  sspFrontFont = AddFontPanel(QStringLiteral("sspFrontFont"),
                              QStringLiteral("Font of the cards' front sides"));
  sspBackFont =
      AddFontPanel(QStringLiteral("sspBackFont"), QStringLiteral("Font of the cards' back sides"));

  auto* const grid = new QGridLayout;
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(12);
  grid->setVerticalSpacing(8);
  grid->addWidget(lblStacks, 0, 0);
  grid->addWidget(cboStacks, 0, 1, 1, 3);
  grid->addWidget(lblStackInfo, 1, 1, 1, 3);
  grid->setRowMinimumHeight(2, 8);
  grid->addWidget(lblFrontFont, 3, 0);
  grid->addWidget(sspFrontFont, 3, 1);
  grid->addWidget(lblBackFont, 3, 2);
  grid->addWidget(sspBackFont, 3, 3);
  grid->setRowStretch(3, 1);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);

  lblHint = Add<QLabel>(QStringLiteral("lblHint"),
                        QStringLiteral("Welcome!\n"
                                       "Choose Load to open a stack of cards. "
                                       "Stacks to try are in the place Samples.\n"
                                       "Choose Create to type in a stack of your own."));
  lblHint->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
  lblHint->setBackgroundRole(QPalette::Base);
  lblHint->setForegroundRole(QPalette::Text);
  lblHint->setAutoFillBackground(true);
  lblHint->setAlignment(Qt::AlignCenter);
  lblHint->setMargin(12);

  auto* const content = new QVBoxLayout;
  content->setContentsMargins(12, 12, 12, 12);
  content->setSpacing(12);
  content->addLayout(grid, 1);
  content->addWidget(lblHint);
  auto* const column = qobject_cast<QVBoxLayout*>(layout());
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(sspRibbon);
  auto* const line = new QFrame(this);
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  column->addWidget(line);
  column->addLayout(content, 1);
  cboStacks->setFocus();
}

void frmMain::Form_Load(const Text& commandLine) {
  setWindowTitle(ToQString(ProgramTitle));
  InitSettings(m_platform.profile);
  LoadTopicList(m_shared.Topics, m_platform.profile);
  m_shared.Topics.CurrentTopic = DefaultTopic(m_shared.Topics, m_platform.profile);
  if (!commandLine.empty()) LoadCommandLineStack(commandLine);
  FillTopics();
  mnuTopicName_Click(m_shared.Topics.CurrentTopic);
  FillStacks();
  if (m_shared.Stacks.StackCount >= 0) SelectStack(m_shared.Stacks.CurrentStack);
  EnableCommands();
}

void frmMain::LoadCommandLineStack(const Text& commandLine) {
  const CommandLineStack named = ParseCommandLine(
      commandLine, m_platform.files, m_shared.Switches.DefaultFolder, ToText(QDir::currentPath()));
  m_shared.Switches.DefaultFolder = named.folder;
  if (named.fileName.empty()) return;
  const FileStatus status =
      LoadStack(m_shared.Stacks, m_platform.files, m_platform.prompts, named.folder, named.fileName,
                frmConfig::FileTopicCheck(m_shared, m_platform, this));
  if (status == FileStatus::Ok) return;
  m_platform.prompts.Show({.text = u"Error: " + ErrorText(FileStatus::FileNotFound) +
                                   u"\r\nCan't load file: " + named.fileName,
                           .icon = PromptIcon::Exclamation});
}

void frmMain::FillStacks() {
  cboStacks->clear();
  for (const CardStack& stack : m_shared.Stacks.StackList) {
    cboStacks->addItem(ToQString(TrimRight(stack.StackName)));
  }
}

void frmMain::SelectStack(int index) {
  cboStacks->setCurrentIndex(index);
  cboStacks_Click(index);
}

void frmMain::ShowStackInfo() {
  const int cards = m_shared.Stacks.Current().CardCount;
  const QString count =
      cards == 1 ? QStringLiteral("1 card") : QStringLiteral("%1 cards").arg(cards);
  const QString topic = ToQString(m_shared.Topics.Name(m_shared.Topics.CurrentTopic));
  const bool loaded = m_shared.Stacks.StackCount >= 0;
  lblStackInfo->setText(loaded ? count + QStringLiteral(", topic ") + topic
                               : QStringLiteral("No stack is loaded. Topic ") + topic);
  ShowHint(!loaded);
}

void frmMain::ShowHint(bool shown) {
  lblHint->setVisible(shown);  // the panels of the fonts take and give the room
}

// The Chooser's item and button follow no rule: they can always be pressed. Meant so.
void frmMain::EnableCommands() {
  const bool loaded = cboStacks->currentText() != ToQString(NoStackName);
  for (const Command& command : {m_edit, m_print, m_remove, m_run[0], m_run[1], m_run[2]}) {
    command.SetEnabled(loaded);
  }
  mnuChangeTopic->setEnabled(m_shared.Topics.CurrentTopic != 0);
  ShowStackInfo();
  ShowSettingsTrouble(*this, m_platform.profile);
}

void frmMain::Form_Activate() {
  const BusyPointer busy;
  EnableCommands();
}

void frmMain::Form_Deactivate() {
  if (m_splash != nullptr) m_splash->close();
}

void frmMain::Form_Unload() {
  m_studyWindows.CloseAll();
  if (m_splash != nullptr) m_splash->close();
  QApplication::quit();
}

void frmMain::cboStacks_Click(int index) {
  m_shared.Stacks.CurrentStack = index;
  const int topic = m_shared.Topics.Effective(m_shared.Stacks.Current().TopicIndex);
  if (m_shared.Topics.CurrentTopic != topic) mnuTopicName_Click(topic);
  EnableCommands();
}

void frmMain::mnuLoad_Click() {
  const BusyPointer busy;
  m_shared.Switches.FileDialogMode = FileDialogMode::Load;
  const int before = m_shared.Stacks.StackCount;
  frmLoad(m_shared, m_platform, this).ShowModal();
  if (m_shared.Stacks.StackCount <= before) return;
  FillTopics();  // the stack's topic may have been added
  FillStacks();
  m_shared.Topics.CurrentTopic = -1;  // so that the stack's topic is selected whichever it is
  SelectStack(m_shared.Stacks.StackCount);
}

void frmMain::mnuDel_Click() {
  const BusyPointer busy;
  m_shared.Switches.FileDialogMode = FileDialogMode::Delete;
  frmLoad(m_shared, m_platform, this).ShowModal();
}

void frmMain::mnuRemove_Click() {
  const int index = m_shared.Stacks.CurrentStack;
  m_studyWindows.StackRemoved(index);
  m_shared.Stacks.RemoveCurrentStack();
  FillStacks();
  SelectStack(std::max(index - 1, 0));
}

void frmMain::mnuRunItem_Click(int index) {
  const BusyPointer busy;
  m_shared.Switches.StudyMode = static_cast<StudyMode>(index);
  if (m_shared.Switches.StudyMode == StudyMode::Chooser &&
      m_shared.Stacks.Current().CardCount < FewestChooserCards) {
    m_platform.prompts.Show(
        {.text = u"Not enough cards to run Chooser", .icon = PromptIcon::Information});
    return;
  }
  frmTime(m_shared, m_platform, this).ShowModal();
  if (m_shared.Timer.TimerSettingsConfirmed) m_studyWindows.Open();
}

void frmMain::mnuCreate_Click() {
  const BusyPointer busy;
  const int before = m_shared.Stacks.StackCount;
  m_shared.Switches.AddCardsMode = false;
  frmCreate(m_shared, m_platform, this).ShowModal();
  const int count = m_shared.Stacks.StackCount;
  if (count > before) FillStacks();
  // Dropping the new stack has selected the last one. Without any other the list still shows
  // "None".
  if (count >= 0) SelectStack(count);
}

void frmMain::mnuEdit_Click() {
  const BusyPointer busy;
  if (m_find == nullptr) m_find = new frmFind(m_shared, m_platform, this);
  const int index = m_shared.Stacks.CurrentStack;
  frmEdit window(m_shared, m_platform, this, *m_find);
  connect(&window, &frmEdit::TopicChanged, this, &frmMain::ShowTopics);
  window.ShowModal();
  cboStacks->setItemText(index, ToQString(TrimRight(m_shared.Stacks.At(index).StackName)));
  RefreshTopics();
}

void frmMain::mnuPrint_Click() {
  const BusyPointer busy;
  m_shared.Switches.PrintMode = true;
  frmPrint(m_shared, m_platform, this).ShowModal();
  m_shared.Switches.PrintMode = false;
}

void frmMain::mnuAbout_Click() {
  const BusyPointer busy;
  frmAboutBox(m_shared, m_platform, this).ShowModal();
}

#include "program/StackTopics.h"
#include "windows/frame/DisplayFont.h"
#include "windows/frame/Pointer.h"
#include "windows/frame/QtText.h"
#include "windows/keys/frmAddKey.h"
#include "windows/main/frmMain.h"
#include "windows/printing/frmPrint.h"
#include "windows/topics/frmConfig.h"

#include <QActionGroup>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>

void frmMain::MakeTopicMenu() {
  mnuTopics = AddMenu(m_menuBar, QStringLiteral("mnuTopics"), QStringLiteral("&Topic"));
  m_topicSeparator = mnuTopics->addSeparator();
  mnuAddTopic = AddItem(mnuTopics, QStringLiteral("mnuAddTopic"), QStringLiteral("&Add Topic..."));
  mnuChangeTopic =
      AddItem(mnuTopics, QStringLiteral("mnuChangeTopic"), QStringLiteral("&Change Keys..."));
  mnuDeleteTopic =
      AddItem(mnuTopics, QStringLiteral("mnuDeleteTopic"), QStringLiteral("&Delete Topic..."));
  connect(mnuAddTopic, &QAction::triggered, this, &frmMain::mnuAddTopic_Click);
  connect(mnuChangeTopic, &QAction::triggered, this, &frmMain::mnuChangeTopic_Click);
  connect(mnuDeleteTopic, &QAction::triggered, this, &frmMain::mnuDeleteTopic_Click);
  mnuTopics->addSeparator();
  mnuChangeFont = AddItem(mnuTopics, QStringLiteral("mnuChangeFont"),
                          QStringLiteral("Change Display &Font..."));
  connect(mnuChangeFont, &QAction::triggered, this, &frmMain::mnuChangeFont_Click);
}

void frmMain::FillTopics() {
  for (QAction* const item : mnuTopicName) delete item;
  mnuTopicName.clear();
  for (int i = 0; i <= m_shared.Topics.TopicCount; ++i) {
    if (!m_shared.Topics.IsTopic(i)) continue;
    auto* const item = new QAction(EscapeMnemonics(m_shared.Topics.Name(i)), m_topicGroup);
    item->setObjectName(QStringLiteral("mnuTopicName(%1)").arg(i));
    item->setCheckable(true);
    item->setData(i);
    mnuTopics->insertAction(m_topicSeparator, item);
    item->setChecked(i == m_shared.Topics.CurrentTopic);
    mnuTopicName.push_back(item);
    connect(item, &QAction::triggered, this, [this, i] { mnuTopicName_Click(i); });
  }
}

void frmMain::ShowFonts() {
  const auto show = [](QLabel* panel, const Text& name, float size) {
    panel->setFont(DisplayFont(name, size));
    panel->setText(ToQString(name + u", " + NumberText(size)));
  };
  const TopicFonts& fonts = m_shared.Topic.Fonts;
  show(sspFrontFont, fonts.FrontFont, fonts.FrontSize);
  show(sspBackFont, fonts.BackFont, fonts.BackSize);
}

void frmMain::ShowTopics() {
  FillTopics();
  ShowFonts();
  EnableCommands();
}

void frmMain::mnuTopicName_Click(int index) {
  SelectTopic(m_shared.Topics, m_shared.Topic, m_platform.profile, index);
  for (QAction* const item : mnuTopicName) {
    item->setChecked(item->data().toInt() == m_shared.Topics.CurrentTopic);
  }
  ShowFonts();
  EnableCommands();
}

void frmMain::RefreshTopics() {
  ReloadTopics(m_shared.Stacks, m_shared.Topics, m_platform.profile);
  // Fonts that General has for this run only must not be lost where it stays selected.
  if (!HoldsCurrentTopic(m_shared.Topics, m_shared.Topic)) {
    SelectTopic(m_shared.Topics, m_shared.Topic, m_platform.profile, m_shared.Topics.CurrentTopic);
  }
  ShowTopics();
}

void frmMain::mnuChangeFont_Click() {
  const BusyPointer busy;
  m_shared.Switches.PrintMode = false;
  m_shared.Switches.NewTopicName.clear();
  frmPrint(m_shared, m_platform, this).ShowModal();
  ShowTopics();
}

void frmMain::mnuAddTopic_Click() {
  RefreshTopics();
  if (m_shared.Topics.TopicCount >= MaxTopics) {
    m_platform.prompts.Show(TooManyTopicsPrompt());
    return;
  }
  frmConfig::ShowToAdd(m_shared, m_platform, this, Text());
  RefreshTopics();
}

void frmMain::mnuChangeTopic_Click() {
  const BusyPointer busy;
  frmAddKey(m_shared, m_platform, this).ShowModal();
  RefreshTopics();
}

void frmMain::mnuDeleteTopic_Click() {
  RefreshTopics();
  if (m_shared.Topics.TopicCount < 1) {
    m_platform.prompts.Show({.text = u"Nothing to Delete.", .icon = PromptIcon::Information});
    return;
  }
  frmConfig::ShowToDelete(m_shared, m_platform, this, [this](const Text& topicName) {
    m_studyWindows.TopicDeleted(topicName);
  });
  RefreshTopics();
}

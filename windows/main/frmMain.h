#pragma once

#include "windows/frame/Form.h"
#include "windows/study/StudyWindows.h"

#include <QPointer>

#include <array>
#include <vector>

class QActionGroup;
class QComboBox;
class QFrame;
class QLabel;
class QToolButton;
class frmFind;

/// The hub: the loaded stacks, the topics, and a command for every other window.
class frmMain : public Form {
  Q_OBJECT

 public:
  /// @param commandLine  names the stack to load, or is empty
  /// @param splash       goes the first time that this window is left
  frmMain(SharedState& shared, Platform& platform, const Text& commandLine, QWidget* splash);

 protected:
  bool Form_QueryUnload(UnloadCause) override { return true; }  // nothing here can be lost unasked
  void Form_Unload() override;
  void Form_Activate() override;
  void Form_Deactivate() override;

 private:
  Text SizeName() const override { return u"Main"; }

  /// A command that stands in a menu and on the ribbon.
  struct Command {
    QAction* item = nullptr;
    QToolButton* button = nullptr;
    void SetEnabled(bool enabled) const;
  };

  void MakeFileMenu();
  void MakeRunMenu();
  void MakeTopicMenu();
  void MakeHelpMenu();
  void LayOut();
  Command AddCommand(QMenu* menu, const QString& itemName, const QString& caption,
                     const QString& buttonName, const QString& buttonCaption, const char* icon,
                     const QString& toolTip);
  QLabel* AddFontPanel(const QString& name, const QString& caption);

  void Form_Load(const Text& commandLine);
  void LoadCommandLineStack(const Text& commandLine);
  void EnableCommands();
  void FillStacks();
  void FillTopics();
  void SelectStack(int index);
  void ShowFonts();
  void ShowStackInfo();
  void ShowHint(bool shown);

  void cboStacks_Click(int index);
  void mnuLoad_Click();
  void mnuDel_Click();
  void mnuRemove_Click();
  void mnuRunItem_Click(int index);
  void mnuTopicName_Click(int index);
  void mnuCreate_Click();
  void mnuEdit_Click();
  void mnuPrint_Click();
  void mnuChangeFont_Click();
  void mnuAddTopic_Click();
  void mnuChangeTopic_Click();
  void mnuDeleteTopic_Click();
  /// Reads the list of topics anew; the selected one stays, and is read where it is another now.
  void RefreshTopics();
  /// Shows the topics and the selected one's fonts as they are in memory.
  void ShowTopics();
  void mnuAbout_Click();
  void mnuQuit_Click() { Unload(); }

  StudyWindows m_studyWindows;
  frmFind* m_find = nullptr;  // made for the first search, then only hidden
  QPointer<QWidget> m_splash;

  QMenuBar* m_menuBar = nullptr;
  QMenu* mnuTopics = nullptr;
  QAction* m_topicSeparator = nullptr;
  QActionGroup* m_topicGroup = nullptr;
  std::vector<QAction*> mnuTopicName;

  Command m_load, m_create, m_edit, m_remove, m_print;  // with their ribbon buttons
  std::array<Command, 4> m_run;
  QAction* mnuDel = nullptr;
  QAction* mnuChangeFont = nullptr;
  QAction* mnuAddTopic = nullptr;
  QAction* mnuChangeTopic = nullptr;
  QAction* mnuDeleteTopic = nullptr;

  QFrame* sspRibbon = nullptr;
  QLabel* lblStacks = nullptr;
  QComboBox* cboStacks = nullptr;
  QLabel* lblStackInfo = nullptr;
  QLabel* lblHint = nullptr;  // how to begin, while no stack is loaded
  QLabel* sspFrontFont = nullptr;
  QLabel* sspBackFont = nullptr;
};

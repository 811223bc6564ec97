#pragma once

#include "cards/StackReader.h"
#include "windows/frame/Form.h"

#include <QStringList>

#include <functional>

class QLineEdit;
class QListWidget;
class QPushButton;

/// The topic dialog: adds a topic (NewTopicMode), changes the topic of the stack being edited
/// (ChangeTopicMode) or deletes topics (neither).
class frmConfig : public Form {
  Q_OBJECT

 public:
  /// Closes the study windows that show a topic.
  using CloseStudyWindows = std::function<void(const Text& topicName)>;

  /// Each of these opens the dialog for one purpose and returns when it is closed.
  static void ShowToAdd(SharedState& shared, Platform& platform, QWidget* owner,
                        const Text& proposedName);
  /// @return true when a topic was chosen, and then it is the current one, as it may have been
  ///         before; false when the dialog was cancelled
  static bool ShowToChange(SharedState& shared, Platform& platform, QWidget* owner);
  static void ShowToDelete(SharedState& shared, Platform& platform, QWidget* owner,
                           CloseStudyWindows closeStudyWindows);

  /// Finds the topic of a stack that was just read; opens the dialog to add an unknown one where
  /// the user wants that.
  static TopicCheck FileTopicCheck(SharedState& shared, Platform& platform, QWidget* owner);

  /// @param closeStudyWindows  called for each topic that is deleted; not needed in the other modes
  frmConfig(SharedState& shared, Platform& platform, QWidget* owner,
            CloseStudyWindows closeStudyWindows = {});

 protected:
  void Form_Activate() override;
  void Form_Unload() override;

 private:
  void LayOut();
  void Form_Load();
  QStringList TopicNames() const;
  /// Reads the topics anew and shows them. The chosen one stays chosen, by its name.
  void RefreshList();
  /// The chosen entry of the list, -1 for none. The entry that only has the focus is not chosen.
  void Choose(int row);
  int ChosenRow() const;
  Text ChosenName() const;
  int FirstListed() const { return m_shared.Switches.ChangeTopicMode ? 0 : 1; }

  void lstTopic_Click();
  void cmdAction_Click();
  void cmdCancel_Click() { Unload(); }
  void AddNewTopic(const Text& name);
  /// Asks about a name that differs from a topic's in letter case only.
  bool MayShareSection(const Text& name);
  void AskAndDeleteTopic(int topic);

  CloseStudyWindows m_closeStudyWindows;
  bool m_chosen = false;
  QStringList m_listed;
  QListWidget* lstTopic;
  QLineEdit* txtTopic;
  QPushButton* cmdAction;
  QPushButton* cmdCancel;
};

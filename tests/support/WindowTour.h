#pragma once

#include "tests/support/QuietProgram.h"
#include "windows/study/StudyWindows.h"

#include <QDir>
#include <QString>

#include <functional>

class QWidget;
class frmStepper;

/// Opens every window of the program in its states, one after the other, in a world of doubles
/// around the real sample stacks: for taking pictures, and for rules that hold for all windows.
class WindowTour {
 public:
  /// What is done with each window once it is up, active and laid out. It may press keys that move
  /// the focus, and leaves the window open.
  /// @param name  of the window and its state, "frmLoad-save"; no two are the same
  using Visit = std::function<void(QWidget& window, const QString& name)>;

  /// @param samples  the folder of the sample stacks; windows show its name
  explicit WindowTour(Visit visit, const QDir& samples = SampleFolder());

  /// @throw std::runtime_error when a window, a control or a sample stack is not there
  void Run();

  /// The sample stacks of the project.
  static QDir SampleFolder();

 private:
  void Show(QWidget& window, const QString& name);
  void Load(TextView fileName);

  void ShowShell();
  void ShowMessageBox(const Prompt& prompt, const QString& name);
  void ShowHelp();
  void ShowStudy(TextView fileName, StudyMode mode, const QString& name);
  void ShowRightSpelling(frmStepper& window, const QString& name);
  void ShowDialogs();
  void ShowTopicDialog(const QString& name, bool add, bool change);
  void ShowKeys();
  void ShowAuthoring();

  Visit m_visit;
  const Text m_samples;
  QuietProgram m_program{Answer::No};  // to whatever a window asks when it goes
  SharedState& m_shared = m_program.shared;
  Platform& m_platform = m_program.platform;
  StudyWindows m_studyWindows{m_shared, m_platform};
};

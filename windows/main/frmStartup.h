#pragma once

#include "windows/frame/Form.h"

#include <QColor>
#include <QPointer>

#include <memory>

class frmMain;
class QLabel;

/// The splash: shows itself, waits, opens the main window and goes when that one is first left.
class frmStartup : public Form {
  Q_OBJECT

 public:
  frmStartup(SharedState& shared, Platform& platform);
  ~frmStartup() override;

  /// Shows the splash for `milliseconds` without handling any event, then opens the main window.
  /// @param commandLine  names the stack to load, or is empty
  void Run(const Text& commandLine, int milliseconds);

  static constexpr int WaitTime = 2000;  ///< milliseconds

 private:
  void PaintOnce();

  QLabel* lblTitle;
  QLabel* lblVersion;
  std::unique_ptr<frmMain> m_main;
};

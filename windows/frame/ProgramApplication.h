#pragma once

#include "base/Prompts.h"

#include <QApplication>

/// The application object. A fault of the program that escapes an event ends in a message, not in
/// the end of the program: what the user typed is still there.
class ProgramApplication : public QApplication {
  Q_OBJECT

 public:
  ProgramApplication(int& argc, char** argv);

  void SetPrompts(Prompts& prompts) { m_prompts = &prompts; }
  bool notify(QObject* receiver, QEvent* event) override;

 private:
  Prompts* m_prompts = nullptr;
};

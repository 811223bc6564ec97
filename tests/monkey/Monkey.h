#pragma once

#include "tests/monkey/Checks.h"
#include "tests/monkey/Hands.h"

#include <QObject>

#include <functional>

class QWidget;

/// Uses the program at random, one step for each turn of whichever event loop is running, so that
/// it also acts in the dialogs that a step opens.
class Monkey : public QObject {
 public:
  Monkey(Dice& dice, Journal& journal, Hands& hands, Checks& checks, std::function<bool()> isOver);

  /// Acts from the next turn of the event loop on, until the program has ended, or `isOver` says
  /// that it is enough and every dialog is closed; then it ends the program.
  void Begin();

 private:
  void AskForNextStep();
  void Step();
  void GoHome();
  static void ActivateModal();
  void DismissTop(QWidget& modal);
  void Check();
  QWidget* ChooseWindow();

  Dice& m_dice;
  Journal& m_journal;
  Hands& m_hands;
  Checks& m_checks;
  std::function<bool()> m_isOver;
  int m_wayHome = 0;  // steps since the monkey has been trying to close every dialog; 0 when not
};

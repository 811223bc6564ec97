#pragma once

#include "tests/monkey/Dice.h"
#include "tests/monkey/Journal.h"

#include <QPoint>
#include <QString>
#include <Qt>

#include <vector>

class QWidget;
class QWindow;

/// What the monkey can do to a window: the events that a mouse, a keyboard, an input method and a
/// window manager would bring, on the way that they would take. Each is written into the journal
/// before it is done.
class Hands {
 public:
  /// @param files  names to type and to drop: of the stacks, pictures and sounds there are
  Hands(Dice& dice, Journal& journal, std::vector<QString> files)
      : m_dice(dice), m_journal(journal), m_files(std::move(files)) {}

  /// Does one thing, chosen at random, to `window` or to what has the focus.
  void Act(QWidget& window);

  /// True for a window under a modal one. The help viewer never is.
  static bool IsBlocked(const QWidget& window);

  /// Closes a window as its title bar would.
  void Close(QWidget& window);
  void PressKey(int key, Qt::KeyboardModifiers modifiers, const QString& text);

 private:
  QWidget* SomeChild(QWidget& window);
  void ClickSomewhere(QWidget& window);
  void Press(QWidget& target, QPoint at, Qt::MouseButton button, bool twice);
  void Drag(QWidget& window);
  void TurnWheel(QWidget& window);
  void TypeKeys();
  void TypeText();
  void Commit();
  void Paste();
  void ChooseCommand(QWidget& window);
  void ChooseItem(QWidget& window);
  void Drop(QWidget& window);
  void Resize(QWidget& window);
  void LetTimersRun();
  QString SomeText();

  Dice& m_dice;
  Journal& m_journal;
  std::vector<QString> m_files;
};

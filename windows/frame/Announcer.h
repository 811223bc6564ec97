#pragma once

#include <QString>
#include <QWidget>

#include <memory>

/// Says to those who use a screen reader what others see happen in a window. Nothing is shown, and
/// the focus stays where it is.
///
/// Qt has an event for it from 6.8 on. Before, what changes at a control is told without the new
/// text, which readers need, so the words become a notification that shows up: a hidden control
/// whose name they are. It is no part of the window, or readers would say the window's title each
/// time.
class Announcer {
 public:
  explicit Announcer(QWidget* window);

  /// To be called when the focus has moved: readers break off when it does. What is said next may
  /// take the place of these words before a reader asks for them, so all goes into one.
  void Say(const QString& words);

 private:
  QWidget* m_window;
  std::unique_ptr<QWidget> m_speaker;  // before Qt 6.8
};

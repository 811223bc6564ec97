#pragma once

#include "program/RememberedState.h"

#include <QObject>
#include <QSize>

class QWidget;

/// Lets a window open at the size that its user gave it the last time. A size that the program or
/// the screen gave it, as on a screen that is too small, is not kept.
class KeptSize : public QObject {
 public:
  /// Gives `window` the size that is known, as far as the screen and the window's own least size
  /// let it, without one that which it has, and places it as FitOnScreen does. To be called when it
  /// is shown for the first time.
  /// @param name  by which the size is kept; shared by windows of one kind
  KeptSize(QWidget* window, RememberedState& state, Text name);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool IsWhole() const;
  void Keep();

  QWidget* m_window;
  RememberedState& m_state;
  Text m_name;
  QSize m_known;           // the size that needs no keeping
  bool m_settled = false;  // has been active once
};

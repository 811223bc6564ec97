#pragma once

#include "program/RememberedState.h"

#include <QObject>
#include <QSize>

class QWidget;

/// Lets a window open at the size that its user gave it the last time.
class KeptSize : public QObject {
 public:
  /// Gives `window` the size that is known, as far as the screen and the window's own least size
  /// let it; without one the window stays as it is. To be called when its contents are laid out
  /// and its first size is set, before it is shown.
  /// @param name  by which the size is kept; shared by windows of one kind
  KeptSize(QWidget* window, RememberedState& state, Text name);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Keep();

  QWidget* m_window;
  RememberedState& m_state;
  Text m_name;
  QSize m_known;  // the size that needs no keeping
};

#pragma once

#include <QObject>

class QMenuBar;

/// Escape in a menu of a menu bar gives the keyboard back to the control that had it. By itself the
/// bar would keep it, unseen, until Escape is pressed once more, and what is typed would be lost.
class MenuEscape : public QObject {
  Q_OBJECT

 public:
  /// @param bar  owns this object from now on
  explicit MenuEscape(QMenuBar* bar);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QMenuBar* m_bar;
};

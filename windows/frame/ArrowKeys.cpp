#include "windows/frame/ArrowKeys.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QKeyEvent>

namespace {

bool IsArrow(const QKeyEvent& key) {
  switch (key.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
      return true;
    default:
      return false;
  }
}

bool ChoosesByArrows(const QAbstractButton& button) {
  return button.autoExclusive() || (button.group() != nullptr && button.group()->exclusive());
}

class ArrowKeyFilter : public QObject {
 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || !IsArrow(*static_cast<QKeyEvent*>(event)) ||
        ChoosesByArrows(*static_cast<QAbstractButton*>(watched))) {
      return QObject::eventFilter(watched, event);
    }
    event->ignore();  // so it goes on to the button's window
    return true;
  }
};

}  // namespace

void LeaveArrowKeysToWindow(QAbstractButton* button) {
  // One for all: a child would be announced to filters of windows that are still being made.
  static ArrowKeyFilter filter;
  button->installEventFilter(&filter);
}

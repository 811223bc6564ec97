#include "windows/frame/FocusMove.h"

#include <QFocusEvent>

bool IsFocusMove(const QFocusEvent& event) {
  switch (event.reason()) {
    case Qt::MenuBarFocusReason:
    case Qt::PopupFocusReason:
    case Qt::ActiveWindowFocusReason:
      return false;
    default:
      return true;
  }
}

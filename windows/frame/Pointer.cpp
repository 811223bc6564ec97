#include "windows/frame/Pointer.h"

#include <QCursor>
#include <QGuiApplication>

void SetPointer(PointerShape shape) {
  const bool busy = QGuiApplication::overrideCursor() != nullptr;
  if (shape == PointerShape::Busy && !busy) QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  if (shape == PointerShape::Normal && busy) QGuiApplication::restoreOverrideCursor();
}

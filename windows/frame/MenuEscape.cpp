#include "windows/frame/MenuEscape.h"

#include <QApplication>
#include <QChildEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>

MenuEscape::MenuEscape(QMenuBar* bar) : QObject(bar), m_bar(bar) { bar->installEventFilter(this); }

bool MenuEscape::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_bar) {
    // All menus of a bar are its children; each is polished before it opens for the first time.
    const bool polished = event->type() == QEvent::ChildPolished;
    QObject* const child = polished ? static_cast<QChildEvent*>(event)->child() : nullptr;
    if (qobject_cast<QMenu*>(child) != nullptr) child->installEventFilter(this);
  } else if (auto* const menu = qobject_cast<QMenu*>(watched);
             menu != nullptr && event->type() == QEvent::KeyPress &&
             static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    menu->hide();
    // The bar has the keyboard where the menu was opened through it.
    if (m_bar->hasFocus()) QApplication::sendEvent(m_bar, event);
    return true;
  }
  return QObject::eventFilter(watched, event);
}

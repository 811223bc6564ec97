#include "windows/frame/SharedMnemonics.h"

#include <QAbstractButton>
#include <QAction>
#include <QMenu>
#include <QMenuBar>

QAction* MenuHeadOf(const QWidget& window, const QKeySequence& key) {
  for (const QMenuBar* const bar : window.findChildren<QMenuBar*>()) {
    for (QAction* const head : bar->actions()) {
      const bool opens = head->isVisible() && head->isEnabled();
      if (opens && QKeySequence::mnemonic(head->text()) == key) return head;
    }
  }
  return nullptr;
}

QAbstractButton* OnlyButtonOf(const QWidget& window, const QKeySequence& key) {
  QAbstractButton* only = nullptr;
  for (QAbstractButton* const button : window.findChildren<QAbstractButton*>()) {
    if (!button->isVisible() || !button->isEnabled() || button->shortcut() != key) continue;
    if (only != nullptr) return nullptr;
    only = button;
  }
  return only;
}

void OpenMenuHead(QAction& head) {
  auto* const menu = head.menu<QMenu*>();
  if (menu == nullptr) {
    head.trigger();
    return;
  }
  for (QObject* const object : head.associatedObjects()) {
    if (auto* const bar = qobject_cast<QMenuBar*>(object)) bar->setActiveAction(&head);
  }
  for (QAction* const item : menu->actions()) {
    if (!item->isEnabled() || !item->isVisible() || item->isSeparator()) continue;
    menu->setActiveAction(item);
    return;
  }
}

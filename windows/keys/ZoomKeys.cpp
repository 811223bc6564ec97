#include "windows/keys/ZoomKeys.h"

#include "keys/KeyAssignment.h"
#include "program/Zoom.h"
#include "windows/keys/VirtualKeys.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>

ZoomKeys::ZoomKeys(QMenuBar* bar, RememberedState& state, Text name, int first)
    : QObject(bar),
      m_state(state),
      m_name(std::move(name)),
      m_percent(state.Zoom(m_name).value_or(first)) {
  QMenu* const menu = bar->addMenu(QStringLiteral("&View"));
  menu->setObjectName(QStringLiteral("mnuView"));
  mnuLarger = AddItem(menu, QStringLiteral("mnuLarger"), QStringLiteral("&Larger Text"));
  mnuSmaller = AddItem(menu, QStringLiteral("mnuSmaller"), QStringLiteral("&Smaller Text"));
  mnuExactSize = AddItem(menu, QStringLiteral("mnuExactSize"), QStringLiteral("&Exact Size"));
  // "+" stands beside "=" on many keyboards, where it needs Shift as well.
  mnuLarger->setShortcuts(
      {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal, Qt::CTRL | Qt::SHIFT | Qt::Key_Plus});
  mnuSmaller->setShortcut(Qt::CTRL | Qt::Key_Minus);
  mnuExactSize->setShortcut(Qt::CTRL | Qt::Key_0);
  connect(mnuLarger, &QAction::triggered, this, [this] { Choose(LargerZoom(m_percent)); });
  connect(mnuSmaller, &QAction::triggered, this, [this] { Choose(SmallerZoom(m_percent)); });
  connect(mnuExactSize, &QAction::triggered, this, [this] { Choose(ExactZoom); });
  bar->window()->installEventFilter(this);
  ShowLimits();
}

float ZoomKeys::Factor() const {
  return static_cast<float>(m_percent) / static_cast<float>(ExactZoom);
}

QAction* ZoomKeys::AddItem(QMenu* menu, const QString& name, const QString& caption) {
  QAction* const item = menu->addAction(caption);
  item->setObjectName(name);
  item->setAutoRepeat(false);  // every step is written to the disk
  return item;
}

void ZoomKeys::Choose(int percent) {
  m_state.KeepZoom(m_name, percent);
  if (percent == m_percent) return;
  m_percent = percent;
  ShowLimits();
  emit Changed();
}

void ZoomKeys::ShowLimits() {
  mnuLarger->setEnabled(m_percent < LargestZoom);
  mnuSmaller->setEnabled(m_percent > SmallestZoom);
}

/// Some layouts give the digit row its digits with Shift only, and the shortcut would need it, too.
bool ZoomKeys::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<const QKeyEvent*>(event);
    if (ShiftStateOf(key) == CtrlModifier && !key.isAutoRepeat() && DigitOfKey(key) == 0) {
      mnuExactSize->trigger();
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

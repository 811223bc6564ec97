#include "windows/frame/ZoomKeys.h"

#include "program/Zoom.h"

#include <QAction>
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

#include "windows/frame/KeptSize.h"

#include "windows/frame/FitScreen.h"

#include <QResizeEvent>
#include <QWidget>

KeptSize::KeptSize(QWidget* window, RememberedState& state, Text name)
    : QObject(window), m_window(window), m_state(state), m_name(std::move(name)) {
  if (const std::optional<WindowSize> size = m_state.Size(m_name)) {
    window->resize(QSize(size->width, size->height).expandedTo(window->minimumSizeHint()));
  }
  FitOnScreen(*window);
  m_known = window->size();
  window->installEventFilter(this);
}

bool KeptSize::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_window && event->type() == QEvent::Hide && !event->spontaneous()) Keep();
  if (watched == m_window && event->type() == QEvent::Resize) {
    const auto& resize = *static_cast<QResizeEvent*>(event);
    LeaveOutGrowth(resize.oldSize(), resize.size());
  }
  return QObject::eventFilter(watched, event);
}

/// A window that grows because its contents need more room was not enlarged by anybody.
void KeptSize::LeaveOutGrowth(QSize before, QSize now) {
  const QSize least = m_window->minimumSize();
  if (m_known.width() == before.width() && before.width() < least.width()) {
    m_known.setWidth(now.width());
  }
  if (m_known.height() == before.height() && before.height() < least.height()) {
    m_known.setHeight(now.height());
  }
}

void KeptSize::Keep() {
  const bool whole = m_window->isMaximized() || m_window->isFullScreen();
  const QSize size = whole ? m_window->normalGeometry().size() : m_window->size();
  if (size == m_known || size.isEmpty()) return;
  m_known = size;
  m_state.KeepSize(m_name, {size.width(), size.height()});
}

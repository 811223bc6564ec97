#include "windows/frame/KeptSize.h"

#include <QEvent>
#include <QScreen>
#include <QWidget>

KeptSize::KeptSize(QWidget* window, RememberedState& state, Text name)
    : QObject(window), m_window(window), m_state(state), m_name(std::move(name)) {
  if (const std::optional<WindowSize> size = m_state.Size(m_name)) {
    window->resize(QSize(size->width, size->height)
                       .expandedTo(window->minimumSizeHint())
                       .boundedTo(window->screen()->availableSize()));
  }
  m_known = window->size();
  window->installEventFilter(this);
}

bool KeptSize::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_window && event->type() == QEvent::Hide && !event->spontaneous()) Keep();
  return QObject::eventFilter(watched, event);
}

void KeptSize::Keep() {
  const bool whole = m_window->isMaximized() || m_window->isFullScreen();
  const QSize size = whole ? m_window->normalGeometry().size() : m_window->size();
  if (size == m_known || size.isEmpty()) return;
  m_known = size;
  m_state.KeepSize(m_name, {size.width(), size.height()});
}

#include "windows/frame/KeptSize.h"

#include "windows/frame/FitScreen.h"

#include <QEvent>
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
  if (watched != m_window) return QObject::eventFilter(watched, event);
  switch (event->type()) {
    case QEvent::WindowActivate:
      // What the desktop made of the window on its way to the screen is nobody's wish.
      if (!m_settled) m_known = m_window->size();
      m_settled = true;
      break;
    case QEvent::Resize:
      if (!event->spontaneous() && !IsWhole()) m_known = m_window->size();
      break;
    case QEvent::Hide:
      if (!event->spontaneous()) Keep();
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

bool KeptSize::IsWhole() const { return m_window->isMaximized() || m_window->isFullScreen(); }

void KeptSize::Keep() {
  const QSize size = IsWhole() ? m_window->normalGeometry().size() : m_window->size();
  if (!m_settled || size == m_known || size.isEmpty()) return;
  m_known = size;
  m_state.KeepSize(m_name, {size.width(), size.height()});
}

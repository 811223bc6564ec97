#include "windows/study/HeldInput.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QWidget>

#include <utility>

// The toolkit's way to try a key as a shortcut, which its own test library declares in the same
// words.
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* receiver, ulong timestamp, int key,
                                               Qt::KeyboardModifiers modifiers, const QString& text,
                                               bool repeated, ushort count);

namespace {

bool IsInput(const QObject& receiver, const QEvent& event) {
  switch (event.type()) {
    case QEvent::InputMethod:  // goes to the field itself
      return true;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::NativeGesture:
      // Input comes to a window first, and from there to what is inside.
      return receiver.isWindowType();
    default:
      return false;
  }
}

bool IsKey(const QEvent& event) {
  return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease;
}

/// As the toolkit treats input for a window behind a modal one.
bool IsBlocked(const QObject& receiver) {
  const QWidget* const modal = QApplication::activeModalWidget();
  const auto* const window = qobject_cast<const QWindow*>(&receiver);
  return modal != nullptr && window != nullptr && window != modal->windowHandle() &&
         window->type() != Qt::Popup;
}

}  // namespace

HeldInput::~HeldInput() {
  if (m_filters && qApp != nullptr) qApp->removeEventFilter(this);
}

void HeldInput::Hold(std::function<void()> escape) {
  m_escape = std::move(escape);
  m_holding = true;
  if (!std::exchange(m_filters, true)) qApp->installEventFilter(this);
}

void HeldInput::Release() {
  m_holding = false;
  m_escape = nullptr;
  ReplayLater();
}

bool HeldInput::eventFilter(QObject* watched, QEvent* event) {
  if (event == m_delivered || !IsInput(*watched, *event)) return false;
  if (m_holding ? QApplication::activeModalWidget() != nullptr : m_tryingShortcuts) return false;
  return Keep(watched, event);
}

/// @return true: the event goes no further now
bool HeldInput::Keep(QObject* receiver, QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) {
    event->accept();  // the key press itself comes next
    return true;
  }
  if (m_holding && IsKey(*event)) {
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.key() == Qt::Key_Escape && key.modifiers() == Qt::NoModifier) {
      if (event->type() == QEvent::KeyPress) m_escape();
      return true;
    }
  }
  const bool moves = event->type() == QEvent::MouseMove;
  const bool again = moves && !m_held.empty() && m_held.back().receiver == receiver &&
                     m_held.back().event->type() == QEvent::MouseMove;
  if (again) m_held.pop_back();  // only where the pointer is in the end matters
  if (m_held.size() < Most) {
    m_held.push_back({receiver, std::unique_ptr<QEvent>(event->clone())});
  }
  return true;
}

void HeldInput::ReplayLater() {
  if (m_held.empty()) {
    if (std::exchange(m_filters, false)) qApp->removeEventFilter(this);
  } else {
    QMetaObject::invokeMethod(this, &HeldInput::ReplayOne, Qt::QueuedConnection);
  }
}

/// One at a time, since what it sets off may be waiting for the next one: a message for its answer.
void HeldInput::ReplayOne() {
  if (m_holding || m_held.empty()) return;
  const Held next = std::move(m_held.front());
  m_held.pop_front();
  const bool last = m_held.empty();
  if (!last) ReplayLater();
  if (next.receiver != nullptr && !IsBlocked(*next.receiver)) {
    Deliver(next.receiver, *next.event);
  }
  if (last && !m_holding && m_held.empty()) ReplayLater();
}

void HeldInput::Deliver(QObject* receiver, QEvent& event) {
  if (event.type() == QEvent::KeyPress &&
      IsTakenAsShortcut(receiver, static_cast<const QKeyEvent&>(event))) {
    return;
  }
  const QScopedValueRollback delivered(m_delivered, static_cast<const QEvent*>(&event));
  QCoreApplication::sendEvent(receiver, &event);
}

/// What the toolkit does with a key before a window gets it: a field may claim it, else it may be
/// the shortcut of something.
bool HeldInput::IsTakenAsShortcut(QObject* receiver, const QKeyEvent& key) {
  QKeyEvent claim(QEvent::ShortcutOverride, key.key(), key.modifiers(), key.nativeScanCode(),
                  key.nativeVirtualKey(), key.nativeModifiers(), key.text(), key.isAutoRepeat(),
                  static_cast<ushort>(key.count()));
  const QPointer<QObject> alive(receiver);
  {
    const QScopedValueRollback delivered(m_delivered, static_cast<const QEvent*>(&claim));
    QCoreApplication::sendEvent(receiver, &claim);
  }
  if (alive == nullptr) return true;
  if (claim.isAccepted()) return false;
  const QScopedValueRollback trying(m_tryingShortcuts, true);
  return qt_sendShortcutOverrideEvent(receiver, key.timestamp(), key.key(), key.modifiers(),
                                      key.text(), key.isAutoRepeat(),
                                      static_cast<ushort>(key.count())) ||
         alive == nullptr;
}

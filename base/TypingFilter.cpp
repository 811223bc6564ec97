#include "base/TypingFilter.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>

TypingFilter::TypingFilter(QLineEdit* field, Accepts accepts)
    : QObject(field), m_field(field), m_accepts(std::move(accepts)) {
  field->installEventFilter(this);
}

bool TypingFilter::eventFilter(QObject* watched, QEvent* event) {
  if (m_passing) return QObject::eventFilter(watched, event);
  if (event->type() == QEvent::KeyPress) return FilterKey(static_cast<QKeyEvent*>(event));
  if (event->type() == QEvent::InputMethod) {
    return FilterInputMethod(static_cast<QInputMethodEvent*>(event));
  }
  return QObject::eventFilter(watched, event);
}

bool TypingFilter::FilterKey(QKeyEvent* event) {
  const QString text = event->text();
  if (text.isEmpty() || !text.front().isPrint()) return false;  // Backspace, Enter, Tab, Ctrl+V
  return !m_accepts(m_field->text().size(), text.front());
}

bool TypingFilter::FilterInputMethod(QInputMethodEvent* event) {
  QString accepted;
  for (const QChar typed : event->commitString()) {
    if (m_accepts(m_field->text().size() + accepted.size(), typed)) accepted += typed;
  }
  if (accepted == event->commitString()) return false;
  QInputMethodEvent rest(event->preeditString(), event->attributes());
  rest.setCommitString(accepted, event->replacementStart(), event->replacementLength());
  m_passing = true;
  QCoreApplication::sendEvent(m_field, &rest);
  m_passing = false;
  return true;
}

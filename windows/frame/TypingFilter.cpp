#include "windows/frame/TypingFilter.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>

#include <algorithm>

TypingFilter::TypingFilter(QLineEdit* field, Accepts accepts)
    : QObject(field), m_field(field), m_accepts(std::move(accepts)) {
  field->installEventFilter(this);
}

bool TypingFilter::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && IsDiscarded(*static_cast<QKeyEvent*>(event))) {
    return true;
  }
  if (event->type() == QEvent::InputMethod) Filter(*static_cast<QInputMethodEvent*>(event));
  return QObject::eventFilter(watched, event);
}

bool TypingFilter::IsDiscarded(const QKeyEvent& event) const {
  const QString text = event.text();
  // Backspace, Enter, Tab, Ctrl+V
  if (text.isEmpty() || text.front().category() == QChar::Other_Control) return false;
  return !m_accepts(m_field->text().size(), text.front());
}

/// Takes what is accepted of a text, one character after the other, as from the keyboard.
void TypingFilter::Filter(QInputMethodEvent& event) const {
  const QString typed = event.commitString();
  if (typed.isEmpty()) return;
  const qsizetype held = m_field->text().size();
  const qsizetype replaced = m_field->selectedText().size() + event.replacementLength();
  QString accepted;
  for (qsizetype at = 0; at < typed.size();) {
    const bool pair = typed.at(at).isHighSurrogate() && at + 1 < typed.size();
    const QString character = typed.mid(at, pair ? 2 : 1);
    // The first one takes the place of a selection; it is tested before that.
    const qsizetype length =
        accepted.isEmpty() ? held : std::max<qsizetype>(held - replaced, 0) + accepted.size();
    if (m_accepts(length, character.front())) accepted += character;
    at += character.size();
  }
  if (accepted.isEmpty()) {
    event.setCommitString({});
  } else {
    event.setCommitString(accepted, event.replacementStart(), event.replacementLength());
  }
}

#pragma once

#include <QObject>

#include <functional>

class QInputMethodEvent;
class QKeyEvent;
class QLineEdit;

/// Discards typed characters of a one-line field, whether they come from the keyboard, a dead key
/// or an input method. Backspace, Delete, shortcuts, pasted and set texts pass.
class TypingFilter : public QObject {
  Q_OBJECT

 public:
  /// @param length  characters in the field before this one, a selection included
  /// @param typed   the first unit of the character; its two units are taken or discarded together
  using Accepts = std::function<bool(qsizetype length, QChar typed)>;

  TypingFilter(QLineEdit* field, Accepts accepts);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool IsDiscarded(const QKeyEvent& event) const;
  void Filter(QInputMethodEvent& event) const;

  QLineEdit* m_field;
  Accepts m_accepts;
};

#pragma once

#include "keys/KeyTable.h"

#include <QObject>
#include <QString>

#include <optional>

class QFocusEvent;
class QInputMethodEvent;
class QKeyEvent;
class QLineEdit;
class QPlainTextEdit;
class QWidget;

/// Makes a text box a card text field: the topic's key assignments type their characters, Enter
/// types nothing, and typing ends at a limit. Pasted text is not limited, and undo works as ever.
///
/// Enter goes on to the window, where it presses the OK button if the window has one.
class CardField : public QObject {
  Q_OBJECT

 public:
  static constexpr std::size_t DefaultTypingLimit = 256;

  /// @param edit  a QLineEdit or a QPlainTextEdit, which owns this object from now on. Tab leaves
  ///              both.
  /// @param keys  looked up at every keystroke; must live as long as `edit`
  CardField(QWidget* edit, const KeyTable& keys);

  QWidget* Edit() const { return m_edit; }

  /// The text as memory holds it, with line breaks CR LF. Unlike the box's own plain text it keeps
  /// the no-break space (code 160).
  Text Content() const;
  /// Shows a text of memory. It is no typing: there is no limit, and nothing to undo.
  void SetContent(TextView text);

  /// Characters cannot be typed while the field holds `limit` or more, not even over a selection.
  void SetTypingLimit(std::size_t limit) { m_limit = limit; }

  /// Types the character of a code, literally and under the same rules as from the keyboard: it
  /// replaces a selection, and a full field takes nothing. 8 is Backspace; the other codes below 32
  /// type nothing.
  void Type(CharCode code);

 signals:
  /// The focus came from, or went to, another control of the window. Opening a menu, a picker or
  /// another window sends neither.
  void GotFocus();
  void LostFocus();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  /// What was selected in a one-line box.
  struct Selection {
    QString text;
    int start = 0;
    int length = 0;
    bool caretAtStart = false;
  };

  bool IsWritable() const;
  bool IsFull() const { return Content().size() >= m_limit; }
  std::size_t SelectionStart() const;
  std::size_t SelectionLength() const;
  void InsertAtSelectionStart(char16_t character);

  bool ClaimsShortcut(const QKeyEvent& event) const;
  bool FilterKey(QKeyEvent& event);
  bool Translate(const QKeyEvent& event);
  bool FilterInput(QInputMethodEvent& event) const;

  void FocusIn();
  void FocusOut(const QFocusEvent& event);
  void FocusMoved(const QWidget* now);
  void LoseFocus();
  void RememberSelection();
  void RestoreSelection();

  QWidget* m_edit;
  QLineEdit* m_line;  // one of the two is null
  QPlainTextEdit* m_page;
  const KeyTable& m_keys;
  std::size_t m_limit = DefaultTypingLimit;
  bool m_focused = false;
  std::optional<Selection> m_selection;  // while a menu has borrowed the focus
};

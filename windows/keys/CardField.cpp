#include "windows/keys/CardField.h"

#include "keys/KeyTranslation.h"
#include "windows/frame/FocusMove.h"
#include "windows/frame/QtText.h"
#include "windows/keys/VirtualKeys.h"

#include <QApplication>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTextBlock>

#include <algorithm>

namespace {

constexpr auto Backspace = CharCode{8};
constexpr auto Blank = CharCode{32};  // the first code of a character that can be typed

/// Whether a text box would type the text of this keystroke.
bool TypesText(const QKeyEvent& event) {
  if (event.text().isEmpty()) return false;
  if (event.text().at(0).category() == QChar::Other_Control) return false;
  const Qt::KeyboardModifiers modifiers = event.modifiers();
  return modifiers != Qt::ControlModifier && modifiers != (Qt::ControlModifier | Qt::ShiftModifier);
}

bool IsLineBreak(QChar unit) {
  return unit == u'\n' || unit == QChar::ParagraphSeparator || unit == QChar::LineSeparator;
}

/// The document's text with LF for its line breaks. QPlainTextEdit::toPlainText() would turn a
/// no-break space into a blank.
QString ShownText(const QPlainTextEdit& page) {
  QString text = page.document()->toRawText();
  std::replace_if(text.begin(), text.end(), IsLineBreak, u'\n');
  return text;
}

std::size_t NextCharacter(TextView text, std::size_t at) {
  const bool pair = at + 1 < text.size() && QChar::isHighSurrogate(text[at]) &&
                    QChar::isLowSurrogate(text[at + 1]);
  return at + (pair ? 2 : 1);
}

}  // namespace

CardField::CardField(QWidget* edit, const KeyTable& keys)
    : QObject(edit),
      m_edit(edit),
      m_line(qobject_cast<QLineEdit*>(edit)),
      m_page(qobject_cast<QPlainTextEdit*>(edit)),
      m_keys(keys),
      m_focused(edit->hasFocus()) {
  if (m_line == nullptr && m_page == nullptr) throw Fault(FileStatus::InvalidCall);
  if (m_page != nullptr) m_page->setTabChangesFocus(true);
  m_edit->installEventFilter(this);
  connect(qApp, &QApplication::focusChanged, this,
          [this](const QWidget*, const QWidget* now) { FocusMoved(now); });
}

Text CardField::Content() const {
  return m_line != nullptr ? ToText(m_line->text()) : FromShownText(ShownText(*m_page));
}

void CardField::SetContent(TextView text) {
  if (m_line != nullptr) {
    m_line->setText(ToQString(text));
  } else {
    m_page->setPlainText(ToShownText(text));
  }
}

bool CardField::IsWritable() const {
  return m_edit->isEnabled() && !(m_line != nullptr ? m_line->isReadOnly() : m_page->isReadOnly());
}

std::size_t CardField::SelectionStart() const {
  if (m_line != nullptr) {
    return static_cast<std::size_t>(m_line->hasSelectedText() ? m_line->selectionStart()
                                                              : m_line->cursorPosition());
  }
  return FromShownText(ShownText(*m_page).left(m_page->textCursor().selectionStart())).size();
}

std::size_t CardField::SelectionLength() const {
  if (m_line != nullptr) return static_cast<std::size_t>(m_line->selectedText().size());
  const QTextCursor cursor = m_page->textCursor();
  const qsizetype start = cursor.selectionStart();
  return FromShownText(ShownText(*m_page).mid(start, cursor.selectionEnd() - start)).size();
}

void CardField::InsertAtSelectionStart(char16_t character) {
  // As an edit of the box itself, so that it can be undone.
  if (m_line != nullptr) {
    m_line->setCursorPosition(static_cast<int>(SelectionStart()));
    m_line->insert(QChar(character));
    return;
  }
  QTextCursor cursor = m_page->textCursor();
  cursor.setPosition(cursor.selectionStart());
  cursor.insertText(QChar(character));
  m_page->setTextCursor(cursor);
}

void CardField::Type(CharCode code) {
  if (!IsWritable()) return;
  if (code == Backspace) {
    if (m_line != nullptr) {
      m_line->backspace();
    } else {
      m_page->textCursor().deletePreviousChar();
    }
    return;
  }
  if (code < Blank || IsFull()) return;
  const QString character(QChar(CharOfCode(code)));
  if (m_line != nullptr) {
    m_line->insert(character);
  } else {
    m_page->insertPlainText(character);
  }
}

bool CardField::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      if (!ClaimsShortcut(*static_cast<QKeyEvent*>(event))) break;
      event->accept();
      return true;
    case QEvent::KeyPress:
      if (FilterKey(*static_cast<QKeyEvent*>(event))) return true;
      break;
    case QEvent::InputMethod:
      if (FilterInput(*static_cast<QInputMethodEvent*>(event))) return true;
      break;
    case QEvent::FocusIn:
      FocusIn();
      break;
    case QEvent::FocusOut:
      FocusOut(*static_cast<QFocusEvent*>(event));
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

/// An assigned keystroke beats menus, mnemonics and the box's own shortcuts, also where its
/// modifiers differ: then it does nothing at all.
bool CardField::ClaimsShortcut(const QKeyEvent& event) const {
  if (!IsWritable()) return false;
  FieldContent nowhere;
  Int16 keyCode = VirtualKeyOf(event);
  if (keyCode == 0) return false;
  TranslateKeyDown(m_keys, nowhere, keyCode, ShiftStateOf(event));
  return keyCode == 0;
}

bool CardField::FilterKey(QKeyEvent& event) {
  event.accept();
  if (IsWritable() && Translate(event)) return true;
  if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) {
    event.ignore();  // for the window
    return true;
  }
  if (!TypesText(event)) return false;
  // Alt with a letter is a mnemonic, and where none has taken it, it types nothing.
  const bool mnemonic = (ShiftStateOf(event) & AltModifier) != 0;
  return mnemonic || IsFull();
}

bool CardField::Translate(const QKeyEvent& event) {
  Int16 keyCode = VirtualKeyOf(event);
  if (keyCode == 0) return false;
  FieldContent field{Content(), SelectionStart()};
  if (TranslateKeyDown(m_keys, field, keyCode, ShiftStateOf(event))) {
    InsertAtSelectionStart(field.text.at(field.SelStart - 1));
  }
  return keyCode == 0;
}

/// Lets an input method's text in as far as there is room: one character after the other, as from
/// the keyboard.
/// @return true when the field must not see the event
bool CardField::FilterInput(QInputMethodEvent& event) const {
  Text typed = ToText(event.commitString());
  std::erase_if(typed, [](char16_t unit) { return unit == u'\r' || unit == u'\n'; });
  const bool changes = !event.commitString().isEmpty();
  if (IsFull()) {
    // Composing would take the selection away.
    if (!event.preeditString().isEmpty()) return true;
    if (changes) event.setCommitString({});
    return false;
  }
  const std::size_t held = Content().size();
  const auto replaced = static_cast<std::size_t>(std::max(event.replacementLength(), 0));
  const std::size_t kept = held - std::min(held, SelectionLength() + replaced);
  std::size_t end = 0;
  while (end < typed.size() && (end == 0 || kept + end < m_limit)) {
    end = NextCharacter(typed, end);
  }
  if (changes) {
    event.setCommitString(ToQString(TextView(typed).substr(0, end)), event.replacementStart(),
                          event.replacementLength());
  }
  return false;
}

void CardField::FocusIn() {
  if (m_focused) {
    RestoreSelection();
    return;
  }
  m_focused = true;
  emit GotFocus();
}

void CardField::FocusOut(const QFocusEvent& event) {
  if (!IsFocusMove(event)) {
    RememberSelection();
  } else if (m_focused) {
    LoseFocus();
  }
}

/// The focus can be given to another control while a menu or another window has it.
void CardField::FocusMoved(const QWidget* now) {
  const bool elsewhere = now != nullptr && now != m_edit && now->window() == m_edit->window() &&
                         qobject_cast<const QMenuBar*>(now) == nullptr;
  if (m_focused && elsewhere) LoseFocus();
}

void CardField::LoseFocus() {
  m_focused = false;
  m_selection.reset();
  emit LostFocus();
}

/// A one-line box drops its selection when the menu bar takes the focus; a character that the menu
/// types is to replace it, though.
void CardField::RememberSelection() {
  if (m_line == nullptr || !m_line->hasSelectedText()) return;
  const int start = m_line->selectionStart();
  const auto length = static_cast<int>(m_line->selectedText().size());
  m_selection = Selection{m_line->text(), start, length, m_line->cursorPosition() == start};
}

void CardField::RestoreSelection() {
  if (m_selection && m_line->text() == m_selection->text && !m_line->hasSelectedText()) {
    const int end = m_selection->start + m_selection->length;
    if (m_selection->caretAtStart) {
      m_line->setSelection(end, -m_selection->length);
    } else {
      m_line->setSelection(m_selection->start, m_selection->length);
    }
  }
  m_selection.reset();
}

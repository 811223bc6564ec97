#include "windows/authoring/CardTextBox.h"

#include <QMimeData>

#include <algorithm>

namespace {

/// The longest word, in characters, that is moved to the next line in one piece. To break a longer
/// one the toolkit would look at the whole of it for every line.
constexpr int LongestWord = 500;

bool HasLongWord(const QString& text) {
  int length = 0;
  return std::any_of(text.begin(), text.end(), [&length](QChar unit) {
    length = unit.isSpace() ? 0 : length + 1;
    return length > LongestWord;
  });
}

}  // namespace

CardTextBox::CardTextBox(QWidget* owner) : QPlainTextEdit(owner) {
  // Sent before what was typed or pasted is laid out.
  connect(document(), &QTextDocument::contentsChange, this, &CardTextBox::ChooseWrapping);
  ChooseWrapping();
}

void CardTextBox::ChooseWrapping() {
  // A box that is filled anew is emptied first, and lays the new text out before it tells of it.
  const bool anywhere = document()->isEmpty() || HasLongWord(document()->toRawText());
  setWordWrapMode(anywhere ? QTextOption::WrapAnywhere : QTextOption::WrapAtWordBoundaryOrAnywhere);
}

QSize CardTextBox::minimumSizeHint() const {
  constexpr int Lines = 2;
  const auto margins = static_cast<int>(2 * document()->documentMargin());
  return {QPlainTextEdit::minimumSizeHint().width(),
          Lines * fontMetrics().lineSpacing() + margins + 2 * frameWidth()};
}

void CardTextBox::SelectFirst(QChar character) {
  const QString text = document()->toRawText();
  const auto start = static_cast<int>(text.indexOf(character));
  if (start < 0) return;
  int end = start;
  while (end < text.size() && text.at(end) == character) ++end;
  QTextCursor cursor = textCursor();
  cursor.setPosition(start);
  cursor.setPosition(end, QTextCursor::KeepAnchor);
  setTextCursor(cursor);
}

QString CardTextBox::SelectedText() const {
  const QTextCursor cursor = textCursor();
  const int start = cursor.selectionStart();
  QString text = document()->toRawText().mid(start, cursor.selectionEnd() - start);
  text.replace(QChar::ParagraphSeparator, u'\n');
  return text.replace(QChar::LineSeparator, u'\n');
}

void CardTextBox::ReplaceSelection(const QString& text) {
  textCursor().insertText(text);
  ensureCursorVisible();
}

QMimeData* CardTextBox::createMimeDataFromSelection() const {
  auto* const copied = new QMimeData;
  copied->setText(SelectedText());
  return copied;
}

#include "authoring/CardTextBox.h"

#include <QMimeData>

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

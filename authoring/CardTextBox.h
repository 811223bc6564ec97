#pragma once

#include <QPlainTextEdit>

/// The text box of a card's side. What is copied from it is plain text to the letter, with LF for
/// line breaks; QPlainTextEdit would copy blanks for no-break spaces (code 160), and marked-up text
/// beside it.
class CardTextBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  using QPlainTextEdit::QPlainTextEdit;

  QString SelectedText() const;
  void ReplaceSelection(const QString& text);

 protected:
  QMimeData* createMimeDataFromSelection() const override;
};

#pragma once

#include <QPlainTextEdit>

/// The text box of a card's side. It asks for two lines of its font, and stays quick with any text
/// that is pasted.
///
/// What is copied from it is plain text to the letter, with LF for
/// line breaks; QPlainTextEdit would copy blanks for no-break spaces (code 160), and marked-up text
/// beside it.
class CardTextBox : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit CardTextBox(QWidget* owner);

  QString SelectedText() const;
  void ReplaceSelection(const QString& text);
  /// Selects the first place where a character stands, once or several times in a row, and shows
  /// it.
  void SelectFirst(QChar character);

  QSize sizeHint() const override { return minimumSizeHint(); }
  QSize minimumSizeHint() const override;

 protected:
  QMimeData* createMimeDataFromSelection() const override;

 private:
  void ChooseWrapping();
};

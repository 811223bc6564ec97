#pragma once

#include <QListWidget>

/// A list of characters, one an entry; a typed character selects its own entry. The toolkit's
/// search would take either letter case, and Space for the current entry. A letter that is
/// composed, with a dead key or by an input method, counts as typed. A character that leaves no
/// mark is shown by its name.
class CharacterList : public QListWidget {
  Q_OBJECT

 public:
  explicit CharacterList(QWidget* owner);

  void keyboardSearch(const QString& search) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
};

#include "windows/keys/CharacterList.h"

#include "keys/KeyPickers.h"
#include "windows/frame/QtText.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QStyledItemDelegate>

namespace {

/// Writes the name of a character that leaves no mark.
class CharacterDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    constexpr int Padding = 4;
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, Padding);
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const QString text = index.data().toString();
    const auto code = text.isEmpty() ? std::nullopt : CodeOfChar(text.front().unicode());
    if (!code || InvisibleName(*code).empty()) return;
    option->text = ToQString(InvisibleName(*code));
    option->font = QApplication::font();
  }
};

}  // namespace

CharacterList::CharacterList(QWidget* owner) : QListWidget(owner) {
  setItemDelegate(new CharacterDelegate(this));
}

void CharacterList::keyboardSearch(const QString& search) {
  constexpr char16_t Delete = 127;
  if (search.isEmpty() || search.front() < u' ' || search.front() == Delete) return;
  const QList<QListWidgetItem*> found = findItems(search.left(1), Qt::MatchExactly);
  if (!found.isEmpty()) setCurrentItem(found.front());
}

void CharacterList::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier) {
    keyboardSearch(QStringLiteral(" "));
  } else {
    QListWidget::keyPressEvent(event);
  }
}

void CharacterList::focusInEvent(QFocusEvent* event) {
  QListWidget::focusInEvent(event);
  // The toolkit makes the first entry the current one without selecting it, and Down would then
  // pass over it.
  if (selectedItems().isEmpty()) setCurrentRow(-1);
  setAttribute(Qt::WA_InputMethodEnabled);
}

// The toolkit composes letters only for entries that can be edited.
void CharacterList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QListWidget::currentChanged(current, previous);
  setAttribute(Qt::WA_InputMethodEnabled);
}

void CharacterList::inputMethodEvent(QInputMethodEvent* event) {
  keyboardSearch(event->commitString());
  event->accept();
}

#include "windows/stacks/NameList.h"

#include "base/Paths.h"
#include "windows/frame/QtText.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>

namespace {

/// An item shows its name on one line; this is the name itself.
Text NameOf(const QListWidgetItem& item) { return ToText(item.data(Qt::UserRole).toString()); }

}  // namespace

NameList::NameList(QWidget* owner) : QListWidget(owner) {
  const auto choose = [this] {
    const QList<QListWidgetItem*> chosen = selectedItems();
    if (!chosen.isEmpty()) emit Chosen(NameOf(*chosen.first()));
  };
  connect(this, &QListWidget::itemSelectionChanged, this, choose);
  connect(this, &QListWidget::itemClicked, this, choose);  // of a chosen one as well
  connect(this, &QListWidget::itemDoubleClicked, this,
          [this](const QListWidgetItem* item) { emit Confirmed(NameOf(*item)); });
}

void NameList::SetNames(const std::vector<Text>& names) {
  const QSignalBlocker quiet(this);
  clear();
  for (const Text& name : names) {
    auto* const item = new QListWidgetItem(ToQString(ShownName(name)), this);
    item->setData(Qt::UserRole, ToQString(name));
  }
  Unchoose();
}

void NameList::Unchoose() {
  clearSelection();
  // Said outright: a list that was never told where it is makes its first row the current one as
  // soon as it has the focus, and Enter would act on that.
  setCurrentIndex({});
}

void NameList::Choose(TextView name) {
  const QSignalBlocker quiet(this);
  for (int row = 0; row < count(); ++row) {
    if (NameOf(*item(row)) == name) setCurrentRow(row);
  }
}

void NameList::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!enter) return QListWidget::keyPressEvent(event);
  if (currentItem() == nullptr) return event->ignore();  // it is the window's
  emit Confirmed(NameOf(*currentItem()));
}

void NameList::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return mousePressEvent(event);
  QListWidget::mouseDoubleClickEvent(event);
}

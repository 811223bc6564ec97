#include "windows/authoring/EditMenu.h"

#include "windows/authoring/CardTextBox.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>

namespace {

QString SelectedText(QWidget* box) {
  if (const auto* const line = qobject_cast<QLineEdit*>(box)) return line->selectedText();
  return qobject_cast<CardTextBox*>(box)->SelectedText();
}

void ReplaceSelection(QWidget* box, const QString& text) {
  if (auto* const line = qobject_cast<QLineEdit*>(box)) {
    line->insert(text);
  } else {
    qobject_cast<CardTextBox*>(box)->ReplaceSelection(text);
  }
}

}  // namespace

EditMenu::EditMenu(QMenuBar* bar)
    : QObject(bar),
      m_window(bar->window()),
      mnuEdit(bar->addMenu(QStringLiteral("&Edit"))),
      mnuCut(AddItem(QStringLiteral("mnuCut"), QStringLiteral("Cu&t"))),
      mnuCopy(AddItem(QStringLiteral("mnuCopy"), QStringLiteral("&Copy"))),
      mnuPaste(AddItem(QStringLiteral("mnuPaste"), QStringLiteral("&Paste"))) {
  mnuEdit->setObjectName(QStringLiteral("mnuEdit"));
  connect(mnuEdit, &QMenu::aboutToShow, this, &EditMenu::mnuEdit_Click);
  connect(mnuCut, &QAction::triggered, this, &EditMenu::mnuCut_Click);
  connect(mnuCopy, &QAction::triggered, this, &EditMenu::mnuCopy_Click);
  connect(mnuPaste, &QAction::triggered, this, &EditMenu::mnuPaste_Click);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    const bool ours = now != nullptr && now->window() == m_window;
    if (ours && qobject_cast<QMenuBar*>(now) == nullptr) m_focused = now;
  });
}

QAction* EditMenu::AddItem(const QString& name, const QString& caption) {
  QAction* const item = mnuEdit->addAction(caption);
  item->setObjectName(name);
  return item;
}

QWidget* EditMenu::TextBox() const {
  const bool isTextBox = qobject_cast<QLineEdit*>(m_focused) != nullptr ||
                         qobject_cast<CardTextBox*>(m_focused) != nullptr;
  return isTextBox ? m_focused.data() : nullptr;
}

void EditMenu::mnuEdit_Click() {
  QWidget* const box = TextBox();
  const bool selected = box != nullptr && !SelectedText(box).isEmpty();
  mnuCut->setEnabled(selected);
  mnuCopy->setEnabled(selected);
  mnuPaste->setEnabled(box != nullptr);
}

void EditMenu::mnuCut_Click() {
  mnuCopy_Click();
  if (QWidget* const box = TextBox()) ReplaceSelection(box, QString());
}

void EditMenu::mnuCopy_Click() {
  // The selection's length is not looked at: without a selection the clipboard ends up empty.
  if (QWidget* const box = TextBox()) QApplication::clipboard()->setText(SelectedText(box));
}

void EditMenu::mnuPaste_Click() {
  if (QWidget* const box = TextBox()) ReplaceSelection(box, QApplication::clipboard()->text());
}

#pragma once

#include <QObject>
#include <QPointer>

class QAction;
class QMenuBar;
class QWidget;

/// The menu "Edit" of a window with card fields: Cut, Copy and Paste for the text box of the window
/// that has the focus. A menu or another window only borrows the focus.
class EditMenu : public QObject {
  Q_OBJECT

 public:
  /// @param bar  the window's menu bar; owns this object from now on
  explicit EditMenu(QMenuBar* bar);

 private:
  QWidget* TextBox() const;
  QAction* AddItem(const QString& name, const QString& caption);

  void mnuEdit_Click();
  void mnuCut_Click();
  void mnuCopy_Click();
  void mnuPaste_Click();

  QWidget* m_window;
  QPointer<QWidget> m_focused;
  class QMenu* mnuEdit;
  QAction* mnuCut;
  QAction* mnuCopy;
  QAction* mnuPaste;
};

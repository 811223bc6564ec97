#pragma once

#include "program/Platform.h"
#include "program/SharedState.h"

#include <QDialog>

#include <initializer_list>
#include <utility>

class QAction;
class QMenu;
class QMenuBar;
class QPushButton;

enum class UnloadCause { CloseBox, Code };

/// What all windows have in common: the shared state, a name, centring, the pointer, help, and one
/// way of closing. Of what QDialog does by itself it keeps nothing: Escape presses the window's
/// Cancel button if it has one, Enter the button that has the focus, else the window's OK button if
/// it has one.
class Form : public QDialog {
  Q_OBJECT

 public:
  ~Form() override;

  /// Shows the window and returns when it is closed.
  void ShowModal();

  /// Closes the window by the program's own code.
  void Unload();

 protected:
  Form(const char* name, SharedState& shared, Platform& platform, QWidget* owner);

  /// Makes a control under its given name.
  template <class Control, class... Arguments>
  Control* Add(const QString& name, Arguments&&... arguments) {
    auto* const control = new Control(std::forward<Arguments>(arguments)..., this);
    control->setObjectName(name);
    TameControl(control);
    return control;
  }

  QMenuBar* AddMenuBar();
  /// Adds a menu item, or an entry of the menu bar itself.
  QAction* AddItem(QWidget* menu, const QString& name, const QString& caption);
  QMenu* AddMenu(QMenuBar* bar, const QString& name, const QString& caption);
  /// The Help entry of a window's menu bar, which F1 runs too.
  QAction* AddHelp(QMenuBar* bar, HelpContext context);

  /// The order in which Tab visits the controls.
  static void SetTabOrder(std::initializer_list<QWidget*> controls);

  void SetOkButton(QPushButton* button);
  void SetCancelButton(QPushButton* button) { m_cancelButton = button; }

  /// The name by which the window's size is kept from run to run; empty for one that opens in the
  /// size of its contents each time.
  virtual Text SizeName() const { return {}; }

  /// Asked before the window closes; false keeps it open.
  virtual bool Form_QueryUnload(UnloadCause) { return true; }
  virtual void Form_Unload() {}
  virtual void Form_Activate() {}
  virtual void Form_Deactivate() {}

  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void reject() override {}  // QDialog would call it for Escape and for the close box

  SharedState& m_shared;
  Platform& m_platform;

 private:
  void TameControl(QWidget* control);

  QPushButton* m_okButton = nullptr;
  QPushButton* m_cancelButton = nullptr;
  bool m_unloading = false;
  bool m_centred = false;
};

#pragma once

#include "tests/window/WindowFixture.h"
#include "windows/stacks/frmDesc.h"
#include "windows/stacks/frmLoad.h"

#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>

/// What the tests of the create window and of the card editor share.
class AuthoringTest : public WindowTest {
 protected:
  AuthoringTest() {
    files.Put(SettingsPath,
              "[TOPICS]\r\nDEFAULT=0\r\n0=General\r\n1=Spanish\r\n2=Russian\r\n"
              "[General]\r\nFRONTFONT=MS Sans Serif\r\nFRONTSIZE=8.25\r\n"
              "BACKFONT=MS Sans Serif\r\nBACKSIZE=8.25\r\n"
              "[Spanish]\r\nFRONTFONT=MS Sans Serif\r\nFRONTSIZE=10\r\n"
              "BACKFONT=MS Sans Serif\r\nBACKSIZE=12.5\r\nKEYS=12E\xE9"
              "22O\xF3\r\n"
              "[Russian]\r\nFRONTFONT=Liberation Serif\r\nFRONTSIZE=14\r\n"
              "BACKFONT=MS Sans Serif\r\nBACKSIZE=9\r\nKEYS=36N\xF1\r\n");
    LoadTopicList(shared.Topics, profile);
    UseTopic(0);
  }

  void UseTopic(int topic) { SelectTopic(shared.Topics, shared.Topic, profile, topic); }

  static QPlainTextEdit& Box(QObject& window, const char* name) {
    return Find<QPlainTextEdit>(window, name);
  }
  static QLineEdit& Line(QObject& window, const char* name) {
    return Find<QLineEdit>(window, name);
  }
  static QString Shown(QObject& window, const char* name) {
    return Box(window, name).toPlainText();
  }

  /// Puts the focus into a field as a click does, and types.
  static void Type(QObject& window, const char* name, const QString& text) {
    auto& field = Find<QWidget>(window, name);
    field.setFocus(Qt::MouseFocusReason);
    QTest::keyClicks(&field, text);
  }
  /// Selects all of a field and types over it.
  static void Retype(QObject& window, const char* name, const QString& text) {
    auto& field = Find<QWidget>(window, name);
    field.setFocus(Qt::MouseFocusReason);
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, text);
  }
  static void Paste(QObject& window, const char* name, const QString& text) {
    QApplication::clipboard()->setText(text);
    auto& field = Find<QWidget>(window, name);
    field.setFocus(Qt::MouseFocusReason);
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
  }

  static QPushButton& Button(QObject& window, const char* name) {
    return Find<QPushButton>(window, name);
  }

  /// Opens a menu of the menu bar with the mouse.
  static QMenu& OpenMenu(QWidget& window, const char* head) {
    auto& bar = *window.findChild<QMenuBar*>();
    for (QAction* const action : bar.actions()) {
      auto* const menu = action->menu<QMenu*>();
      const bool named = action->objectName() == QLatin1String(head) ||
                         (menu != nullptr && menu->objectName() == QLatin1String(head));
      if (!named) continue;
      QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(action).center());
      if (menu == nullptr) break;
      EXPECT_TRUE(menu->isVisible()) << head;
      return *menu;
    }
    throw std::runtime_error(std::string("no menu ") + head);
  }
  static void CloseMenu(QWidget& window, QMenu& menu) {
    QTest::keyClick(&menu, Qt::Key_Escape);
    auto& bar = *window.findChild<QMenuBar*>();
    if (bar.hasFocus()) QTest::keyClick(&bar, Qt::Key_Escape);
  }
  static void Choose(QWidget& window, const char* head, const char* item) {
    QMenu& menu = OpenMenu(window, head);
    for (QAction* const action : menu.actions()) {
      if (action->objectName() != QLatin1String(item)) continue;
      QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
      return;
    }
    throw std::runtime_error(std::string("no item ") + item);
  }

  /// A window manager gives a window its activity back when a dialog over it closes; the offscreen
  /// platform does not.
  static void Reactivate(QWidget& window) {
    window.activateWindow();
    WaitUntilActive(window);
  }

  static bool IsPointerNormal() { return QApplication::overrideCursor() == nullptr; }

  static QString Clipboard() { return QApplication::clipboard()->text(); }

  /// Answers the save dialog that `open` brings up, with a name.
  static void SaveAs(const std::function<void()>& open, const QString& name) {
    WithModal<frmLoad>(open, [&](frmLoad& dialog) {
      EXPECT_EQ(dialog.windowTitle(), "Save Stack of Cards");
      auto& box = Find<QLineEdit>(dialog, "txtActFile");
      box.setText(name);
      Click(dialog, "cmdOK");
      if (dialog.isVisible()) Click(dialog, "cmdCancel");
    });
  }
  static void CancelSave(const std::function<void()>& open) {
    WithModal<frmLoad>(open, [](frmLoad& dialog) { Click(dialog, "cmdCancel"); });
  }
};

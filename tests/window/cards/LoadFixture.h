#pragma once

#include "tests/window/WindowFixture.h"
#include "windows/stacks/frmDesc.h"
#include "windows/stacks/frmLoad.h"

#include <QLineEdit>
#include <QListWidget>

inline constexpr auto TwoCards = "General\r\nAnimals\r\ndog  \r\nperro  \r\ncat  \r\ngato  \r\n";

/// The stack file dialog over a folder of two stacks, a text file and a folder.
class frmLoadTest : public WindowTest {
 protected:
  frmLoadTest() {
    shared.Topics.Names[0] = u"General";
    shared.Topics.TopicCount = 0;
    files.Put(u"/cards/animals.QBC", TwoCards);
    files.Put(u"/cards/import.qbs", "[WinQuib]\r\nQ1=house\r\nA1=Haus\r\n");
    files.Put(u"/cards/notes.txt", "no stack");
    files.Put(u"/cards/more/plants.QBC", TwoCards);
  }

  void WithDialog(FileDialogMode mode, const std::function<void(frmLoad&)>& act) {
    shared.Switches.FileDialogMode = mode;
    WithModal<frmLoad>([this] { frmLoad(shared, platform, nullptr).ShowModal(); },
                       [&](frmLoad& window) {
                         act(window);
                         if (window.isVisible()) Click(window, "cmdCancel");
                       });
  }

  /// Presses OK in the mode that asks for a description, and OK or Cancel there.
  static void SaveNew(frmLoad& window, const QString& description, const char* button = "cmdOK") {
    WithModal<frmDesc>([&] { Click(window, "cmdOK"); },
                       [&](frmDesc& asked) {
                         EXPECT_EQ(asked.windowTitle(), "Enter File Description");
                         EXPECT_EQ(Find<QLineEdit>(asked, "txtDesc").text(), "");
                         QTest::keyClicks(&Find<QLineEdit>(asked, "txtDesc"), description);
                         Click(asked, button);
                       });
  }

  static void TypeName(frmLoad& window, const QString& name) {
    auto& box = Find<QLineEdit>(window, "txtActFile");
    box.clear();
    QTest::keyClicks(&box, name);
  }

  static QStringList ItemsOf(QObject& window, const char* name) {
    const auto& list = Find<QListWidget>(window, name);
    QStringList items;
    for (int i = 0; i < list.count(); ++i) items << list.item(i)->text();
    return items;
  }

  static void ClickItem(QObject& window, const char* name, const QString& text,
                        bool twice = false) {
    auto& list = Find<QListWidget>(window, name);
    const QPoint place = list.visualItemRect(list.findItems(text, Qt::MatchExactly).at(0)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
    if (twice) QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
  }
};

#include "base/Paths.h"
#include "tests/window/cards/LoadFixture.h"
#include "windows/frame/ElidedLabel.h"
#include "windows/frame/ToolTips.h"
#include "windows/stacks/NameList.h"

#include <QComboBox>
#include <QDir>
#include <QProxyStyle>

namespace {

/// The lists of the dialog and its name box, used by keys and clicks.
class frmLoadListsTest : public frmLoadTest {
 protected:
  frmLoadListsTest() { files.Put(u"/cards/bees.QBC", TwoCards); }

  static QLineEdit& Box(QObject& window) { return Find<QLineEdit>(window, "txtActFile"); }
  static NameList& Stacks(QObject& window) { return Find<NameList>(window, "filStack"); }
  static NameList& Folders(QObject& window) { return Find<NameList>(window, "dirDirectory"); }

  /// Keys as the keyboard sends them: to what has the focus.
  static void Press(QWidget& window, std::initializer_list<Qt::Key> keys) {
    for (const Qt::Key key : keys) {
      QTest::keyClick(window.focusWidget(), key,
                      key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
    }
  }
};

TEST_F(frmLoadListsTest, TheFocusChoosesNoFileHoweverItComes) {
  LoadStack(u"zebra", 1);
  const std::function<void(frmLoad&)> ways[] = {
      [](frmLoad& window) { Press(window, {Qt::Key_Tab}); },
      [](frmLoad& window) {
        Press(window, {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Backtab});
      },
      [](frmLoad& window) { Stacks(window).setFocus(Qt::ShortcutFocusReason); },
      [](frmLoad& window) { Stacks(window).setFocus(Qt::OtherFocusReason); },
      [](frmLoad& window) {
        Stacks(window).setFocus();
        Stacks(window).clearFocus();
        Stacks(window).setFocus(Qt::ActiveWindowFocusReason);
      },
      [](frmLoad& window) {
        Stacks(window).setFocus();
        ClickItem(window, "dirDirectory", "more", true);
        Stacks(window).setFocus(Qt::TabFocusReason);
        ClickItem(window, "dirDirectory", "..", true);
        Stacks(window).setFocus(Qt::BacktabFocusReason);
      },
  };
  for (const auto& way : ways) {
    WithDialog(FileDialogMode::SaveEdited, [&](frmLoad& window) {
      way(window);
      EXPECT_TRUE(Stacks(window).hasFocus());
      EXPECT_EQ(Box(window).text(), "zebra.QBC");
      EXPECT_EQ(Stacks(window).currentItem(), nullptr);
    });
  }
}

TEST_F(frmLoadListsTest, TabbingThroughSavesUnderTheProposedName) {
  LoadStack(u"zebra", 1);
  WithDialog(FileDialogMode::SaveEdited, [](frmLoad& window) {
    Press(window, {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return});
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shared.Stacks.Current().StackName, u"zebra");
  ASSERT_NE(shared.Stacks.StackFileNumber, nullptr);
  shared.Stacks.StackFileNumber->Abandon();
  EXPECT_TRUE(files.Has(u"/cards/zebra.QBC"));
  EXPECT_EQ(files.Content(u"/cards/animals.QBC"), TwoCards);
}

TEST_F(frmLoadListsTest, EnterWithoutARowIsOkForTheNameInTheBox) {
  LoadStack(u"zebra", 1);
  WithDialog(FileDialogMode::SaveEdited, [](frmLoad& window) {
    Press(window, {Qt::Key_Tab, Qt::Key_Return});
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shared.Stacks.Current().StackName, u"zebra");
}

TEST_F(frmLoadListsTest, ArrowKeysAndTypingChoose) {
  WithDialog(FileDialogMode::Delete, [](frmLoad& window) {
    Press(window, {Qt::Key_Tab, Qt::Key_Down});
    EXPECT_EQ(Box(window).text(), "animals.QBC");
    Press(window, {Qt::Key_Down});
    EXPECT_EQ(Box(window).text(), "bees.QBC");
    Press(window, {Qt::Key_End});
    EXPECT_EQ(Box(window).text(), "import.qbs");
    Press(window, {Qt::Key_Home});
    EXPECT_EQ(Box(window).text(), "animals.QBC");
    QTest::keyClicks(&Stacks(window), "b");
    EXPECT_EQ(Box(window).text(), "bees.QBC");
  });
}

TEST_F(frmLoadListsTest, EnterConfirmsTheRowThatTheKeysChose) {
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    Press(window, {Qt::Key_Tab, Qt::Key_Down, Qt::Key_Down, Qt::Key_Enter});
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shared.Stacks.StackCount, 0);
  EXPECT_EQ(shared.Stacks.Current().StackName, u"bees");
}

TEST_F(frmLoadListsTest, ANameTypedAfterAChoiceIsTheOneThatEnterTakes) {
  LoadStack(u"", 1);
  WithDialog(FileDialogMode::SaveNew, [](frmLoad& window) {
    ClickItem(window, "filStack", "animals.QBC");
    TypeName(window, "zebra");
    EXPECT_EQ(Stacks(window).currentItem(), nullptr);
    Press(window, {Qt::Key_Tab});
    EXPECT_EQ(Box(window).text(), "zebra");
    WithModal<frmDesc>([&] { Press(window, {Qt::Key_Return}); },
                       [](frmDesc& asked) { Click(asked, "cmdOK"); });
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_TRUE(files.Has(u"/cards/zebra.QBC"));
  EXPECT_EQ(files.Content(u"/cards/animals.QBC"), TwoCards);
}

TEST_F(frmLoadListsTest, AChosenFileIsChosenAgainByAClick) {
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    ClickItem(window, "filStack", "bees.QBC");
    TypeName(window, "other");
    ClickItem(window, "filStack", "bees.QBC");
    EXPECT_EQ(Box(window).text(), "bees.QBC");
  });
}

/// As on a desktop that opens with one click.
class OneClickStyle : public QProxyStyle {
 public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    return hint == SH_ItemView_ActivateItemOnSingleClick
               ? 1
               : QProxyStyle::styleHint(hint, option, widget, data);
  }
};

TEST_F(frmLoadListsTest, OneClickConfirmsNothingWhereOneClickOpens) {
  OneClickStyle style;
  WithDialog(FileDialogMode::Load, [&](frmLoad& window) {
    Stacks(window).setStyle(&style);
    Folders(window).setStyle(&style);
    ClickItem(window, "filStack", "animals.QBC");
    ClickItem(window, "dirDirectory", "more");
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(Box(window).text(), "animals.QBC");
    EXPECT_EQ(ItemsOf(window, "filStack").size(), 3);
    ClickItem(window, "filStack", "animals.QBC", true);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(shared.Stacks.StackCount, 0);
}

TEST_F(frmLoadListsTest, ADoubleClickOfTheRightButtonConfirmsNothing) {
  WithDialog(FileDialogMode::Load, [&](frmLoad& window) {
    const QPoint first = Stacks(window).visualItemRect(Stacks(window).item(0)).center();
    QTest::mouseClick(Stacks(window).viewport(), Qt::RightButton, {}, first);
    QTest::mouseDClick(Stacks(window).viewport(), Qt::RightButton, {}, first);
    EXPECT_TRUE(window.isVisible());
  });
}

TEST_F(frmLoadListsTest, GoingUpMarksTheFolderThatWasLeft) {
  files.Put(u"/cards/late/plants.QBC", TwoCards);
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    ClickItem(window, "dirDirectory", "more", true);
    EXPECT_EQ(Folders(window).currentItem()->text(), "..");
    Press(window, {Qt::Key_Return});
    EXPECT_EQ(Folders(window).currentItem()->text(), "more");
  });
}

TEST_F(frmLoadListsTest, ABreakInThePastedNameEndsItAtOnce) {
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    Box(window).insert("animals.QBC\nbees.QBC");
    EXPECT_EQ(Box(window).text(), "animals.QBC");
  });
}

TEST_F(frmLoadListsTest, BlanksAroundATypedNameAreNoPartOfIt) {
  LoadStack(u"", 1);
  WithDialog(FileDialogMode::SaveNew, [](frmLoad& window) {
    TypeName(window, "  verbs  ");
    SaveNew(window, "");
  });
  EXPECT_TRUE(files.Has(u"/cards/verbs.QBC"));
  for (const char* const blank : {" ", "    ", "more/  "}) {
    WithDialog(FileDialogMode::SaveNew, [&](frmLoad& window) {
      TypeName(window, blank);
      Click(window, "cmdOK");
      EXPECT_TRUE(window.isVisible());
      EXPECT_TRUE(Box(window).hasFocus());
    });
  }
}

TEST_F(frmLoadListsTest, AnOddNameOnDiskIsShownOnOneLineAndTakenAsItIs) {
  for (const Text& name : {Text(u"two\nlines.QBC"), Text(u" blank.QBC"), Text(u"<b>x<b>.QBC"),
                           Text(u"R&D.QBC"), Text(u"tab\there.QBC"), Text(u"x.QB ")}) {
    files.Put(u"/odd/" + name, TwoCards);
    shared.Switches.DefaultFolder = u"/odd";
    WithDialog(FileDialogMode::Load, [&](frmLoad& window) {
      const QString shown = ToQString(ShownName(name));
      EXPECT_EQ(ItemsOf(window, "filStack"), QStringList{shown});
      ClickItem(window, "filStack", shown);
      EXPECT_EQ(Box(window).text(), shown);
      Click(window, "cmdOK");
      EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(shared.Stacks.Current().StackName, name.substr(0, name.find(u'.')));
    prompts.Expect(Answer::Yes);
    WithDialog(FileDialogMode::Delete, [&](frmLoad& window) {
      ClickItem(window, "filStack", ToQString(ShownName(name)));
      Click(window, "cmdOK");
    });
    EXPECT_EQ(prompts.shown.back().text, u"Delete /odd/" + ShownName(name) + u"\r\nAre you sure?");
    EXPECT_FALSE(files.Has(u"/odd/" + name));
  }
}

TEST_F(frmLoadListsTest, TheFolderIsCutOnTheLeftAndPlainInItsToolTip) {
  const Text folder = u"/<b>long</b>/" + Text(300, u'x') + u"/end";
  files.Put(folder + u"/a.QBC", TwoCards);
  shared.Switches.DefaultFolder = folder;
  WithDialog(FileDialogMode::Load, [&](frmLoad& window) {
    auto& label = Find<ElidedLabel>(window, "lblFolder");
    EXPECT_EQ(label.text(), ToQString(folder));
    EXPECT_EQ(SilentToolTip(label), ToQString(folder));
    EXPECT_EQ(label.toolTip(), "") << "it would be read out";
    EXPECT_LT(window.width(), 1000);
    // The end is what is drawn: another beginning changes no pixel, another end does.
    const QImage drawn = label.grab().toImage();
    label.setText("/other" + label.text());
    EXPECT_EQ(label.grab().toImage(), drawn);
    label.setText(label.text().chopped(1) + "m");
    EXPECT_NE(label.grab().toImage(), drawn);
  });
}

TEST_F(frmLoadListsTest, PlacesShowsWhereTheFolderLies) {
  const Text home = ToText(QDir::homePath());
  files.Put(home + u"/stacks/a.QBC", TwoCards);
  shared.Switches.DefaultFolder = home + u"/stacks";
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    auto& places = Find<QComboBox>(window, "drvDrives");
    EXPECT_EQ(places.currentText(), "Home");
    ClickItem(window, "dirDirectory", "..", true);
    EXPECT_EQ(places.currentText(), "Home");
    places.setCurrentIndex(places.findText("File system"));
    emit places.activated(places.currentIndex());
    EXPECT_EQ(places.currentText(), "File system");
  });
}

TEST_F(frmLoadListsTest, APlaceThatCannotBeOpenedIsNotShown) {
  prompts.Expect(Answer::Ok);
  const Text home = ToText(QDir::homePath());
  files.Put(u"/elsewhere/a.QBC", TwoCards);
  shared.Switches.DefaultFolder = u"/elsewhere";
  WithDialog(FileDialogMode::Load, [](frmLoad& window) {
    auto& places = Find<QComboBox>(window, "drvDrives");
    places.setCurrentIndex(places.findText("Home"));
    emit places.activated(places.currentIndex());
    EXPECT_EQ(places.currentText(), "File system");
    EXPECT_EQ(TextOf(window, "lblFolder"), "/elsewhere");
  });
}

}  // namespace

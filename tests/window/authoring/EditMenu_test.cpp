#include "windows/authoring/EditMenu.h"

#include "tests/window/authoring/AuthoringFixture.h"
#include "windows/authoring/frmCreate.h"

#include <QMimeData>

namespace {

/// The menu in the create window, which has text boxes of both kinds and buttons.
class EditMenuTest : public AuthoringTest {
 protected:
  EditMenuTest() { QApplication::clipboard()->setText("clip"); }

  void WithWindow(const std::function<void(frmCreate&)>& act) {
    WithModal<frmCreate>([this] { frmCreate(shared, platform, nullptr).ShowModal(); },
                         [&](frmCreate& window) {
                           act(window);
                           window.close();
                         });
  }

  static void Select(frmCreate& window, const char* name, int start, int length) {
    if (auto* const line = window.findChild<QLineEdit*>(QLatin1String(name))) {
      line->setSelection(start, length);
      return;
    }
    QTextCursor cursor = Box(window, name).textCursor();
    cursor.setPosition(start);
    cursor.setPosition(start + length, QTextCursor::KeepAnchor);
    Box(window, name).setTextCursor(cursor);
  }

  static QString TextIn(frmCreate& window, const char* name) {
    auto* const line = window.findChild<QLineEdit*>(QLatin1String(name));
    return line != nullptr ? line->text() : Box(window, name).document()->toRawText();
  }

  /// Which of Cut, Copy and Paste the opened menu offers.
  static std::vector<bool> Offered(frmCreate& window) {
    QMenu& menu = OpenMenu(window, "mnuEdit");
    std::vector<bool> enabled;
    for (const char* const item : {"mnuCut", "mnuCopy", "mnuPaste"}) {
      enabled.push_back(Find<QAction>(window, item).isEnabled());
    }
    CloseMenu(window, menu);
    return enabled;
  }

  static constexpr std::array Fields = {"txtFront", "txtFrontWave", "txtFrontPicture",
                                        "txtBack",  "txtBackWave",  "txtBackPicture"};
};

TEST_F(EditMenuTest, HasThreeItems) {
  WithWindow([](frmCreate& window) {
    QStringList captions;
    for (const QAction* const item : Find<QMenu>(window, "mnuEdit").actions()) {
      captions << item->text();
    }
    EXPECT_EQ(captions, QStringList({"Cu&t", "&Copy", "&Paste"}));
  });
}

TEST_F(EditMenuTest, WithoutASelectionOnlyPasteIsOffered) {
  WithWindow([](frmCreate& window) {
    for (const char* const name : Fields) {
      Type(window, name, "abc");
      EXPECT_EQ(Offered(window), std::vector({false, false, true})) << name;
    }
  });
}

TEST_F(EditMenuTest, WithASelectionAllAreOffered) {
  WithWindow([](frmCreate& window) {
    for (const char* const name : Fields) {
      Type(window, name, "abc");
      Select(window, name, 1, 1);
      EXPECT_EQ(Offered(window), std::vector({true, true, true})) << name;
    }
  });
}

TEST_F(EditMenuTest, PasteIsOfferedWithAnEmptyClipboard) {
  QApplication::clipboard()->clear();
  WithWindow([](frmCreate& window) {
    Type(window, "txtFront", "abc");
    EXPECT_EQ(Offered(window), std::vector({false, false, true}));
  });
}

TEST_F(EditMenuTest, WithTheFocusOnAButtonNothingIsOfferedAndNothingHappens) {
  WithWindow([](frmCreate& window) {
    Type(window, "txtFront", "abc");
    Select(window, "txtFront", 0, 3);
    Button(window, "cmdCanc").setFocus();
    EXPECT_EQ(Offered(window), std::vector({false, false, false}));
    for (const char* const item : {"mnuCut", "mnuCopy", "mnuPaste"}) {
      auto& action = Find<QAction>(window, item);
      action.setEnabled(true);
      action.trigger();
    }
    EXPECT_EQ(TextIn(window, "txtFront"), "abc");
    EXPECT_EQ(Clipboard(), "clip");
  });
}

TEST_F(EditMenuTest, CutCopyAndPasteMoveTheSelectedText) {
  WithWindow([](frmCreate& window) {
    for (const char* const name : Fields) {
      Type(window, name, "abcd");
      Select(window, name, 1, 2);
      Choose(window, "mnuEdit", "mnuCopy");
      EXPECT_EQ(Clipboard(), "bc") << name;
      EXPECT_EQ(TextIn(window, name), "abcd") << name;
      Select(window, name, 0, 2);
      Choose(window, "mnuEdit", "mnuCut");
      EXPECT_EQ(Clipboard(), "ab") << name;
      EXPECT_EQ(TextIn(window, name), "cd") << name;
      Select(window, name, 1, 1);
      Choose(window, "mnuEdit", "mnuPaste");
      EXPECT_EQ(TextIn(window, name), "cab") << name;
      EXPECT_TRUE(Find<QWidget>(window, name).hasFocus()) << name;
    }
  });
}

TEST_F(EditMenuTest, WorksFromTheKeyboardToo) {
  WithWindow([](frmCreate& window) {
    for (const char* const name : Fields) {
      Type(window, name, "abcd");
      Select(window, name, 1, 2);
      QTest::keyClick(&window, Qt::Key_E, Qt::AltModifier);
      auto& menu = Find<QMenu>(window, "mnuEdit");
      ASSERT_TRUE(menu.isVisible()) << name;
      QTest::keyClick(&menu, Qt::Key_T);
      EXPECT_EQ(Clipboard(), "bc") << name;
      EXPECT_EQ(TextIn(window, name), "ad") << name;
    }
  });
}

TEST_F(EditMenuTest, APasteReplacesTheSelectionAndCanBeUndone) {
  WithWindow([](frmCreate& window) {
    for (const char* const name : Fields) {
      Type(window, name, "abcd");
      Select(window, name, 1, 2);
      Choose(window, "mnuEdit", "mnuPaste");
      EXPECT_EQ(TextIn(window, name), "aclipd") << name;
      QTest::keyClick(&Find<QWidget>(window, name), Qt::Key_Z, Qt::ControlModifier);
      EXPECT_EQ(TextIn(window, name), "abcd") << name;
    }
  });
}

TEST_F(EditMenuTest, AnEmptyClipboardReplacesTheSelectionByNothing) {
  QApplication::clipboard()->clear();
  WithWindow([](frmCreate& window) {
    for (const char* const name : Fields) {
      Type(window, name, "abcd");
      Select(window, name, 1, 2);
      Choose(window, "mnuEdit", "mnuPaste");
      EXPECT_EQ(TextIn(window, name), "ad") << name;
    }
  });
}

TEST_F(EditMenuTest, CopyingWithoutASelectionEmptiesTheClipboard) {
  WithWindow([](frmCreate& window) {
    Type(window, "txtFront", "abcd");
    Find<QAction>(window, "mnuCopy").trigger();
    EXPECT_EQ(Clipboard(), "");
  });
}

TEST_F(EditMenuTest, CopiesAreToTheLetterWithLfForLineBreaks) {
  const QString text = QStringLiteral(u"  a\u00A0b\nc  \u65E5\U0001F600 <b>");
  WithWindow([&](frmCreate& window) {
    Paste(window, "txtFront", text);
    const auto select = [&] { Box(window, "txtFront").selectAll(); };
    select();
    Choose(window, "mnuEdit", "mnuCopy");
    EXPECT_EQ(Clipboard(), text);
    QApplication::clipboard()->clear();
    QTest::keyClick(&Box(window, "txtFront"), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), text);
    EXPECT_EQ(QApplication::clipboard()->mimeData()->formats(), QStringList("text/plain"));
    select();
    Choose(window, "mnuEdit", "mnuCut");
    EXPECT_EQ(Clipboard(), text);
    EXPECT_EQ(TextIn(window, "txtFront"), "");
    Choose(window, "mnuEdit", "mnuPaste");
    QTest::keyClick(&Box(window, "txtFront"), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&Box(window, "txtFront"), Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(Clipboard(), text);
  });
}

TEST_F(EditMenuTest, PastingIsNotLimitedAndTakesNoMarkup) {
  WithWindow([](frmCreate& window) {
    auto* const rich = new QMimeData;
    rich->setHtml("<b>x</b>");
    rich->setText(QString(70'000, u'x'));
    QApplication::clipboard()->setMimeData(rich);
    Box(window, "txtFront").setFocus();
    Choose(window, "mnuEdit", "mnuPaste");
    EXPECT_EQ(TextIn(window, "txtFront").size(), 70'000);
    EXPECT_EQ(TextIn(window, "txtFront").count('x'), 70'000);
  });
}

TEST_F(EditMenuTest, APasteIntoAOneLineFieldEndsAtTheLineBreak) {
  QApplication::clipboard()->setText("one.wav\r\ntwo.wav");
  WithWindow([](frmCreate& window) {
    Type(window, "txtBackWave", "ab");
    Select(window, "txtBackWave", 1, 1);
    Choose(window, "mnuEdit", "mnuPaste");
    EXPECT_EQ(TextIn(window, "txtBackWave"), "aone.wav");
  });
}

TEST_F(EditMenuTest, AnotherWindowOnlyBorrowsTheFocus) {
  WithWindow([](frmCreate& window) {
    Type(window, "txtFront", "abc");
    Box(window, "txtFront").selectAll();
    QDialog other(&window);
    other.setModal(true);
    other.show();
    WaitUntilActive(other);
    other.close();
    Reactivate(window);
    Choose(window, "mnuEdit", "mnuCut");
    EXPECT_EQ(Clipboard(), "abc");
  });
}

}  // namespace

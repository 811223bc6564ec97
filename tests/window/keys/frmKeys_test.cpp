#include "windows/keys/frmKeys.h"

#include "tests/window/WindowFixture.h"
#include "windows/keys/frmMoreKeys.h"

#include <QGroupBox>
#include <QScrollBar>

namespace {

constexpr CharCode Code(int number) { return static_cast<CharCode>(number); }

class frmKeysTest : public WindowTest {
 protected:
  frmKeysTest() { shared.Switches.KeyCodeToSend = -1; }

  /// One assignment for each side mark of `sides`: 'a' on Ctrl+A, 'b' on Ctrl+B...
  void Assign(std::string_view sides) {
    KeyTable& keys = shared.Topic.Keys;
    for (const char side : sides) {
      ++keys.KeyCount;
      keys.Slots.at(static_cast<std::size_t>(keys.KeyCount)) = {
          Code(side), Code('2'), Code('A' + keys.KeyCount - 1), Code('a' + keys.KeyCount - 1)};
    }
  }

  void WithPicker(const std::function<void(frmKeys&)>& act) {
    WithModal<frmKeys>([this] { frmKeys(shared, platform, nullptr, shared.Topic).ShowModal(); },
                       act);
  }

  static QLabel& Cell(frmKeys& picker, int column, int row) {
    return Find<QLabel>(picker, qPrintable(QStringLiteral("lblCol%1(%2)").arg(column).arg(row)));
  }
  static void ClickRow(frmKeys& picker, int row) {
    QTest::mouseClick(&Cell(picker, 1, row), Qt::LeftButton);
  }
  static bool IsHighlighted(frmKeys& picker, int row) {
    return Cell(picker, 1, row).backgroundRole() == QPalette::Highlight &&
           Cell(picker, 2, row).backgroundRole() == QPalette::Highlight &&
           Cell(picker, 1, row).foregroundRole() == QPalette::HighlightedText;
  }
  /// The characters of the five rows, "-" for a blank one, and "*" behind the highlighted one.
  static QString Rows(frmKeys& picker) {
    QString rows;
    for (int row = 0; row < 5; ++row) {
      const QString character = Cell(picker, 1, row).text();
      rows += character.isEmpty() ? QStringLiteral("-") : character;
      if (IsHighlighted(picker, row)) rows += u'*';
    }
    return rows;
  }
  static QScrollBar& Bar(frmKeys& picker) { return Find<QScrollBar>(picker, "vsbBar"); }
};

TEST_F(frmKeysTest, ShowsItsCaptions) {
  WithPicker([](frmKeys& picker) {
    EXPECT_EQ(Find<QGroupBox>(picker, "sspKeyAss").title(), "Key Assignments:");
    EXPECT_EQ(Find<QAbstractButton>(picker, "cmdSend").text(), "Send");
    EXPECT_EQ(Find<QAbstractButton>(picker, "cmdMore").text(), "More...");
    EXPECT_EQ(Find<QAbstractButton>(picker, "cmdCanc").text(), "Cancel");
    EXPECT_EQ(Find<QWidget>(picker, "sspCol1").backgroundRole(), QPalette::Base);
    EXPECT_EQ(Find<QWidget>(picker, "sspCol2").backgroundRole(), QPalette::Base);
    Click(picker, "cmdCanc");
  });
}

TEST_F(frmKeysTest, OpensOnTheFirstRowsWithoutAHighlight) {
  Assign("333");
  WithPicker([](frmKeys& picker) {
    EXPECT_EQ(Rows(picker), "abc--");
    EXPECT_EQ(Cell(picker, 2, 0).text(), "Ctrl+A");
    EXPECT_EQ(Cell(picker, 2, 3).text(), "");
    EXPECT_FALSE(IsEnabled(picker, "cmdSend"));
    Click(picker, "cmdCanc");
  });
}

TEST_F(frmKeysTest, ShowsCharactersInTheirSidesFontAndSize) {
  Assign("123");
  shared.Topic.Fonts = {u"Liberation Serif", 14, u"Liberation Mono", 18};
  frmKeys picker(shared, platform, nullptr, shared.Topic);
  EXPECT_EQ(Cell(picker, 1, 0).font().family(), "Liberation Serif");
  EXPECT_EQ(Cell(picker, 1, 0).font().pointSizeF(), 14);
  EXPECT_EQ(Cell(picker, 1, 1).font().family(), "Liberation Mono");
  EXPECT_EQ(Cell(picker, 1, 1).font().pointSizeF(), 18);
  EXPECT_EQ(Cell(picker, 1, 2).font().family(), "MS Sans Serif");
  EXPECT_EQ(Cell(picker, 1, 2).font().pointSizeF(), 8.25);
}

TEST_F(frmKeysTest, ShowsTheCharacterOfEveryCode) {
  Assign("3");
  for (int code = 1; code < 256; ++code) {
    shared.Topic.Keys.Slots[1].character = Code(code);
    frmKeys picker(shared, platform, nullptr, shared.Topic);
    const QString expected = IsControlCode(Code(code)) ? ToQString(InvisibleName(Code(code)))
                                                       : QString(QChar(CharOfCode(Code(code))));
    EXPECT_EQ(Cell(picker, 1, 0).text(), expected) << code;
    ClickRow(picker, 0);
    Click(picker, "cmdSend");
    EXPECT_EQ(shared.Switches.KeyCodeToSend, code);
  }
}

TEST_F(frmKeysTest, OnlyRowsOfTheRequestedSideAndOfBothAreEnabled) {
  Assign("123");
  for (const auto& [request, front, back] : {std::tuple(-1, true, false), {-2, false, true}}) {
    shared.Switches.KeyCodeToSend = request;
    frmKeys picker(shared, platform, nullptr, shared.Topic);
    EXPECT_EQ(Cell(picker, 1, 0).isEnabled(), front);
    EXPECT_EQ(Cell(picker, 2, 1).isEnabled(), back);
    EXPECT_TRUE(Cell(picker, 1, 2).isEnabled());
    EXPECT_FALSE(Cell(picker, 1, 3).isEnabled());
  }
}

TEST_F(frmKeysTest, AClickHighlightsARowAndNoOther) {
  Assign("333");
  WithPicker([](frmKeys& picker) {
    ClickRow(picker, 1);
    EXPECT_EQ(Rows(picker), "ab*c--");
    EXPECT_TRUE(IsEnabled(picker, "cmdSend"));
    QTest::mouseClick(&Cell(picker, 2, 2), Qt::LeftButton);
    EXPECT_EQ(Rows(picker), "abc*--");
    Click(picker, "cmdCanc");
  });
}

TEST_F(frmKeysTest, BlankRowsAndRowsOfTheOtherSideCannotBeChosen) {
  Assign("32");
  WithPicker([](frmKeys& picker) {
    ClickRow(picker, 1);
    ClickRow(picker, 3);
    QTest::mouseDClick(&Cell(picker, 1, 1), Qt::LeftButton);
    EXPECT_TRUE(picker.isVisible());
    EXPECT_EQ(Rows(picker), "ab---");
    EXPECT_FALSE(IsEnabled(picker, "cmdSend"));
    Click(picker, "cmdCanc");
  });
}

TEST_F(frmKeysTest, SendHandsOnTheCharacter) {
  Assign("333");
  WithPicker([](frmKeys& picker) {
    ClickRow(picker, 1);
    Click(picker, "cmdSend");
  });
  EXPECT_EQ(shared.Switches.KeyCodeToSend, 'b');
}

TEST_F(frmKeysTest, ADoubleClickSends) {
  Assign("333");
  WithPicker([](frmKeys& picker) { QTest::mouseDClick(&Cell(picker, 2, 2), Qt::LeftButton); });
  EXPECT_EQ(shared.Switches.KeyCodeToSend, 'c');
}

TEST_F(frmKeysTest, CancelLeavesTheRequest) {
  Assign("333");
  for (const int request : {-1, -2}) {
    shared.Switches.KeyCodeToSend = request;
    WithPicker([](frmKeys& picker) {
      ClickRow(picker, 1);
      Click(picker, "cmdCanc");
    });
    WithPicker([](frmKeys& picker) { QTest::keyClick(&picker, Qt::Key_Escape); });
    WithPicker([](frmKeys& picker) { picker.close(); });
    EXPECT_EQ(shared.Switches.KeyCodeToSend, request);
  }
}

TEST_F(frmKeysTest, TheScrollBarNeverGoesBelowOne) {
  for (int count = 0; count <= 30; ++count) {
    shared.Topic.Keys.KeyCount = count;
    frmKeys picker(shared, platform, nullptr, shared.Topic);
    EXPECT_EQ(picker.ScrollMaximum(), count - 4);
    EXPECT_EQ(Bar(picker).minimum(), 1);
    EXPECT_EQ(Bar(picker).maximum(), std::max(1, count - 4));
    EXPECT_EQ(Bar(picker).value(), 1);
    EXPECT_EQ(Bar(picker).isEnabled(), count > 1);
  }
}

TEST_F(frmKeysTest, ScrollingShowsTheRowsFromTheNewSlot) {
  Assign("33333333");
  WithPicker([](frmKeys& picker) {
    Bar(picker).setValue(4);
    EXPECT_EQ(Rows(picker), "defgh");
    Click(picker, "cmdCanc");
  });
}

TEST_F(frmKeysTest, TheHighlightStaysOnItsRowWhileThatCanBeChosen) {
  Assign("3333333");
  WithPicker([](frmKeys& picker) {
    ClickRow(picker, 1);
    Bar(picker).setValue(2);
    EXPECT_EQ(Rows(picker), "bc*def");
    Click(picker, "cmdSend");
  });
  EXPECT_EQ(shared.Switches.KeyCodeToSend, 'c');
}

TEST_F(frmKeysTest, TheHighlightGoesWhereARowOfTheOtherSideComesUnderIt) {
  Assign("332333");
  WithPicker([](frmKeys& picker) {
    ClickRow(picker, 1);
    Bar(picker).setValue(2);
    EXPECT_EQ(Rows(picker), "bcdef");
    EXPECT_FALSE(IsEnabled(picker, "cmdSend"));
    Bar(picker).setValue(1);
    EXPECT_EQ(Rows(picker), "abcde");
    Click(picker, "cmdCanc");
  });
}

TEST_F(frmKeysTest, ArrowsMoveOverTheRowsThatCanBeChosen) {
  Assign("321333");
  WithPicker([](frmKeys& picker) {
    const auto press = [&](Qt::Key key) {
      QTest::keyClick(picker.focusWidget(), key);
      return Rows(picker);
    };
    EXPECT_EQ(press(Qt::Key_Down), "a*bcde");
    EXPECT_EQ(press(Qt::Key_Up), "a*bcde");
    EXPECT_EQ(press(Qt::Key_Down), "abc*de");
    EXPECT_EQ(press(Qt::Key_End), "bcdef*");
    EXPECT_EQ(press(Qt::Key_Down), "bcdef*");
    EXPECT_EQ(press(Qt::Key_Home), "a*bcde");
    EXPECT_EQ(press(Qt::Key_PageDown), "bcdef*");
    EXPECT_EQ(press(Qt::Key_PageUp), "a*bcde");
    Click(picker, "cmdCanc");
  });
}

TEST_F(frmKeysTest, TheFocusCanBeSeen) {
  Assign("33");
  WithPicker([](frmKeys& picker) {
    auto& rows = Find<QWidget>(picker, "sspRows");
    const QImage focused = rows.grab().toImage();
    Find<QWidget>(picker, "cmdCanc").setFocus();
    EXPECT_NE(rows.grab().toImage(), focused);
    Click(picker, "cmdCanc");
  });
}

TEST_F(frmKeysTest, TellsAScreenReaderWhatIsHighlighted) {
  Assign("33");
  WithPicker([](frmKeys& picker) {
    const auto& rows = Find<QWidget>(picker, "sspRows");
    EXPECT_TRUE(rows.hasFocus());
    QTest::keyClick(picker.focusWidget(), Qt::Key_End);
    EXPECT_EQ(rows.accessibleDescription(), "b = Ctrl+B");
    Click(picker, "cmdCanc");
  });
}

TEST_F(frmKeysTest, EnterSendsWhatIsHighlightedOnly) {
  Assign("33");
  WithPicker([](frmKeys& picker) {
    QTest::keyClick(picker.focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(picker.isVisible());
    QTest::keyClick(picker.focusWidget(), Qt::Key_Down);
    QTest::keyClick(picker.focusWidget(), Qt::Key_Return);
  });
  EXPECT_EQ(shared.Switches.KeyCodeToSend, 'a');
}

TEST_F(frmKeysTest, WithoutAssignmentsTheKeysDoNothing) {
  WithPicker([](frmKeys& picker) {
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End, Qt::Key_PageDown,
                              Qt::Key_PageUp, Qt::Key_Return}) {
      QTest::keyClick(&picker, key);
    }
    EXPECT_EQ(Rows(picker), "-----");
    Click(picker, "cmdCanc");
  });
}

TEST_F(frmKeysTest, AChoiceInTheCodeChartClosesThePickerToo) {
  shared.Switches.KeyCodeToSend = -2;
  shared.Topic.Fonts.BackFont = u"Liberation Serif";
  WithPicker([](frmKeys& picker) {
    WithModal<frmMoreKeys>([&] { Click(picker, "cmdMore"); },
                           [](frmMoreKeys& chart) {
                             EXPECT_EQ(chart.windowTitle(), "More Keys - Liberation Serif");
                             QTest::keyClick(&chart, Qt::Key_End);
                             Click(chart, "cmdSend");
                           });
    EXPECT_FALSE(picker.isVisible());
  });
  EXPECT_EQ(shared.Switches.KeyCodeToSend, 31);
}

TEST_F(frmKeysTest, ACancelledCodeChartLeavesThePickerOpen) {
  WithPicker([](frmKeys& picker) {
    WithModal<frmMoreKeys>([&] { Click(picker, "cmdMore"); },
                           [](frmMoreKeys& chart) { Click(chart, "cmdCancel"); });
    EXPECT_TRUE(picker.isVisible());
    Click(picker, "cmdCanc");
  });
  EXPECT_EQ(shared.Switches.KeyCodeToSend, -1);
}

TEST_F(frmKeysTest, HelpAsksForItsPage) {
  WithPicker([](frmKeys& picker) {
    Find<QAction>(picker, "mnuHelp").trigger();
    Click(picker, "cmdCanc");
  });
  EXPECT_EQ(help.contexts, std::vector{HelpContext::Keys});
}

}  // namespace

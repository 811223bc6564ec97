#include "windows/keys/frmMoreKeys.h"

#include "keys/KeyPickers.h"
#include "tests/window/WindowFixture.h"
#include "windows/frame/ToolTips.h"

#include <QFrame>
#include <QScrollBar>

namespace {

class frmMoreKeysTest : public WindowTest {
 protected:
  frmMoreKeysTest() { shared.Switches.KeyCodeToSend = -1; }

  void WithChart(const std::function<void(frmMoreKeys&)>& act) {
    WithModal<frmMoreKeys>(
        [this] { frmMoreKeys(shared, platform, nullptr, shared.Topic.Fonts).ShowModal(); }, act);
  }

  static QLabel& Key(frmMoreKeys& chart, int index) {
    return Find<QLabel>(chart, qPrintable(QStringLiteral("lblKey(%1)").arg(index)));
  }
  static QFrame& Panel(frmMoreKeys& chart, int index) {
    return Find<QFrame>(chart, qPrintable(QStringLiteral("sspKey(%1)").arg(index)));
  }
  static void ClickKey(frmMoreKeys& chart, int index) {
    QTest::mouseClick(&Key(chart, index), Qt::LeftButton);
  }
  static void TurnTo(frmMoreKeys& chart, int page) {
    Find<QScrollBar>(chart, "hsbBar").setValue(page);
  }
  static bool IsRaised(frmMoreKeys& chart, int index) {
    return Panel(chart, index).frameShadow() == QFrame::Raised;
  }
  /// What the chart would send, without a change of the shared state.
  static QString Status(frmMoreKeys& chart) { return TextOf(chart, "sspStatus"); }
};

TEST_F(frmMoreKeysTest, OpensOnTheFirstKeyOfTheFirstPage) {
  WithChart([](frmMoreKeys& chart) {
    EXPECT_EQ(chart.windowTitle(), "More Keys - MS Sans Serif");
    EXPECT_EQ(TextOf(chart, "sspRange"), "Codes 0 - 31");
    EXPECT_EQ(Status(chart), "Code - 0000");
    EXPECT_TRUE(IsRaised(chart, 0));
    EXPECT_TRUE(IsEnabled(chart, "cmdSend"));
    EXPECT_TRUE(Panel(chart, 0).hasFocus());
    EXPECT_EQ(Find<QAbstractButton>(chart, "cmdSend").text(), "&Send Key");
    EXPECT_EQ(Find<QAbstractButton>(chart, "cmdCancel").text(), "&Cancel");
    Click(chart, "cmdCancel");
  });
}

TEST_F(frmMoreKeysTest, TakesTheFontOfTheRequestedSide) {
  shared.Topic.Fonts.FrontFont = u"Liberation Sans";
  shared.Topic.Fonts.BackFont = u"Liberation Serif";
  for (const auto& [request, font] :
       {std::pair(-1, "Liberation Sans"), std::pair(-2, "Liberation Serif")}) {
    shared.Switches.KeyCodeToSend = request;
    WithChart([name = QString(font)](frmMoreKeys& chart) {
      EXPECT_EQ(chart.windowTitle(), "More Keys - " + name);
      TurnTo(chart, 2);
      for (int i = 0; i < 31; ++i) EXPECT_EQ(Key(chart, i).font().family(), name);
      Click(chart, "cmdCancel");
    });
  }
}

TEST_F(frmMoreKeysTest, EachKeySendsItsCode) {
  for (int code = 0; code < 256; ++code) {
    shared.Switches.KeyCodeToSend = -1;
    frmMoreKeys chart(shared, platform, nullptr, shared.Topic.Fonts);
    TurnTo(chart, code / 32);
    ClickKey(chart, code % 32);
    EXPECT_EQ(Status(chart), QStringLiteral("Code - %1").arg(code, 4, 10, QLatin1Char('0')));
    Click(chart, "cmdSend");
    EXPECT_EQ(shared.Switches.KeyCodeToSend, code);
  }
}

TEST_F(frmMoreKeysTest, ShowsEveryCharacterThatCanBeDrawn) {
  frmMoreKeys chart(shared, platform, nullptr, shared.Topic.Fonts);
  for (int code = 0; code < 256; ++code) {
    TurnTo(chart, code / 32);
    const CharCode number = ChartCode(code / 32, code % 32);
    const QString expected = IsControlCode(number) ? ToQString(InvisibleName(number))
                                                   : QString(QChar(CharOfCode(number)));
    EXPECT_EQ(Key(chart, code % 32).text(), expected) << code;
  }
}

TEST_F(frmMoreKeysTest, MarksControlCharactersAsNoOrdinaryOnes) {
  frmMoreKeys chart(shared, platform, nullptr, shared.Topic.Fonts);
  EXPECT_EQ(Key(chart, 9).text(), "HT");
  EXPECT_EQ(Key(chart, 9).foregroundRole(), QPalette::PlaceholderText);
  TurnTo(chart, 2);
  EXPECT_EQ(Key(chart, 1).text(), "A");
  EXPECT_EQ(Key(chart, 1).foregroundRole(), QPalette::Text);
}

TEST_F(frmMoreKeysTest, EachKeyTellsItsCode) {
  frmMoreKeys chart(shared, platform, nullptr, shared.Topic.Fonts);
  for (int page = 0; page < ChartPages; ++page) {
    TurnTo(chart, page);
    for (int key = 0; key < ChartPageSize; ++key) {
      const QString code = ToQString(ChartStatusText(ChartCode(page, key)));
      EXPECT_TRUE(SilentToolTip(Panel(chart, key)).startsWith(code));
      EXPECT_EQ(Panel(chart, key).accessibleName(), SilentToolTip(Panel(chart, key)));
    }
  }
  EXPECT_TRUE(SilentToolTip(Panel(chart, 0)).endsWith(QChar(0xE0)));
}

TEST_F(frmMoreKeysTest, TurningThePageRemovesTheSelection) {
  WithChart([](frmMoreKeys& chart) {
    ClickKey(chart, 5);
    TurnTo(chart, 1);
    EXPECT_EQ(TextOf(chart, "sspRange"), "Codes 32 - 63");
    EXPECT_EQ(Status(chart), "");
    EXPECT_FALSE(IsRaised(chart, 5));
    EXPECT_FALSE(IsEnabled(chart, "cmdSend"));
    ClickKey(chart, 5);
    EXPECT_TRUE(IsEnabled(chart, "cmdSend"));
    Click(chart, "cmdCancel");
  });
}

TEST_F(frmMoreKeysTest, WithoutASelectionEnterSendsNothing) {
  WithChart([](frmMoreKeys& chart) {
    TurnTo(chart, 1);
    QTest::keyClick(&chart, Qt::Key_Return);
    EXPECT_TRUE(chart.isVisible());
    Click(chart, "cmdCancel");
  });
  EXPECT_EQ(shared.Switches.KeyCodeToSend, -1);
}

TEST_F(frmMoreKeysTest, ThePagesAreZeroToSeven) {
  frmMoreKeys chart(shared, platform, nullptr, shared.Topic.Fonts);
  EXPECT_EQ(Find<QScrollBar>(chart, "hsbBar").minimum(), 0);
  EXPECT_EQ(Find<QScrollBar>(chart, "hsbBar").maximum(), 7);
}

TEST_F(frmMoreKeysTest, ClickingAKeyLowersTheOneBefore) {
  WithChart([](frmMoreKeys& chart) {
    ClickKey(chart, 7);
    EXPECT_FALSE(IsRaised(chart, 0));
    EXPECT_TRUE(IsRaised(chart, 7));
    Click(chart, "cmdCancel");
  });
}

TEST_F(frmMoreKeysTest, AKeyGoesDownWithTheMouse) {
  WithChart([](frmMoreKeys& chart) {
    const QPoint raised = Key(chart, 3).pos();
    QTest::mousePress(&Key(chart, 3), Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(Panel(chart, 3).frameShadow(), QFrame::Sunken);
    EXPECT_EQ(Key(chart, 3).pos(), raised + QPoint(1, 1));
    EXPECT_EQ(Status(chart), "Code - 0000") << "chosen when it is let go";
    QTest::mouseRelease(&Key(chart, 3), Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_TRUE(IsRaised(chart, 3));
    EXPECT_EQ(Key(chart, 3).pos(), raised);
    EXPECT_EQ(Status(chart), "Code - 0003");
    Click(chart, "cmdCancel");
  });
}

TEST_F(frmMoreKeysTest, LettingGoOutsideChoosesNothing) {
  WithChart([](frmMoreKeys& chart) {
    QFrame& panel = Panel(chart, 3);
    QTest::mousePress(&panel, Qt::LeftButton);
    QTest::mouseRelease(&panel, Qt::LeftButton, {}, QPoint(-20, -20));
    EXPECT_EQ(Status(chart), "Code - 0000");
    EXPECT_FALSE(IsRaised(chart, 3));
    Click(chart, "cmdCancel");
  });
}

TEST_F(frmMoreKeysTest, AnotherMouseButtonDoesNothing) {
  WithChart([](frmMoreKeys& chart) {
    QTest::mouseClick(&Key(chart, 3), Qt::RightButton);
    EXPECT_EQ(Status(chart), "Code - 0000");
    Click(chart, "cmdCancel");
  });
}

TEST_F(frmMoreKeysTest, ADoubleClickSends) {
  WithChart([](frmMoreKeys& chart) {
    TurnTo(chart, 2);
    QTest::mouseDClick(&Key(chart, 1), Qt::LeftButton);
  });
  EXPECT_EQ(shared.Switches.KeyCodeToSend, 'A');
}

TEST_F(frmMoreKeysTest, CodeZeroIsAChoice) {
  WithChart([](frmMoreKeys& chart) { Click(chart, "cmdSend"); });
  EXPECT_EQ(shared.Switches.KeyCodeToSend, 0);
}

TEST_F(frmMoreKeysTest, CancelLeavesTheRequest) {
  for (const int request : {-1, -2}) {
    shared.Switches.KeyCodeToSend = request;
    WithChart([](frmMoreKeys& chart) { Click(chart, "cmdCancel"); });
    WithChart([](frmMoreKeys& chart) { QTest::keyClick(&chart, Qt::Key_Escape); });
    WithChart([](frmMoreKeys& chart) { chart.close(); });
    EXPECT_EQ(shared.Switches.KeyCodeToSend, request);
  }
}

TEST_F(frmMoreKeysTest, TheKeyboardMovesThroughTheChart) {
  WithChart([](frmMoreKeys& chart) {
    const auto press = [&](int key, Qt::KeyboardModifiers modifiers = {}) {
      QTest::keyClick(chart.focusWidget(), static_cast<Qt::Key>(key), modifiers);
      return Status(chart);
    };
    EXPECT_EQ(press(Qt::Key_Left), "Code - 0000") << "there is nothing before";
    EXPECT_EQ(press(Qt::Key_Right), "Code - 0001");
    EXPECT_EQ(press(Qt::Key_Down), "Code - 0009");
    EXPECT_EQ(press(Qt::Key_Up), "Code - 0001");
    EXPECT_EQ(press(Qt::Key_End), "Code - 0031");
    EXPECT_EQ(press(Qt::Key_Right), "Code - 0032");
    EXPECT_EQ(TextOf(chart, "sspRange"), "Codes 32 - 63");
    EXPECT_EQ(press(Qt::Key_PageDown), "Code - 0064");
    EXPECT_EQ(press(Qt::Key_PageUp), "Code - 0032");
    EXPECT_EQ(press(Qt::Key_Left), "Code - 0031");
    EXPECT_EQ(press(Qt::Key_Home), "Code - 0000");
    EXPECT_EQ(press(Qt::Key_End, Qt::ControlModifier), "Code - 0255");
    EXPECT_EQ(press(Qt::Key_Right), "Code - 0255");
    EXPECT_EQ(press(Qt::Key_PageDown), "Code - 0255");
    EXPECT_EQ(press(Qt::Key_Home, Qt::ControlModifier), "Code - 0000");
    Click(chart, "cmdCancel");
  });
}

TEST_F(frmMoreKeysTest, TheFocusGoesWithTheSelection) {
  WithChart([](frmMoreKeys& chart) {
    QTest::keyClick(chart.focusWidget(), Qt::Key_Down);
    EXPECT_TRUE(Panel(chart, 8).hasFocus());
    EXPECT_EQ(Panel(chart, 8).focusPolicy(), Qt::StrongFocus);
    EXPECT_EQ(Panel(chart, 0).focusPolicy(), Qt::ClickFocus);
    QTest::keyClick(chart.focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(Find<QScrollBar>(chart, "hsbBar").hasFocus());
    Click(chart, "cmdCancel");
  });
}

TEST_F(frmMoreKeysTest, TheFocusCanBeSeen) {
  WithChart([](frmMoreKeys& chart) {
    const QImage focused = Panel(chart, 0).grab().toImage();
    Find<QWidget>(chart, "cmdCancel").setFocus();
    EXPECT_NE(Panel(chart, 0).grab().toImage(), focused);
    Click(chart, "cmdCancel");
  });
}

TEST_F(frmMoreKeysTest, AnArrowChoosesTheFirstKeyOfAPageThatWasTurnedTo) {
  WithChart([](frmMoreKeys& chart) {
    TurnTo(chart, 3);
    QTest::keyClick(&chart, Qt::Key_Down);
    EXPECT_EQ(Status(chart), "Code - 0096");
    Click(chart, "cmdCancel");
  });
}

TEST_F(frmMoreKeysTest, EnterSends) {
  WithChart([](frmMoreKeys& chart) {
    QTest::keyClick(chart.focusWidget(), Qt::Key_Right);
    QTest::keyClick(chart.focusWidget(), Qt::Key_Return);
  });
  EXPECT_EQ(shared.Switches.KeyCodeToSend, 1);
}

TEST_F(frmMoreKeysTest, HelpAsksForItsPage) {
  WithChart([](frmMoreKeys& chart) {
    Find<QAction>(chart, "mnuHelp").trigger();
    Click(chart, "cmdCancel");
  });
  EXPECT_EQ(help.contexts, std::vector{HelpContext::MoreKeys});
}

}  // namespace

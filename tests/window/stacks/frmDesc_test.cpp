#include "windows/stacks/frmDesc.h"

#include "tests/window/WindowFixture.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPushButton>

namespace {

class frmDescTest : public WindowTest {
 protected:
  void WithNew(const std::function<void(frmDesc&)>& act) { Run(true, act); }
  void WithChange(const std::function<void(frmDesc&)>& act) { Run(false, act); }

  static QLineEdit& Box(frmDesc& window) { return Find<QLineEdit>(window, "txtDesc"); }

  static void Paste(frmDesc& window, const QString& text) {
    QApplication::clipboard()->setText(text);
    QTest::keyClick(&Box(window), Qt::Key_V, Qt::ControlModifier);
  }

  const Text& Description() const { return shared.Stacks.StackDescription; }

 private:
  void Run(bool isNew, const std::function<void(frmDesc&)>& act) {
    shared.Switches.NewDescription = isNew;
    WithModal<frmDesc>([this] { frmDesc(shared, platform, nullptr).ShowModal(); },
                       [&](frmDesc& window) {
                         act(window);
                         if (window.isVisible()) Click(window, "cmdCanc");
                       });
  }
};

TEST_F(frmDescTest, ANewDescriptionStartsEmpty) {
  shared.Stacks.StackDescription = u"of another stack";
  WithNew([](frmDesc& window) {
    EXPECT_EQ(window.windowTitle(), "Enter File Description");
    EXPECT_EQ(Box(window).text(), "");
    EXPECT_TRUE(Box(window).hasFocus());
    EXPECT_EQ(Find<QPushButton>(window, "cmdOK").text(), "OK");
    EXPECT_EQ(Find<QPushButton>(window, "cmdCanc").text(), "Cancel");
  });
}

TEST_F(frmDescTest, AChangeShowsTheOldTextWithoutTheBlanksAtItsEnd) {
  shared.Stacks.StackDescription = FixedWidth(u" Animals & plants", 64);
  WithChange([](frmDesc& window) {
    EXPECT_EQ(window.windowTitle(), "Change File Description");
    EXPECT_EQ(Box(window).text(), " Animals & plants");
  });
}

TEST_F(frmDescTest, OkStoresTheText) {
  WithNew([](frmDesc& window) {
    QTest::keyClicks(&Box(window), "Verbs");
    Click(window, "cmdOK");
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(Description(), u"Verbs");
}

TEST_F(frmDescTest, EnterIsOk) {
  WithNew([](frmDesc& window) {
    QTest::keyClicks(&Box(window), "Verbs");
    QTest::keyClick(&Box(window), Qt::Key_Return);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_EQ(Description(), u"Verbs");
}

TEST_F(frmDescTest, CancelAndEscapeLeaveTheDescriptionAlone) {
  shared.Stacks.StackDescription = u"Kept";
  for (const bool isNew : {false, true}) {
    for (const bool escape : {false, true}) {
      const auto cancel = [&](frmDesc& window) {
        QTest::keyClicks(&Box(window), "x");
        if (escape) {
          QTest::keyClick(&Box(window), Qt::Key_Escape);
        } else {
          Click(window, "cmdCanc");
        }
        EXPECT_FALSE(window.isVisible());
      };
      isNew ? WithNew(cancel) : WithChange(cancel);
      EXPECT_EQ(Description(), u"Kept");
    }
  }
}

TEST_F(frmDescTest, TheCloseBoxOfANewDescriptionLeavesItBlank) {
  shared.Stacks.StackDescription = u"of another stack";
  WithNew([](frmDesc& window) {
    QTest::keyClicks(&Box(window), "typed");
    window.close();
  });
  EXPECT_EQ(Description(), u"");
}

TEST_F(frmDescTest, TheCloseBoxOfAChangeKeepsTheOldDescription) {
  shared.Stacks.StackDescription = u"Kept";
  WithChange([](frmDesc& window) {
    QTest::keyClicks(&Box(window), "typed");
    window.close();
  });
  EXPECT_EQ(Description(), u"Kept");
}

TEST_F(frmDescTest, The65thCharacterCanBeTypedAndIsLost) {
  WithNew([](frmDesc& window) {
    QTest::keyClicks(&Box(window), QString(64, u'a') + "bc");
    EXPECT_EQ(Box(window).text(), QString(64, u'a') + u'b');
    Click(window, "cmdOK");
  });
  EXPECT_EQ(Description(), Text(64, u'a'));
}

TEST_F(frmDescTest, AnInputMethodTypesAsFarAsTheKeyboard) {
  WithNew([](frmDesc& window) {
    Box(window).setText(QString(64, u'a'));
    QInputMethodEvent composed;
    composed.setCommitString(QString::fromUtf16(u"\u00E9\u00E8"));
    QCoreApplication::sendEvent(&Box(window), &composed);
    EXPECT_EQ(Box(window).text(), QString(64, u'a') + u'\u00E9');
  });
}

TEST_F(frmDescTest, ALongerPastedTextIsShownAndCutOnOk) {
  WithNew([](frmDesc& window) {
    Paste(window, QString(100, u'a'));
    EXPECT_EQ(Box(window).text(), QString(100, u'a'));
    Click(window, "cmdOK");
  });
  EXPECT_EQ(Description(), Text(64, u'a'));
}

TEST_F(frmDescTest, ACutNeverPartsACharacter) {
  WithNew([](frmDesc& window) {
    Paste(window, QString(63, u'a') + QString::fromUtf16(u"\U0001F600"));
    Click(window, "cmdOK");
  });
  EXPECT_EQ(Description(), Text(63, u'a'));
}

TEST_F(frmDescTest, APastedTextEndsAtItsFirstLineBreak) {
  WithNew([](frmDesc& window) {
    Paste(window, "one\r\ntwo");
    EXPECT_EQ(Box(window).text(), "one");
    Click(window, "cmdOK");
  });
  EXPECT_EQ(Description(), u"one");
}

TEST_F(frmDescTest, OtherScriptsAndNoBreakSpacesStay) {
  const Text text = u"\u0440\u0443\u0441\u00A0\u65E5\u672C <b>&amp;</b>";
  WithNew([&](frmDesc& window) {
    Paste(window, ToQString(text));
    Click(window, "cmdOK");
  });
  EXPECT_EQ(Description(), text);
}

TEST_F(frmDescTest, HelpOpensItsPage) {
  WithNew([](frmDesc& window) { QTest::keyClick(&Box(window), Qt::Key_F1); });
  EXPECT_EQ(help.contexts, std::vector{HelpContext::Description});
}

}  // namespace

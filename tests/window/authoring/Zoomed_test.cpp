#include "tests/window/authoring/AuthoringFixture.h"
#include "windows/authoring/RowLabel.h"
#include "windows/authoring/frmCreate.h"
#include "windows/authoring/frmEdit.h"
#include "windows/authoring/frmFind.h"

namespace {

/// The size of texts in the windows where cards are written.
class ZoomedTest : public AuthoringTest {
 protected:
  ZoomedTest() { LoadStack(u"verbs", 3); }

  /// Opens a window that tests may close as it is.
  template <class Window>
  void Open(Window& window) {
    window.show();
    WaitUntilActive(window);
  }
  static void Press(QWidget& window, Qt::Key key) {
    QTest::keyClick(window.focusWidget(), key, Qt::ControlModifier);
  }
  static double SizeOf(QObject& window, const char* name) {
    return Find<QWidget>(window, name).font().pointSizeF();
  }
};

TEST_F(ZoomedTest, CreateStartsAtTheExactSizes) {
  shared.Switches.AddCardsMode = true;
  frmCreate window(shared, platform, nullptr);
  Open(window);
  EXPECT_EQ(SizeOf(window, "txtFront"), 10.25);
  Press(window, Qt::Key_Plus);
  EXPECT_FLOAT_EQ(static_cast<float>(SizeOf(window, "txtFront")), 10.25F * 1.25F);
  EXPECT_FLOAT_EQ(static_cast<float>(SizeOf(window, "txtBack")), 10.25F * 1.25F);
  Press(window, Qt::Key_0);
  EXPECT_EQ(SizeOf(window, "txtFront"), 10.25);
  Press(window, Qt::Key_Minus);
  EXPECT_LT(SizeOf(window, "txtBack"), 10.25);
}

TEST_F(ZoomedTest, TheEditorEnlargesRowsAndFieldsAndKeepsItsMarks) {
  frmFind find(shared, platform, nullptr);
  frmEdit window(shared, platform, nullptr, find);
  Open(window);
  QTest::mouseClick(&Find<RowLabel>(window, "lblCol1(1)"), Qt::LeftButton);
  Click(window, "cmdDel");
  EXPECT_EQ(SizeOf(window, "lblCol1(0)"), 8.25);
  Press(window, Qt::Key_Plus);
  for (const char* const name : {"lblCol1(0)", "lblCol2(1)", "txtFront", "txtBack"}) {
    EXPECT_FLOAT_EQ(static_cast<float>(SizeOf(window, name)), 8.25F * 1.25F) << name;
  }
  EXPECT_TRUE(Find<RowLabel>(window, "lblCol1(1)").font().strikeOut());
  EXPECT_FALSE(Find<RowLabel>(window, "lblCol1(0)").font().strikeOut());
}

TEST_F(ZoomedTest, FindEnlargesItsFieldWhateverTheSide) {
  UseTopic(2);
  frmFind find(shared, platform, nullptr);
  WithModal<frmFind>([&] { find.ShowForSearch(); },
                     [](frmFind& window) {
                       Press(window, Qt::Key_Plus);
                       EXPECT_FLOAT_EQ(static_cast<float>(SizeOf(window, "txtFind")),
                                       8.25F * 1.25F);
                       Click(window, "sscBack");
                       EXPECT_FLOAT_EQ(static_cast<float>(SizeOf(window, "txtFind")), 14 * 1.25F);
                       Click(window, "cmdCanc");
                     });
}

TEST_F(ZoomedTest, TheChoiceIsRemembered) {
  shared.Switches.AddCardsMode = true;
  for (const double size : {10.25, 10.25 * 1.25}) {
    frmCreate window(shared, platform, nullptr);
    Open(window);
    EXPECT_FLOAT_EQ(static_cast<float>(SizeOf(window, "txtFront")), static_cast<float>(size));
    Press(window, Qt::Key_Plus);
  }
}

TEST_F(ZoomedTest, TheTopicsOwnKeystrokesComeFirst) {
  shared.Topic.Keys.Slots[1] = {.side = BothSidesMark,
                                .modifiers = CharCode{u'2'},
                                .key = CharCode{u'0'},
                                .character = CharCode{0xF8}};
  shared.Topic.Keys.KeyCount = 1;
  shared.Switches.AddCardsMode = true;
  frmCreate window(shared, platform, nullptr);
  Open(window);
  Press(window, Qt::Key_Plus);
  Press(window, Qt::Key_0);
  EXPECT_EQ(Shown(window, "txtFront"), QStringLiteral(u"\u00F8"));
  EXPECT_GT(SizeOf(window, "txtFront"), 10.25);
}

}  // namespace

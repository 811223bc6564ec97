#include "program/Zoom.h"
#include "tests/window/study/StudyFixture.h"

#include <QLineEdit>

namespace {

/// The card's text in a study window: its size, and how it scrolls.
class CardTextTest : public StudyWindowTest {
 protected:
  static double PointsOf(frmStepper& window, const char* name) {
    return Find<QWidget>(window, name).font().pointSizeF();
  }

  /// A stack of one card with a side of many lines.
  frmStepper& OpenLong(const Text& front, const Text& back) {
    CardStack& stack = LoadStack(u"Long", 1);
    stack.SetSideText(1, Front, front);
    stack.SetSideText(1, Back, back);
    frmStepper& window = OpenOnCurrent({1});
    Next(window);
    LayOut();
    return window;
  }

  /// Areas learn of a new text's size by an event.
  static void LayOut() { QCoreApplication::sendPostedEvents(); }

  static Text Lines(int count) {
    Text text;
    for (int i = 0; i < count; ++i) text += u"line\r\n";
    return text + u"end";
  }

  static void Press(frmStepper& window, Qt::Key key, int times = 1) {
    LayOut();
    for (int i = 0; i < times; ++i) QTest::keyClick(window.focusWidget(), key);
  }

  static bool ShowsTopOf(QLabel& label) { return label.visibleRegion().boundingRect().top() <= 0; }
  static bool ShowsEndOf(QLabel& label) {
    return label.visibleRegion().boundingRect().bottom() >= label.height() - 1;
  }
};

TEST_F(CardTextTest, FontsFollowTheSide) {
  shared.Topic.Fonts = {u"DejaVu Sans", 16, u"DejaVu Serif", 20};
  frmStepper& window = Open(1, {1});
  EXPECT_EQ(PointsOf(window, "lblTop"), 16);
  EXPECT_EQ(PointsOf(window, "lblBottom"), 20);
  EXPECT_EQ(Find<QLabel>(window, "lblBottom").font().family(), "DejaVu Serif");
  Click(window, "ssoBack");
  EXPECT_EQ(PointsOf(window, "lblTop"), 20);
  EXPECT_EQ(PointsOf(window, "lblBottom"), 16);
}

TEST_F(CardTextTest, TheSmallestFontOpensLargeEnoughToRead) {
  EXPECT_GE(Find<QLabel>(Open(1, {1}), "lblTop").fontInfo().pixelSize(), 18);
}

TEST_F(CardTextTest, EqualTopicSizesLookEqualInEveryModeAtEveryFactor) {
  shared.Topic.Fonts = {u"DejaVu Sans", 24, u"DejaVu Sans", 24};
  for (const StudyMode mode : {StudyMode::Stepper, StudyMode::Speller, StudyMode::Chooser}) {
    frmStepper& window = Open(4, {}, mode);
    for (const char* const item : {"mnuLarger", "mnuSmaller", "mnuExactSize", "mnuSmaller"}) {
      Find<QAction>(window, item).trigger();
      for (const char* const name : {"lblBottom", "txtSpell", "lblSpellAnswer", "lblChoice(0)"}) {
        EXPECT_EQ(PointsOf(window, name), PointsOf(window, "lblTop")) << name << ", " << item;
      }
    }
    window.Unload();
  }
}

TEST_F(CardTextTest, TheExactSizeIsTheTopics) {
  shared.Topic.Fonts = {u"DejaVu Sans", 9, u"DejaVu Serif", 11};
  frmStepper& window = Open(1, {1});
  QTest::keyClick(window.focusWidget(), Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(PointsOf(window, "lblTop"), 9);
  EXPECT_EQ(PointsOf(window, "lblBottom"), 11);
}

TEST_F(CardTextTest, TheSizeOfTheWindowLeavesTheSizeOfTheTextAlone) {
  frmStepper& window = Open(1, {1});
  const double points = PointsOf(window, "lblTop");
  window.resize(window.size() * 2);
  EXPECT_EQ(PointsOf(window, "lblTop"), points);
}

TEST_F(CardTextTest, TheFactorChosenLastIsThatOfTheNextWindowInAnyMode) {
  frmStepper& window = Open(4, {1});
  QTest::keyClick(window.focusWidget(), Qt::Key_Plus, Qt::ControlModifier);
  const double points = PointsOf(window, "lblTop");
  window.Unload();
  EXPECT_EQ(PointsOf(Open(4, {}, StudyMode::Chooser), "lblChoice(0)"), points);
}

TEST_F(CardTextTest, InTheSpellersFieldTheTopicsKeystrokeComesFirst) {
  shared.Topic.Keys.KeyCount = 1;
  shared.Topic.Keys.Slots[1] = {BothSidesMark, CharCode{'2'}, CharCode{'0'}, CharCode{0xE9}};
  frmStepper& window = Open(1, {1}, StudyMode::Speller);
  Next(window);
  const double points = PointsOf(window, "lblTop");
  QTest::keyClick(window.focusWidget(), Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(Find<QLineEdit>(window, "txtSpell").text(), QStringLiteral("\u00E9"));
  EXPECT_EQ(PointsOf(window, "lblTop"), points);
}

TEST_F(CardTextTest, EachModeOpensAtTheSizeItsWindowHadLast) {
  frmStepper& window = Open(4, {});
  const QSize size = window.size() - QSize(20, 12);
  ResizeByUser(window, size);
  window.Unload();
  EXPECT_EQ(Open(4, {}).size(), size);
  EXPECT_NE(Open(4, {}, StudyMode::Chooser).size(), size);
}

TEST_F(CardTextTest, PageKeysReadALongQuestionAndThenItsAnswer) {
  frmStepper& window = OpenLong(Lines(60), Lines(60));
  auto& question = Find<QLabel>(window, "lblTop");
  auto& answer = Find<QLabel>(window, "lblBottom");
  EXPECT_TRUE(ShowsTopOf(question));
  EXPECT_FALSE(ShowsEndOf(question));
  Press(window, Qt::Key_PageDown);
  EXPECT_FALSE(ShowsTopOf(question));
  Press(window, Qt::Key_PageDown, 60);
  EXPECT_TRUE(ShowsEndOf(question));
  Next(window);
  EXPECT_TRUE(ShowsEndOf(question));  // it is still the same question
  EXPECT_TRUE(ShowsTopOf(answer));
  Press(window, Qt::Key_PageDown, 60);
  EXPECT_TRUE(ShowsEndOf(answer));
  Press(window, Qt::Key_PageUp, 60);
  EXPECT_TRUE(ShowsTopOf(answer));
  Press(window, Qt::Key_PageUp, 60);
  EXPECT_TRUE(ShowsTopOf(question));
}

TEST_F(CardTextTest, ArrowKeysScrollALongTextFromNextAndLeaveTheFocusThere) {
  frmStepper& window = OpenLong(Lines(60), u"x");
  auto& question = Find<QLabel>(window, "lblTop");
  Press(window, Qt::Key_Down);
  EXPECT_FALSE(ShowsTopOf(question));
  Press(window, Qt::Key_Down, 200);
  EXPECT_TRUE(ShowsEndOf(question));
  Press(window, Qt::Key_Up, 200);
  EXPECT_TRUE(ShowsTopOf(question));
  EXPECT_TRUE(Find<QWidget>(window, "cmdNext").hasFocus());
}

TEST_F(CardTextTest, AWideTextScrollsAcross) {
  frmStepper& window = OpenLong(Text(30, u'a') + u' ' + Text(600, u'b'), u"x");
  auto& question = Find<QLabel>(window, "lblTop");
  EXPECT_LT(question.visibleRegion().boundingRect().right(), question.width() - 1);
  Press(window, Qt::Key_Right, 1000);
  EXPECT_GE(question.visibleRegion().boundingRect().right(), question.width() - 1);
}

TEST_F(CardTextTest, TheNextCardBeginsAtItsBeginning) {
  CardStack& stack = LoadStack(u"Long", 2);
  stack.SetSideText(1, Front, Lines(60));
  stack.SetSideText(2, Front, Lines(61));
  frmStepper& window = OpenOnCurrent({1, 2});
  Next(window);
  Press(window, Qt::Key_PageDown, 60);
  EXPECT_FALSE(ShowsTopOf(Find<QLabel>(window, "lblTop")));
  Next(window, 2);
  LayOut();
  EXPECT_TRUE(ShowsTopOf(Find<QLabel>(window, "lblTop")));
}

TEST_F(CardTextTest, KeysScrollFromTheSpellersFieldToo) {
  LoadStack(u"Long", 1).SetSideText(1, Front, Lines(60));
  frmStepper& window = OpenOnCurrent({1}, StudyMode::Speller);
  Next(window);
  Press(window, Qt::Key_PageDown);
  EXPECT_FALSE(ShowsTopOf(Find<QLabel>(window, "lblTop")));
  EXPECT_TRUE(Find<QWidget>(window, "txtSpell").hasFocus());
}

TEST_F(CardTextTest, EveryModeFitsASmallScreenAtTwiceTheScale) {
  const QSize screen(640, 400);
  const QSize frame(2, 30);  // what a title bar and a border take
  LoadStack(u"Pictures", 4).SetSidePicture(1, Front, u"/cards/x.bmp");
  for (const StudyMode mode :
       {StudyMode::Stepper, StudyMode::Quibber, StudyMode::Speller, StudyMode::Chooser}) {
    frmStepper& window = OpenOnCurrent({}, mode);
    window.resize(1, 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.size().boundedTo(screen - frame), window.size())
        << ToQString(StudyCaption(mode)).toStdString() << " " << window.width() << " x "
        << window.height();
    window.Unload();
  }
}

}  // namespace

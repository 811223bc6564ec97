#include "windows/authoring/RowLabel.h"

#include "tests/window/WindowFixture.h"

#include <QHelpEvent>
#include <QToolTip>

namespace {

class RowLabelTest : public testing::Test {
 protected:
  RowLabel label{nullptr};
};

TEST_F(RowLabelTest, ShowsATextAsItIs) {
  label.SetCardText(u"<b>R&D</b> & &more");
  EXPECT_EQ(label.textFormat(), Qt::PlainText);
  EXPECT_EQ(label.text(), "<b>R&D</b> & &more");
}

TEST_F(RowLabelTest, ItsTipIsPlainAndNeverLong) {
  label.resize(200, 20);
  label.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&label));
  const auto tip = [this] {
    QHelpEvent event(QEvent::ToolTip, {5, 5}, label.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&label, &event);
    return QToolTip::text();
  };
  label.SetCardText(u"<b>R&D</b>");
  EXPECT_EQ(tip(), PlainToolTip(u"<b>R&D</b>"));
  label.SetCardText(Text(100'000, u'x'));
  EXPECT_EQ(tip(), PlainToolTip(Text(1000, u'x') + u'\u2026'));
  EXPECT_EQ(label.toolTip(), "") << "it would be read out";
  label.SetCardText(u"");
  (void)tip();
  EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
}

TEST_F(RowLabelTest, ShowsEveryLineBreakOnOneLine) {
  label.SetCardText(u"a\r\nb\rc\nd\u2028e\u2029f");
  const QString arrow = QStringLiteral(u" \u21B5 ");
  EXPECT_EQ(label.text(), QStringList({"a", "b", "c", "d", "e", "f"}).join(arrow));
}

TEST_F(RowLabelTest, ALongTextDoesNotWidenTheWindow) {
  const int before = label.minimumSizeHint().width();
  label.SetCardText(Text(10'000, u'x'));
  EXPECT_EQ(label.minimumSizeHint().width(), before);
}

TEST_F(RowLabelTest, WhatDoesNotFitEndsInAnEllipsis) {
  const auto drawn = [this](const Text& text) {
    label.SetCardText(text);
    return label.grab().toImage();
  };
  label.resize(label.fontMetrics().horizontalAdvance("mmmmmmmm"), label.sizeHint().height());
  EXPECT_NE(drawn(u"mmm"), drawn(u"mmmm"));
  EXPECT_NE(drawn(Text(30, u'm')), drawn(u"mmmmmmm"));
  EXPECT_EQ(drawn(Text(30, u'm')), drawn(Text(40, u'm')));
  const Text dotted = ToText(label.fontMetrics().elidedText(QString(30, 'm'), Qt::ElideRight,
                                                            label.width() - 2 * label.margin()));
  EXPECT_EQ(dotted.back(), u'\u2026');
  EXPECT_EQ(drawn(Text(30, u'm')), drawn(dotted));
}

TEST_F(RowLabelTest, AStruckOutTextIsSaidToBeMarked) {
  label.SetStruckOut(true);
  EXPECT_TRUE(label.font().strikeOut());
  EXPECT_EQ(label.accessibleDescription(), "marked for deletion");
  label.SetStruckOut(false);
  EXPECT_FALSE(label.font().strikeOut());
  EXPECT_EQ(label.accessibleDescription(), "");
}

TEST_F(RowLabelTest, TakesItsColoursFromThePalette) {
  label.SetHighlighted(true);
  EXPECT_EQ(label.backgroundRole(), QPalette::Highlight);
  EXPECT_EQ(label.foregroundRole(), QPalette::HighlightedText);
  label.SetHighlighted(false);
  EXPECT_EQ(label.backgroundRole(), QPalette::Base);
  EXPECT_EQ(label.foregroundRole(), QPalette::Text);
}

TEST_F(RowLabelTest, OnlyTheLeftButtonClicks) {
  int clicks = 0;
  int doubleClicks = 0;
  QObject::connect(&label, &RowLabel::Clicked, [&] { ++clicks; });
  QObject::connect(&label, &RowLabel::DoubleClicked, [&] { ++doubleClicks; });
  for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton, Qt::LeftButton}) {
    QTest::mouseClick(&label, button);
    QTest::mouseDClick(&label, button);
  }
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(doubleClicks, 1);
}

}  // namespace

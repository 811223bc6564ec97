#include "windows/authoring/CardTextBox.h"

#include "tests/window/WindowFixture.h"

namespace {

class CardTextBoxTest : public testing::Test {
 protected:
  CardTextBox box{nullptr};
};

TEST_F(CardTextBoxTest, AsksForTwoLinesOfItsFont) {
  box.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
  for (const double points : {8.25, 32.0}) {
    QFont font = box.font();
    font.setPointSizeF(points);
    box.setFont(font);
    box.resize(300, box.minimumSizeHint().height());
    const int room =
        box.viewport()->height() - static_cast<int>(2 * box.document()->documentMargin());
    EXPECT_EQ(room, 2 * box.fontMetrics().lineSpacing()) << points;
  }
}

// Looking for the end of a word that has none takes, for each line of it, all that is left.
TEST_F(CardTextBoxTest, AVeryLongWordIsBrokenAnywhere) {
  box.setPlainText(QString(500, u'x') + u' ' + QString(500, u'x'));
  EXPECT_EQ(box.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
  box.insertPlainText("x");
  EXPECT_EQ(box.wordWrapMode(), QTextOption::WrapAnywhere);
  box.setPlainText("short");
  EXPECT_EQ(box.wordWrapMode(), QTextOption::WrapAtWordBoundaryOrAnywhere);
}

// Each of them took minutes; the test's time limit is one.
TEST_F(CardTextBoxTest, AMillionCharactersAreTakenWhole) {
  box.resize(300, 100);
  box.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&box));
  const QString text(1'000'000, u'x');
  box.insertPlainText(text);
  box.repaint();
  EXPECT_EQ(box.toPlainText(), text);
  for (const char16_t unit : {u'y', u'z'}) {
    box.setPlainText(QString(1'000'000, unit));
    box.repaint();
    EXPECT_EQ(box.toPlainText().back(), unit);
  }
  box.setPlainText("short");
  box.setPlainText(text);
  EXPECT_EQ(box.toPlainText(), text);
}

TEST_F(CardTextBoxTest, SelectsTheFirstOfACharacter) {
  box.setPlainText("a\nb^^c^");
  box.SelectFirst(u'^');
  EXPECT_EQ(box.textCursor().selectedText(), "^^");
  EXPECT_EQ(box.textCursor().selectionStart(), 3);
  box.SelectFirst(u'#');
  EXPECT_EQ(box.textCursor().selectionStart(), 3);
}

}  // namespace

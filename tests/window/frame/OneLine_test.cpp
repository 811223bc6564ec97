#include "windows/frame/OneLine.h"

#include "tests/window/WindowFixture.h"

#include <QClipboard>
#include <QLineEdit>

namespace {

class OneLineTest : public testing::Test {
 protected:
  OneLineTest() { KeepToOneLine(&field); }

  void Paste(const QString& text) {
    QApplication::clipboard()->setText(text);
    field.paste();
  }

  QLineEdit field;
};

TEST_F(OneLineTest, APastedTextIsCutAtItsFirstLineBreak) {
  for (const TextView lineBreak : {u"\n", u"\r", u"\r\n", u"\u2028", u"\u2029"}) {
    field.clear();
    Paste(QStringList({"one", "two", "three"}).join(ToQString(lineBreak)));
    EXPECT_EQ(field.text(), "one");
  }
}

TEST_F(OneLineTest, APastedTextThatBeginsWithALineBreakIsNothing) {
  field.setText("kept");
  Paste("\nlost");
  EXPECT_EQ(field.text(), "kept");
}

TEST_F(OneLineTest, WhatStoodInTheFieldStays) {
  field.setText("[]");
  field.setCursorPosition(1);
  Paste("one\ntwo");
  EXPECT_EQ(field.text(), "[one]");
  EXPECT_EQ(field.cursorPosition(), 4);
}

TEST_F(OneLineTest, ASelectionIsReplaced) {
  field.setText("a-old-o");
  field.setSelection(2, 3);
  Paste("one\ntwo");
  EXPECT_EQ(field.text(), "a-one-o");
}

TEST_F(OneLineTest, PastingIsUndoneInOneStep) {
  QTest::keyClicks(&field, "abcd");
  field.setSelection(1, 2);
  Paste("bb\ncc");
  EXPECT_EQ(field.text(), "abbd");
  field.undo();
  EXPECT_EQ(field.text(), "abcd");
  field.redo();
  EXPECT_EQ(field.text(), "abbd");
  field.undo();
  field.undo();
  EXPECT_EQ(field.text(), "");
}

TEST_F(OneLineTest, ATextThatIsSetIsCutToo) {
  field.setText("one\r\ntwo");
  EXPECT_EQ(field.text(), "one");
  EXPECT_EQ(field.cursorPosition(), 3);
}

TEST_F(OneLineTest, AnInputMethodsLineBreakIsCut) {
  QTest::keyClicks(&field, "ab");
  QInputMethodEvent composed;
  composed.setCommitString("c\nd");
  QCoreApplication::sendEvent(&field, &composed);
  EXPECT_EQ(field.text(), "abc");
}

TEST_F(OneLineTest, EveryOtherCharacterStays) {
  Text all;
  for (char16_t unit = 0; unit < 0x100; ++unit) {
    if (unit != u'\r' && unit != u'\n') all += unit;
  }
  Paste(ToQString(all));
  EXPECT_EQ(ToText(field.text()), all);
}

TEST_F(OneLineTest, AHugeTextIsCutAtOnce) {
  Paste(QString(20'000, u'x') + u'\n' + QString(2'000'000, u'y'));
  EXPECT_TRUE(field.text() == QString(20'000, u'x'));
}

}  // namespace

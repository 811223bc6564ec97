#include "windows/frame/TypingFilter.h"

#include "tests/window/WindowFixture.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>

namespace {

/// A field of at most five characters, none of them "x".
class TypingFilterTest : public testing::Test {
 protected:
  TypingFilterTest() {
    new TypingFilter(&field, [](qsizetype length, QChar typed) {
      return length < 5 && typed != QLatin1Char('x');
    });
  }

  void Press(const QString& text, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent event(QEvent::KeyPress, 0, modifiers, text);
    QCoreApplication::sendEvent(&field, &event);
  }

  void Compose(const QString& text, int replacedFrom = 0, int replaced = 0) {
    QInputMethodEvent event;
    event.setCommitString(text, replacedFrom, replaced);
    QCoreApplication::sendEvent(&field, &event);
  }

  QLineEdit field;
};

TEST_F(TypingFilterTest, ARefusedCharacterIsNotTyped) {
  QTest::keyClicks(&field, "axbxc");
  EXPECT_EQ(field.text(), "abc");
}

TEST_F(TypingFilterTest, TypingEndsAtTheLimitEvenOverASelection) {
  QTest::keyClicks(&field, "abcdef");
  EXPECT_EQ(field.text(), "abcde");
  field.selectAll();
  QTest::keyClicks(&field, "g");
  EXPECT_EQ(field.text(), "abcde");
  EXPECT_TRUE(field.hasSelectedText());
}

TEST_F(TypingFilterTest, BackspaceAndDeleteWorkAtTheLimit) {
  field.setText("abcde");
  QTest::keyClick(&field, Qt::Key_Backspace);
  field.setText("abcde");
  field.setCursorPosition(0);
  QTest::keyClick(&field, Qt::Key_Delete);
  EXPECT_EQ(field.text(), "bcde");
}

TEST_F(TypingFilterTest, CharactersThatCannotBeSeenCountAsWell) {
  field.setText("abcde");
  for (const char16_t* const invisible : {u"\u200D", u"\u00AD", u"\U0001F600", u"\uE000"}) {
    Press(QString::fromUtf16(invisible));
    EXPECT_EQ(field.text(), "abcde");
  }
}

TEST_F(TypingFilterTest, PastingIsNotFiltered) {
  QApplication::clipboard()->setText("extra long");
  QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(field.text(), "extra long");
}

TEST_F(TypingFilterTest, AnInputMethodTypesWhatIsAccepted) {
  Compose("axbcdefg");
  EXPECT_EQ(field.text(), "abcde");
  Compose("h");
  EXPECT_EQ(field.text(), "abcde");
}

TEST_F(TypingFilterTest, AnInputMethodNeverTypesHalfACharacter) {
  field.setText("abcd");
  Compose(QString::fromUtf16(u"\U0001F600\U0001F601"));
  EXPECT_EQ(field.text(), QString::fromUtf16(u"abcd\U0001F600"));
}

TEST_F(TypingFilterTest, AnInputMethodHasTheRoomOfWhatItReplaces) {
  field.setText("abcd");
  field.selectAll();
  Compose("12345");
  EXPECT_EQ(field.text(), "12345");
  field.setText("abcd");
  Compose("123", -2, 2);
  EXPECT_EQ(field.text(), "ab123");
}

TEST_F(TypingFilterTest, AFullFieldKeepsItsSelectionFromAnInputMethod) {
  field.setText("abcde");
  field.selectAll();
  Compose("1");
  EXPECT_EQ(field.text(), "abcde");
  EXPECT_EQ(field.selectedText(), "abcde");
}

TEST_F(TypingFilterTest, AnInputMethodCanDelete) {
  field.setText("abcde");
  Compose("", -1, 1);
  EXPECT_EQ(field.text(), "abcd");
}

}  // namespace

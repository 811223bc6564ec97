#include "windows/keys/CardField.h"

#include "tests/window/WindowFixture.h"

#include <QClipboard>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr CharCode Code(int number) { return static_cast<CharCode>(number); }

Text TextOfCode(int code) { return Text(1, CharOfCode(Code(code))); }

/// A key table that tests fill, and keystrokes as a desktop sends them.
class KeyboardTest : public testing::Test {
 protected:
  void Assign(char side, char modifiers, int key, int character) {
    ++keys.KeyCount;
    keys.Slots.at(static_cast<std::size_t>(keys.KeyCount)) = {Code(side), Code(modifiers),
                                                              Code(key), Code(character)};
  }

  static bool Press(QWidget& edit, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                    const QString& text = {}) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(&edit, &event);
    return event.isAccepted();
  }

  static void Commit(QWidget& edit, const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(&edit, &event);
  }

  KeyTable keys;
};

int CaretIn(const QLineEdit& edit) { return edit.cursorPosition(); }
int CaretIn(const QPlainTextEdit& edit) { return edit.textCursor().position(); }
void Select(QLineEdit& edit, int start, int length) { edit.setSelection(start, length); }
void Select(QPlainTextEdit& edit, int start, int length) {
  QTextCursor cursor = edit.textCursor();
  cursor.setPosition(start);
  cursor.setPosition(start + length, QTextCursor::KeepAnchor);
  edit.setTextCursor(cursor);
}

/// What holds for both kinds of text box.
template <class Edit>
class CardFieldTest : public KeyboardTest {
 protected:
  CardFieldTest() : field(&edit, keys) {
    edit.show();
    edit.activateWindow();
    edit.setFocus();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&edit));
  }

  /// Shows `text` with the caret, or a selection of `length`, at `start`.
  void Show(TextView text, int start = 0, int length = 0) {
    field.SetContent(text);
    Select(edit, start, length);
  }
  void ShowFull() { Show(Text(256, u'a'), 256); }
  bool Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {}) {
    return KeyboardTest::Press(edit, key, modifiers, text);
  }
  void TypeKey(char character) {
    Press(QChar(u'A').unicode() + character - 'a', Qt::NoModifier, QChar::fromLatin1(character));
  }
  void Commit(const QString& text) { KeyboardTest::Commit(edit, text); }

  Edit edit;
  CardField field;  // a member here, so it goes before its box
};

using Boxes = testing::Types<QLineEdit, QPlainTextEdit>;
TYPED_TEST_SUITE(CardFieldTest, Boxes, );

TYPED_TEST(CardFieldTest, TypesAnAssignedCharacterAtTheCaret) {
  this->Assign('1', '2', 'E', 0xE9);
  this->Show(u"abc");
  EXPECT_TRUE(this->Press(Qt::Key_E, Qt::ControlModifier, "\x05"));
  EXPECT_EQ(this->field.Content(), u"\u00E9abc");
  EXPECT_EQ(CaretIn(this->edit), 1);
}

TYPED_TEST(CardFieldTest, TypesTheAssignedCharacterOfEveryPrintableCode) {
  this->Assign('3', '2', 'E', ' ');
  for (int code = 32; code < 256; ++code) {
    this->keys.Slots[1].character = Code(code);
    this->Show(u"ab", 1);
    this->Press(Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(this->field.Content(), u"a" + TextOfCode(code) + u"b") << code;
  }
}

TYPED_TEST(CardFieldTest, FollowsAChangeOfTheTable) {
  this->Press(Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(this->field.Content(), u"");
  this->Assign('1', '2', 'E', 0xE9);
  this->Press(Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(this->field.Content(), u"\u00E9");
}

TYPED_TEST(CardFieldTest, AnAssignmentLeavesTheSelectedText) {
  this->Assign('3', '2', 'E', 'x');
  this->Show(u"abcd", 1, 2);
  this->Press(Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(this->field.Content(), u"axbcd");
  EXPECT_EQ(CaretIn(this->edit), 2);
}

TYPED_TEST(CardFieldTest, AnAssignmentHasNoLimit) {
  this->Assign('3', '2', 'E', 'x');
  this->ShowFull();
  this->Press(Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(this->field.Content().size(), 257U);
}

TYPED_TEST(CardFieldTest, AnAssignedCharacterCanBeUndone) {
  this->Assign('3', '2', 'E', 'x');
  this->Show(u"abc", 3);
  this->Press(Qt::Key_E, Qt::ControlModifier);
  this->edit.undo();
  EXPECT_EQ(this->field.Content(), u"abc");
}

TYPED_TEST(CardFieldTest, AssignmentsOfEitherSideWork) {
  this->Assign('1', '2', 'E', 'f');
  this->Assign('2', '6', 'N', 'b');
  this->Press(Qt::Key_E, Qt::ControlModifier);
  this->Press(Qt::Key_N, Qt::ControlModifier | Qt::AltModifier);
  EXPECT_EQ(this->field.Content(), u"fb");
}

TYPED_TEST(CardFieldTest, ALaterSlotOfTheSameKeyIsSwallowed) {
  this->Assign('1', '2', 'E', 'x');
  this->Assign('2', '2', 'E', 'y');
  this->Assign('3', '4', 'E', 'z');
  EXPECT_TRUE(this->Press(Qt::Key_E, Qt::AltModifier, "e"));
  EXPECT_EQ(this->field.Content(), u"");
  this->Press(Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(this->field.Content(), u"x");
}

TYPED_TEST(CardFieldTest, ASwallowedKeystrokeDoesNotRunTheBoxsOwnShortcut) {
  this->Assign('3', '4', 'A', 'x');
  this->Show(u"abc");
  QTest::keyClick(&this->edit, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&this->edit, Qt::Key_Q);
  EXPECT_EQ(this->field.Content(), u"qabc") << "Ctrl+A would have selected all";
}

TYPED_TEST(CardFieldTest, AnUnassignedKeystrokeKeepsItsMeaning) {
  this->Assign('3', '2', 'E', 'x');
  this->Show(u"abc");
  QTest::keyClick(&this->edit, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(&this->edit, Qt::Key_Q);
  EXPECT_EQ(this->field.Content(), u"q");
}

TYPED_TEST(CardFieldTest, ShiftAloneTypesAsAlways) {
  this->Assign('3', '1', 'E', 'x');
  this->Press(Qt::Key_E, Qt::ShiftModifier, "E");
  EXPECT_EQ(this->field.Content(), u"E");
}

TYPED_TEST(CardFieldTest, AltGrTypesAsAlways) {
  this->Assign('3', '6', 'E', 'x');
  this->Press(Qt::Key_E, Qt::GroupSwitchModifier, QString(QChar(0x20AC)));
  this->Press(Qt::Key_E, Qt::GroupSwitchModifier | Qt::ControlModifier | Qt::AltModifier,
              QString(QChar(0x20AC)));
  EXPECT_EQ(this->field.Content(), u"\u20AC\u20AC");
}

TYPED_TEST(CardFieldTest, PunctuationIsFoundByItsKey) {
  this->Assign('3', '3', 190, 'x');
  this->Press(Qt::Key_Greater, Qt::ControlModifier | Qt::ShiftModifier, ">");
  EXPECT_EQ(this->field.Content(), u"x");
}

TYPED_TEST(CardFieldTest, AltWithALetterTypesNothing) {
  EXPECT_TRUE(this->Press(Qt::Key_E, Qt::AltModifier, "e"));
  this->Press(Qt::Key_E, Qt::AltModifier | Qt::ShiftModifier, "E");
  this->Press(Qt::Key_5, Qt::AltModifier | Qt::KeypadModifier, "5");
  EXPECT_EQ(this->field.Content(), u"");
}

TYPED_TEST(CardFieldTest, EnterTypesNothingAndGoesOnToTheWindow) {
  this->Show(u"abc", 1, 1);
  for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
    EXPECT_FALSE(this->Press(key, Qt::NoModifier, "\r"));
    EXPECT_FALSE(this->Press(key, Qt::ShiftModifier, "\r"));
    EXPECT_FALSE(this->Press(key, Qt::ControlModifier, "\r"));
  }
  EXPECT_EQ(this->field.Content(), u"abc");
}

TYPED_TEST(CardFieldTest, TypingEndsAt256Characters) {
  this->Show(Text(255, u'a'), 255);
  this->TypeKey('b');
  this->TypeKey('c');
  EXPECT_EQ(this->field.Content(), Text(255, u'a') + u"b");
}

TYPED_TEST(CardFieldTest, AFullFieldTakesNothingEvenOverASelection) {
  this->Show(Text(256, u'a'), 0, 256);
  this->TypeKey('b');
  this->Commit("b");
  this->field.Type(Code('b'));
  EXPECT_EQ(this->field.Content(), Text(256, u'a'));
}

TYPED_TEST(CardFieldTest, AFullFieldKeepsItsSelectionWhileAnInputMethodComposes) {
  this->Show(Text(256, u'a'), 0, 256);
  QInputMethodEvent composing(QStringLiteral("n"), {});
  QCoreApplication::sendEvent(&this->edit, &composing);
  this->Commit("b");
  EXPECT_EQ(this->field.Content(), Text(256, u'a'));
}

TYPED_TEST(CardFieldTest, AFullFieldTakesNoKeypadDigitWithCtrl) {
  this->ShowFull();
  this->Press(Qt::Key_5, Qt::ControlModifier | Qt::KeypadModifier, "5");
  EXPECT_EQ(this->field.Content(), Text(256, u'a'));
}

TYPED_TEST(CardFieldTest, AFullFieldCanBeCorrected) {
  this->ShowFull();
  this->Press(Qt::Key_Backspace, Qt::NoModifier, "\b");
  EXPECT_EQ(this->field.Content().size(), 255U);
  this->ShowFull();
  this->Press(Qt::Key_Left);
  EXPECT_EQ(CaretIn(this->edit), 255);
  this->Press(Qt::Key_Delete, Qt::NoModifier, "\x7F");
  EXPECT_EQ(this->field.Content().size(), 255U);
}

TYPED_TEST(CardFieldTest, ALongerTextIsShownAndCanBeShortened) {
  this->Show(Text(400, u'a'), 400);
  EXPECT_EQ(this->field.Content().size(), 400U);
  this->field.Type(Code(8));
  EXPECT_EQ(this->field.Content().size(), 399U);
}

TYPED_TEST(CardFieldTest, PastedTextIsNotLimited) {
  QApplication::clipboard()->setText(QString(300, u'p'));
  this->ShowFull();
  QTest::keyClick(&this->edit, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(this->field.Content().size(), 556U);
}

TYPED_TEST(CardFieldTest, AnInputMethodTypesUpToTheLimit) {
  this->Show(Text(254, u'a'), 254);
  this->Commit("xyz");
  EXPECT_EQ(this->field.Content(), Text(254, u'a') + u"xy");
}

TYPED_TEST(CardFieldTest, AnInputMethodHasTheRoomOfTheSelectionThatItReplaces) {
  this->Show(Text(255, u'a'), 0, 2);
  this->Commit("wxyz");
  EXPECT_EQ(this->field.Content(), u"wxy" + Text(253, u'a'));
}

TYPED_TEST(CardFieldTest, AnInputMethodsCharacterIsNeverParted) {
  this->Show(Text(255, u'a'), 255);
  this->Commit(QString::fromUcs4(U"\U0001F600\U0001F600"));
  EXPECT_EQ(this->field.Content(), Text(255, u'a') + u"\U0001F600");
}

TYPED_TEST(CardFieldTest, AnInputMethodTypesNoLineBreak) {
  this->Commit("a\r\nb\n");
  EXPECT_EQ(this->field.Content(), u"ab");
}

TYPED_TEST(CardFieldTest, AnInputMethodCanDeleteFromAFullField) {
  this->ShowFull();
  QInputMethodEvent event;
  event.setCommitString(QString(), -1, 1);
  QCoreApplication::sendEvent(&this->edit, &event);
  EXPECT_EQ(this->field.Content().size(), 255U);
}

TYPED_TEST(CardFieldTest, TheLimitCanBeAnother) {
  this->field.SetTypingLimit(3);
  for (const char character : {'a', 'b', 'c', 'd'}) this->TypeKey(character);
  EXPECT_EQ(this->field.Content(), u"abc");
}

TYPED_TEST(CardFieldTest, TypeTakesEveryCodeLiterally) {
  for (int code = 0; code < 256; ++code) {
    this->Show(u"ab", 1);
    this->field.Type(Code(code));
    const Text expected = code == 8   ? Text(u"b")
                          : code < 32 ? Text(u"ab")
                                      : u"a" + TextOfCode(code) + u"b";
    EXPECT_EQ(this->field.Content(), expected) << code;
  }
}

TYPED_TEST(CardFieldTest, TypeReplacesTheSelection) {
  this->Show(u"abcd", 1, 2);
  this->field.Type(Code(0xE9));
  EXPECT_EQ(this->field.Content(), u"a\u00E9d");
  this->Show(u"abcd", 1, 2);
  this->field.Type(Code(8));
  EXPECT_EQ(this->field.Content(), u"ad");
}

TYPED_TEST(CardFieldTest, TypeKeepsTheSelectionWhereItTypesNothing) {
  for (int code = 0; code < 32; ++code) {
    if (code == 8) continue;
    this->Show(u"abcd", 1, 2);
    this->field.Type(Code(code));
    EXPECT_EQ(this->field.Content(), u"abcd");
  }
}

TYPED_TEST(CardFieldTest, TypeStopsAtTheLimitAndStillDeletes) {
  this->ShowFull();
  for (int code = 0; code < 256; ++code) {
    if (code != 8) this->field.Type(Code(code));
  }
  EXPECT_EQ(this->field.Content(), Text(256, u'a'));
  this->field.Type(Code(8));
  EXPECT_EQ(this->field.Content(), Text(255, u'a'));
}

TYPED_TEST(CardFieldTest, TypeCanBeUndone) {
  this->Show(u"abc", 3);
  this->field.Type(Code('x'));
  this->edit.undo();
  EXPECT_EQ(this->field.Content(), u"abc");
}

TYPED_TEST(CardFieldTest, AFieldThatCannotBeWrittenStaysAsItIs) {
  this->Assign('3', '2', 'E', 'x');
  this->Show(u"abc");
  this->edit.setReadOnly(true);
  this->Press(Qt::Key_E, Qt::ControlModifier);
  this->field.Type(Code('x'));
  this->field.Type(Code(8));
  EXPECT_EQ(this->field.Content(), u"abc");
}

TYPED_TEST(CardFieldTest, KeepsTheNoBreakSpace) {
  this->field.SetContent(u"a\u00A0b");
  EXPECT_EQ(this->field.Content(), u"a\u00A0b");
}

TYPED_TEST(CardFieldTest, ANewContentCannotBeUndone) {
  this->TypeKey('a');
  this->field.SetContent(u"next card");
  this->edit.undo();
  EXPECT_EQ(this->field.Content(), u"next card");
}

using PageFieldTest = CardFieldTest<QPlainTextEdit>;

TEST_F(PageFieldTest, LineBreaksAreCrLfInMemoryAndLfInTheBox) {
  field.SetContent(u"a\r\nb\r\n");
  EXPECT_EQ(edit.toPlainText(), QStringLiteral("a\nb\n"));
  EXPECT_EQ(field.Content(), u"a\r\nb\r\n");
}

TEST_F(PageFieldTest, ALineBreakCountsAsTwoCharacters) {
  Show(Text(127, u'a') + u"\r\n" + Text(126, u'a'), 0);
  TypeKey('b');
  TypeKey('c');
  EXPECT_EQ(field.Content(), u"b" + Text(127, u'a') + u"\r\n" + Text(126, u'a'));
}

TEST_F(PageFieldTest, AnAssignedCharacterGoesToTheCaretBehindLineBreaks) {
  Assign('3', '2', 'E', 'x');
  Show(u"a\r\nb\r\nc", 3);
  Press(Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(field.Content(), u"a\r\nbx\r\nc");
  EXPECT_EQ(CaretIn(edit), 4);
}

TEST_F(PageFieldTest, AnAssignedLineFeedBecomesALineBreak) {
  Assign('3', '2', 'E', 10);
  Show(u"ab", 1);
  Press(Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(field.Content(), u"a\r\nb");
}

TEST_F(PageFieldTest, APastedLineBreakIsCrLfInMemory) {
  QApplication::clipboard()->setText(QStringLiteral("a\nb\r\nc"));
  QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(field.Content(), u"a\r\nb\r\nc");
}

TEST_F(PageFieldTest, AnInputMethodHasTheRoomOfASelectedLineBreak) {
  Show(u"\r\n" + Text(253, u'a'), 0, 1);
  Commit("wxyz");
  EXPECT_EQ(field.Content(), u"wxy" + Text(253, u'a'));
}

/// A window with a menu bar, two fields and another control.
class CardFieldInWindowTest : public KeyboardTest {
 protected:
  CardFieldInWindowTest() {
    auto* const body = new QWidget;
    auto* const column = new QVBoxLayout(body);
    column->addWidget(line);
    column->addWidget(page);
    column->addWidget(button);
    window.setCentralWidget(body);
    menu = window.menuBar()->addMenu(QStringLiteral("&Edit"));
    menu->addAction(QStringLiteral("Item"));
    QObject::connect(field, &CardField::GotFocus, [this] { ++gained; });
    QObject::connect(field, &CardField::LostFocus, [this] { ++lost; });
    line->setFocus();
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  void Borrow(Qt::FocusReason reason) {
    QFocusEvent out(QEvent::FocusOut, reason);
    QCoreApplication::sendEvent(line, &out);
  }
  void GiveBack(Qt::FocusReason reason) {
    QFocusEvent in(QEvent::FocusIn, reason);
    QCoreApplication::sendEvent(line, &in);
  }

  QMainWindow window;
  QLineEdit* line = new QLineEdit;
  QPlainTextEdit* page = new QPlainTextEdit;
  QPushButton* button = new QPushButton;
  CardField* field = new CardField(line, keys);
  QMenu* menu = nullptr;
  int gained = 0;
  int lost = 0;
};

TEST_F(CardFieldInWindowTest, AnAssignedKeystrokeBeatsAMenuShortcut) {
  int triggered = 0;
  QAction* const action = menu->addAction(QStringLiteral("Export"));
  action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
  QObject::connect(action, &QAction::triggered, [&] { ++triggered; });
  Assign('3', '2', 'E', 0xE9);
  QTest::keyClick(line, Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(triggered, 0);
  EXPECT_EQ(field->Content(), u"\u00E9");
}

TEST_F(CardFieldInWindowTest, AMenuShortcutWorksWithoutAnAssignment) {
  int triggered = 0;
  QAction* const action = menu->addAction(QStringLiteral("Export"));
  action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
  QObject::connect(action, &QAction::triggered, [&] { ++triggered; });
  QTest::keyClick(line, Qt::Key_E, Qt::ControlModifier);
  EXPECT_EQ(triggered, 1);
}

TEST_F(CardFieldInWindowTest, AnAssignedKeystrokeBeatsAMnemonic) {
  Assign('3', '4', 'E', 0xE9);
  QTest::keyClick(line, Qt::Key_E, Qt::AltModifier);
  EXPECT_FALSE(menu->isVisible());
  EXPECT_EQ(field->Content(), u"\u00E9");
}

TEST_F(CardFieldInWindowTest, AMnemonicWorksWithoutAnAssignment) {
  QTest::keyClick(line, Qt::Key_E, Qt::AltModifier);
  EXPECT_TRUE(menu->isVisible());
  menu->close();
}

TEST_F(CardFieldInWindowTest, ASwallowedKeystrokeOpensNoMenuEither) {
  Assign('3', '2', 'E', 0xE9);
  QTest::keyClick(line, Qt::Key_E, Qt::AltModifier);
  EXPECT_FALSE(menu->isVisible());
  EXPECT_EQ(field->Content(), u"");
}

TEST_F(CardFieldInWindowTest, TellsOfTheFirstFocus) { EXPECT_EQ(gained, 1); }

TEST_F(CardFieldInWindowTest, TellsWhenAnotherControlTakesTheFocus) {
  button->setFocus();
  EXPECT_EQ(lost, 1);
  line->setFocus();
  EXPECT_EQ(gained, 2);
  EXPECT_EQ(lost, 1);
}

TEST_F(CardFieldInWindowTest, TabLeavesAPage) {
  const CardField pageField(page, keys);
  page->setFocus();
  QTest::keyClick(page, Qt::Key_Tab);
  EXPECT_TRUE(button->hasFocus());
  EXPECT_EQ(pageField.Content(), u"");
}

TEST_F(CardFieldInWindowTest, SaysNothingWhenAMenuOpensAndCloses) {
  QTest::keyClick(line, Qt::Key_E, Qt::AltModifier);
  ASSERT_TRUE(menu->isVisible());
  QTest::keyClick(menu, Qt::Key_Escape);
  QTest::keyClick(window.menuBar(), Qt::Key_Escape);
  EXPECT_TRUE(line->hasFocus());
  EXPECT_EQ(gained, 1);
  EXPECT_EQ(lost, 0);
}

TEST_F(CardFieldInWindowTest, SaysNothingWhenAnotherWindowIsActive) {
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  ASSERT_FALSE(line->hasFocus());
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  EXPECT_EQ(gained, 1);
  EXPECT_EQ(lost, 0);
}

TEST_F(CardFieldInWindowTest, TellsWhenTheFocusWentElsewhereBehindAnotherWindow) {
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  button->setFocus();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  ASSERT_TRUE(button->hasFocus());
  EXPECT_EQ(lost, 1);
}

TEST_F(CardFieldInWindowTest, KeepsItsSelectionWhileTheMenuBarHasTheFocus) {
  for (const bool backwards : {false, true}) {
    line->setText(QStringLiteral("abcd"));
    if (backwards) {
      line->setSelection(3, -2);
    } else {
      line->setSelection(1, 2);
    }
    const int caret = line->cursorPosition();
    Borrow(Qt::MenuBarFocusReason);
    ASSERT_FALSE(line->hasSelectedText());
    GiveBack(Qt::MenuBarFocusReason);
    EXPECT_EQ(line->selectedText(), QStringLiteral("bc"));
    EXPECT_EQ(line->cursorPosition(), caret);
  }
}

TEST_F(CardFieldInWindowTest, ForgetsTheSelectionOfATextThatHasChanged) {
  line->setText(QStringLiteral("abcd"));
  line->setSelection(1, 2);
  Borrow(Qt::MenuBarFocusReason);
  line->setText(QStringLiteral("a"));
  GiveBack(Qt::MenuBarFocusReason);
  EXPECT_FALSE(line->hasSelectedText());
}

}  // namespace

#include "windows/main/DesktopPrompts.h"

#include "tests/window/WindowFixture.h"
#include "windows/frame/Pointer.h"

#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QMessageBox>
#include <QProxyStyle>
#include <QPushButton>

#include <tuple>

namespace {

class DesktopPromptsTest : public WindowTest {
 protected:
  Answer Ask(const Prompt& prompt, const std::function<void(QMessageBox&)>& act) {
    Answer answer{};
    WithModal<QMessageBox>([&] { answer = DesktopPrompts().Show(prompt); }, act);
    return answer;
  }
};

TEST_F(DesktopPromptsTest, ShowsTextTitleIconAndButtonsAsTheyAre) {
  Ask({.text = u"a <b>\r\n& c",
       .icon = PromptIcon::Exclamation,
       .buttons = PromptButtons::OkCancel},
      [](QMessageBox& box) {
        EXPECT_EQ(box.text(), "a <b>\n& c");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), "Quib!Cards 5.50");
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
        box.button(QMessageBox::Cancel)->click();
      });
}

TEST_F(DesktopPromptsTest, ShowsWhatFollowsAnEmptyLineBelowTheMessage) {
  Ask({.text = u"Overflow\r\n\r\nCard 1: <b>x</b>\r\ncannot be saved"}, [](QMessageBox& box) {
    EXPECT_EQ(box.text(), "Overflow");
    EXPECT_EQ(box.informativeText(), "Card 1: <b>x</b>\ncannot be saved");
    EXPECT_EQ(Find<QLabel>(box, "qt_msgbox_informativelabel").textFormat(), Qt::PlainText);
    box.button(QMessageBox::Ok)->click();
  });
}

TEST_F(DesktopPromptsTest, GivesTheButtonThatWasPressed) {
  const Prompt question{.text = u"?", .buttons = PromptButtons::YesNo};
  EXPECT_EQ(Ask(question, [](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); }),
            Answer::Yes);
  EXPECT_EQ(Ask(question, [](QMessageBox& box) { box.button(QMessageBox::No)->click(); }),
            Answer::No);
}

TEST_F(DesktopPromptsTest, EscapeMeansNoCancelOrOk) {
  const auto escape = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); };
  EXPECT_EQ(Ask({.text = u"?", .buttons = PromptButtons::YesNo}, escape), Answer::No);
  EXPECT_EQ(Ask({.text = u"?", .buttons = PromptButtons::OkCancel}, escape), Answer::Cancel);
  EXPECT_EQ(Ask({.text = u"?"}, escape), Answer::Ok);
}

TEST_F(DesktopPromptsTest, EnterPressesTheFirstButtonUnlessRefusingIsProposed) {
  const auto enter = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); };
  for (const bool refusal : {false, true}) {
    EXPECT_EQ(
        Ask({.text = u"?", .buttons = PromptButtons::OkCancel, .proposesRefusal = refusal}, enter),
        refusal ? Answer::Cancel : Answer::Ok);
    EXPECT_EQ(
        Ask({.text = u"?", .buttons = PromptButtons::YesNo, .proposesRefusal = refusal}, enter),
        refusal ? Answer::No : Answer::Yes);
  }
}

/// A desktop that lays the buttons out its own way, and by that picks the one that Enter presses.
class LayoutStyle : public QProxyStyle {
 public:
  explicit LayoutStyle(int layout) : m_layout(layout) {}
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override {
    if (hint == SH_DialogButtonLayout) return m_layout;
    return QProxyStyle::styleHint(hint, option, widget, returned);
  }

 private:
  int m_layout;
};

TEST_F(DesktopPromptsTest, TheProposedButtonIsTheSameOnEveryDesktop) {
  const auto enter = [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); };
  const QString before = QApplication::style()->name();
  for (int layout = QDialogButtonBox::WinLayout; layout <= QDialogButtonBox::AndroidLayout;
       ++layout) {
    SCOPED_TRACE(layout);
    QApplication::setStyle(new LayoutStyle(layout));
    for (const bool refusal : {false, true}) {
      for (const auto& [buttons, accepting, refusing] :
           {std::tuple(PromptButtons::YesNo, Answer::Yes, Answer::No),
            std::tuple(PromptButtons::OkCancel, Answer::Ok, Answer::Cancel),
            std::tuple(PromptButtons::Ok, Answer::Ok, Answer::Ok)}) {
        EXPECT_EQ(Ask({.text = u"?", .buttons = buttons, .proposesRefusal = refusal}, enter),
                  refusal ? refusing : accepting);
      }
    }
  }
  QApplication::setStyle(before);
}

TEST_F(DesktopPromptsTest, AQuestionIsAnsweredWithTheNormalPointer) {
  const BusyPointer busy;
  Ask({.text = u"?"}, [](QMessageBox& box) {
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    box.button(QMessageBox::Ok)->click();
  });
  EXPECT_NE(QApplication::overrideCursor(), nullptr);
}

TEST_F(DesktopPromptsTest, ASmallBoxIsWideEnoughForItsTitle) {
  for (const Text& title : {Text(ProgramTitle), Text(ProgramTitle) + u" Error"}) {
    Ask({.text = u"?", .title = title}, [&](QMessageBox& box) {
      QFont font = QFontDatabase::systemFont(QFontDatabase::TitleFont);
      font.setBold(true);
      EXPECT_GE(box.width(), QFontMetrics(font).horizontalAdvance(ToQString(title)) + 80);
      box.button(QMessageBox::Ok)->click();
    });
  }
}

}  // namespace

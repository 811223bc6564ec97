#include "tests/window/WindowFixture.h"
#include "windows/authoring/frmCreate.h"
#include "windows/authoring/frmEdit.h"
#include "windows/authoring/frmFind.h"
#include "windows/keys/frmAddKey.h"
#include "windows/keys/frmMoreKeys.h"
#include "windows/printing/frmPrint.h"
#include "windows/study/StudyWindows.h"
#include "windows/study/frmStepper.h"

#include <QAccessible>
#include <QWindow>

namespace {

QString OnDesktop(const QString& title) {
  QWidget window;
  window.setWindowTitle(title);
  window.show();
  return window.windowHandle()->title();
}

TEST(TitleText, ShowsEachNameAsItIsCalled) {
  for (const char16_t* const name : {u"[*]", u"a[*]b", u"[*][*]", u"x[*][*][*]", u"[[*]]", u"[*",
                                     u"*]", u"&R && D", u"<b>é</b>", u"\u65E5\u672C \U0001F415"}) {
    EXPECT_EQ(OnDesktop(TitleText(name)), QString::fromUtf16(name));
  }
  EXPECT_EQ(TitleText(u""), QString());
}

TEST(TitleText, ShowsControlCharactersAsBlanks) {
  EXPECT_EQ(TitleText(u"a\nb\r\nc\td\x01\x1F"
                      u"e\x7F\x80\x9F"
                      u"f"),
            "a b  c d  e   f");
  EXPECT_EQ(TitleText(u"a\u2028b\u2029c"), "a b c");
  EXPECT_EQ(TitleText(Text(u"a\0b", 3)), "a b");
}

/// A stack, a topic and a font that are called what no window title may hold.
class WindowTitlesTest : public WindowTest {
 protected:
  WindowTitlesTest() {
    LoadStack(u"s[*]\x01t", 2);
    shared.Topics.Names.at(0) = u"o[*]\np";
    shared.Topic.Fonts.BackFont = u"f[*]\x02";
  }

  static void ExpectNames(QWidget& window, std::initializer_list<const char*> names) {
    window.show();
    WaitUntilActive(window);
    const QString title = window.windowHandle()->title();
    const QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(&window);
    for (const char* const name : names) {
      EXPECT_TRUE(title.contains(QLatin1String(name))) << title.toStdString();
    }
    EXPECT_EQ(told->text(QAccessible::Name), title);
    for (const QChar character : title) EXPECT_TRUE(character.isPrint()) << title.toStdString();
  }
};

TEST_F(WindowTitlesTest, NameStacksTopicsAndFontsAsTheyAreCalled) {
  shared.Switches.PrintMode = true;
  frmPrint print(shared, platform, nullptr);
  ExpectNames(print, {"s[*] t"});
  shared.Switches.PrintMode = false;
  frmPrint fonts(shared, platform, nullptr);
  ExpectNames(fonts, {"o[*] p"});
  frmAddKey keys(shared, platform, nullptr);
  ExpectNames(keys, {"o[*] p"});
  shared.Switches.KeyCodeToSend = -2;
  frmMoreKeys chart(shared, platform, nullptr, shared.Topic.Fonts);
  ExpectNames(chart, {"f[*] "});
  StudyWindows studyWindows(shared, platform);
  ExpectNames(studyWindows.Open(), {"s[*] t", "o[*] p"});
  frmFind find(shared, platform, nullptr);
  WithModal<frmFind>([&] { find.ShowForSearch(); },
                     [](frmFind& window) {
                       ExpectNames(window, {"s[*] t"});
                       window.close();
                     });
  frmEdit edit(shared, platform, nullptr, find);
  ExpectNames(edit, {"s[*] t", "o[*] p"});
  shared.Switches.AddCardsMode = true;
  {
    frmCreate add(shared, platform, nullptr);
    ExpectNames(add, {"s[*] t", "o[*] p"});
  }
  shared.Switches.AddCardsMode = false;
  frmCreate create(shared, platform, nullptr);
  ExpectNames(create, {"o[*] p"});
}

}  // namespace

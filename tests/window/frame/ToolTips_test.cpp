#include "windows/frame/ToolTips.h"

#include "tests/window/WindowFixture.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QToolTip>

namespace {

class ToolTipsTest : public WindowTest {
 protected:
  ToolTipsTest() {
    label.resize(100, 50);
    label.show();
    WaitUntilActive(label);
  }
  QString Shown() {
    QToolTip::hideText();
    QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), label.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&label, &event);
    return QToolTip::text();
  }
  QString Read(QAccessible::Text kind) {
    return QAccessible::queryAccessibleInterface(&label)->text(kind);
  }
  QLabel label{QStringLiteral("name")};
};

TEST_F(ToolTipsTest, ASilentToolTipIsShownAndNotReadOut) {
  SetSilentToolTip(label, u"<b>R&D</b>");
  EXPECT_EQ(Shown(), PlainToolTip(u"<b>R&D</b>"));
  EXPECT_EQ(SilentToolTip(label), "<b>R&D</b>");
  EXPECT_EQ(Read(QAccessible::Name), "name");
  EXPECT_EQ(Read(QAccessible::Description), "");
}

TEST_F(ToolTipsTest, TheLastOneIsShown) {
  SetSilentToolTip(label, u"first");
  SetSilentToolTip(label, u"second");
  EXPECT_EQ(Shown(), PlainToolTip(u"second"));
  SetSilentToolTip(label, u"");
  EXPECT_EQ(SilentToolTip(label), "");
}

}  // namespace

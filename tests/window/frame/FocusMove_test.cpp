#include "windows/frame/FocusMove.h"

#include <QFocusEvent>

#include <gtest/gtest.h>

TEST(IsFocusMove, NotForMenusPopupsAndOtherWindows) {
  for (const QEvent::Type way : {QEvent::FocusIn, QEvent::FocusOut}) {
    for (const Qt::FocusReason reason :
         {Qt::MenuBarFocusReason, Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
      EXPECT_FALSE(IsFocusMove(QFocusEvent(way, reason)));
    }
    for (const Qt::FocusReason reason :
         {Qt::MouseFocusReason, Qt::TabFocusReason, Qt::BacktabFocusReason, Qt::ShortcutFocusReason,
          Qt::OtherFocusReason}) {
      EXPECT_TRUE(IsFocusMove(QFocusEvent(way, reason)));
    }
  }
}

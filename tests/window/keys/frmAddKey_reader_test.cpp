#include "tests/window/WindowFixture.h"
#include "windows/keys/frmAddKey.h"

#include <QAccessible>
#include <QListWidget>

namespace {

class frmAddKeyByScreenReaderTest : public WindowTest {};

TEST_F(frmAddKeyByScreenReaderTest, ARowCanBeChosenThatHasNotTheFocus) {
  frmAddKey window(shared, platform, nullptr);
  window.show();
  WaitUntilActive(window);
  auto& list = Find<QListWidget>(window, "lstAddKey");
  ASSERT_EQ(list.currentRow(), -1);
  QAccessibleInterface* const row = QAccessible::queryAccessibleInterface(&list)->child(5);
  ASSERT_NE(row, nullptr);
  row->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  ASSERT_TRUE(list.item(5)->isSelected());
  const auto code = static_cast<int>(list.item(5)->text().at(0).unicode());
  EXPECT_EQ(TextOf(window, "sspAscCode"), QStringLiteral("%1").arg(code, 4, 10, QChar(u'0')));
}

}  // namespace

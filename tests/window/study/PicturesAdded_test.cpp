#include "tests/window/study/StudyFixture.h"

#include <QTemporaryDir>

namespace {

using PicturesAddedTest = StudyWindowTest;

TEST_F(PicturesAddedTest, TheFirstPictureOfAStackIsShownInAWindowThatIsOpen) {
  frmStepper& window = Open(2, {1, 2});
  Next(window);
  EXPECT_TRUE(Find<QWidget>(window, "picTop").isHidden());
  QImage picture(8, 8, QImage::Format_RGB32);
  picture.fill(Qt::red);
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("red.bmp"));
  ASSERT_TRUE(picture.save(file));
  files.Put(ToText(file), "there");
  shared.Stacks.Current().SetSidePicture(2, Front, ToText(file));  // as the editor does
  Next(window, 2);
  auto& area = Find<QWidget>(window, "picTop");
  EXPECT_TRUE(area.isVisible());
  QApplication::processEvents();
  EXPECT_GT(area.height(), 0);
  const QImage shot = area.grab().toImage();
  EXPECT_EQ(shot.pixelColor(shot.rect().center()), QColor(Qt::red));
}

}  // namespace

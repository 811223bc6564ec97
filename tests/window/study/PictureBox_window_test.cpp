#include "tests/support/PictureBytes.h"
#include "windows/study/PictureBox.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <vector>

using namespace std::chrono_literals;
using namespace std::string_literals;

namespace {

constexpr int Progressive = 0xC2;

class PictureBoxTest : public testing::Test {
 protected:
  PictureBoxTest() {
    box.setAutoFillBackground(true);
    QPalette palette = box.palette();
    palette.setColor(QPalette::Window, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    box.setPalette(palette);
    box.resize(400, 300);
    QObject::connect(&box, &PictureBox::Failed,
                     [this](PictureFault fault) { faults.push_back(fault); });
    box.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&box));
  }

  QString Path(const char* name) const { return folder.filePath(QLatin1String(name)); }

  QString Write(const char* name, const std::string& bytes) const {
    QFile file(Path(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    return file.fileName();
  }

  static QImage Coloured(QSize size, const QColor& colour) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
  }

  QString Save(const char* name, const QImage& image) const {
    EXPECT_TRUE(image.save(Path(name)));
    return Path(name);
  }

  void ShowWhole(const QString& path) {
    box.Show(path);
    while (box.IsLoading()) box.WaitUntilLoaded();  // however slow the machine is
  }

  void ExpectFault(const QString& path, PictureFault fault) {
    faults.clear();
    ShowWhole(path);
    EXPECT_EQ(faults, std::vector{fault}) << path.toStdString();
    EXPECT_EQ(box.accessibleName(), "No picture");
  }

  /// A pixel of the box by its place in the window's coordinates, whatever the scale factor.
  QColor PixelAt(QPointF place) {
    const QImage shot = box.grab().toImage();
    return shot.pixelColor((place * shot.devicePixelRatio()).toPoint());
  }

  /// Width and height, in the window's coordinates, of what is red.
  QSizeF RedPart() {
    const QImage shot = box.grab().toImage();
    QRect red;
    for (int y = 0; y < shot.height(); ++y) {
      for (int x = 0; x < shot.width(); ++x) {
        const QColor colour = shot.pixelColor(x, y);
        if (colour.red() > 200 && colour.green() < 60) red |= QRect(x, y, 1, 1);
      }
    }
    return QSizeF(red.size()) / shot.devicePixelRatio();
  }

  QTemporaryDir folder;
  PictureBox box{nullptr};
  std::vector<PictureFault> faults;
};

TEST_F(PictureBoxTest, AVectorPictureUnderAnyNameIsNotReadAndNamesNoOtherFile) {
  const std::string svg =
      "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
      "width='9' height='9'><image xlink:href='/dev/zero' width='9' height='9'/></svg>";
  for (const char* const name : {"x.bmp", "x.jpg", "x.gif"}) {
    ExpectFault(Write(name, svg), PictureFault::Unreadable);
  }
}

TEST_F(PictureBoxTest, OtherFormatsOfTheToolkitAreRefused) {
  for (const char* const format : {"png", "xpm", "ppm", "ico", "webp", "tiff"}) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!Coloured({9, 9}, Qt::red).save(&buffer, format)) continue;  // the toolkit can't write it
    ExpectFault(Write("other.bmp", bytes.toStdString()), PictureFault::Unreadable);
  }
}

TEST_F(PictureBoxTest, APictureUnderAnothersExtensionIsShown) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  ASSERT_TRUE(Coloured({40, 30}, Qt::red).save(&buffer, "bmp"));
  ShowWhole(Write("x.gif", bytes.toStdString()));
  EXPECT_EQ(RedPart(), QSizeF(40, 30));
}

TEST_F(PictureBoxTest, OnlyRegularFilesAreRead) {
  const QString pipe = Path("pipe.jpg");
  ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
  ExpectFault(pipe, PictureFault::Unreadable);
  ASSERT_TRUE(QFile::link(QStringLiteral("/dev/zero"), Path("device.bmp")));
  ExpectFault(Path("device.bmp"), PictureFault::Unreadable);
  ExpectFault(folder.path(), PictureFault::Unreadable);
  ExpectFault(Path("absent.bmp"), PictureFault::Unreadable);
}

TEST_F(PictureBoxTest, AHugeProgressiveJpegIsRefusedBeforeItIsDecoded) {
  ExpectFault(Write("huge.jpg", Jpeg(Frame(Progressive, 46000, 46000) + Scan())),
              PictureFault::TooLarge);
}

TEST_F(PictureBoxTest, AJpegThatIsCutOffIsReported) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  ASSERT_TRUE(Coloured({400, 300}, Qt::red).save(&buffer, "jpg"));
  ExpectFault(Write("cut.jpg", bytes.left(bytes.size() / 2).toStdString()),
              PictureFault::Unreadable);
}

TEST_F(PictureBoxTest, BrokenContentBehindAGoodHeaderIsReported) {
  ExpectFault(Write("broken.jpg", Jpeg(Frame(0xC0, 9, 9) + Scan())), PictureFault::Unreadable);
}

TEST_F(PictureBoxTest, ABmpOf36MegapixelsIsShown) {
  QFile file(Write("large.bmp", BmpHeader(6000, 6000)));
  ASSERT_TRUE(file.resize(54 + 6000LL * 6000 * 3));  // the pixels are zeros
  ShowWhole(file.fileName());
  EXPECT_TRUE(faults.empty());
  EXPECT_EQ(PixelAt({200, 150}), QColor(Qt::black));
}

TEST_F(PictureBoxTest, ItIsDecodedOnceAndScaledFromThere) {
  const QString path = Save("red.bmp", Coloured({600, 300}, Qt::red));
  ShowWhole(path);
  ASSERT_TRUE(QFile::remove(path));
  for (const QSize size : {QSize(200, 300), QSize(700, 400), QSize(300, 100)}) {
    box.resize(size);
    const QSizeF room = size - QSize(2, 2);
    const QSizeF fitting = QSizeF(600, 300).scaled(room, Qt::KeepAspectRatio);
    const QSizeF expected = room.width() < 600 ? fitting : QSizeF(600, 300);
    EXPECT_NEAR(RedPart().width(), expected.width(), 2);
    EXPECT_NEAR(RedPart().height(), expected.height(), 2);
  }
}

TEST_F(PictureBoxTest, ASmallPictureHasItsOwnSize) {
  ShowWhole(Save("red.bmp", Coloured({300, 200}, Qt::red)));
  EXPECT_EQ(RedPart(), QSizeF(300, 200));
  const int scale = qEnvironmentVariableIsSet("QT_SCALE_FACTOR") ? 2 : 1;
  EXPECT_EQ(box.devicePixelRatioF(), scale);
}

/// The same test once more in a program of twice the scale.
TEST_F(PictureBoxTest, ASmallPictureIsAsLargeAtTwiceTheScale) {
  QProcess doubled;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("2"));
  doubled.setProcessEnvironment(environment);
  doubled.setProcessChannelMode(QProcess::MergedChannels);
  doubled.start(QCoreApplication::applicationFilePath(),
                {QStringLiteral("--gtest_filter=PictureBoxTest.ASmallPictureHasItsOwnSize")});
  ASSERT_TRUE(doubled.waitForFinished());
  const QByteArray said = doubled.readAll();
  EXPECT_EQ(doubled.exitCode(), 0) << said.constData();
  EXPECT_TRUE(said.contains("[  PASSED  ] 1 test")) << said.constData();
}

TEST_F(PictureBoxTest, APictureIsTurnedAsItAsks) {
  QImage image = Coloured({80, 40}, Qt::red);
  for (int y = 0; y < 40; ++y) {
    for (int x = 40; x < 80; ++x) image.setPixelColor(x, y, Qt::blue);
  }
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  ASSERT_TRUE(image.save(&buffer, "jpg", 100));
  // One entry: orientation, a short, once; 6 says that the left side is the top.
  const std::string turn =
      "Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0\x06\0\0\0\0\0\0\0"s;
  const std::string jpeg = bytes.toStdString();
  ShowWhole(Write("turned.jpg", jpeg.substr(0, 2) + Segment(0xE1, turn) + jpeg.substr(2)));
  EXPECT_GT(PixelAt({200, 150 - 30}).red(), 200);
  EXPECT_GT(PixelAt({200, 150 + 30}).blue(), 200);
  EXPECT_EQ(PixelAt({200 - 30, 150}), QColor(Qt::white));
}

TEST_F(PictureBoxTest, ALineTellsAWhitePictureFromAWhiteCard) {
  ShowWhole(Save("white.bmp", Coloured({100, 100}, Qt::white)));
  EXPECT_EQ(PixelAt({200, 150}), QColor(Qt::white));
  for (const QPoint onTheLine :
       {QPoint(149, 150), QPoint(250, 150), QPoint(200, 99), QPoint(200, 200)}) {
    EXPECT_LT(PixelAt(onTheLine).lightness(), 200) << onTheLine.x() << ' ' << onTheLine.y();
  }
  EXPECT_EQ(PixelAt({147, 150}), QColor(Qt::white));
}

TEST_F(PictureBoxTest, TheNextPictureTakesThePlaceOfOneThatIsStillLoaded) {
  const QString red = Save("red.bmp", Coloured({50, 50}, Qt::red));
  const QString blue = Save("blue.bmp", Coloured({50, 50}, Qt::blue));
  for (int i = 0; i < 20; ++i) {
    box.Show(red);
    box.Show(QString());
    EXPECT_FALSE(box.IsLoading());
    box.Show(red);
    box.Show(blue);
    box.WaitUntilLoaded();
    EXPECT_EQ(PixelAt({200, 150}), QColor(Qt::blue));
  }
  EXPECT_TRUE(faults.empty());
}

TEST_F(PictureBoxTest, APictureFollowsByItselfWhenItIsDecoded) {
  box.Show(Save("red.bmp", Coloured({3000, 3000}, Qt::red)));
  EXPECT_TRUE(QTest::qWaitFor([&] { return !box.IsLoading(); }));
  EXPECT_TRUE(QTest::qWaitFor([&] { return RedPart().height() > 290; }));
}

TEST(DecodePicture, GetsNoMoreOfTheFileThanThereIsTimeFor) {
  const std::string file = Bmp(50, 50);
  int asked = 0;
  const auto count = [&] { return ++asked > 0; };
  EXPECT_EQ(DecodePicture(file, {100, 100}, count).fault, PictureFault::None);
  ASSERT_GT(asked, 10);
  for (int enough = 0; enough < asked; ++enough) {
    int left = enough;
    const auto runsOut = [&] { return left-- > 0; };
    EXPECT_EQ(DecodePicture(file, {100, 100}, runsOut).fault, PictureFault::TooSlow) << enough;
  }
}

TEST(DecodePicture, FitsIntoItsBounds) {
  const auto always = [] { return true; };
  const DecodedPicture picture = DecodePicture(Bmp(500, 20), {100, 100}, always);
  EXPECT_EQ(picture.fullSize, QSize(500, 20));
  EXPECT_EQ(picture.image.size(), QSize(100, 4));
  EXPECT_EQ(DecodePicture(Bmp(3000, 1), {100, 100}, always).image.size(), QSize(100, 1));
}

}  // namespace

#include "tests/support/PictureBytes.h"
#include "tests/window/study/StudyFixture.h"
#include "windows/study/PictureBox.h"

#include <QDir>
#include <QImage>
#include <QPointer>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>

namespace {

class CardMediaWindow : public StudyWindowTest {
 protected:
  CardMediaWindow() {
    files.Put(u"/cards/q.wav", "RIFF");
    files.Put(u"/cards/a.wav", "RIFF");
  }

  frmStepper& OpenWithSounds() {
    CardStack& stack = LoadStack(u"Verbs", 2);
    stack.SetSideSound(1, Front, u"/cards/q.wav");
    stack.SetSideSound(1, Back, u"/cards/a.wav");
    return OpenOnCurrent({1, 2});
  }

  /// A picture file on the real disk that the double knows too.
  Text PutPicture(const char* name, const QColor& colour, const QSize& size = {20, 10}) {
    const QString path = folder.filePath(QLatin1String(name));
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(colour);
    EXPECT_TRUE(picture.save(path));
    files.Put(ToText(path), "picture");
    return ToText(path);
  }

  /// The picture box as it looks once its picture is there.
  static QImage Shown(QObject& window) {
    auto& picture = Find<PictureBox>(window, "picTop");
    picture.WaitUntilLoaded();
    return picture.grab().toImage();
  }

  static QColor MiddleOf(QObject& window) {
    const QImage shot = Shown(window);
    return shot.pixelColor(shot.rect().center());
  }

  QTemporaryDir folder;
};

TEST_F(CardMediaWindow, TheQuestionsSoundPlaysOnceItIsOnTheScreen) {
  frmStepper& window = OpenWithSounds();
  sound.whilePlaying = [&] { EXPECT_EQ(TextOf(window, "lblTop"), "front 1"); };
  Next(window);
  EXPECT_EQ(sound.played, std::vector<Text>{u"/cards/q.wav"});
  EXPECT_TRUE(IsEnabled(window, "ssrSound(0)"));
  EXPECT_FALSE(IsEnabled(window, "ssrSound(1)"));
}

TEST_F(CardMediaWindow, TheAnswersSoundPlaysWithTheAnswer) {
  frmStepper& window = OpenWithSounds();
  Next(window, 2);
  EXPECT_EQ(sound.played, (std::vector<Text>{u"/cards/q.wav", u"/cards/a.wav"}));
  EXPECT_TRUE(IsEnabled(window, "ssrSound(1)"));
}

TEST_F(CardMediaWindow, TheSoundButtonsPlayAgain) {
  frmStepper& window = OpenWithSounds();
  Next(window, 2);
  sound.played.clear();
  Click(window, "ssrSound(1)");
  Click(window, "ssrSound(0)");
  EXPECT_EQ(sound.played, (std::vector<Text>{u"/cards/a.wav", u"/cards/q.wav"}));
  EXPECT_FALSE(Find<QToolButton>(window, "ssrSound(0)").isChecked());
}

TEST_F(CardMediaWindow, ACardWithoutSoundsDisablesTheButtons) {
  frmStepper& window = OpenWithSounds();
  Next(window, 3);
  EXPECT_FALSE(IsEnabled(window, "ssrSound(0)"));
  EXPECT_FALSE(IsEnabled(window, "ssrSound(1)"));
}

TEST_F(CardMediaWindow, WithoutPlaySoundTheButtonsAreEnabledAndSilent) {
  shared.Timer.NoSound = true;
  frmStepper& window = OpenWithSounds();
  Next(window, 2);
  EXPECT_TRUE(IsEnabled(window, "ssrSound(0)"));
  Click(window, "ssrSound(0)");
  EXPECT_TRUE(sound.played.empty());
}

TEST_F(CardMediaWindow, AMissingSoundIsSilent) {
  LoadStack(u"Verbs", 1).SetSideSound(1, Front, u"/cards/absent.wav");
  frmStepper& window = OpenOnCurrent({1});
  Next(window);
  EXPECT_TRUE(sound.played.empty());
  EXPECT_TRUE(IsEnabled(window, "ssrSound(0)"));
}

TEST_F(CardMediaWindow, TurningOverSwapsTheSounds) {
  frmStepper& window = OpenWithSounds();
  Next(window, 2);
  sound.played.clear();
  Click(window, "ssoBack");
  Click(window, "ssrSound(0)");
  EXPECT_EQ(sound.played, std::vector<Text>{u"/cards/a.wav"});
}

TEST_F(CardMediaWindow, TheTimerStartsAfterTheSound) {
  shared.Timer.TimerInterval = 10;
  frmStepper& window = OpenWithSounds();
  sound.whilePlaying = [&] { EXPECT_FALSE(Find<QTimer>(window, "tmrTimer").isActive()); };
  Next(window);
  EXPECT_TRUE(Find<QTimer>(window, "tmrTimer").isActive());
}

TEST_F(CardMediaWindow, AWindowMayCloseDuringItsSound) {
  const QPointer<frmStepper> window(&OpenWithSounds());
  sound.whilePlaying = [&] {
    studyWindows.CloseAll();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  };
  Find<QAbstractButton>(*window, "cmdNext").click();
  EXPECT_EQ(window, nullptr);
  EXPECT_EQ(sound.stops, 1);
}

TEST_F(CardMediaWindow, PicturesOfEveryKindAreShown) {
  for (const char* const name : {"a.bmp", "a.jpg"}) {
    LoadStack(u"Verbs", 1).SetSidePicture(1, Front, PutPicture(name, Qt::red));
    frmStepper& window = OpenOnCurrent({1});
    Next(window);
    const QColor colour = MiddleOf(window);
    EXPECT_GT(colour.red(), 240) << name;
    EXPECT_LT(colour.green(), 15) << name;
  }
}

TEST_F(CardMediaWindow, SamplePicturesAreShown) {
  for (const char* const extension : {"bmp", "jpg", "gif"}) {
    const QDir samples(QStringLiteral(QUIB_SOURCE_DIR "/samples"));
    const QStringList names = samples.entryList({QStringLiteral("*.%1").arg(extension)});
    ASSERT_FALSE(names.isEmpty()) << extension;
    const QString path = samples.filePath(names.first());
    files.Put(ToText(path), "picture");
    LoadStack(u"Flags", 1).SetSidePicture(1, Front, ToText(path));
    frmStepper& window = OpenOnCurrent({1});
    Next(window);
    const QImage shot = Shown(window);
    const QImage expected =
        QImage(path).scaled(shot.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    // A place off the middle, where no flag has an edge.
    const QPoint off(expected.width() / 5, expected.height() / 5);
    const QColor seen = shot.pixelColor(shot.rect().center() + off);
    const QColor wanted = expected.pixelColor(expected.rect().center() + off);
    EXPECT_NEAR(seen.red(), wanted.red(), 12) << path.toStdString();
    EXPECT_NEAR(seen.green(), wanted.green(), 12) << path.toStdString();
    EXPECT_NEAR(seen.blue(), wanted.blue(), 12) << path.toStdString();
  }
}

TEST_F(CardMediaWindow, APictureIsScaledDownWithItsAspectAndNeverUp) {
  LoadStack(u"Verbs", 2).SetSidePicture(1, Front, PutPicture("small.bmp", Qt::red, {20, 10}));
  shared.Stacks.Current().SetSidePicture(2, Front, PutPicture("wide.bmp", Qt::red, {4000, 100}));
  frmStepper& window = OpenOnCurrent({1, 2});
  const auto redPixels = [&](bool across) {
    const QImage shot = Shown(window);
    int count = 0;
    const int length = across ? shot.width() : shot.height();
    for (int i = 0; i < length; ++i) {
      const QColor colour =
          across ? shot.pixelColor(i, shot.height() / 2) : shot.pixelColor(shot.width() / 2, i);
      count += colour.red() > 200 && colour.green() < 60 ? 1 : 0;
    }
    return count;
  };
  Next(window);
  EXPECT_EQ(redPixels(true), 20);
  EXPECT_EQ(redPixels(false), 10);
  Next(window, 2);
  const int width = Find<QWidget>(window, "picTop").width();
  EXPECT_NEAR(redPixels(true), width, 2);
  EXPECT_NEAR(redPixels(false), width / 40, 2);
}

TEST_F(CardMediaWindow, AnUnreadablePictureIsToldAndTheStudyGoesOn) {
  prompts.Expect(Answer::Ok);
  QFile broken(folder.filePath("broken.bmp"));
  ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
  broken.write("no picture");
  broken.close();
  const Text path = ToText(broken.fileName());
  files.Put(path, "no picture");
  LoadStack(u"Verbs", 1).SetSidePicture(1, Front, path);
  frmStepper& window = OpenOnCurrent({1});
  Next(window);
  Find<PictureBox>(window, "picTop").WaitUntilLoaded();
  Next(window);
  ExpectPrompt(prompts.shown.at(0), u"The picture can't be shown:\r\n" + path,
               PromptIcon::Exclamation, PromptButtons::Ok);
  EXPECT_EQ(TextOf(window, "lblBottom"), "back 1");
}

TEST_F(CardMediaWindow, APictureBeyondTheLimitsIsToldInItsOwnWords) {
  prompts.Expect(Answer::Ok);
  QFile huge(folder.filePath("huge.jpg"));
  ASSERT_TRUE(huge.open(QIODevice::WriteOnly));
  huge.write(QByteArray::fromStdString(Jpeg(Frame(0xC2, 46000, 46000) + Scan())));
  huge.close();
  const Text path = ToText(huge.fileName());
  files.Put(path, "picture");
  LoadStack(u"Verbs", 1).SetSidePicture(1, Front, path);
  frmStepper& window = OpenOnCurrent({1});
  Next(window);
  Find<PictureBox>(window, "picTop").WaitUntilLoaded();
  ExpectPrompt(prompts.shown.at(0), u"The picture is too large to be shown:\r\n" + path,
               PromptIcon::Exclamation, PromptButtons::Ok);
}

TEST_F(CardMediaWindow, ASoundWaitsForItsPicture) {
  CardStack& stack = LoadStack(u"Verbs", 1);
  stack.SetSidePicture(1, Front, PutPicture("large.bmp", Qt::red, {4000, 3000}));
  stack.SetSideSound(1, Front, u"/cards/q.wav");
  frmStepper& window = OpenOnCurrent({1});
  sound.whilePlaying = [&] {
    EXPECT_FALSE(Find<PictureBox>(window, "picTop").IsLoading());
    EXPECT_EQ(MiddleOf(window), QColor(Qt::red));
  };
  Next(window);
  EXPECT_EQ(sound.played.size(), 1U);
}

TEST_F(CardMediaWindow, TheTimerStartsOnceThePictureIsThere) {
  shared.Timer.TimerInterval = 10'000;
  LoadStack(u"Verbs", 1).SetSidePicture(1, Front, PutPicture("l.bmp", Qt::red, {4000, 3000}));
  frmStepper& window = OpenOnCurrent({1});
  Next(window);
  EXPECT_TRUE(Find<QTimer>(window, "tmrTimer").isActive());
  EXPECT_FALSE(Find<PictureBox>(window, "picTop").IsLoading());
}

TEST_F(CardMediaWindow, AMissingPictureIsSkippedSilently) {
  LoadStack(u"Verbs", 1).SetSidePicture(1, Front, u"/cards/absent.bmp");
  frmStepper& window = OpenOnCurrent({1});
  Next(window);
  EXPECT_EQ(TextOf(window, "lblTop"), "front 1");
}

TEST_F(CardMediaWindow, WithoutShowPictureNoneIsLoaded) {
  shared.Timer.NoPicture = true;
  LoadStack(u"Verbs", 1).SetSidePicture(1, Front, PutPicture("red.bmp", Qt::red));
  frmStepper& window = OpenOnCurrent({1});
  Next(window);
  EXPECT_LT(std::abs(MiddleOf(window).red() - MiddleOf(window).green()), 10);
}

TEST_F(CardMediaWindow, TheTimersTickClearsThePicture) {
  shared.Timer.TimerInterval = 10;
  LoadStack(u"Verbs", 1).SetSidePicture(1, Front, PutPicture("red.bmp", Qt::red));
  frmStepper& window = OpenOnCurrent({1});
  Next(window);
  EXPECT_TRUE(QTest::qWaitFor([&] {
    const QColor colour = MiddleOf(window);
    return std::abs(colour.red() - colour.green()) < 10;
  }));
}

TEST_F(CardMediaWindow, TurningOverShowsTheOtherSidesPicture) {
  CardStack& stack = LoadStack(u"Verbs", 1);
  stack.SetSidePicture(1, Front, PutPicture("red.bmp", Qt::red));
  stack.SetSidePicture(1, Back, PutPicture("blue.bmp", Qt::blue));
  frmStepper& window = OpenOnCurrent({1});
  Next(window, 2);
  EXPECT_EQ(MiddleOf(window), QColor(Qt::red));
  Click(window, "ssoBack");
  EXPECT_EQ(MiddleOf(window), QColor(Qt::blue));
}

}  // namespace

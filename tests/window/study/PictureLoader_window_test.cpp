#include "base/Paths.h"
#include "windows/frame/QtText.h"
#include "windows/study/PictureBox.h"
#include "windows/study/PictureLoader.h"

#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <future>
#include <gtest/gtest.h>
#include <thread>

using namespace std::chrono_literals;

namespace {

/// Clocks that the test sets, and a picture of 50 x 50.
class PictureLoaderTest : public testing::Test {
 protected:
  PictureLoaderTest() {
    QImage image(50, 50, QImage::Format_RGB32);
    image.fill(Qt::red);
    EXPECT_TRUE(image.save(m_file));
  }

  PictureTime Time() {
    PictureTime time;
    time.computed = [this] { return computed(); };
    time.passed = [this] {
      const std::chrono::nanoseconds shown = passed;
      // The first look is that of Start; the file is read after it.
      passed = std::max(shown, later.load());
      return shown;
    };
    return time;
  }

  PictureFault Load() {
    PictureLoader loader(Time());
    loader.Start(EncodePath(ToText(m_file)), {100, 100});
    DecodedPicture picture;
    while (!loader.Take(100ms, picture)) {
    }
    EXPECT_FALSE(loader.IsLoading());
    EXPECT_FALSE(loader.Take(0ms, picture));
    return picture.fault;
  }

  QTemporaryDir m_folder;
  const QString m_file = m_folder.filePath(QStringLiteral("red.bmp"));
  std::function<std::chrono::nanoseconds()> computed = [] { return 0ns; };
  std::atomic<std::chrono::nanoseconds> passed = 0ns;
  std::atomic<std::chrono::nanoseconds> later = 0ns;
};

TEST_F(PictureLoaderTest, ShowsAPictureForWhichTheMachineHadNoTime) {
  later = 59s;
  computed = [] { return 4999ms; };
  EXPECT_EQ(Load(), PictureFault::None);
}

TEST_F(PictureLoaderTest, GivesUpWhatComputesTooLong) {
  later = 5s;
  computed = [] { return 5s; };
  EXPECT_EQ(Load(), PictureFault::TooSlow);
}

TEST_F(PictureLoaderTest, LooksAtTheClockOfTheThreadThatDecodes) {
  later = 5s;
  std::thread::id asked;
  computed = [&] {
    asked = std::this_thread::get_id();
    return 5s;
  };
  EXPECT_EQ(Load(), PictureFault::TooSlow);
  EXPECT_NE(asked, std::thread::id());
  EXPECT_NE(asked, std::this_thread::get_id());
}

TEST_F(PictureLoaderTest, LooksAtTheSlowClockOnlyWhenItMayHaveRunOut) {
  int asked = 0;
  computed = [&] { return ++asked, 0ns; };
  later = 4999ms;
  EXPECT_EQ(Load(), PictureFault::None);
  EXPECT_EQ(asked, 0);
  passed = 0ns;
  later = 6s;
  EXPECT_EQ(Load(), PictureFault::None);
  EXPECT_EQ(asked, 1);
}

TEST_F(PictureLoaderTest, GivesUpAFileThatDoesNotAnswer) {
  std::promise<void> answer;
  computed = [reached = answer.get_future().share()] { return reached.wait(), 0ns; };
  later = 5s;
  PictureLoader loader(Time());
  loader.Start(EncodePath(ToText(m_file)), {100, 100});
  DecodedPicture picture;
  EXPECT_FALSE(loader.Take(10ms, picture));
  EXPECT_TRUE(loader.IsLoading());
  later = 60s;
  EXPECT_TRUE(QTest::qWaitFor([&] { return loader.Take(10ms, picture); }));
  EXPECT_EQ(picture.fault, PictureFault::TooSlow);
  EXPECT_FALSE(loader.IsLoading());
  answer.set_value();
}

TEST_F(PictureLoaderTest, AWindowThatWaitsForAPictureGoesOnAfterFiveSeconds) {
  std::promise<void> answer;
  computed = [reached = answer.get_future().share()] { return reached.wait(), 0ns; };
  later = 5s;
  PictureBox box(nullptr, Time());
  box.Show(m_file);
  box.WaitUntilLoaded();
  EXPECT_TRUE(box.IsLoading());
  answer.set_value();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !box.IsLoading(); }));
  EXPECT_EQ(box.accessibleName(), "The card's picture");
}

TEST(PictureTime, CountsWhatAThreadComputesAndNotItsWaiting) {
  const auto before = PictureTime::ComputedByThisThread();
  std::thread other([&] {
    const auto start = PictureTime::ComputedByThisThread();
    while (PictureTime::ComputedByThisThread() - start < 200ms) {
    }
  });
  other.join();
  EXPECT_LT(PictureTime::ComputedByThisThread() - before, 200ms);
}

}  // namespace

#include "windows/study/DesktopSound.h"

#include "base/Paths.h"
#include "windows/study/SoundFile.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QFile>
#include <QKeyEvent>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWidget>

#include <SDL2/SDL.h>
#include <array>
#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <sndfile.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Samples = std::vector<float>;

constexpr int Rate = 8000;
constexpr std::string_view OneMillisecond = "1";  // for each buffer of 32 ms

/// A tone that rises from 200 Hz, so that it resembles itself at one place only.
Samples RisingTone(double seconds) {
  Samples samples(static_cast<std::size_t>(seconds * Rate));
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double time = static_cast<double>(i) / Rate;
    const double turns = 200 * time + 300 * time * time / seconds;
    samples[i] = static_cast<float>(0.5 * std::sin(2 * std::numbers::pi * turns));
  }
  return samples;
}

/// How much `heard` differs from `played` where it resembles it most, as a share of its energy: 0
/// for the very samples, 1 and more when they are not there.
double Distortion(const Samples& played, const Samples& heard) {
  double energy = 0;
  for (const float sample : played) energy += sample * sample;
  double least = std::numeric_limits<double>::infinity();
  for (std::size_t start = 0; start + played.size() <= heard.size(); ++start) {
    double error = 0;
    for (std::size_t i = 0; i < played.size() && error < least; ++i) {
      error += std::pow(heard[start + i] - played[i], 2);
    }
    least = std::min(least, error);
  }
  return least / energy;
}

/// The device is a file: everything that is played stands there, with silence before and after.
class DesktopSoundTest : public testing::Test {
 protected:
  DesktopSoundTest() {
    qputenv("SDL_AUDIODRIVER", "disk");
    UseDevice("heard.raw");
    UseBufferTime(OneMillisecond);
  }

  std::string Path(const std::string& name) const {
    return m_folder.path().toStdString() + "/" + name;
  }

  void UseDevice(const std::string& name) {
    m_device = Path(name);
    qputenv("SDL_DISKAUDIOFILE", m_device.c_str());
  }

  static void UseBufferTime(std::string_view milliseconds) {
    qputenv("SDL_DISKAUDIODELAY", QByteArray(milliseconds.data()));
  }

  std::string WriteSound(const std::string& name, const Samples& samples,
                         int format = SF_FORMAT_WAV | SF_FORMAT_PCM_16, int channels = 1) {
    SF_INFO info{};
    info.samplerate = Rate;
    info.channels = channels;
    info.format = format;
    SNDFILE* const file = sf_open(Path(name).c_str(), SFM_WRITE, &info);
    EXPECT_NE(file, nullptr) << sf_strerror(nullptr);
    const auto count = static_cast<sf_count_t>(samples.size());
    EXPECT_EQ(sf_write_float(file, samples.data(), count), count);
    sf_close(file);
    return Path(name);
  }

  std::string WriteBytes(const std::string& name, const QByteArray& bytes) {
    QFile file(QString::fromStdString(Path(name)));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return Path(name);
  }

  /// A good file with other bytes at a place of its header.
  std::string WriteSoundWith(qsizetype place, const QByteArray& bytes) {
    QFile file(QString::fromStdString(WriteSound("good.wav", RisingTone(0.5))));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return WriteBytes("changed.wav", file.readAll().replace(place, bytes.size(), bytes));
  }

  void Play(const std::string& path) { sound.Play(DecodePath(path)); }

  /// Plays, and runs `act` as soon as the device has been given something.
  void PlayAnd(const std::string& path, const std::function<void()>& act) {
    bool acted = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
      if (acted || QFile(QString::fromStdString(m_device)).size() == 0) return;
      acted = true;
      act();
    });
    poll.start(1);
    Play(path);
    EXPECT_TRUE(acted) << "nothing was played";
  }

  bool DeviceWasOpened() const { return QFile::exists(QString::fromStdString(m_device)); }

  Samples Heard() const {
    QFile file(QString::fromStdString(m_device));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    Samples samples(static_cast<std::size_t>(bytes.size()) / sizeof(float));
    std::memcpy(samples.data(), bytes.data(), samples.size() * sizeof(float));
    return samples;
  }

  DesktopSound sound;

 private:
  QTemporaryDir m_folder;
  std::string m_device;
};

struct Codec {
  const char* name;
  int format;
  double distortion;  // at most
};

void PrintTo(const Codec& codec, std::ostream* out) { *out << codec.name; }

class DesktopSoundCodecTest : public DesktopSoundTest, public testing::WithParamInterface<Codec> {};

TEST_P(DesktopSoundCodecTest, IsHeardFromTheFirstSampleToTheLast) {
  const Samples tone = RisingTone(0.5);
  Play(WriteSound("tone.wav", tone, GetParam().format));
  EXPECT_LE(Distortion(tone, Heard()), GetParam().distortion);
}

INSTANTIATE_TEST_SUITE_P(
    Codecs, DesktopSoundCodecTest,
    testing::Values(Codec{"Pcm8", SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 3e-4},
                    Codec{"Pcm16", SF_FORMAT_WAV | SF_FORMAT_PCM_16, 1e-8},
                    Codec{"Pcm24", SF_FORMAT_WAV | SF_FORMAT_PCM_24, 1e-12},
                    Codec{"Pcm32", SF_FORMAT_WAV | SF_FORMAT_PCM_32, 1e-12},
                    Codec{"Float", SF_FORMAT_WAV | SF_FORMAT_FLOAT, 0},
                    Codec{"Double", SF_FORMAT_WAV | SF_FORMAT_DOUBLE, 0},
                    Codec{"ExtendedHeader", SF_FORMAT_WAVEX | SF_FORMAT_PCM_16, 1e-8},
                    Codec{"MsAdpcm", SF_FORMAT_WAV | SF_FORMAT_MS_ADPCM, 3e-3},
                    Codec{"ImaAdpcm", SF_FORMAT_WAV | SF_FORMAT_IMA_ADPCM, 3e-3},
                    Codec{"ALaw", SF_FORMAT_WAV | SF_FORMAT_ALAW, 1e-3},
                    Codec{"MuLaw", SF_FORMAT_WAV | SF_FORMAT_ULAW, 1e-3},
                    Codec{"Gsm610", SF_FORMAT_WAV | SF_FORMAT_GSM610, 0.1}),
    [](const testing::TestParamInfo<Codec>& codec) { return codec.param.name; });

TEST_F(DesktopSoundTest, StereoKeepsItsChannels) {
  Samples both;
  for (const float sample : RisingTone(0.5)) both.insert(both.end(), {sample, -sample / 2});
  Play(WriteSound("stereo.wav", both, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 2));
  EXPECT_EQ(Distortion(both, Heard()), 0);
}

TEST_F(DesktopSoundTest, LongSoundIsHeardWithoutAGap) {
  UseBufferTime("15");
  const Samples tone = RisingTone(4);
  Play(WriteSound("long.wav", tone, SF_FORMAT_WAV | SF_FORMAT_FLOAT));
  EXPECT_EQ(Distortion(tone, Heard()), 0);
}

TEST_F(DesktopSoundTest, PlaysASampleStacksSound) {
  const std::string path = QUIB_SOURCE_DIR "/samples/norway.wav";
  SF_INFO info{};
  SNDFILE* const file = sf_open(path.c_str(), SFM_READ, &info);
  ASSERT_NE(file, nullptr);
  Samples samples(static_cast<std::size_t>(info.frames));
  ASSERT_EQ(sf_read_float(file, samples.data(), info.frames), info.frames);
  sf_close(file);

  Play(path);
  EXPECT_EQ(Distortion(samples, Heard()), 0);
}

TEST_F(DesktopSoundTest, FileNameNeedNotBeUtf8) {
  const Samples tone = RisingTone(0.5);
  ASSERT_EQ(std::rename(WriteSound("cow.wav", tone).c_str(), Path("c\xF6w.wav").c_str()), 0);
  Play(Path("c\xF6w.wav"));
  unlink(Path("c\xF6w.wav").c_str());  // QTemporaryDir can't
  EXPECT_LE(Distortion(tone, Heard()), 1e-8);
}

TEST_F(DesktopSoundTest, CutOffFilePlaysWhatIsThere) {
  const std::string path = WriteSoundWith(40, "\xFF\xFF\xFF\x7F");  // length of the samples
  Play(path);
  EXPECT_LE(Distortion(RisingTone(0.5), Heard()), 1e-8);
}

TEST_F(DesktopSoundTest, NoNumberIsSilenceAndTooLoudIsAsLoudAsCanBe) {
  Samples samples = RisingTone(0.5);
  samples[1000] = std::numeric_limits<float>::quiet_NaN();
  samples[2000] = std::numeric_limits<float>::infinity();
  samples[3000] = -7;
  const std::string path = WriteSound("wild.wav", samples, SF_FORMAT_WAV | SF_FORMAT_FLOAT);
  samples[1000] = 0;
  samples[2000] = 1;
  samples[3000] = -1;
  Play(path);
  EXPECT_EQ(Distortion(samples, Heard()), 0);
}

TEST_F(DesktopSoundTest, MissingFileIsNotPlayed) {
  Play(Path("none.wav"));
  EXPECT_FALSE(DeviceWasOpened());
}

TEST_F(DesktopSoundTest, NoNameIsNotPlayed) {
  Play("");
  EXPECT_FALSE(DeviceWasOpened());
}

TEST_F(DesktopSoundTest, EmptyFileIsNotPlayed) {
  Play(WriteBytes("empty.wav", ""));
  EXPECT_FALSE(DeviceWasOpened());
}

TEST_F(DesktopSoundTest, SoundWithoutSamplesIsNotPlayed) {
  Play(WriteSound("header.wav", {}));
  EXPECT_FALSE(DeviceWasOpened());
}

TEST_F(DesktopSoundTest, FileOfAnotherKindIsNotPlayed) {
  Play(WriteBytes("text.wav", QByteArray(5000, 'x')));
  Play(WriteSound("other.wav", RisingTone(0.5), SF_FORMAT_AIFF | SF_FORMAT_PCM_16));
  EXPECT_FALSE(DeviceWasOpened());
}

TEST_F(DesktopSoundTest, UnknownCodecIsNotPlayed) {
  Play(WriteSoundWith(20, "\x99\x99"));
  EXPECT_FALSE(DeviceWasOpened());
}

TEST_F(DesktopSoundTest, ImpossibleRateOrChannelsAreNotPlayed) {
  Play(WriteSoundWith(24, QByteArray("\x01\x00\x00\x00", 4)));
  Play(WriteSoundWith(24, "\xFF\xFF\xFF\x7F"));
  Play(WriteSoundWith(22, QByteArray("\x00\x00", 2)));
  Play(WriteSoundWith(22, QByteArray("\x00\x01", 2)));
  EXPECT_FALSE(DeviceWasOpened());
}

TEST_F(DesktopSoundTest, FolderIsNotPlayed) {
  Play(Path(""));
  EXPECT_FALSE(DeviceWasOpened());
}

TEST_F(DesktopSoundTest, PipeIsNotWaitedFor) {
  ASSERT_EQ(mkfifo(Path("pipe.wav").c_str(), 0600), 0);
  Play(Path("pipe.wav"));
  EXPECT_FALSE(DeviceWasOpened());
  EXPECT_EQ(open(Path("pipe.wav").c_str(), O_WRONLY | O_NONBLOCK), -1) << "somebody reads from it";
  EXPECT_EQ(errno, ENXIO);
}

TEST_F(DesktopSoundTest, WithoutADriverNothingIsPlayedAndTheNextSoundTriesAgain) {
  const Samples tone = RisingTone(0.5);
  const std::string path = WriteSound("tone.wav", tone);
  qputenv("SDL_AUDIODRIVER", "no such driver");
  Play(path);
  EXPECT_FALSE(DeviceWasOpened());

  qputenv("SDL_AUDIODRIVER", "disk");
  Play(path);
  EXPECT_LE(Distortion(tone, Heard()), 1e-8);
}

TEST_F(DesktopSoundTest, WithoutADeviceNothingIsPlayed) {
  UseDevice("no such folder/heard.raw");
  Play(WriteSound("tone.wav", RisingTone(0.5)));
  EXPECT_FALSE(DeviceWasOpened());
}

TEST_F(DesktopSoundTest, HoldsTheAudioSystemOnlyWhileItPlays) {
  EXPECT_EQ(SDL_WasInit(0), 0U);
  UseBufferTime("32");  // it still plays when the test looks, however busy the machine is
  PlayAnd(WriteSound("long.wav", Samples(60 * Rate, 0.5F)), [this] {
    EXPECT_EQ(SDL_WasInit(SDL_INIT_AUDIO), Uint32{SDL_INIT_AUDIO});
    sound.Stop();
  });
  EXPECT_EQ(SDL_WasInit(0), 0U);
}

TEST_F(DesktopSoundTest, LeavesTheSignalsAlone) {
  PlayAnd(WriteSound("tone.wav", RisingTone(0.5)), [] {
    for (const int signal : {SIGINT, SIGTERM}) {
      struct sigaction action {};
      ASSERT_EQ(sigaction(signal, nullptr, &action), 0);
      EXPECT_EQ(action.sa_handler, SIG_DFL);
    }
  });
}

TEST_F(DesktopSoundTest, StopEndsTheSound) {
  UseBufferTime("32");
  const Samples minute(60 * Rate, 0.5F);
  PlayAnd(WriteSound("long.wav", minute), [this] { sound.Stop(); });
  EXPECT_LT(Heard().size(), minute.size() / 2);
}

TEST_F(DesktopSoundTest, StopWithoutASoundLeavesTheNextOneAlone) {
  const Samples tone = RisingTone(0.5);
  sound.Stop();
  Play(WriteSound("tone.wav", tone));
  EXPECT_LE(Distortion(tone, Heard()), 1e-8);
}

TEST_F(DesktopSoundTest, SoundDuringAnotherIsLeftOut) {
  const Samples tone = RisingTone(0.5);
  const Samples other(tone.size(), 0.5F);
  const std::string otherPath = WriteSound("other.wav", other);
  PlayAnd(WriteSound("tone.wav", tone), [&] { Play(otherPath); });
  EXPECT_LE(Distortion(tone, Heard()), 1e-8);
  EXPECT_GT(Distortion(other, Heard()), 0.1);
}

/// Writes down what happens to it.
class Recorder : public QWidget {
 public:
  Recorder() { setMouseTracking(true); }
  std::vector<std::string> events;
  std::string typed;

 protected:
  void keyPressEvent(QKeyEvent* event) override { typed += event->text().toStdString(); }
  void paintEvent(QPaintEvent*) override { events.emplace_back("paint"); }
  void mouseMoveEvent(QMouseEvent*) override { events.emplace_back("mouse"); }
};

TEST_F(DesktopSoundTest, WindowsArePaintedDuringASoundButUserInputWaits) {
  Recorder window;
  window.resize(100, 100);
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QCursor::setPos(window.mapToGlobal(QPoint(50, 50)));
  ASSERT_TRUE(QTest::qWaitFor([&] { return !window.events.empty(); }));
  QCoreApplication::processEvents();
  window.events.clear();

  UseBufferTime("32");
  PlayAnd(WriteSound("tone.wav", RisingTone(0.5)), [&] {
    // Of all input, the offscreen platform queues the pointer's as a desktop does.
    QCursor::setPos(window.mapToGlobal(QPoint(60, 60)));
    window.update();
  });
  EXPECT_EQ(window.events, (std::vector<std::string>{"paint"}));
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.events.size() > 1; }));
  EXPECT_EQ(window.events, (std::vector<std::string>{"paint", "mouse"}));
}

/// Keys and clicks that the desktop delivers, and what comes of them after the sound.
class InputDuringASound : public DesktopSoundTest {
 protected:
  InputDuringASound() {
    UseBufferTime("32");
    window.setFocusPolicy(Qt::StrongFocus);
    window.resize(100, 100);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  void PlayMinuteAnd(const std::function<void()>& act) {
    PlayAnd(WriteSound("long.wav", Samples(60 * Rate, 0.5F)), act);
  }

  /// Types into whichever window has the focus, as the desktop does.
  static void Type(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QGuiApplication::focusWindow(), key, modifiers);
  }

  Recorder window;
};

TEST_F(InputDuringASound, EscapeEndsItAndIsTypedNowhere) {
  PlayMinuteAnd([&] { Type(Qt::Key_Escape); });
  EXPECT_LT(Heard().size(), 30U * Rate);
  QCoreApplication::processEvents();
  EXPECT_EQ(window.typed, "");
}

TEST_F(InputDuringASound, WhatIsTypedArrivesAfterwardsInItsOrder) {
  PlayMinuteAnd([&] {
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_B, Qt::Key_C}) Type(key);
    EXPECT_EQ(window.typed, "");
    Type(Qt::Key_Escape);
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.typed.size() >= 3; }));
  EXPECT_EQ(window.typed, "abc");
  Type(Qt::Key_D);
  EXPECT_EQ(window.typed, "abcd");
}

TEST_F(InputDuringASound, AKeyTypedLaterDoesNotOvertakeThoseThatWait) {
  PlayMinuteAnd([&] {
    Type(Qt::Key_A);
    Type(Qt::Key_B);
    Type(Qt::Key_Escape);
  });
  Type(Qt::Key_C);
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.typed.size() >= 3; }));
  EXPECT_EQ(window.typed, "abc");
}

TEST_F(InputDuringASound, AShortcutWorksAfterwardsAndOnlyOnce) {
  QAction action;
  action.setShortcut(QKeySequence(Qt::CTRL | Qt::Key_R));
  window.addAction(&action);
  int runs = 0;
  QObject::connect(&action, &QAction::triggered, [&] { ++runs; });
  PlayMinuteAnd([&] {
    Type(Qt::Key_R, Qt::ControlModifier);
    Type(Qt::Key_X);
    EXPECT_EQ(runs, 0);
    Type(Qt::Key_Escape);
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.typed == "x"; }));
  EXPECT_EQ(runs, 1);
}

TEST_F(InputDuringASound, AClickArrivesAfterwards) {
  QPushButton button(&window);
  button.show();
  int clicks = 0;
  QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
  PlayMinuteAnd([&] {
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(5, 5));
    EXPECT_EQ(clicks, 0);
    Type(Qt::Key_Escape);
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return clicks > 0; }));
  EXPECT_EQ(clicks, 1);
}

TEST_F(InputDuringASound, ASoundThatAHeldKeyBeginsHoldsTheRest) {
  const std::string tone = WriteSound("tone.wav", RisingTone(0.1));
  QAction action;
  action.setShortcut(QKeySequence(Qt::Key_F5));
  window.addAction(&action);
  QObject::connect(&action, &QAction::triggered, [&] {
    Play(tone);
    EXPECT_EQ(window.typed, "") << "the key behind it arrived during the second sound";
  });
  PlayMinuteAnd([&] {
    Type(Qt::Key_F5);
    Type(Qt::Key_A);
    Type(Qt::Key_Escape);
  });
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.typed == "a"; }));
}

TEST_F(InputDuringASound, AWindowThatIsClosedMeanwhileGetsNothing) {
  auto other = std::make_unique<Recorder>();
  other->resize(100, 100);
  other->show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(other.get()));
  PlayMinuteAnd([&] {
    Type(Qt::Key_A);
    other.reset();
    sound.Stop();
  });
  QCoreApplication::processEvents();
  EXPECT_EQ(window.typed, "");
}

TEST_F(DesktopSoundTest, TenMinutesAreTheLimit) {
  constexpr std::size_t Allowed = std::size_t{SoundFile::MaxSeconds} * Rate;
  EXPECT_TRUE(SoundFile(WriteSound("long.wav", Samples(Allowed))).IsOpen());
  const std::string longer = WriteSound("longer.wav", Samples(Allowed + 1));
  EXPECT_FALSE(SoundFile(longer).IsOpen());
  Play(longer);
  EXPECT_FALSE(DeviceWasOpened());
}

TEST_F(DesktopSoundTest, NoMoreIsReadThanTheLimit) {
  SoundFile file(WriteSound("long.wav", Samples(std::size_t{SoundFile::MaxSeconds} * Rate)));
  std::size_t count = 0;
  while (const std::size_t more = file.Read().size()) count += more;
  EXPECT_EQ(count, std::size_t{SoundFile::MaxSeconds} * Rate);
}

TEST_F(DesktopSoundTest, DeviceIsNotRead) {
  ASSERT_EQ(symlink("/dev/zero", Path("device.wav").c_str()), 0);
  Play(Path("device.wav"));
  EXPECT_FALSE(DeviceWasOpened());
}

TEST_F(DesktopSoundTest, OtherFormatsAreRefusedByTheirFirstBytes) {
  for (const int format : {SF_FORMAT_AIFF, SF_FORMAT_AU, SF_FORMAT_W64, SF_FORMAT_RF64,
                           SF_FORMAT_VOC, SF_FORMAT_CAF}) {
    const std::string path = WriteSound("other.wav", RisingTone(0.1), format | SF_FORMAT_PCM_16);
    EXPECT_FALSE(SoundFile(path).IsOpen()) << format;
  }
}

/// A device that takes nothing more once its pipe is full.
class HangingDevice {
 public:
  explicit HangingDevice(const std::string& path) {
    EXPECT_EQ(mkfifo(path.c_str(), 0600), 0);
    m_pipe = open(path.c_str(), O_RDONLY | O_NONBLOCK);
  }
  ~HangingDevice() { close(m_pipe); }
  HangingDevice(const HangingDevice&) = delete;
  HangingDevice& operator=(const HangingDevice&) = delete;

  /// Takes everything, until the other side has closed it.
  void Recover() {
    ASSERT_EQ(fcntl(m_pipe, F_SETFL, 0), 0);
    std::array<char, 4096> taken;
    while (read(m_pipe, taken.data(), taken.size()) > 0) {
    }
  }

 private:
  int m_pipe;
};

TEST_F(DesktopSoundTest, HangingAudioServerIsGivenUpAndTriedAgainWhenItHasRecovered) {
  HangingDevice device(Path("hanging"));
  UseDevice("hanging");
  Play(WriteSound("long.wav",
                  RisingTone(60)));  // returns, though the device takes a few seconds only

  const Samples tone = RisingTone(0.5);
  const std::string path = WriteSound("tone.wav", tone);
  UseDevice("heard.raw");
  bool waited = false;
  QTimer::singleShot(0, [&] { waited = true; });
  Play(path);
  EXPECT_FALSE(waited);
  EXPECT_FALSE(DeviceWasOpened());

  device.Recover();
  const auto playsAgain = [&] {
    Play(path);
    return DeviceWasOpened();
  };
  ASSERT_TRUE(QTest::qWaitFor(playsAgain));
  EXPECT_LE(Distortion(tone, Heard()), 1e-8);
}

}  // namespace

#include "windows/study/DesktopSound.h"

#include "base/Paths.h"
#include "windows/study/SoundFile.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QScopedValueRollback>

#include <SDL.h>
#include <atomic>
#include <bit>
#include <chrono>
#include <thread>

using namespace std::chrono_literals;

/// What the window's thread and the playing thread tell each other.
struct DesktopSound::Playback {
  std::atomic<bool> stop = false;
  std::atomic<bool> ended = false;
  std::atomic<unsigned> progress = 0;  // another number whenever it has got further
};

namespace {

constexpr auto Pace = 5ms;
constexpr qint64 Patience = 2000;  // milliseconds without progress

class AudioSubsystem {
 public:
  AudioSubsystem() {
    // Otherwise it would take over SIGINT and SIGTERM.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    m_isThere = SDL_InitSubSystem(SDL_INIT_AUDIO) == 0;
  }
  ~AudioSubsystem() {
    if (m_isThere) SDL_QuitSubSystem(SDL_INIT_AUDIO);
    SDL_TLSCleanup();  // the thread's own error text
  }
  AudioSubsystem(const AudioSubsystem&) = delete;
  AudioSubsystem& operator=(const AudioSubsystem&) = delete;

  bool IsThere() const { return m_isThere; }

 private:
  bool m_isThere;
};

/// An open sound device; closing it waits for the last samples to be heard.
class AudioDevice {
 public:
  AudioDevice(int rate, int channels) {
    SDL_AudioSpec spec{};
    spec.freq = rate;
    spec.format = AUDIO_F32SYS;
    spec.channels = static_cast<Uint8>(channels);
    spec.samples = static_cast<Uint16>(std::bit_ceil(static_cast<unsigned>(rate) / 40));
    m_number = SDL_OpenAudioDevice(nullptr, 0, &spec, nullptr, 0);
  }
  ~AudioDevice() {
    if (IsOpen()) SDL_CloseAudioDevice(m_number);
  }
  AudioDevice(const AudioDevice&) = delete;
  AudioDevice& operator=(const AudioDevice&) = delete;

  bool IsOpen() const { return m_number != 0; }
  void Start() { SDL_PauseAudioDevice(m_number, 0); }
  bool Queue(std::span<const float> samples) {
    return SDL_QueueAudio(m_number, samples.data(), static_cast<Uint32>(samples.size_bytes())) == 0;
  }
  Uint32 QueuedBytes() const { return SDL_GetQueuedAudioSize(m_number); }

 private:
  SDL_AudioDeviceID m_number;
};

}  // namespace

/// Everything that an audio server or a network folder can hold up, in a thread of its own.
void DesktopSound::PlayFile(const std::string& path, Playback& playback) {
  SoundFile sound(path);
  if (!sound.IsOpen()) return;
  std::span<const float> samples = sound.Read();
  if (samples.empty()) return;

  const AudioSubsystem audio;
  if (!audio.IsThere()) return;
  AudioDevice device(sound.Rate(), sound.Channels());
  if (!device.IsOpen()) return;

  const auto waitWhileOver = [&](Uint32 bytes) {
    Uint32 before = device.QueuedBytes();
    while (before > bytes && !playback.stop) {
      std::this_thread::sleep_for(Pace);
      const Uint32 now = device.QueuedBytes();
      if (now < before) ++playback.progress;
      before = now;
    }
  };
  const auto second = static_cast<Uint32>(sound.Rate() * sound.Channels()) * Uint32{sizeof(float)};
  for (; !samples.empty() && !playback.stop; samples = sound.Read()) {
    if (!device.Queue(samples)) return;
    ++playback.progress;
    device.Start();
    waitWhileOver(second);
  }
  waitWhileOver(0);
}

void DesktopSound::Play(const Text& file) {
  if (m_waiting || (m_playback != nullptr && !m_playback->ended)) return;
  const QScopedValueRollback waiting(m_waiting, true);
  const auto playback = std::make_shared<Playback>();
  std::thread player([playback, path = EncodePath(file)] {
    PlayFile(path, *playback);
    playback->ended = true;
  });
  m_playback = playback;

  m_input.Hold([this] { Stop(); });
  QElapsedTimer sinceProgress;
  sinceProgress.start();
  unsigned progress = 0;
  while (!playback->ended && !sinceProgress.hasExpired(Patience)) {
    std::this_thread::sleep_for(Pace);
    QCoreApplication::processEvents();
    if (const unsigned now = playback->progress; now != progress) {
      progress = now;
      sinceProgress.start();
    }
  }
  m_input.Release();
  if (playback->ended) {
    player.join();
  } else {
    playback->stop = true;  // it ends whenever what holds it up lets go
    player.detach();
  }
}

void DesktopSound::Stop() {
  if (m_playback != nullptr) m_playback->stop = true;
}

#pragma once

#include "study/SoundPlayer.h"
#include "windows/study/HeldInput.h"

#include <memory>

/// Sounds on the desktop's sound device. Between two sounds nothing of it is held: no device, no
/// connection to an audio server.
class DesktopSound : public SoundPlayer {
 public:
  /// A sound that is asked for while another one plays is left out. One that gets no further for
  /// two seconds (an audio server or network folder that hangs) is given up, and so are those after
  /// it for as long as it hangs.
  void Play(const Text& file) override;
  void Stop() override;

 private:
  struct Playback;
  static void PlayFile(const std::string& path, Playback& playback);

  std::shared_ptr<Playback> m_playback;  // the last one; null before the first
  HeldInput m_input;
  bool m_waiting = false;  // Play has not returned yet
};

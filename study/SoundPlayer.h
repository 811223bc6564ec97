#pragma once

#include "base/Text.h"

/// Plays a card's sound.
class SoundPlayer {
 public:
  virtual ~SoundPlayer() = default;

  /// Plays a sound file and returns when it has ended. Meanwhile windows are painted, but keys and
  /// clicks wait until afterwards. Without a device, and for a missing, broken or unknown file, it
  /// returns at once, silently.
  virtual void Play(const Text& file) = 0;

  /// Ends a sound that is playing, so that Play returns. Called when the window that plays it
  /// closes.
  virtual void Stop() = 0;
};

#pragma once

#include "base/Text.h"

/// Plays a card's sound.
class SoundPlayer {
 public:
  virtual ~SoundPlayer() = default;

  /// Plays a sound file and returns when it has ended. Meanwhile windows are painted and can be
  /// closed, but keys and clicks wait until afterwards; Escape ends the sound. What comes from a
  /// screen reader or a timer is not held up: see ActionQueue. Without a device, and for a missing,
  /// broken, unknown or overlong file, it returns at once, silently.
  virtual void Play(const Text& file) = 0;

  /// Ends a sound that is playing, so that Play returns at once. Called when the window that plays
  /// it closes.
  virtual void Stop() = 0;
};

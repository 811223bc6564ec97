#pragma once

#include "study/SoundPlayer.h"

/// Sounds on the desktop's sound device.
class DesktopSound : public SoundPlayer {
 public:
  void Play(const Text& file) override;
  void Stop() override;
};

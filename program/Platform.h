#pragma once

#include "base/Files.h"
#include "base/Prompts.h"
#include "program/HelpContexts.h"
#include "program/RememberedState.h"
#include "settings/ProfileFile.h"
#include "study/RandomSource.h"
#include "study/SoundPlayer.h"

#include <functional>
#include <memory>

/// What the windows need of the world outside. `main` owns the real services, tests bring doubles.
struct Platform {
  Prompts& prompts;
  Files& files;
  ProfileFile& profile;
  HelpService& help;
  SoundPlayer& sound;
  std::function<std::unique_ptr<RandomSource>()> makeRandom;  ///< one for each study window
  RememberedState& state;
};

#pragma once

#include "base/DiskFiles.h"
#include "program/Platform.h"
#include "program/SharedState.h"
#include "settings/ProfileFile.h"
#include "tests/support/MemoryFiles.h"
#include "tests/support/ScriptedRandom.h"
#include "tests/support/SilentServices.h"
#include "windows/frame/QtText.h"

#include <QDir>

/// What windows need, for looking at them and timing them: real stack files, new settings in
/// memory, one answer to all questions, no help, no sound, and the same random numbers each time.
struct QuietProgram {
  explicit QuietProgram(Answer answer) : prompts(answer) {
    (void)settings.MakeFolder(u"/config");
    InitSettings(profile);
    LoadTopicList(shared.Topics, profile);
    SelectTopic(shared.Topics, shared.Topic, profile, 0);
  }

  AnsweringPrompts prompts;
  MemoryFiles settings;
  DiskFiles files{ToText(QDir::tempPath())};
  ProfileFile profile{settings, u"/config/QUIBCRDS.INI"};
  SilentHelp help;
  SilentSound sound;
  SharedState shared;
  RememberedState state{settings, u"/state/quibcards/state"};
  Platform platform{prompts, files, profile,
                    help,    sound, [] { return std::make_unique<SeededRandom>(1); },
                    state};
};

#pragma once

#include "base/Text.h"
#include "cards/StackStore.h"
#include "cards/StackWriter.h"
#include "settings/TopicList.h"
#include "settings/TopicSettings.h"
#include "study/StudySession.h"
#include "study/TimerSettings.h"

/// Through these one window tells the next what to do. Each is set before the window opens.
struct WindowSwitches {
  ::FileDialogMode FileDialogMode = ::FileDialogMode::Load;
  ::StudyMode StudyMode = ::StudyMode::Stepper;
  Text DefaultFolder;  ///< where the stack file dialog opens; the folder used last
};

/// The state that all windows share: values only. `main` owns it, windows take it by reference.
struct SharedState {
  StackStore Stacks;
  TopicList Topics;
  TopicSettings Topic;  ///< fonts and key assignments of the selected topic
  TimerSettings Timer;
  WindowSwitches Switches;
};

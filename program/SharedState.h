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

  bool PrintMode = false;       ///< frmPrint prints; otherwise it chooses a topic's display fonts
  bool AddCardsMode = false;    ///< frmCreate appends to the selected stack; otherwise it makes one
  bool NewDescription = false;  ///< frmDesc asks for a new description instead of changing one
  Int16 FoundCard = 0;          ///< the card found last; 0 begins before the first
  bool NewTopicMode = false;    ///< frmConfig and frmAddKey add a topic
  bool ChangeTopicMode = false;  ///< frmConfig changes the topic of the stack being edited
  Text NewTopicName;             ///< the topic being added; empty when none is

  /// A character code 0..255 to be typed; -1 or -2 asks a picker for the front or the back side,
  /// and a negative value left behind by a picker means that nothing was chosen.
  Int16 KeyCodeToSend = -1;
};

/// The state that all windows share: values only. `main` owns it, windows take it by reference.
struct SharedState {
  StackStore Stacks;
  TopicList Topics;
  TopicSettings Topic;  ///< fonts and key assignments of the selected topic
  TimerSettings Timer;
  WindowSwitches Switches;
};

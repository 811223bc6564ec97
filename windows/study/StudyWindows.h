#pragma once

#include "program/Platform.h"
#include "program/SharedState.h"
#include "study/ActionQueue.h"

#include <vector>

class frmStepper;

/// The open study windows by their instance numbers. They are independent of each other and remove
/// themselves when they close.
class StudyWindows {
 public:
  StudyWindows(SharedState& shared, Platform& platform) : m_shared(shared), m_platform(platform) {}
  StudyWindows(const StudyWindows&) = delete;
  StudyWindows& operator=(const StudyWindows&) = delete;
  ~StudyWindows() { CloseAll(); }

  /// Opens a window on the selected stack, in the chosen mode.
  frmStepper& Open();

  void CloseAll();

  /// A stack leaves the list: its windows close, and those of later stacks follow their stack.
  void StackRemoved(int stackIndex);

  /// A topic was deleted: the windows that show it close. Names differ by letter case too.
  void TopicDeleted(const Text& topicName);

  /// What the user does in any of them goes through one queue, as there is one sound at a time.
  ActionQueue& Actions() { return m_actions; }

  /// Called by a window that closes.
  void Remove(int instanceNumber);

 private:
  SharedState& m_shared;
  Platform& m_platform;
  ActionQueue m_actions;
  std::vector<frmStepper*> m_windows;  // by instance number; null where one has closed
};

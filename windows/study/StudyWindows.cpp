#include "windows/study/StudyWindows.h"

#include "windows/study/frmStepper.h"

#include <algorithm>

frmStepper& StudyWindows::Open() {
  const auto slot = std::find(m_windows.begin(), m_windows.end(), nullptr);
  const auto instance = static_cast<int>(slot - m_windows.begin());
  if (slot == m_windows.end()) m_windows.push_back(nullptr);
  auto* const window = new frmStepper(m_shared, m_platform, *this, instance);
  m_windows[static_cast<std::size_t>(instance)] = window;
  window->show();
  return *window;
}

void StudyWindows::CloseAll() {
  for (frmStepper* const window : std::vector(m_windows)) {
    if (window != nullptr) window->Unload();
  }
}

void StudyWindows::StackRemoved(int stackIndex) {
  for (frmStepper* const window : std::vector(m_windows)) {
    if (window == nullptr) continue;
    if (window->StackIndex() == stackIndex) {
      window->Unload();
    } else if (window->StackIndex() > stackIndex) {
      window->SetStackIndex(window->StackIndex() - 1);
    }
  }
}

void StudyWindows::TopicDeleted(const Text& topicName) {
  for (frmStepper* const window : std::vector(m_windows)) {
    if (window != nullptr && window->TopicName() == topicName) window->Unload();
  }
}

void StudyWindows::Remove(int instanceNumber) {
  m_windows.at(static_cast<std::size_t>(instanceNumber)) = nullptr;
}

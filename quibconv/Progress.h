#pragma once

#include <chrono>
#include <cstddef>

/// Shows on a terminal how far a long run has come; short runs show nothing.
class Progress {
 public:
  explicit Progress(bool onTerminal) : m_onTerminal(onTerminal) {}

  void Show(std::size_t done, std::size_t all);
  /// Takes the line away before something else is written.
  void Hide();

 private:
  using Clock = std::chrono::steady_clock;

  bool m_onTerminal;
  bool m_shown = false;
  Clock::time_point m_next = Clock::now() + std::chrono::milliseconds(500);
};

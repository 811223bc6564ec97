#include "quibconv/Progress.h"

#include <cstdio>

void Progress::Show(std::size_t done, std::size_t all) {
  if (!m_onTerminal) return;
  if (done == all) {
    Hide();
    return;
  }
  const Clock::time_point now = Clock::now();
  if (now < m_next) return;
  m_next = now + std::chrono::milliseconds(100);
  std::fprintf(stderr, "\r\033[K%zu of %zu files", done, all);
  m_shown = true;
}

void Progress::Hide() {
  if (!m_shown) return;
  std::fputs("\r\033[K", stderr);
  m_shown = false;
}

#include "tests/monkey/Journal.h"

#include <cstdio>
#include <cstdlib>

namespace {

constexpr std::size_t LastActions = 60;

}  // namespace

void Journal::BeginStep(const QString& window) {
  ++m_steps;
  ++m_windows[window];
}

void Journal::Note(const QString& action) {
  const QString line = QStringLiteral("%1  %2").arg(m_steps, 6).arg(action);
  if (m_verbose) {
    std::printf("%s\n", line.toUtf8().constData());
    std::fflush(stdout);
  }
  m_last.push_back(line);
  if (m_last.size() > LastActions) m_last.pop_front();
}

void Journal::Fail(const QString& what) {
  for (const QString& line : m_last) std::fprintf(stderr, "%s\n", line.toUtf8().constData());
  std::fprintf(stderr, "monkey: %s\nmonkey: run again with --seed %u --steps %d\n",
               what.toUtf8().constData(), m_seed, m_steps);
  std::fflush(nullptr);
  // At once: half of the program's windows are in the middle of something.
  std::_Exit(1);
}

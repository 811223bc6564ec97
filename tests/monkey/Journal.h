#pragma once

#include <QString>

#include <deque>
#include <map>

/// What the monkey did last, to be read when something broke.
class Journal {
 public:
  /// @param seed     named in the report, so that the run can be repeated
  /// @param verbose  prints every action at once
  Journal(unsigned seed, bool verbose) : m_seed(seed), m_verbose(verbose) {}

  void BeginStep(const QString& window);
  /// Written down before it is done: it may be the last thing that happens.
  void Note(const QString& action);

  /// Prints what is wrong, the seed and the last actions, and ends the process with status 1.
  [[noreturn]] void Fail(const QString& what);

  int Steps() const { return m_steps; }
  /// How many steps began in each kind of window.
  const std::map<QString, int>& Windows() const { return m_windows; }

 private:
  unsigned m_seed;
  bool m_verbose;
  int m_steps = 0;
  std::map<QString, int> m_windows;
  std::deque<QString> m_last;
};

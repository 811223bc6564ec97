#include "tests/support/ChildProcess.h"

#include <cerrno>
#include <cstdio>
#include <exception>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int EndedBadly = 3;

int WaitFor(pid_t child) {
  int state = 0;
  while (::waitpid(child, &state, 0) < 0 && errno == EINTR) {
  }
  return state;
}

}  // namespace

pid_t StartChild(const std::function<void()>& action) {
  (void)std::fflush(nullptr);  // or both would write what is waiting
  const pid_t child = ::fork();
  if (child != 0) return child;
  bool good = false;
  try {
    action();
    good = !testing::Test::HasFailure();
  } catch (const std::exception& error) {
    (void)std::fprintf(stderr, "%s\n", error.what());
  }
  (void)std::fflush(nullptr);
  ::_exit(good ? 0 : EndedBadly);
}

bool EndedWell(pid_t child) {
  const int state = WaitFor(child);
  return WIFEXITED(state) && WEXITSTATUS(state) == 0;
}

int KilledBy(pid_t child) {
  const int state = WaitFor(child);
  return WIFSIGNALED(state) ? WTERMSIG(state) : 0;
}

#pragma once

#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

// What a real disk can do to a program.

inline constexpr uid_t Nobody = 65534;

/// Root may do anything, so nobody could see what a permission does: gives the rights of root up
/// for as long as it lives.
class WithoutRights {
 public:
  WithoutRights() : m_root(::geteuid() == 0) {
    if (m_root && ::setresuid(Nobody, Nobody, 0) != 0) ADD_FAILURE() << "cannot give rights up";
  }
  ~WithoutRights() {
    if (m_root && ::setresuid(0, 0, 0) != 0) std::abort();
  }

 private:
  bool m_root;
};

/// As on a full disk: no file can grow beyond `bytes`.
class SmallDisk {
 public:
  explicit SmallDisk(rlim_t bytes) : m_oldHandler(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &m_old);
    const rlimit small{bytes, m_old.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
  }
  ~SmallDisk() {
    ::setrlimit(RLIMIT_FSIZE, &m_old);
    (void)std::signal(SIGXFSZ, m_oldHandler);
  }

 private:
  void (*m_oldHandler)(int);
  rlimit m_old{};
};

#pragma once

#include <cstdio>
#include <cstdlib>

/// Stops the program when a fuzz target finds a promise broken: to a fuzzer that is a crash.
#define REQUIRE(condition)                                                         \
  do {                                                                             \
    if (!(condition)) {                                                            \
      std::fprintf(stderr, "%s:%d: broken: %s\n", __FILE__, __LINE__, #condition); \
      std::abort();                                                                \
    }                                                                              \
  } while (false)

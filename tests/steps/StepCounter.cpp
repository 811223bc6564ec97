#include "tests/steps/StepCounter.h"

#include <cstddef>

namespace {
std::uint64_t steps = 0;
}

std::uint64_t StepsSoFar() { return steps; }

// The compiler calls the first of these in each basic block; the linker gives the others in the
// place of the system's functions. Their names are not ours to choose.
extern "C" {
// NOLINTBEGIN
void __sanitizer_cov_trace_pc();
void* __real_memchr(const void* s, int c, std::size_t n);
void* __wrap_memchr(const void* s, int c, std::size_t n);
int __real_memcmp(const void* a, const void* b, std::size_t n);
int __wrap_memcmp(const void* a, const void* b, std::size_t n);
void* __real_memcpy(void* to, const void* from, std::size_t n);
void* __wrap_memcpy(void* to, const void* from, std::size_t n);
void* __real_memmove(void* to, const void* from, std::size_t n);
void* __wrap_memmove(void* to, const void* from, std::size_t n);
void* __real_memset(void* s, int c, std::size_t n);
void* __wrap_memset(void* s, int c, std::size_t n);
std::size_t __real_strlen(const char* s);
std::size_t __wrap_strlen(const char* s);

void __sanitizer_cov_trace_pc() { ++steps; }

void* __wrap_memchr(const void* s, int c, std::size_t n) {
  void* const found = __real_memchr(s, c, n);
  const auto passed =
      found == nullptr
          ? n
          : static_cast<std::size_t>(static_cast<const char*>(found) - static_cast<const char*>(s));
  steps += passed / 8;
  return found;
}
int __wrap_memcmp(const void* a, const void* b, std::size_t n) {
  steps += n / 8;
  return __real_memcmp(a, b, n);
}
void* __wrap_memcpy(void* to, const void* from, std::size_t n) {
  steps += n / 8;
  return __real_memcpy(to, from, n);
}
void* __wrap_memmove(void* to, const void* from, std::size_t n) {
  steps += n / 8;
  return __real_memmove(to, from, n);
}
void* __wrap_memset(void* s, int c, std::size_t n) {
  steps += n / 8;
  return __real_memset(s, c, n);
}
std::size_t __wrap_strlen(const char* s) {
  const std::size_t length = __real_strlen(s);
  steps += length / 8;
  return length;
}
// NOLINTEND
}

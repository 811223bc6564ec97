#include "tests/support/MemoryLimit.h"

#include <fstream>
#include <gtest/gtest.h>
#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

void AllowMemory(std::size_t bytes) {
  ::malloc_trim(0);
  std::size_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  const rlim_t most = pages * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE)) + bytes;
  const rlimit limit{most, most};
  ASSERT_EQ(::setrlimit(RLIMIT_AS, &limit), 0);
}

std::string Filled(std::size_t size, const std::string& start, const std::string& piece,
                   const std::string& end) {
  std::string content = start;
  content.reserve(size + piece.size());
  while (content.size() + end.size() < size) content += piece;
  return content + end;
}

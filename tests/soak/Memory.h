#pragma once

#include <cstddef>
#include <cstdio>
#include <fstream>
#include <malloc.h>
#include <string>
#include <vector>

// There only in a build with the address sanitizer, whose heap the system's own count leaves out.
extern "C" __attribute__((weak)) std::size_t __sanitizer_get_current_allocated_bytes();

/// What the process holds, in bytes.
struct Memory {
  std::size_t heap = 0;      ///< allocated and not given back, small blocks and large
  std::size_t resident = 0;  ///< pages in memory
  std::size_t share = 0;     ///< the same, with a page that others hold too counted in part
};

inline std::size_t ValueOf(const char* file, const std::string& name) {
  std::ifstream lines(file);
  for (std::string word; lines >> word;) {
    std::size_t kilobytes = 0;
    if (word == name && lines >> kilobytes) return kilobytes * 1024;
  }
  return 0;
}

inline Memory MemoryNow() {
  Memory memory;
  if (__sanitizer_get_current_allocated_bytes != nullptr) {
    memory.heap = __sanitizer_get_current_allocated_bytes();
  } else {
    const struct mallinfo2 info = mallinfo2();
    memory.heap = info.uordblks + info.hblkhd;
  }
  memory.resident = ValueOf("/proc/self/smaps_rollup", "Rss:");
  memory.share = ValueOf("/proc/self/smaps_rollup", "Pss:");
  return memory;
}

/// The memory at the start of a phase and after each eighth of it, as a table.
class Table {
 public:
  static constexpr int Parts = 8;

  /// @param count  how often the phase repeats its work, at least Parts
  Table(const char* phase, int count) : m_count(count) {
    std::printf("%-28s %10s %10s %10s\n", phase, "heap KiB", "RSS KiB", "PSS KiB");
    Add(0);
  }

  /// Called after each repetition, counted from 1.
  void Done(int repetition) {
    const int part = static_cast<int>(m_rows.size());
    if (static_cast<long>(repetition) * Parts >= static_cast<long>(part) * m_count) Add(repetition);
  }

  /// What the heap has grown by from the end of the second quarter to the end of the last one, in
  /// bytes: what is loaded once, at the first use, has been loaded by then.
  long Growth() const {
    return static_cast<long>(m_rows.back().heap) - static_cast<long>(m_rows.at(Parts / 2).heap);
  }

 private:
  void Add(int repetition) {
    m_rows.push_back(MemoryNow());
    const Memory& row = m_rows.back();
    std::printf("%28d %10zu %10zu %10zu\n", repetition, row.heap / 1024, row.resident / 1024,
                row.share / 1024);
    std::fflush(stdout);
  }

  int m_count;
  std::vector<Memory> m_rows;
};

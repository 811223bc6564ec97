#include "study/RandomSource.h"

#include <chrono>

ClockRandom::ClockRandom()
    : m_engine(static_cast<std::uint64_t>(
          std::chrono::high_resolution_clock::now().time_since_epoch().count())) {}

double ClockRandom::Next() {
  constexpr int Bits = 24;
  return static_cast<double>(m_engine() >> (64 - Bits)) / (1 << Bits);
}

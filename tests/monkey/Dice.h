#pragma once

#include <cstddef>
#include <random>
#include <vector>

/// The monkey's only source of choice: the same seed gives the same choices everywhere.
class Dice {
 public:
  explicit Dice(unsigned seed) : m_engine(seed) {}

  /// 0..count-1; `count` is positive.
  int Below(int count) { return static_cast<int>(m_engine() % static_cast<unsigned>(count)); }

  bool Percent(int chance) { return Below(100) < chance; }

  template <class Container>
  const auto& OneOf(const Container& choices) {
    return *(std::begin(choices) + Below(static_cast<int>(std::size(choices))));
  }

 private:
  std::mt19937 m_engine;
};

#pragma once

#include <random>

/// Uniform numbers in [0, 1).
class RandomSource {
 public:
  virtual ~RandomSource() = default;
  virtual double Next() = 0;
};

/// Seeded from the clock. Multiples of 2^-24: a floating-point distribution may round up to 1,
/// which would draw a card behind the last.
class ClockRandom : public RandomSource {
 public:
  ClockRandom();
  double Next() override;

 private:
  std::mt19937_64 m_engine;
};
